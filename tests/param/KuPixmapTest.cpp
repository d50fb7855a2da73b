#include <util/Ku.h>

#include <gtest/gtest.h>

TEST(KuPixmap, IsFilledWithTheColour)
{
    const QColor red(255, 0, 0, 128);
    const QImage image = Ku::getPixmapFromColor(red, QSize(16, 8), 0).toImage();
    EXPECT_EQ(image.size(), QSize(16, 8));
    for (const QPoint& corner : {QPoint(0, 0), QPoint(15, 7)})
        EXPECT_EQ(image.pixelColor(corner), red);
}

TEST(KuPixmap, HasAFrame)
{
    const QImage image = Ku::getPixmapFromColor(Qt::red, QSize(16, 16), 2).toImage();
    EXPECT_EQ(image.pixelColor(1, 8), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(2, 8), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(13, 13), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(14, 14), QColor(Qt::black));
}
