#include <store/FicheKey.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

namespace {

const QString valueEntry = QStringLiteral("value");

QString decoded(const QString& code)
{
    return QString::fromUtf8(QByteArray::fromBase64(code.toLatin1()));
}

/// The entries "<name|code>..." of one parameter.
QString readableEntries(const QString& entries)
{
    static const QRegularExpression entry(QStringLiteral("<([^|<>]*)\\|([A-Za-z0-9+/]*={0,2})>"));
    QStringList names;
    QStringList values;
    for (auto match = entry.globalMatch(entries); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        names.append(found.captured(1));
        values.append(decoded(found.captured(2)));
    }
    if (names == QStringList(valueEntry))
        return values.first();
    for (int i = 0; i < names.size(); ++i)
        values[i].prepend(names[i] + QLatin1Char(':'));
    return QLatin1Char('(') + values.join(QLatin1Char(' ')) + QLatin1Char(')');
}

} // namespace

QString readableKey(const QString& ficheKey)
{
    static const QRegularExpression part(QStringLiteral("^([^=]*)=((?:<[^|<>]*\\|[A-Za-z0-9+/]*={0,2}>)+)$"));
    QStringList texts;
    for (const QString& text : ficheKey.split(QStringLiteral("{}"))) {
        const QRegularExpressionMatch found = part.match(text);
        if (!found.hasMatch())
            return ficheKey;
        texts.append(found.captured(1) + QLatin1Char('=') + readableEntries(found.captured(2)));
    }
    return texts.join(QStringLiteral(", "));
}
