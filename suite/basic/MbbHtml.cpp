#include <basic/MbbHtml.h>

namespace {
struct Markup
{
    int option;
    QLatin1String opening;
    QLatin1String closing;
};

// From the innermost to the outermost.
const Markup markups[] = {
    {MbbHtml::Fixed, QLatin1String("<tt>"), QLatin1String("</tt>")},
    {MbbHtml::Small, QLatin1String("<small>"), QLatin1String("</small>")},
    {MbbHtml::Underline, QLatin1String("<u>"), QLatin1String("</u>")},
    {MbbHtml::Italic, QLatin1String("<i>"), QLatin1String("</i>")},
    {MbbHtml::Bold, QLatin1String("<b>"), QLatin1String("</b>")},
    {MbbHtml::Heading, QLatin1String("<big><b>"), QLatin1String("</b></big>")},
    {MbbHtml::NoBreak, QLatin1String("<nobr>"), QLatin1String("</nobr>")},
};
} // namespace

QString MbbHtml::emptyString(int count)
{
    return count < 1 ? QString() : QString(count, QChar(QChar::Nbsp));
}

QString MbbHtml::emptyLine(int count)
{
    return count < 1 ? QString() : QStringLiteral("<br/>").repeated(count);
}

QString MbbHtml::bold(const QString& text)
{
    return format(text, Bold);
}

QString MbbHtml::italic(const QString& text)
{
    return format(text, Italic);
}

QString MbbHtml::displayName(const QString& name)
{
    return bold(name);
}

QString MbbHtml::format(const QString& text, int options)
{
    QString html = text.toHtmlEscaped();
    for (const Markup& markup : markups) {
        if (options & markup.option)
            html = markup.opening + html + markup.closing;
    }
    return html;
}
