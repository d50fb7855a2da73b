#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>

#include <document/FormReading.h>

/// How a form that was read would be written again, compared with how it was.
class FormRewriting
{
public:
    /// `former` is the canonical text of the document before it was read.
    FormRewriting(const QByteArray& bytes, const QByteArray& former, const FormReading& reading);

    /// The document in the layout in which documents are written. Take it before reading, which can convert.
    static QByteArray canonicalText(const InputDocument& input);

    /// Whether the form says the same; its layout may be another.
    bool isSame() const { return _kind != Different; }
    QString toString() const;
    QJsonObject toJson() const;

private:
    enum Kind
    {
        Identical,
        OtherLayout,
        Different
    };

    Kind _kind;
    QString _oldLine; // the first that differs
    QString _newLine;
};
