#include <util/Ku.h>

#include <gtest/gtest.h>

#include <QtCore/QSet>

#include <algorithm>
#include <cstdlib>

TEST(Ku, GivesStrongColoursByChance)
{
    QSet<QRgb> colors;
    for (int i = 0; i < 100; ++i) {
        const QColor color = Ku::getRandomColor();
        EXPECT_EQ(color.alpha(), 255);
        EXPECT_GE(color.hsvSaturation(), 120);
        EXPECT_GE(color.value(), 160);
        colors.insert(color.rgba());
    }
    EXPECT_GT(colors.size(), 50);
}

TEST(Ku, GivesColoursThatAreUnlikeAnother)
{
    const QColor blue = QColor::fromHsv(240, 255, 255);
    for (int i = 0; i < 100; ++i) {
        const int distance = std::abs(Ku::getRandomColor(&blue).hsvHue() - 240);
        EXPECT_GE(std::min(distance, 360 - distance), 58);
    }
    const QColor grey(100, 100, 100);
    EXPECT_TRUE(Ku::getRandomColor(&grey).isValid());
}

TEST(Ku, GivesNoPixmapOfNoSize)
{
    EXPECT_TRUE(Ku::getPixmapFromColor(Qt::red, QSize(), 0).isNull());
    EXPECT_TRUE(Ku::getPixmapFromColor(Qt::red, QSize(0, 16), 0).isNull());
}
