#include <cli/SafeText.h>

#include <QtCore/QStringList>

namespace {

bool isUnsafe(uint code)
{
    switch (QChar::category(code)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

QString escapeOf(uint code)
{
    switch (code) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u{%1}").arg(code, 0, 16);
    }
}

} // namespace

QString SafeText::inLine(const QString& text)
{
    QString safe;
    safe.reserve(text.size());
    for (const uint code : text.toUcs4()) {
        if (isUnsafe(code))
            safe += escapeOf(code);
        else
            safe += QString::fromUcs4(&code, 1);
    }
    return safe;
}

QString SafeText::quoted(const QString& text)
{
    return QLatin1Char('\'') + inLine(text) + QLatin1Char('\'');
}

QString SafeText::inMessage(const QString& text)
{
    QStringList lines;
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        lines.append(inLine(line));
    return lines.join(QStringLiteral("\n    "));
}

QString SafeText::inMarkdown(const QString& text)
{
    static const QString special = QStringLiteral("\\`*_{}[]<>()#+!|~&");
    QString escaped;
    for (const QChar c : inLine(text)) {
        if (special.contains(c))
            escaped += QLatin1Char('\\');
        escaped += c;
    }
    return escaped;
}
