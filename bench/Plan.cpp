#include "Plan.h"

#include <map>

Plan::Plan(int leafCount)
{
    for (int i = 0; i < leafCount; ++i)
        _leaves.push_back({QStringLiteral("LEAF_%1").arg(i), QStringLiteral("Leaf %1").arg(i), 0.5 + 0.37 * i});
    for (int i = 0; i < leafCount / GroupSize; ++i)
        _groups.push_back({QStringLiteral("GROUP_%1").arg(i), QStringLiteral("Group %1").arg(i), 0.0});
}

const Plan& Plan::of(int leafCount)
{
    static std::map<int, Plan> plans;
    auto plan = plans.find(leafCount);
    if (plan == plans.end())
        plan = plans.emplace(leafCount, Plan(leafCount)).first;
    return plan->second;
}

QList<double> Plan::getValues(double offset) const
{
    QList<double> values;
    for (const Row& leaf : _leaves)
        values.append(leaf.value + offset);
    return values;
}
