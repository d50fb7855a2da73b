#include <param/list/KplColorList.h>
#include <support/RecordingObserver.h>

#include <memory>

#include <gtest/gtest.h>

namespace {
const QColor red(255, 0, 0);
const QColor green(0, 255, 0);
} // namespace

TEST(KplColorList, HoldsColors)
{
    KplColorList list("KEY");
    EXPECT_EQ(list.getItemType(), KpbEType::COLOR);
    EXPECT_EQ(list.getValues(), QList<QColor>());
    list.setValues({red, green});
    EXPECT_EQ(list.getValues(), QList<QColor>({red, green}));
    EXPECT_EQ(list.getValueAt(1), green);
    EXPECT_EQ(list.getValueAt(-1), QColor());
    EXPECT_EQ(list.getValueAt(2), QColor());
}

TEST(KplColorList, TellsWhetherAnItemAdmitsTransparentColors)
{
    KplColorList list("KEY");
    list.setValues({red, green});
    list.getItemAt(1)->setAlphaEnabled(false);
    EXPECT_TRUE(list.isAlphaEnabled(0));
    EXPECT_FALSE(list.isAlphaEnabled(1));
    EXPECT_FALSE(list.isAlphaEnabled(-1));
    EXPECT_FALSE(list.isAlphaEnabled(2));
}

TEST(KplColorList, AdmitsEachColorOnceWhereItIsUnique)
{
    KplColorList list("KEY");
    list.setUnique(true);
    const QColor transparent(255, 0, 0, 128);
    list.setValues({red, green, red, transparent, QColor(), QColor()});
    EXPECT_EQ(list.getValues(), QList<QColor>({red, green, transparent, QColor()}));
}

TEST(KplColorList, AdmitsOneOfColorsThatAreEqualInOtherTerms)
{
    KplColorList list("KEY");
    list.setUnique(true);
    const QColor hsl = QColor::fromHsl(120, 100, 100);
    const QColor hsv = QColor::fromHsv(120, 100, 100);
    const QColor extended = QColor::fromRgbF(0.5, 0.25, 2.0);
    ASSERT_EQ(extended.spec(), QColor::ExtendedRgb);
    list.setValues({hsl, red, hsv, extended, hsl, hsv, extended, red});
    EXPECT_EQ(list.getValues(), QList<QColor>({hsl, red, hsv, extended}));
    // A wide colour that is one of the plain ones, in either order.
    QColor wideRed = QColor::fromRgbF(2.0, 0, 0);
    wideRed.setRedF(1.0);
    ASSERT_EQ(wideRed.spec(), QColor::ExtendedRgb);
    ASSERT_EQ(wideRed, red);
    list.setValues({red, wideRed});
    EXPECT_EQ(list.getItemCount(), 1);
    list.setValues({wideRed, red});
    EXPECT_EQ(list.getItemCount(), 1);
}

TEST(KplColorList, AdmitsOneOfColorsThatAreEqualWithinTheTolerance)
{
    KplColorList list("KEY");
    list.setUnique(true);
    const QColor light = QColor::fromHslF(0.25, 0.5, 0.5015);
    const QColor lighter = QColor::fromHslF(0.25, 0.5, 0.5020);
    ASSERT_EQ(light, lighter);
    ASSERT_NE(light.rgba(), lighter.rgba());
    list.setValues({light, lighter, QColor::fromHslF(0.25, 0.5, 0.51)});
    EXPECT_EQ(list.getItemCount(), 2);
}

TEST(KplColorList, TakesEqualHuesForOneInASet)
{
    const struct
    {
        QColor a;
        QColor b;
    } cases[] = {
        {QColor::fromHslF(0, 0.5, 0.5), QColor::fromHslF(1, 0.5, 0.5)},
        {QColor::fromHsvF(0, 0.5, 0.5), QColor::fromHsvF(1, 0.5, 0.5)},
        {QColor::fromHsv(-1, 102, 102), QColor::fromHsvF(29535 / 36000.0, 0.4, 0.4)},
    };
    for (const auto& c : cases) {
        ASSERT_EQ(c.a, c.b);
        EXPECT_EQ(qHash(c.a), qHash(c.b));
    }
}

TEST(KplColorList, KeepsTheFirstOfEachOfManyColors)
{
    KplColorList list("KEY");
    list.setUnique(true);
    QList<QColor> colors;
    for (int i = 0; i < 2000; ++i)
        colors.append(QColor(i % 256, i / 256, 0));
    list.setValues(colors + colors);
    EXPECT_EQ(list.getValues(), colors);
}

TEST(KplColorList, DuplicatesItsItems)
{
    KplColorList list("KEY");
    list.setValues({red, green});
    const std::unique_ptr<KplColorList> sameKey(list.duplicate(""));
    const std::unique_ptr<KplColorList> copy(list.duplicate("COPY"));
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValues(), QList<QColor>({red, green}));
    copy->setValues({});
    EXPECT_EQ(list.getItemCount(), 2);
}

TEST(KplColorList, TellsOfNewColorsInOneRecord)
{
    KplColorList list("KEY");
    RecordingObserver observer(list);
    list.setValues({red});
    EXPECT_EQ(observer.records.size(), 1);
    list.setValues({red});
    EXPECT_EQ(observer.records.size(), 1);
}
