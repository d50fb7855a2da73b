#pragma once

#include <QtCore/QStringList>

#include <basic/MbdEVarType.h>
#include <study/KssCsvTable.h>

#include <optional>
#include <vector>

/// The values of one column of a table, and their type: the one that is asked for, or the one that the cells fit (see
/// `KssImportCsv`).
class KssCsvColumn
{
public:
    KssCsvColumn(const KssCsvTable& table, int column, const std::optional<MbdEVarType>& type);

    const MbdEVarType& getType() const { return _type; }
    /// Cells that do not fit the type. Reading ends with the `KssCsvTable::MaxMistakes`th.
    const QList<KssCsvTable::Mistake>& getMistakes() const { return _mistakes; }
    /// One for each row, of any type but STRING; undefined is `MbbGlobal::D_FFFF`. Those of the type ENUM are indices
    /// in `getLabels`.
    const std::vector<double>& getValues() const { return _values; }
    /// One for each row, of the type STRING.
    const QStringList& getTexts() const { return _texts; }
    /// The different texts of the type ENUM, sorted.
    const QStringList& getLabels() const { return _labels; }

private:
    MbdEVarType _findType() const;
    void _readTexts();
    void _readCategories();
    void _readValues();
    QString _cell(int row) const { return _table.getCell(row, _column); }

    const KssCsvTable& _table;
    int _column;
    MbdEVarType _type;
    QList<KssCsvTable::Mistake> _mistakes;
    std::vector<double> _values;
    QStringList _texts;
    QStringList _labels;
};
