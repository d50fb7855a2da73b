#include "AtomicListTestTools.h"

#include <basic/MbbUserStringFormats.h>
#include <basic/MbuUnitService.h>
#include <param/list/KplDoubleList.h>

namespace {

using Values = QList<double>;

constexpr int value = Kp::NotifyValue;
constexpr int config = Kp::NotifyConfig;

MbuUnit unit(const char* key)
{
    return MbuUnitService::getUnit(key);
}

/// Brings the user's formats back to the defaults.
class KplDoubleListTest : public testing::Test
{
protected:
    KplDoubleListTest() { list.setValues({1.0, 20.0}); }
    ~KplDoubleListTest() override { MbbUserStringFormats::reset(); }

    KplDoubleList list{"LIST"};
};

} // namespace

TEST_F(KplDoubleListTest, IsAListOfDoubles)
{
    EXPECT_TRUE(list.getItemType() == KpbEType::DOUBLE);
    EXPECT_EQ(list.getValues(), Values({1.0, 20.0}));
}

TEST_F(KplDoubleListTest, CopiesItself)
{
    const std::unique_ptr<KplDoubleList> copy(list.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValues(), Values({1.0, 20.0}));
    EXPECT_EQ(KplDoubleList(list, QString()).getKey(), "LIST");
}

TEST_F(KplDoubleListTest, ConfiguresPrototypeAndItemsInOneRecord)
{
    const MbuUnit km = unit("km");
    list.setUnitClass(MbuEUnitClass::LENGTH);
    const struct
    {
        const char* name;
        std::function<void(KplDoubleList&)> set;
        std::function<double(const KpaDouble&)> get;
        double result;
    } cases[] = {
        {"setMinimum", [](auto& l) { l.setMinimum(0.5); }, &KpaDouble::getMinimum, 0.5},
        {"setMinimum with unit", [&](auto& l) { l.setMinimum(0.001, km); }, &KpaDouble::getMinimum, 1.0},
        {"setMaximum", [](auto& l) { l.setMaximum(50); }, &KpaDouble::getMaximum, 50},
        {"setMaximum with unit", [&](auto& l) { l.setMaximum(2, km); }, &KpaDouble::getMaximum, 2000},
        {"setRange, minimum", [](auto& l) { l.setRange(60, -1); }, &KpaDouble::getMinimum, -1},
        {"setRange, maximum", [](auto& l) { l.setRange(-1, 70); }, &KpaDouble::getMaximum, 70},
        {"setRange with unit", [&](auto& l) { l.setRange(-1, 1, km); }, &KpaDouble::getMaximum, 1000},
        {"setStep", [](auto& l) { l.setStep(3); }, &KpaDouble::getStep, 3},
        {"setStep with unit", [&](auto& l) { l.setStep(0.5, km); }, &KpaDouble::getStep, 500},
        {"unsetMinimum", [](auto& l) { l.unsetMinimum(); }, &KpaDouble::getMinimum, MbbGlobal::D_FFFF},
        {"unsetMaximum", [](auto& l) { l.unsetMaximum(); }, &KpaDouble::getMaximum, MbbGlobal::D_FFFF},
        {"unsetStep", [](auto& l) { l.unsetStep(); }, &KpaDouble::getStep, MbbGlobal::D_FFFF},
    };
    for (const auto& c : cases) {
        RecordingObserver observer(list);
        c.set(list);
        EXPECT_EQ(c.get(*list.getItemPrototype()), c.result) << c.name;
        EXPECT_EQ(c.get(*list.getItemAt(0)), c.result) << c.name;
        EXPECT_EQ(c.get(*list.getItemAt(1)), c.result) << c.name;
        ASSERT_EQ(observer.records.size(), 1) << c.name;
        EXPECT_EQ(observer.records[0].getNumberOfModif(), 3) << c.name;
        EXPECT_EQ(observer.flagsOf(list), config) << c.name;
        EXPECT_EQ(observer.flagsOf(*list.getItemAt(1)), config) << c.name;
    }
    EXPECT_EQ(list.getValues(), Values({1.0, 20.0}));
}

TEST_F(KplDoubleListTest, RepairsTheValuesOfTheItems)
{
    RecordingObserver observer(list);
    list.setMaximum(10);
    EXPECT_EQ(list.getValues(), Values({1.0, 10.0}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(0)), config);
    EXPECT_EQ(observer.flagsOf(*list.getItemAt(1)), value | config);
}

TEST_F(KplDoubleListTest, SetsTheUnitClass)
{
    EXPECT_EQ(list.getUnitClass(), MbuEUnitClass::NONE);
    list.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(list.getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(list.getItemAt(1)->getUnitClass(), MbuEUnitClass::LENGTH);
    list.getItemPrototype()->setUnitClass(MbuEUnitClass::TIME);
    EXPECT_EQ(list.getUnitClass(), MbuEUnitClass::TIME);
}

TEST_F(KplDoubleListTest, TakesOverTheDetailsOfAVariable)
{
    MbdVariableDetails details(MbuEUnitClass::LENGTH);
    details.setPowerValue(2);
    list.setDetails(details);
    EXPECT_EQ(list.getItemPrototype()->getPowerValue(), 2);
    EXPECT_EQ(list.getItemAt(1)->getUnitClass(), MbuEUnitClass::LENGTH);
    EXPECT_EQ(list.getItemAt(1)->getPowerValue(), 2);
}

TEST_F(KplDoubleListTest, RemovesValuesThatALimitMakesRepeat)
{
    list.setValues({1.0, 5.0, 20.0, 30.0, 2.0});
    list.setUnique(true);
    RecordingObserver observer(list);
    list.setMaximum(5.0);
    EXPECT_EQ(list.getValues(), Values({1.0, 5.0, 2.0}));
    EXPECT_EQ(list.getItemKeys(), itemKeys({1, 2, 5}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(list), 13 | config);
}

TEST_F(KplDoubleListTest, DropsAutomaticValuesOutsideNewLimitsAndStaysAutomatic)
{
    list.setAutoValues({5.0, 20.0});
    list.setAutomatic(true);
    list.setMaximum(10);
    EXPECT_EQ(automaticState(list), "automatic, not initialized");
    EXPECT_EQ(list.getValues(), Values({5.0, 10.0}));
}

TEST_F(KplDoubleListTest, StaysAutomaticUnderLimitsThatItsAutomaticValuesKeep)
{
    list.setAutoValues({5.0, 6.0});
    list.setAutomatic(true);
    list.setMaximum(10);
    EXPECT_EQ(automaticState(list), "automatic, initialized");
}

TEST_F(KplDoubleListTest, TellsWhetherAnItemIsDefined)
{
    list.getItemAt(1)->setUndefineEnabled(true);
    list.setValueAt(1, MbbGlobal::D_FFFF);
    EXPECT_TRUE(list.isDefined(0));
    EXPECT_FALSE(list.isDefined(1));
    EXPECT_FALSE(list.isDefined(-1));
    EXPECT_FALSE(list.isDefined(2));
}

TEST_F(KplDoubleListTest, PrintsItsNumbersWithTheSymbolOfTheUnitBehindThem)
{
    list.setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(list.toString(), "1; 20 m");
    MbbUserStringFormats::setDisplayUnit(unit("km"));
    EXPECT_EQ(list.toString(), "0.001; 0.02 km");
    list.setItemCount(1);
    EXPECT_EQ(list.toString(), "0.001 km");
    list.clear();
    EXPECT_EQ(list.toString(), "empty");
}

TEST_F(KplDoubleListTest, PrintsThePowerOfTheUnit)
{
    MbdVariableDetails details(MbuEUnitClass::LENGTH);
    details.setPowerValue(2);
    list.setDetails(details);
    EXPECT_EQ(list.toString(), QString::fromUtf8("1; 20 m²"));
}

TEST_F(KplDoubleListTest, PrintsMoreThanSixNumbersAndABlankForNoUnit)
{
    list.setValues({1, 2, 3, 4, 5, 6, 7.5});
    EXPECT_EQ(list.toString(), "1; 2; 3; 4; 5; 6; 7.5 ");
}

TEST_F(KplDoubleListTest, PrintsUndefinedNumbers)
{
    list.getItemPrototype()->setUndefineEnabled(true);
    list.setValues({1, MbbGlobal::D_FFFF});
    EXPECT_EQ(list.toString(), "1; " + MbbGlobal::STR_NA + " ");
}

TEST_F(KplDoubleListTest, MayBeDestroyedByAnObserverOfThePrototype)
{
    auto* other = new KplDoubleList("OTHER");
    other->setValues({1.0, 2.0});
    const ActingObserver prototype(*other->getItemPrototype(), [&] { delete std::exchange(other, nullptr); });
    other->setMaximum(1.0);
    EXPECT_EQ(other, nullptr);
}
