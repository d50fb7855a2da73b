// The combination of the rules of a sample filter, of which there are four.
#include "Fuzzing.h"

#include <QtCore/QSharedPointer>

#include <basic/MbeError.h>
#include <util/KufISampleFilter.h>
#include <util/KufSampleFilterASTVisitor.h>

namespace {

constexpr int ruleCount = 4;

class Combined : public KufISampleFilter
{
public:
    explicit Combined(const QString& combination) : _combination(combination) {}
    int getRulesCount() const override { return ruleCount; }
    QSharedPointer<KufISampleFilterRule> getRule(int) const override { return {}; }
    QString getCombination() const override { return _combination; }

private:
    QString _combination;
};

KufSampleFilterASTVisitor visitorOf(const QString& combination)
{
    const Combined filter(combination);
    return KufSampleFilterASTVisitor(&filter);
}

void requireRefused(const KufSampleFilterASTVisitor& visitor, const QString& text)
{
    require(!visitor.getErrorMessage().isEmpty(), "a refused combination has a message");
    require(visitor.getErrorPosition() <= text.size(), "the error stands in the text");
    try {
        visitor.evaluate({});
    }
    catch (const MbeProgrammingError&) {
        return;
    }
    require(false, "a refused combination is not evaluated");
}

/// For each choice of fulfilled rules, the combination is the opposite of its negation.
void requireOpposite(const KufSampleFilterASTVisitor& visitor, const KufSampleFilterASTVisitor& negation)
{
    require(negation.isValid(), "the negation of a combination is one");
    for (unsigned fulfilled = 0; fulfilled < 1u << ruleCount; ++fulfilled) {
        std::vector<bool> rules;
        for (int i = 0; i < ruleCount; ++i)
            rules.push_back(fulfilled >> i & 1);
        require(visitor.evaluate(rules) != negation.evaluate(rules), "the negation of a combination is its opposite");
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(bytesOf(data, size));
    const KufSampleFilterASTVisitor visitor = visitorOf(text);
    if (visitor.isValid())
        requireOpposite(visitor, visitorOf("not (" + text + ')'));
    else
        requireRefused(visitor, text);
    return 0;
}
