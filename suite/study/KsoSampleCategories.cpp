#include <study/KsoSampleCategories.h>

#include <QtCore/QObject>

#include <basic/MbbGlobal.h>
#include <study/KsbFilteredVariable.h>
#include <study/KsoAVariableItem.h>
#include <study/KstTransactionDataR.h>

#include <cstddef>

namespace {

using Column = std::vector<QVariant>;

Column readTexts(const KstTransactionDataR& transaction, const KsoAVariableItem& variable)
{
    QStringList texts;
    transaction.readTexts(&variable, texts);
    return Column(texts.begin(), texts.end());
}

Column readLabels(const KstTransactionDataR& transaction, const KsoAVariableItem& variable)
{
    const QHash<short, QString> labels = KsbFilteredVariable::labelsOf(variable);
    std::vector<short> codes;
    transaction.readCodes(&variable, codes);
    Column column;
    column.reserve(codes.size());
    for (const short code : codes) {
        const auto label = labels.constFind(code);
        column.push_back(label != labels.constEnd() ? QVariant(*label) : QVariant());
    }
    return column;
}

Column readNumbers(const KstTransactionDataR& transaction, const KsoAVariableItem& variable)
{
    std::vector<double> values;
    transaction.readValues(&variable, values);
    Column column;
    column.reserve(values.size());
    for (const double value : values)
        column.push_back(value == MbbGlobal::D_FFFF ? QVariant() : QVariant(value));
    return column;
}

Column read(const KstTransactionDataR& transaction, const KsoAVariableItem& variable)
{
    const MbdEVarType type = variable.getStorageType();
    if (type == MbdEVarType::STRING)
        return readTexts(transaction, variable);
    return type == MbdEVarType::ENUM ? readLabels(transaction, variable) : readNumbers(transaction, variable);
}

} // namespace

std::vector<int> KsoSampleCategories::categorise(const KstTransactionDataR& transaction, const KsoDataSupport& support,
                                                 const Condition& condition) const
{
    std::vector<Column> columns;
    for (const KsoDataIdentifier& variable : _variables)
        columns.push_back(read(transaction, KsbFilteredVariable::find(variable, support, QObject::tr("Categories"))));
    std::vector<int> found;
    found.reserve(std::size_t(support.getSampleCount()));
    for (std::size_t sample = 0; sample < std::size_t(support.getSampleCount()); ++sample) {
        QList<QVariant> values;
        for (const Column& column : columns)
            values.append(column[sample]);
        found.push_back(_ruleOf(values, condition));
    }
    return found;
}

int KsoSampleCategories::_ruleOf(const QList<QVariant>& values, const Condition& condition) const
{
    for (int i = 0; i < _rules.size(); ++i) {
        const QString& text = _rules.at(i).getCond();
        if (!text.trimmed().isEmpty() && condition(values, text))
            return i;
    }
    return NoRule;
}
