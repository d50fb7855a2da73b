#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtXml/QDomDocument>

#include <util/KuxXmlLimits.h>

class QIODevice;

/// A document as it was read. Each of its elements knows where it stood (see `ElementPlace`).
struct InputDocument
{
    QString name; ///< of the file, for messages
    QByteArray bytes;
    QDomDocument document;
};

/// What the tool takes of a document: more than any form needs, and little enough to be held in memory many times over.
KuxXmlLimits inputLimits();

/// All of the file `name`, or of the standard input for "-". A file that cannot be read, or is larger than `maxBytes`,
/// is a `Failure` of code `InputFailed` that names the place.
QByteArray readBytes(const QString& name, qint64 maxBytes);

/// A `Failure` of code `InputFailed` at that place of a file.
[[noreturn]] void failAt(const QByteArray& bytes, int offset, const QString& message, const QString& file);

/// The XML document of a file; a `Failure` that names the place if it is refused.
InputDocument readDocument(const QString& file);
/// The same for bytes that came from somewhere else; `name` is for messages.
InputDocument parseDocument(const QByteArray& bytes, const QString& name);
