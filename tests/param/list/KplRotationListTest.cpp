#include <param/list/KplRotationList.h>
#include <suite/basic/Geometry.h>
#include <support/RecordingObserver.h>

#include <memory>
#include <numbers>

#include <gtest/gtest.h>

using Geometry::rotation;

namespace {
using Values = QList<MbgRotation>;

struct KplRotationListTest : testing::Test
{
    KplRotationList list{QStringLiteral("KEY")};
};
} // namespace

TEST_F(KplRotationListTest, IsAListOfRotations)
{
    EXPECT_EQ(list.getType(), KpbEType::LIST);
    EXPECT_EQ(list.getItemType(), KpbEType::ROTATION);
    EXPECT_TRUE(list.isEmpty());
    list.setItemCount(1);
    EXPECT_EQ(list.getValues(), Values{MbgRotation()});
}

TEST_F(KplRotationListTest, HoldsTheRotationsThatAreSet)
{
    const Values values{rotation(10, 20, 30), rotation(1, 2, 3, 2), rotation(10, 20, 30)};
    list.setValues(values);
    EXPECT_EQ(list.getValues(), values);
    EXPECT_EQ(list.getValueAt(1), rotation(1, 2, 3, 2));
    EXPECT_EQ(list.getValueAt(-1), MbgRotation());
}

TEST_F(KplRotationListTest, SetsTheDimensionOfPrototypeAndItemsInOneRecord)
{
    list.setValues({rotation(10, 20, 30), rotation(1, 2, 3)});
    const RecordingObserver observer(list);
    list.setDimension(MbgEDimension::DIM_2D, std::numbers::pi / 2);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(list.getItemPrototype()->getDimension(), MbgEDimension::DIM_2D);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(list.getItemAt(i)->getDimension(), MbgEDimension::DIM_2D);
        EXPECT_EQ(list.getItemAt(i)->getFillValue(), std::numbers::pi / 2);
        EXPECT_EQ(observer.flagsOf(*list.getItemAt(i)), Kp::NotifyConfig | Kp::NotifyValue);
    }
    EXPECT_EQ(list.getValues(), (Values{rotation(10, 90, 90), rotation(1, 90, 90)}));
    EXPECT_EQ(list.addItem()->getDimension(), MbgEDimension::DIM_2D);
}

TEST_F(KplRotationListTest, RefusesOneDimension)
{
    list.setValues({rotation(10, 20, 30)});
    const RecordingObserver observer(list);
    list.setDimension(MbgEDimension::DIM_1D, 1);
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(list.getItemPrototype()->getDimension(), MbgEDimension::DIM_3D);
    EXPECT_EQ(list.getItemAt(0)->getFillValue(), 0);
}

TEST_F(KplRotationListTest, RemovesWhatRepeatsOnceTheDimensionHasMadeItEqual)
{
    list.setUnique(true);
    list.setValues({rotation(10, 20, 30), rotation(11, 0, 0), rotation(10, 21, 31)});
    EXPECT_EQ(list.getItemCount(), 3);
    list.setDimension(MbgEDimension::DIM_2D, 0);
    EXPECT_EQ(list.getValues(), (Values{rotation(10, 0, 0), rotation(11, 0, 0)}));
}

TEST_F(KplRotationListTest, BringsItsItemsToThePrototypesDimensionWhenAllValuesAreSet)
{
    list.setItemCount(1);
    list.getItemPrototype()->setDimension(MbgEDimension::DIM_2D, 0);
    EXPECT_EQ(list.getItemAt(0)->getDimension(), MbgEDimension::DIM_3D);
    list.setValues({rotation(10, 20, 30)});
    EXPECT_EQ(list.getItemAt(0)->getDimension(), MbgEDimension::DIM_2D);
    EXPECT_EQ(list.getValues(), Values{rotation(10, 0, 0)});
}

TEST_F(KplRotationListTest, TellsOfTheConfigurationOfItsItemsWhenItIsGivenItsOwnValues)
{
    list.setValues({rotation(10, 20, 30), rotation(1, 2, 3)});
    const RecordingObserver observer(list);
    list.setValues({rotation(10, 20, 30), rotation(1, 2, 3)});
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getNumberOfModif(), 2);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(observer.flagsOf(*list.getItemAt(i)), Kp::NotifyConfig);
}

TEST_F(KplRotationListTest, CountsRotationsAsEqualThatAreEqualWhateverTheUnit)
{
    list.setUnique(true);
    list.setValues({rotation(30, 0, 90), MbgRotation(std::numbers::pi / 6, -0.0, std::numbers::pi / 2, 0),
                    rotation(30, 0, 90, 2), rotation(0, 30, 90), rotation(390, 0, 90)});
    EXPECT_EQ(list.getValues(),
              (Values{rotation(30, 0, 90), rotation(30, 0, 90, 2), rotation(0, 30, 90), rotation(390, 0, 90)}));
}

TEST_F(KplRotationListTest, TakesEqualRotationsForOneInASet)
{
    EXPECT_EQ(qHash(rotation(30, 0, 90)), qHash(MbgRotation(std::numbers::pi / 6, -0.0, std::numbers::pi / 2, 0)));
    EXPECT_NE(qHash(rotation(30, 0, 0)), qHash(rotation(0, 30, 0)));
    EXPECT_NE(qHash(rotation(30, 0, 0)), qHash(rotation(30, 0, 0, 2)));
}

TEST_F(KplRotationListTest, FollowsAutomaticRotations)
{
    list.setAutomaticEnabled(true);
    list.setAutomatic(true);
    list.setAutoValues({rotation(10, 20, 30)});
    EXPECT_EQ(list.getValues(), Values{rotation(10, 20, 30)});
    EXPECT_TRUE(list.isAutomatic());
    list.setValueAt(0, rotation(1, 2, 3));
    EXPECT_FALSE(list.isAutomatic());
}

TEST_F(KplRotationListTest, DuplicatesItemsAndPrototype)
{
    list.setValues({rotation(10, 20, 30)});
    list.setDimension(MbgEDimension::DIM_2D, 0);
    const std::unique_ptr<KplRotationList> copy(list.duplicate("COPY"));
    const std::unique_ptr<KplRotationList> sameKey(list.duplicate(""));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getValues(), Values{rotation(10, 0, 0)});
    EXPECT_EQ(copy->getItemPrototype()->getDimension(), MbgEDimension::DIM_2D);
    copy->setValueAt(0, rotation(1, 0, 0));
    EXPECT_EQ(list.getValues(), Values{rotation(10, 0, 0)});
}
