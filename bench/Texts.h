#pragma once

#include "Plan.h"

#include <QtCore/QByteArray>

#include <map>
#include <utility>

/// Two texts in turn, so that each reading changes each value: those of a tree with the values of the plan, and with 1
/// added to each. The first that is read is the second of them. Texts are written once.
class Texts
{
public:
    /// Writes the text, with `offset` added to each value.
    using Save = QByteArray (*)(const Plan& plan, double offset);

    Texts(const Plan& plan, Save save) : _texts(_of(plan, save)) {}

    const QByteArray& getFirst() const { return _texts.first; }
    const QByteArray& next()
    {
        _plusOne = !_plusOne;
        return _plusOne ? _texts.second : _texts.first;
    }
    /// What the text that was read last adds to the values of the plan.
    double getOffset() const { return _plusOne ? 1.0 : 0.0; }

private:
    using Pair = std::pair<QByteArray, QByteArray>;

    static const Pair& _of(const Plan& plan, Save save)
    {
        static std::map<std::pair<const Plan*, Save>, Pair> texts;
        const auto found = texts.find({&plan, save});
        if (found != texts.end())
            return found->second;
        return texts[{&plan, save}] = {save(plan, 0.0), save(plan, 1.0)};
    }

    const Pair& _texts;
    bool _plusOne = false;
};
