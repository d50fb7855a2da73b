#include <gtest/gtest.h>

#include <QtCore/QStringList>

#include <util/KuConstraint.h>
#include <util/KuCoordSystemMode.h>
#include <util/KuVector.h>
#include <util/KugEMarker.h>
#include <util/KugEPen.h>
#include <util/KugEVolumeMarker.h>

namespace {
template <class Enum>
QStringList rows()
{
    QStringList rows;
    for (const Enum* item : Enum::items())
        rows << QStringLiteral("%1 %2 %3").arg(item->getValue()).arg(item->getKey(), item->getLabel());
    return rows;
}

template <class Enum>
void expectLookUps()
{
    for (const Enum* item : Enum::items()) {
        EXPECT_TRUE(Enum::existsKey(item->getKey()));
        EXPECT_EQ(&Enum::fromKey(item->getKey()), item);
        EXPECT_EQ(&Enum::fromValue(item->getValue()), item);
    }
    EXPECT_FALSE(Enum::existsKey(""));
    EXPECT_FALSE(Enum::existsKey("no such key"));
    EXPECT_THROW(Enum::fromKey("no such key"), MbeProgrammingError);
}
} // namespace

TEST(KugEPen, KeepsItsRows)
{
    EXPECT_EQ(rows<KugEPen>(), QStringList({"0 NO_LINE No line", "1 SOLID Solid", "2 DASH Dash", "3 DOT Dot",
                                            "4 DASH_DOT Dash dot", "5 DASH_DOT_DOT Dash dot dot"}));
    expectLookUps<KugEPen>();
    EXPECT_EQ(KugEPen(), KugEPen::SOLID);
}

TEST(KugEMarker, KeepsItsRows)
{
    EXPECT_EQ(rows<KugEMarker>(),
              QStringList({"0 CIRCLE Circle", "1 SQUARE Square", "2 DIAMOND Diamond", "3 TRIANGLE_UP Triangle up",
                           "4 TRIANGLE_DOWN Triangle down", "5 PENTAGON Pentagon", "6 HEXAGON Hexagon", "7 STAR Star",
                           "8 PLUS Plus", "9 CROSS Cross"}));
    expectLookUps<KugEMarker>();
    EXPECT_EQ(KugEMarker(), KugEMarker::CIRCLE);
}

TEST(KugEVolumeMarker, KeepsItsRows)
{
    EXPECT_EQ(rows<KugEVolumeMarker>(),
              QStringList({"0 SPHERE Sphere", "1 CUBE Cube", "2 TETRAHEDRON Tetrahedron", "3 OCTAHEDRON Octahedron",
                           "4 CYLINDER Cylinder", "5 CONE Cone", "6 DISC Disc", "7 CROSS Cross"}));
    expectLookUps<KugEVolumeMarker>();
    EXPECT_EQ(KugEVolumeMarker(), KugEVolumeMarker::SPHERE);
}

TEST(KuConstraint, KeepsItsValues)
{
    using namespace Ku::Constraint;
    EXPECT_EQ(int(Values), 0);
    EXPECT_EQ(int(Constraints), 1);
    EXPECT_EQ(int(Unknown), 0);
    EXPECT_EQ(int(Known), 1);
    EXPECT_EQ(int(Bounded), 2);
    EXPECT_EQ(int(Value), 0);
    EXPECT_EQ(int(LowerBound), 1);
    EXPECT_EQ(int(UpperBound), 2);
}

TEST(KuVector, KeepsItsValues)
{
    using namespace Ku::Vector;
    EXPECT_EQ(int(Dimension1), 1);
    EXPECT_EQ(int(Dimension2), 2);
    EXPECT_EQ(int(Dimension3), 3);
    EXPECT_EQ(int(NoLink), 0);
    EXPECT_EQ(int(AllFollowFirst), 1);
    EXPECT_EQ(int(SecondFollowsFirst), 2);
    EXPECT_EQ(int(First), 0);
    EXPECT_EQ(int(Second), 1);
    EXPECT_EQ(int(Third), 2);
}

TEST(KuCoordSystemMode, KeepsItsValues)
{
    EXPECT_EQ(int(Ku::CoordSystemMode::Geographic), 1);
    EXPECT_EQ(int(Ku::CoordSystemMode::Local), 2);
    EXPECT_EQ(int(Ku::CoordSystemMode::Projected), 4);
    EXPECT_EQ(int(Ku::AllCoordSystemModes), 7);
    EXPECT_EQ(int(Ku::CoordSystemMode::Geographic | Ku::CoordSystemMode::Projected), 5);
}
