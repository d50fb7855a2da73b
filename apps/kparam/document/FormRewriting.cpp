#include <document/FormRewriting.h>

#include <cli/SafeText.h>
#include <document/WrittenForm.h>
#include <util/KuxXml.h>

QByteArray FormRewriting::canonicalText(const InputDocument& input)
{
    QDomDocument copy = input.document.cloneNode(true).toDocument();
    ElementPlace::unmark(copy);
    return KuxXml::toText(copy);
}

FormRewriting::FormRewriting(const QByteArray& bytes, const QByteArray& former, const FormReading& reading)
{
    const QByteArray written = createBytes(*reading.parameter, reading.isTask);
    _kind = written == bytes ? Identical : written == former ? OtherLayout : Different;
    if (_kind != Different)
        return;
    const QList<QByteArray> oldLines = former.split('\n');
    const QList<QByteArray> newLines = written.split('\n');
    int line = 0;
    while (line < oldLines.size() && line < newLines.size() && oldLines[line] == newLines[line])
        ++line;
    _oldLine = QString::fromUtf8(oldLines.value(line)).trimmed();
    _newLine = QString::fromUtf8(newLines.value(line)).trimmed();
}

QString FormRewriting::toString() const
{
    switch (_kind) {
    case Identical:
        return QStringLiteral("written again, it is the same, byte for byte");
    case OtherLayout:
        return QStringLiteral("written again, it is the same but for its layout");
    default:
        return QStringLiteral("written again, it differs, first in %1, which would be %2")
            .arg(SafeText::quoted(_oldLine), SafeText::quoted(_newLine));
    }
}

QJsonObject FormRewriting::toJson() const
{
    static const char* const names[] = {"identical", "other layout", "different"};
    QJsonObject object{{"result", names[_kind]}};
    if (_kind == Different) {
        object.insert("stored", _oldLine);
        object.insert("written", _newLine);
    }
    return object;
}
