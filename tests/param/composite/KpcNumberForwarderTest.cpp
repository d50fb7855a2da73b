#include "CompositeTestTools.h"

#include <basic/MbuUnitService.h>
#include <param/composite/KpcVectorConstraintDouble.h>

#include <functional>
#include <utility>

namespace {

MbbStringFormat decimals(int count)
{
    MbbStringFormat format;
    format.setNotation(MbbEFormat::DECIMAL);
    format.setPrecision(count);
    return format;
}

MbdVariableDetails lengthDetails()
{
    MbdVariableDetails details(MbuEUnitClass::LENGTH);
    details.setPowerValue(2);
    return details;
}

/// All numbers below `parameter`.
void collect(KpbAParameter& parameter, QList<KpaDouble*>& numbers)
{
    if (auto* number = dynamic_cast<KpaDouble*>(&parameter))
        numbers.append(number);
    for (int i = 0; i < parameter.getChildCount(); ++i)
        collect(*parameter.getChild(i), numbers);
}

template <class Composite>
struct KpcNumberForwarderTest : testing::Test
{
    KpcNumberForwarderTest()
    {
        composite.setUnitClass(MbuEUnitClass::LENGTH);
        collect(composite, numbers);
    }

    Composite composite{"C", TestContext::instance()};
    QList<KpaDouble*> numbers;
};

using Composites = testing::Types<KpcConstraintDouble, KpcVectorConstraintDouble>;

} // namespace

TYPED_TEST_SUITE(KpcNumberForwarderTest, Composites, );

TYPED_TEST(KpcNumberForwarderTest, SetsTheConfigurationOfAllNumbers)
{
    const MbuUnit km = MbuUnitService::getUnit("km");
    using Check = std::function<bool(const KpaDouble&)>;
    const std::tuple<const char*, std::function<void(TypeParam&)>, Check> rows[] = {
        {"setMinimum", [](TypeParam& c) { c.setMinimum(-3); }, [](const KpaDouble& n) { return n.getMinimum() == -3; }},
        {"setMinimum in km", [=](TypeParam& c) { c.setMinimum(-2, km); },
         [](const KpaDouble& n) { return n.getMinimum() == -2000; }},
        {"setMaximum", [](TypeParam& c) { c.setMaximum(3); }, [](const KpaDouble& n) { return n.getMaximum() == 3; }},
        {"setMaximum in km", [=](TypeParam& c) { c.setMaximum(2, km); },
         [](const KpaDouble& n) { return n.getMaximum() == 2000; }},
        {"setRange", [](TypeParam& c) { c.setRange(9, -9); },
         [](const KpaDouble& n) { return n.getMinimum() == -9 && n.getMaximum() == 9; }},
        {"setRange in km", [=](TypeParam& c) { c.setRange(-1, 1, km); },
         [](const KpaDouble& n) { return n.getMinimum() == -1000 && n.getMaximum() == 1000; }},
        {"setStep", [](TypeParam& c) { c.setStep(0.5); }, [](const KpaDouble& n) { return n.getStep() == 0.5; }},
        {"setStep in km", [=](TypeParam& c) { c.setStep(0.5, km); },
         [](const KpaDouble& n) { return n.getStep() == 500; }},
        {"unsetMinimum", [](TypeParam& c) { c.unsetMinimum(); },
         [](const KpaDouble& n) { return !n.isMinimumDefined(); }},
        {"unsetMaximum", [](TypeParam& c) { c.unsetMaximum(); },
         [](const KpaDouble& n) { return !n.isMaximumDefined(); }},
        {"unsetStep", [](TypeParam& c) { c.unsetStep(); }, [](const KpaDouble& n) { return !n.isStepDefined(); }},
        {"setUnitClass", [](TypeParam& c) { c.setUnitClass(MbuEUnitClass::NONE); },
         [](const KpaDouble& n) { return n.getUnitClass() == MbuEUnitClass::NONE; }},
        {"setPowerValue", [](TypeParam& c) { c.setPowerValue(3); },
         [](const KpaDouble& n) { return n.getPowerValue() == 3; }},
        {"setCustomFormat", [](TypeParam& c) { c.setCustomFormat(decimals(4)); },
         [](const KpaDouble& n) { return n.useCustomFormat() && n.getCustomFormat() == decimals(4); }},
        {"setDetails", [](TypeParam& c) { c.setDetails(lengthDetails()); },
         [](const KpaDouble& n) { return n.getPowerValue() == 2 && n.getUnitClass() == MbuEUnitClass::LENGTH; }},
        {"setUndefineEnabled", [](TypeParam& c) { c.setUndefineEnabled(true); },
         [](const KpaDouble& n) { return n.isUndefineEnabled(); }},
        {"setUndefineEnabled off", [](TypeParam& c) { c.setUndefineEnabled(false); },
         [](const KpaDouble& n) { return !n.isUndefineEnabled(); }},
        {"setWrapping", [](TypeParam& c) { c.setWrapping(true); }, [](const KpaDouble& n) { return n.isWrapped(); }},
    };
    for (const auto& [name, set, holds] : rows) {
        set(this->composite);
        for (const KpaDouble* number : this->numbers)
            EXPECT_TRUE(holds(*number)) << name << " " << number->getAbsolutePath().toString().toStdString();
    }
}

TYPED_TEST(KpcNumberForwarderTest, ReadsTheConfigurationOfTheFirstValue)
{
    KpaDouble& first = *this->numbers.first();
    first.setRange(1, 2);
    first.setStep(0.5);
    first.setUndefineEnabled(true);
    first.setWrapping(true);
    first.setPowerValue(2);
    first.setCustomFormat(decimals(5));
    const TypeParam& composite = this->composite;
    EXPECT_EQ(composite.getMinimum(), 1);
    EXPECT_EQ(composite.getMaximum(), 2);
    EXPECT_EQ(composite.getStep(), 0.5);
    EXPECT_TRUE(composite.isMinimumDefined());
    EXPECT_TRUE(composite.isMaximumDefined());
    EXPECT_TRUE(composite.isStepDefined());
    EXPECT_TRUE(composite.isUndefineEnabled());
    EXPECT_TRUE(composite.isWrapped());
    EXPECT_EQ(composite.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(composite.getPowerValue(), 2);
    EXPECT_EQ(composite.getCustomFormat(), decimals(5));
    EXPECT_TRUE(composite.useCustomFormat());
    EXPECT_EQ(composite.getDetails(), first.getDetails());
}

TYPED_TEST(KpcNumberForwarderTest, ReadsNoBoundAndNoOtherComponent)
{
    for (int i = 1; i < this->numbers.size(); ++i) {
        this->numbers[i]->setRange(1, 2);
        this->numbers[i]->setStep(1);
        this->numbers[i]->setWrapping(true);
        this->numbers[i]->setUndefineEnabled(true);
        this->numbers[i]->setCustomFormat(decimals(5));
    }
    const TypeParam& composite = this->composite;
    EXPECT_FALSE(composite.isMinimumDefined());
    EXPECT_FALSE(composite.isMaximumDefined());
    EXPECT_FALSE(composite.isStepDefined());
    EXPECT_FALSE(composite.isUndefineEnabled());
    EXPECT_FALSE(composite.isWrapped());
    EXPECT_FALSE(composite.useCustomFormat());
}

TYPED_TEST(KpcNumberForwarderTest, TellsOfAllNumbersInOneRecord)
{
    RecordingObserver observer(this->composite);
    this->composite.setMinimum(-1);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), this->numbers.size());
    for (const KpaDouble* number : this->numbers)
        EXPECT_EQ(observer.flagsOf(*number), Kp::NotifyConfig);
    this->composite.setMinimum(-1);
    EXPECT_EQ(observer.records.size(), 1);
}

TYPED_TEST(KpcNumberForwarderTest, SurvivesThatAnObserverOfANumberDestroysTheComposite)
{
    for (int i = 0; i < this->numbers.size(); ++i) {
        auto* composite = new TypeParam("C", TestContext::instance());
        RecordingObserver ofComposite(*composite);
        QList<KpaDouble*> numbers;
        collect(*composite, numbers);
        ActingObserver observer(*numbers[i], [&] { delete std::exchange(composite, nullptr); });
        composite->setMinimum(-1);
        EXPECT_EQ(composite, nullptr);
        EXPECT_EQ(ofComposite.deaths, 1);
        EXPECT_TRUE(ofComposite.records.isEmpty());
    }
}
