#include <basic/MbbGlobal.h>
#include <study/KssCsvColumn.h>
#include <study/KssImportCsv.h>

#include <QtCore/QHash>
#include <QtCore/QSet>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int maxEnumCategories = 32766;
constexpr int doubleDigits = std::numeric_limits<double>::digits10;

bool isUndefined(const QString& cell)
{
    return cell.isEmpty() || cell == MbbGlobal::STR_NA;
}

bool isDigits(const QString& cell)
{
    return std::all_of(cell.begin(), cell.end(), [](QChar c) { return c.isDigit(); });
}

/// Long rows of digits are names: as numbers they would lose digits.
bool toNumber(const QString& cell, double& value)
{
    if (cell.size() > doubleDigits && isDigits(cell))
        return false;
    return MbbGlobal::convertString(cell, value) && value != MbbGlobal::D_FFFF;
}

bool isInteger(const QString& cell)
{
    int value = 0;
    return MbbGlobal::convertString(cell, value) && value != MbbGlobal::I32_FFFF;
}

bool fitsFloat(double value)
{
    const double size = std::fabs(value);
    return size == 0.0 ||
           (size >= double(std::numeric_limits<float>::min()) && size < double(std::numeric_limits<float>::max()));
}

bool isOneOf(const QString& cell, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](const char* word) { return cell.compare(QLatin1String(word), Qt::CaseInsensitive) == 0; });
}

bool isTrue(const QString& cell)
{
    return isOneOf(cell, {"true", "yes"});
}

bool isBoolean(const QString& cell)
{
    return isTrue(cell) || isOneOf(cell, {"false", "no"});
}

/// Whether the cell is a value of the type, which is neither one of texts nor of categories.
bool toValue(const QString& cell, const MbdEVarType& type, double& value)
{
    if (type == MbdEVarType::BOOLEAN) {
        value = isTrue(cell) ? 1.0 : 0.0;
        return isBoolean(cell);
    }
    if (!toNumber(cell, value))
        return false;
    if (type == MbdEVarType::BYTE)
        return isInteger(cell) && value >= 0 && value <= 255;
    if (type == MbdEVarType::INTEGER)
        return isInteger(cell);
    return type == MbdEVarType::DOUBLE || fitsFloat(value);
}

/// What the cells of a column look like.
struct Census
{
    int cells = 0; ///< without the undefined ones
    int numbers = 0;
    int integers = 0;
    int booleans = 0;
    QSet<QString> texts; ///< one too many at most

    void add(const QString& cell)
    {
        ++cells;
        double value = 0.0;
        if (toNumber(cell, value)) {
            ++numbers;
            integers += isInteger(cell) ? 1 : 0;
        }
        booleans += isBoolean(cell) ? 1 : 0;
        if (texts.size() <= KssImportCsv::MaxCategories)
            texts.insert(cell);
    }
};

QString shortened(const QString& cell)
{
    constexpr int longest = 40;
    return cell.size() <= longest ? cell : cell.left(longest) + QStringLiteral("...");
}

} // namespace

KssCsvColumn::KssCsvColumn(const KssCsvTable& table, int column, const std::optional<MbdEVarType>& type)
    : _table(table),
      _column(column),
      _type(type ? *type : _findType())
{
    if (_type == MbdEVarType::STRING)
        _readTexts();
    else if (_type == MbdEVarType::ENUM)
        _readCategories();
    else
        _readValues();
}

MbdEVarType KssCsvColumn::_findType() const
{
    Census census;
    for (int row = 0; row < _table.getRowCount(); ++row) {
        const QString cell = _cell(row);
        if (!isUndefined(cell))
            census.add(cell);
    }
    if (census.cells == 0)
        return MbdEVarType::STRING;
    if (qint64(census.numbers) * 10 >= qint64(census.cells) * 9)
        return census.integers == census.numbers ? MbdEVarType::INTEGER : MbdEVarType::DOUBLE;
    if (census.booleans == census.cells)
        return MbdEVarType::BOOLEAN;
    const int texts = census.texts.size();
    return texts <= KssImportCsv::MaxCategories && texts <= census.cells / 2 ? MbdEVarType::ENUM : MbdEVarType::STRING;
}

void KssCsvColumn::_readTexts()
{
    for (int row = 0; row < _table.getRowCount(); ++row)
        _texts.append(_cell(row));
}

void KssCsvColumn::_readCategories()
{
    QHash<QString, int> indices;
    for (int row = 0; row < _table.getRowCount(); ++row) {
        const QString cell = _cell(row);
        if (!isUndefined(cell))
            indices.insert(cell, 0);
    }
    _labels = indices.keys();
    _labels.sort();
    if (_labels.size() > maxEnumCategories)
        _mistakes.append({0, _column + 1, QStringLiteral("There are more than %1 categories.").arg(maxEnumCategories)});
    for (int i = 0; i < _labels.size(); ++i)
        indices[_labels.at(i)] = i;
    for (int row = 0; row < _table.getRowCount(); ++row) {
        const QString cell = _cell(row);
        _values.push_back(isUndefined(cell) ? MbbGlobal::D_FFFF : indices.value(cell));
    }
}

void KssCsvColumn::_readValues()
{
    for (int row = 0; row < _table.getRowCount() && _mistakes.size() < KssCsvTable::MaxMistakes; ++row) {
        const QString cell = _cell(row);
        double value = MbbGlobal::D_FFFF;
        if (!isUndefined(cell) && !toValue(cell, _type, value))
            _mistakes.append({_table.getLine(row), _column + 1,
                              QStringLiteral("'%1' does not fit the type %2.").arg(shortened(cell), _type.getKey())});
        _values.push_back(value);
    }
}
