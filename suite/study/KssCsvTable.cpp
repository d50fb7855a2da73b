#include <study/Ks.h>
#include <study/KssCsvTable.h>

#include <QtCore/QHash>

#include <algorithm>
#include <array>

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isControl(char c)
{
    return uchar(c) < 0x20 && c != '\t' && c != '\n' && c != '\r';
}

bool isUtf8(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes).toUtf8() == bytes;
}

} // namespace

KssCsvTable::KssCsvTable(const QByteArray& text) : _text(text)
{
    if (_text.startsWith("\xEF\xBB\xBF"))
        _place = 3;
    _separator = _findSeparator();
    _read();
    if (_names.isEmpty() && _mistakes.isEmpty())
        _addMistake(1, 0, QStringLiteral("There is no line of names."));
    else if (_lines.empty() && _mistakes.isEmpty())
        _addMistake(_line, 0, QStringLiteral("There is no line of values."));
}

QString KssCsvTable::getCell(int row, int column) const
{
    return _textOf(_cells[std::size_t(row) * std::size_t(getColumnCount()) + std::size_t(column)]);
}

void KssCsvTable::_read()
{
    while (!_isAtEnd() && _mistakes.size() < MaxMistakes) {
        const int line = _line;
        const int mistakes = _mistakes.size();
        const std::vector<Cell> cells = _readLine();
        if (cells.empty())
            continue;
        if (_names.isEmpty())
            _takeNames(cells, line);
        else if (_mistakes.size() == mistakes)
            _takeRow(cells, line);
    }
}

/// The cells of the next line, none if it is blank.
std::vector<KssCsvTable::Cell> KssCsvTable::_readLine()
{
    std::vector<Cell> cells;
    const int begin = _place;
    do {
        if (!cells.empty())
            ++_place; // the separator
        if (int(cells.size()) == MaxColumns) {
            _addMistake(_line, MaxColumns + 1, QStringLiteral("There are more than %1 columns.").arg(MaxColumns));
            _place = _text.size();
            break;
        }
        const int line = _line;
        cells.push_back(_readCell(int(cells.size()) + 1));
        _check(cells.back(), line, int(cells.size()));
    } while (!_isAtLineEnd());
    const bool blank =
        std::all_of(_text.cbegin() + begin, _text.cbegin() + _place, [](char c) { return c == ' ' || c == '\t'; });
    _skipLineBreak();
    return blank && cells.size() == 1 ? std::vector<Cell>() : cells;
}

KssCsvTable::Cell KssCsvTable::_readCell(int column)
{
    _skipBlanks();
    return !_isAtEnd() && _text.at(_place) == '"' ? _readQuoted(column) : _readPlain();
}

KssCsvTable::Cell KssCsvTable::_readPlain()
{
    const int begin = _place;
    while (!_isAtCellEnd())
        ++_place;
    int end = _place;
    while (end > begin && isBlank(_text.at(end - 1)))
        --end;
    return {begin, end - begin};
}

KssCsvTable::Cell KssCsvTable::_readQuoted(int column)
{
    const int line = _line;
    const int begin = ++_place;
    while (!_isAtEnd()) {
        if (_text.at(_place) == '"' && (_place + 1 == _text.size() || _text.at(_place + 1) != '"'))
            break;
        if (_text.at(_place) == '"')
            _place += 2;
        else if (_isAtLineEnd())
            _skipLineBreak();
        else
            ++_place;
    }
    const Cell cell{begin, _place - begin};
    if (_isAtEnd()) {
        _addMistake(line, column, QStringLiteral("The quote is not closed."));
        return cell;
    }
    ++_place;
    _skipBlanks();
    if (!_isAtCellEnd()) {
        _addMistake(_line, column, QStringLiteral("There is text after the closing quote."));
        while (!_isAtCellEnd())
            ++_place;
    }
    return cell;
}

void KssCsvTable::_skipBlanks()
{
    while (!_isAtCellEnd() && isBlank(_text.at(_place)))
        ++_place;
}

void KssCsvTable::_skipLineBreak()
{
    if (_isAtEnd())
        return;
    const bool pair = _text.at(_place) == '\r' && _place + 1 < _text.size() && _text.at(_place + 1) == '\n';
    _place += pair ? 2 : 1;
    ++_line;
}

/// Judges by the first line that is not blank.
char KssCsvTable::_findSeparator() const
{
    const std::array<char, 3> separators{';', '\t', ','};
    std::array<int, 3> counts{};
    bool quoted = false;
    bool quotable = true; // a quote inside a cell is one of its characters
    bool blank = true;
    for (int i = _place; i < _text.size(); ++i) {
        const char c = _text.at(i);
        if (!quoted && (c == '\n' || c == '\r')) {
            if (!blank)
                break;
            counts = {};
            continue;
        }
        blank = blank && isBlank(c);
        const auto found = std::find(separators.begin(), separators.end(), c);
        const bool isSeparator = found != separators.end();
        if (c == '"' && quotable)
            quoted = !quoted;
        else if (!quoted && isSeparator)
            ++counts[std::size_t(found - separators.begin())];
        quotable = quoted || isSeparator || (quotable && (c == '"' || isBlank(c)));
    }
    return separators[std::size_t(std::max_element(counts.begin(), counts.end()) - counts.begin())];
}

void KssCsvTable::_check(const Cell& cell, int line, int column)
{
    const auto begin = _text.cbegin() + cell.begin;
    const auto end = begin + cell.size;
    if (cell.size > MaxCellSize)
        _addMistake(line, column, QStringLiteral("The cell is longer than %1 bytes.").arg(MaxCellSize));
    else if (std::any_of(begin, end, isControl))
        _addMistake(line, column, QStringLiteral("The cell has a character that is not allowed."));
    else if (std::any_of(begin, end, [](char c) { return uchar(c) >= 0x80; }) &&
             !isUtf8(_text.mid(cell.begin, cell.size)))
        _addMistake(line, column, QStringLiteral("The cell is not in UTF-8."));
}

void KssCsvTable::_takeNames(const std::vector<Cell>& cells, int line)
{
    QHash<QString, int> columns;
    for (const Cell& cell : cells) {
        const QString name = _textOf(cell);
        const int column = _names.size() + 1;
        const QString problem = Ks::describeInvalidName(name);
        if (!problem.isEmpty())
            _addMistake(line, column, problem);
        else if (columns.contains(name))
            _addMistake(line, column,
                        QStringLiteral("The name '%1' is that of column %2, too.")
                            .arg(name, QString::number(columns.value(name))));
        columns.insert(name, column);
        _names.append(name);
    }
}

void KssCsvTable::_takeRow(const std::vector<Cell>& cells, int line)
{
    const std::size_t wanted = std::size_t(getColumnCount());
    if (cells.size() != wanted) {
        _addMistake(line, int(std::min(cells.size(), wanted)) + 1,
                    QStringLiteral("The line has %1 cells instead of %2.")
                        .arg(QString::number(cells.size()), QString::number(wanted)));
        return;
    }
    if (_cells.size() + wanted > std::size_t(MaxCells)) {
        _addMistake(line, 0, QStringLiteral("There are more than %1 cells.").arg(MaxCells));
        _place = _text.size();
        return;
    }
    _cells.insert(_cells.end(), cells.begin(), cells.end());
    _lines.push_back(line);
}

void KssCsvTable::_addMistake(int line, int column, const QString& text)
{
    _mistakes.append({line, column, text});
}

QString KssCsvTable::_textOf(const Cell& cell) const
{
    QByteArray bytes = QByteArray::fromRawData(_text.constData() + cell.begin, cell.size);
    const bool quoted = cell.begin > 0 && _text.at(cell.begin - 1) == '"';
    if (quoted)
        bytes.replace("\"\"", "\"");
    return QString::fromUtf8(bytes);
}
