#pragma once

#include <QtCore/QStringList>
#include <QtCore/QVector>

/// Rows of texts below headings. The texts are made safe when they are printed.
class TextTable
{
public:
    explicit TextTable(const QStringList& headings) : _headings(headings) {}

    /// As many texts as there are headings.
    void addRow(const QStringList& cells) { _rows.append(cells); }
    int getRowCount() const { return _rows.size(); }

    /// Columns side by side, without those that are empty; no line feed at the end.
    QString toText() const;
    QString toMarkdown() const;

private:
    QStringList _headings;
    QVector<QStringList> _rows;
};
