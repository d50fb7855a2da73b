#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

#include <string>
#include <vector>

/// What a tree of doubles is to be built of, the same for all sides: groups of 20 leaves with keys, labels, bounds and
/// values, the texts in the string of the side. Plans are made once; all rows share the bounds.
template <class String>
class BasicPlan
{
public:
    struct Row
    {
        String key;
        String label;
        double value;
    };

    static constexpr int GroupSize = 20;
    static constexpr const char* ListKey = "LIST";
    static constexpr double Minimum = 0.0;
    static constexpr double Maximum = 1e6;

    /// The plan with this number of leaves, a multiple of 20.
    static const BasicPlan& of(int leafCount);

    const std::vector<Row>& getLeaves() const { return _leaves; }
    const std::vector<Row>& getGroups() const { return _groups; }
    /// The values of all leaves, with `offset` added to each.
    QList<double> getValues(double offset = 0.0) const;

    template <class EnterGroup, class VisitLeaf>
    void walk(EnterGroup enterGroup, VisitLeaf visitLeaf) const
    {
        for (std::size_t i = 0; i < _leaves.size(); ++i) {
            if (i % GroupSize == 0)
                enterGroup(_groups[i / GroupSize]);
            visitLeaf(_leaves[i]);
        }
    }

private:
    explicit BasicPlan(int leafCount);

    std::vector<Row> _leaves;
    std::vector<Row> _groups;
};

using Plan = BasicPlan<QString>;
using StdPlan = BasicPlan<std::string>;

extern template class BasicPlan<QString>;
extern template class BasicPlan<std::string>;
