#include <cli/TextTable.h>

#include <cli/SafeText.h>

#include <algorithm>

namespace {

const QString columnGap = QStringLiteral("  ");

QStringList safe(const QStringList& cells)
{
    QStringList result;
    std::transform(cells.begin(), cells.end(), std::back_inserter(result), SafeText::inLine);
    return result;
}

QString trimmedEnd(QString line)
{
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line;
}

QString alignedLine(const QStringList& cells, const QVector<int>& widths)
{
    QStringList padded;
    for (int i = 0; i < cells.size(); ++i) {
        if (widths[i] > 0)
            padded.append(cells[i].leftJustified(widths[i]));
    }
    return trimmedEnd(padded.join(columnGap));
}

QString markdownLine(const QStringList& cells)
{
    QStringList escaped;
    std::transform(cells.begin(), cells.end(), std::back_inserter(escaped), SafeText::inMarkdown);
    return QStringLiteral("| ") + escaped.join(QStringLiteral(" | ")) + QStringLiteral(" |");
}

} // namespace

QString TextTable::toText() const
{
    QVector<QStringList> rows;
    std::transform(_rows.begin(), _rows.end(), std::back_inserter(rows), safe);
    QVector<int> widths(_headings.size());
    for (const QStringList& row : rows) {
        for (int i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (int i = 0; i < widths.size(); ++i)
        widths[i] = widths[i] == 0 ? 0 : std::max(widths[i], _headings[i].size());

    QStringList lines{alignedLine(_headings, widths)};
    for (const QStringList& row : rows)
        lines.append(alignedLine(row, widths));
    return lines.join(QLatin1Char('\n'));
}

QString TextTable::toMarkdown() const
{
    QStringList lines{markdownLine(_headings),
                      QStringLiteral("|") + QStringLiteral(" --- |").repeated(_headings.size())};
    for (const QStringList& row : _rows)
        lines.append(markdownLine(row));
    return lines.join(QLatin1Char('\n'));
}
