#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

/// The cells of a text of columns (CSV, in UTF-8), and what is wrong with them. The first line that is not blank has
/// the names of the columns; blank lines do not count. Cells are parted by semicolons, tabs or commas, whichever the
/// first line has most of, semicolons before tabs before commas. A cell in quotes may have separators, line breaks and,
/// each written twice, quotes; around other cells blanks do not count. Lines end with a line feed, a carriage return or
/// both.
class KssCsvTable
{
public:
    /// A mistake in the text. Lines and columns are counted from 1; a column is one of the table. 0 stands for all.
    struct Mistake
    {
        int line;
        int column;
        QString text;
    };

    static constexpr int MaxColumns = 1000;
    static constexpr int MaxCells = 20'000'000;
    static constexpr int MaxCellSize = 32767; ///< bytes
    static constexpr int MaxMistakes = 1000;  ///< reading ends with this one

    explicit KssCsvTable(const QByteArray& text);

    /// In order of lines. With a mistake, rows and columns are those that could be read.
    const QList<Mistake>& getMistakes() const { return _mistakes; }
    const QStringList& getNames() const { return _names; }
    int getColumnCount() const { return _names.size(); }
    int getRowCount() const { return int(_lines.size()); }
    /// The line that the row begins in.
    int getLine(int row) const { return _lines[std::size_t(row)]; }
    /// Empty where there is none.
    QString getCell(int row, int column) const;

private:
    /// A piece of the text; of a quoted cell, what is between its quotes.
    struct Cell
    {
        int begin;
        int size;
    };

    void _read();
    std::vector<Cell> _readLine();
    Cell _readCell(int column);
    Cell _readQuoted(int column);
    Cell _readPlain();
    void _skipBlanks();
    void _skipLineBreak();
    bool _isAtCellEnd() const { return _isAtLineEnd() || _text.at(_place) == _separator; }
    bool _isAtLineEnd() const { return _isAtEnd() || _text.at(_place) == '\n' || _text.at(_place) == '\r'; }
    bool _isAtEnd() const { return _place >= _text.size(); }
    char _findSeparator() const;
    void _check(const Cell& cell, int line, int column);
    void _takeNames(const std::vector<Cell>& cells, int line);
    void _takeRow(const std::vector<Cell>& cells, int line);
    void _addMistake(int line, int column, const QString& text);
    QString _textOf(const Cell& cell) const;

    QByteArray _text;
    int _place = 0;
    int _line = 1;
    char _separator = ',';
    QList<Mistake> _mistakes;
    QStringList _names;
    std::vector<Cell> _cells;
    std::vector<int> _lines;
};
