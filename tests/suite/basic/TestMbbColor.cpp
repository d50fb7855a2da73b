#include <gtest/gtest.h>

#include <QtGui/QColor>

#include <basic/MbbColor.h>

TEST(MbbColor, IsOpaqueBlackByDefault)
{
    EXPECT_EQ(MbbColor().getRgba(), 0xFF000000u);
}

TEST(MbbColor, KeepsItsWord)
{
    MbbColor color(0xFFFFFF);
    EXPECT_EQ(color.getRgba(), 0x00FFFFFFu);
    color.setRgba(0x80112233);
    EXPECT_EQ(color.getRgba(), 0x80112233u);
}

TEST(MbbColor, HasTheWordOfAQtColour)
{
    const MbbColor color(QColor(1, 2, 3, 128).rgba());
    EXPECT_EQ(color.getRgba(), 0x80010203u);
    EXPECT_EQ(QColor::fromRgba(color.getRgba()), QColor(1, 2, 3, 128));
}

TEST(MbbColor, ComparesWords)
{
    EXPECT_EQ(MbbColor(1), MbbColor(1));
    EXPECT_NE(MbbColor(1), MbbColor(2));
}
