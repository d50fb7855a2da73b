#include <study/KsoSampleFilter.h>

#include <QtCore/QObject>

#include <basic/MbeError.h>
#include <study/KsbFilteredVariable.h>
#include <study/KsoAVariableItem.h>
#include <study/KstTransactionDataR.h>
#include <util/KufSampleFilterASTVisitor.h>
#include <util/KufSampleFilterRuleAlpha.h>
#include <util/KufSampleFilterRuleEnum.h>
#include <util/KufSampleFilterRuleNumeric.h>
#include <util/KufSampleFilterRuleSelection.h>

#include <algorithm>
#include <cstddef>

namespace {

using Kept = std::vector<bool>;

/// Asks `rule` about every value.
template <class Values, class Rule>
Kept judge(const Values& values, const Rule& rule)
{
    Kept kept;
    kept.reserve(std::size_t(values.size()));
    for (const auto& value : values)
        kept.push_back(rule.accepts(value));
    return kept;
}

template <class Rule>
Kept judgeNumbers(const KstTransactionDataR& transaction, const KsoAVariableItem& variable, const Rule& rule)
{
    std::vector<double> values;
    transaction.readValues(&variable, values);
    return judge(values, rule);
}

Kept judgeTexts(const KstTransactionDataR& transaction, const KsoAVariableItem& variable,
                const KufSampleFilterRuleAlpha& rule)
{
    QStringList texts;
    transaction.readTexts(&variable, texts);
    return judge(texts, rule);
}

Kept judgeCategories(const KstTransactionDataR& transaction, const KsoAVariableItem& variable,
                     const KufSampleFilterRuleEnum& rule)
{
    const QHash<short, QString> labels = KsbFilteredVariable::labelsOf(variable);
    std::vector<short> codes;
    transaction.readCodes(&variable, codes);
    Kept kept;
    kept.reserve(codes.size());
    for (const short code : codes) {
        const auto label = labels.constFind(code);
        kept.push_back(label != labels.constEnd() && rule.accepts(*label));
    }
    return kept;
}

} // namespace

void KsoSampleFilter::addRule(const KsoDataIdentifier& variable, const QSharedPointer<KufISampleFilterRule>& rule)
{
    if (!rule)
        throw MbeProgrammingError(QStringLiteral("A sample filter cannot have a rule that is null."));
    _rules.append({variable, rule});
}

std::vector<bool> KsoSampleFilter::getKeptSamples(const KstTransactionDataR& transaction,
                                                  const KsoDataSupport& support) const
{
    Kept kept(std::size_t(support.getSampleCount()), true);
    if (!_active)
        return kept;
    const KufSampleFilterASTVisitor combination(this);
    if (!combination.isValid())
        throw MbeUserError(combination.getErrorMessage());
    std::vector<Kept> fulfilled;
    for (int i = 0; i < getRulesCount(); ++i)
        fulfilled.push_back(_fulfilled(i, transaction, support));
    Kept ofSample(fulfilled.size());
    for (std::size_t sample = 0; sample < kept.size(); ++sample) {
        for (std::size_t rule = 0; rule < fulfilled.size(); ++rule)
            ofSample[rule] = fulfilled[rule][sample];
        kept[sample] = combination.evaluate(ofSample);
    }
    return kept;
}

std::vector<bool> KsoSampleFilter::_fulfilled(int i, const KstTransactionDataR& transaction,
                                              const KsoDataSupport& support) const
{
    const QString name = QLatin1Char('R') + QString::number(i + 1);
    const KsoAVariableItem& variable = KsbFilteredVariable::find(getVariableId(i), support, name);
    const KufISampleFilterRule* rule = _rules.at(i).rule.data();
    const MbdEVarType type = variable.getStorageType();
    if (const auto* numeric = dynamic_cast<const KufSampleFilterRuleNumeric*>(rule); numeric && type.isNumeric())
        return judgeNumbers(transaction, variable, *numeric);
    if (const auto* selection = dynamic_cast<const KufSampleFilterRuleSelection*>(rule);
        selection && type == MbdEVarType::BOOLEAN)
        return judgeNumbers(transaction, variable, *selection);
    if (const auto* alpha = dynamic_cast<const KufSampleFilterRuleAlpha*>(rule); alpha && type == MbdEVarType::STRING)
        return judgeTexts(transaction, variable, *alpha);
    if (const auto* categories = dynamic_cast<const KufSampleFilterRuleEnum*>(rule);
        categories && type == MbdEVarType::ENUM)
        return judgeCategories(transaction, variable, *categories);
    throw MbeUserError(
        QObject::tr("%1: the variable '%2' is not of a type that the rule can judge.").arg(name, variable.getName()));
}

int KsoSampleFilter::countKeptSamples(const KstTransactionDataR& transaction, const KsoDataSupport& support) const
{
    const Kept kept = getKeptSamples(transaction, support);
    return int(std::count(kept.begin(), kept.end(), true));
}
