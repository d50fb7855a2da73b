#include "Plan.h"

#include <map>

namespace {

template <class String>
String numbered(const char* text, int number);

template <>
std::string numbered(const char* text, int number)
{
    return text + std::to_string(number);
}

template <>
QString numbered(const char* text, int number)
{
    return QString::fromStdString(numbered<std::string>(text, number));
}

} // namespace

template <class String>
BasicPlan<String>::BasicPlan(int leafCount)
{
    for (int i = 0; i < leafCount; ++i)
        _leaves.push_back({numbered<String>("LEAF_", i), numbered<String>("Leaf ", i), 0.5 + 0.37 * i});
    for (int i = 0; i < leafCount / GroupSize; ++i)
        _groups.push_back({numbered<String>("GROUP_", i), numbered<String>("Group ", i), 0.0});
}

template <class String>
const BasicPlan<String>& BasicPlan<String>::of(int leafCount)
{
    static std::map<int, BasicPlan> plans;
    auto plan = plans.find(leafCount);
    if (plan == plans.end())
        plan = plans.emplace(leafCount, BasicPlan(leafCount)).first;
    return plan->second;
}

template <class String>
QList<double> BasicPlan<String>::getValues(double offset) const
{
    QList<double> values;
    for (const Row& leaf : _leaves)
        values.append(leaf.value + offset);
    return values;
}

template class BasicPlan<QString>;
template class BasicPlan<std::string>;
