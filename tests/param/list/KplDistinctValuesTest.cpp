#include <param/list/KplDistinctValues.h>

#include <basic/MbbGlobal.h>
#include <basic/MbuEUnitClass.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

template <class Value>
QList<Value> distinct(const QList<Value>& values)
{
    KplDistinctValues<Value> known;
    known.reserve(values.size());
    QList<Value> kept;
    for (const Value& value : values) {
        const bool isContained = known.contains(value);
        const bool isNew = known.admit(value);
        EXPECT_NE(isContained, isNew);
        if (isNew)
            kept.append(value);
    }
    return kept;
}

/// What equals none before it, the refused ones among them.
template <class Value>
QList<Value> newOnes(const QList<Value>& values)
{
    KplDistinctValues<Value> known;
    QList<Value> found;
    for (const Value& value : values) {
        const bool isContained = known.contains(value);
        const bool isNew = known.add(value);
        EXPECT_NE(isContained, isNew);
        if (isNew)
            found.append(value);
    }
    return found;
}

struct Comparable
{
    int value;
    friend bool operator==(const Comparable& a, const Comparable& b) { return a.value == b.value; }
};

bool hasEqual(const QList<double>& values, double value)
{
    return std::any_of(values.begin(), values.end(),
                       [&](double each) { return each == value || std::abs(each - value) < 1e-10; });
}

/// The rule itself, pair by pair.
QList<double> distinctByPairs(const QList<double>& values)
{
    QList<double> kept;
    for (const double value : values) {
        if (!hasEqual(kept, value))
            kept.append(value);
    }
    return kept;
}

QList<double> newOnesByPairs(const QList<double>& values)
{
    QList<double> found;
    for (int i = 0; i < values.size(); ++i) {
        if (!hasEqual(values.mid(0, i), values[i]))
            found.append(values[i]);
    }
    return found;
}

} // namespace

TEST(KplDistinctValues, KeepsTheFirstOfEqualValues)
{
    EXPECT_EQ(distinct<int>({3, 1, 3, 1, 2}), QList<int>({3, 1, 2}));
    EXPECT_EQ(distinct<bool>({true, true, false, true}), QList<bool>({true, false}));
    EXPECT_EQ(distinct<QString>({"a", "A", "a", "", ""}), QList<QString>({"a", "A", ""}));
}

TEST(KplDistinctValues, ComparesValuesThatHaveNoHash)
{
    EXPECT_EQ(distinct<Comparable>({{1}, {2}, {1}}), QList<Comparable>({{1}, {2}}));
    EXPECT_EQ(newOnes<Comparable>({{1}, {2}, {1}}), QList<Comparable>({{1}, {2}}));
}

TEST(KplDistinctValues, TellsUnitsApartByKeyAndClass)
{
    const MbuUnit metre(MbuEUnitClass::LENGTH, "m", "m", "metre");
    const MbuUnit alsoMetre(MbuEUnitClass::LENGTH, "m", "M", "Meter");
    const MbuUnit none;
    EXPECT_EQ(distinct<MbuUnit>({metre, none, alsoMetre, none}), QList<MbuUnit>({metre, none}));
}

TEST(KplDistinctValues, TakesNumbersForOneThatDifferByLessThanTheTolerance)
{
    EXPECT_EQ(distinct<double>({1.0, 1.0 + 0.9e-10, 1.0 - 0.9e-10, 1.0 + 1.1e-10, 1.0 - 1.1e-10}),
              QList<double>({1.0, 1.0 + 1.1e-10, 1.0 - 1.1e-10}));
    EXPECT_EQ(distinct<double>({0.0, -0.0, 1e-11, -1e-11}), QList<double>({0.0}));
    EXPECT_EQ(distinct<double>({0.0, 0.6e-10, 1.2e-10, 1.8e-10}), QList<double>({0.0, 1.2e-10}));
}

TEST(KplDistinctValues, CountsANumberThatRepeatsForThoseBehindIt)
{
    EXPECT_EQ(newOnes<double>({0.0, 0.6e-10, 1.2e-10, 1.8e-10, 3e-10}), QList<double>({0.0, 3e-10}));
    EXPECT_EQ(newOnes<int>({3, 1, 3, 2}), QList<int>({3, 1, 2}));
}

TEST(KplDistinctValues, TellsGreatNumbersApartExactly)
{
    const double great = 1e15;
    EXPECT_EQ(distinct<double>({great, great + 0.125, great, -great}), QList<double>({great, great + 0.125, -great}));
    const double undefined = MbbGlobal::D_FFFF;
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(distinct<double>({undefined, infinity, -infinity, undefined, infinity, -infinity}),
              QList<double>({undefined, infinity, -infinity}));
}

TEST(KplDistinctValues, TakesWhatIsNoNumberForDifferentEachTime)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(distinct<double>({nan, 1.0, nan}).size(), 3);
    EXPECT_EQ(newOnes<double>({nan, 1.0, nan}).size(), 3);
}

TEST(KplDistinctValues, DoesWithNumbersAsComparingEachPairDoes)
{
    for (const double around : {0.0, 1e-10, 1.0, -1.0, 524288.0, 1048576.0, -1048576.0, 3e6}) {
        QList<double> values;
        for (int i = 0; i < 200; ++i)
            values.append(around + ((i * 37) % 200 - 100) * 0.23e-10);
        double next = around;
        for (int i = 0; i < 20; ++i)
            values.append(next = std::nextafter(next, 1e300));
        EXPECT_EQ(distinct(values), distinctByPairs(values)) << around;
        EXPECT_EQ(newOnes(values), newOnesByPairs(values)) << around;
    }
}
