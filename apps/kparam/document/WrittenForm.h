#pragma once

#include <QtCore/QByteArray>
#include <QtXml/QDomDocument>

class KpbAParameter;

/// The stored form of a parameter: a "task" document for a fiche where that is asked for, else a "param" document.
QDomDocument createDocument(const KpbAParameter& parameter, bool asTask);
/// The same as the bytes of a file.
QByteArray createBytes(const KpbAParameter& parameter, bool asTask);

/// Writes a file, as a whole or not at all. What cannot be written is a `Failure` of code `OutputFailed`.
void writeFile(const QString& file, const QByteArray& bytes);
