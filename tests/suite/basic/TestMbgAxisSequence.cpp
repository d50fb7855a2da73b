#include "Geometry.h"

#include <QtCore/QStringList>

using Geometry::distance;

namespace {
MbgAxisSequence sequence(const QString& text)
{
    return MbgAxisSequence::fromText(text).value();
}

QStringList allAxes()
{
    return {"ZYX", "ZXY", "XYZ", "XZY", "YXZ", "YZX", "ZXZ", "ZYZ", "XYX", "XZX", "YXY", "YZY"};
}

/// Every order of axes with every combination of signs.
QStringList allSequences()
{
    QStringList texts;
    for (const QString& axes : allAxes()) {
        for (int signs = 0; signs < 8; ++signs) {
            QString text;
            for (int i = 0; i < 3; ++i) {
                text += (signs >> i & 1) ? '-' : '+';
                text += axes[i];
            }
            texts << text;
        }
    }
    return texts;
}

/// What may be wrong of angles found for the axes: the axes that they make, the range, stability.
void expectFinds(const MbgAxisSequence& sequence, const MbgAxisSequence::Axes& axes, const QString& what)
{
    const auto angles = sequence.toAngles(axes);
    ASSERT_LE(distance(sequence.toAxes(angles), axes), 2e-13) << what.toStdString();
    for (const double angle : angles) {
        ASSERT_GT(angle, -180) << what.toStdString();
        ASSERT_LE(angle, 180) << what.toStdString();
    }
}
} // namespace

TEST(MbgAxisSequence, TurnsAboutZThenYThenXByDefault)
{
    EXPECT_EQ(MbgAxisSequence(), sequence("+Z+Y+X"));
    EXPECT_TRUE(MbgAxisSequence().isZYX());
    EXPECT_TRUE(sequence("90-Z+Y-X").isZYX());
    EXPECT_FALSE(sequence("+Z+X+Z").isZYX());
}

TEST(MbgAxisSequence, TellsSequencesApart)
{
    EXPECT_NE(sequence("+Z+Y+X"), sequence("+Z+Y-X"));
    EXPECT_NE(sequence("+Z+Y+X"), sequence("90+Z+Y+X"));
    EXPECT_NE(sequence("+Z+Y+X"), sequence("+Z+Y+Z"));
}

TEST(MbgAxisSequence, ReadsNoOtherText)
{
    const QString endless(1000000, '+');
    for (const QString& text : {QString(),
                                QString(" "),
                                QString("+Z+Y"),
                                QString("+Z+Y+X+Z"),
                                QString("ZYX"),
                                QString("Z-Y-X"),
                                QString("+z+y+x"),
                                QString(" +Z+Y+X"),
                                QString("+Z+Y+X\n"),
                                QString("+Z +Y +X"),
                                QString("+Z+Z+X"),
                                QString("+Z+Y+Y"),
                                QString("+Z+Y+W"),
                                QString("45+Z+Y+X"),
                                QString("0+Z+Y+X"),
                                QString("360+Z+Y+X"),
                                QString("-90+Z+Y+X"),
                                QString("99999999999999999999+Z+Y+X"),
                                QString("+Z+Y+X") + QChar(0),
                                endless,
                                QString("+Z+Y+\u0058\u0301"),
                                QString("９０-Z+Y+X")})
        EXPECT_FALSE(MbgAxisSequence::fromText(text)) << text.left(40).toStdString();
}

TEST(MbgAxisSequence, TurnsCounterclockwiseAboutEachAxis)
{
    const struct
    {
        const char* text;
        MbgAxisSequence::Axes axes;
    } cases[] = {
        {"+Z+Y+X", {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}},  {"+Y+Z+X", {{{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}}},
        {"+X+Y+Z", {{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}}}},  {"-Z+Y+X", {{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}},
        {"90-Z+Y+X", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}}, {"180-Z+Y+X", {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}},
    };
    for (const auto& [text, axes] : cases)
        EXPECT_EQ(sequence(text).toAxes({90, 0, 0}), axes) << text;
}

TEST(MbgAxisSequence, TurnsAboutAxesThatTurnedBefore)
{
    EXPECT_EQ(sequence("+Z+Y+X").toAxes({90, 90, 0}), (MbgAxisSequence::Axes{{{0, 0, -1}, {-1, 0, 0}, {0, 1, 0}}}));
    EXPECT_EQ(sequence("+Z+X+Z").toAxes({90, 90, 0}), (MbgAxisSequence::Axes{{{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}}));
    EXPECT_EQ(sequence("+Z+X+Z").toAxes({0, 90, 90}), (MbgAxisSequence::Axes{{{0, 0, 1}, {-1, 0, 0}, {0, -1, 0}}}));
}

TEST(MbgAxisSequence, IsExactAtRightAnglesWhateverTheTurns)
{
    const auto upright = sequence("+Z+Y+X").toAxes({90, 180, -90});
    EXPECT_EQ(sequence("+Z+Y+X").toAxes({90 + 360e6, 180 - 360e6, 270}), upright);
    for (const MbgVector3D& axis : upright) {
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(axis[i], std::round(axis[i]));
    }
}

TEST(MbgAxisSequence, LeavesOutFullTurnsHoweverManyTheyAre)
{
    constexpr double turns = 1e15 * 360;
    for (const char* text : {"+Z+Y+X", "90-Z+Y+X", "270+X180-Y90+X"})
        EXPECT_EQ(sequence(text).toAxes({turns, -turns, turns}), sequence(text).toAxes({0, 0, 0})) << text;
    EXPECT_EQ(sequence("90-Z+Y+X").turnsOf({turns, 400, -30}), (MbgAxisSequence::Angles{90, 40, -30}));
}

TEST(MbgAxisSequence, MakesRightHandedUnitVectors)
{
    for (const QString& text : allSequences()) {
        for (int i = 0; i < 9 * 9 * 9; ++i) {
            const auto [u, v, w] = sequence(text).toAxes({i / 81 * 43.0, i / 9 % 9 * 43.0, i % 9 * 43.0});
            ASSERT_LE(distance(u.cross(v), w), 1e-15) << text.toStdString();
            ASSERT_NEAR(u.getLength(), 1, 1e-15) << text.toStdString();
            ASSERT_NEAR(u.dot(v), 0, 1e-15) << text.toStdString();
        }
    }
}

TEST(MbgAxisSequence, FindsAnglesForEveryOrientationInEverySequence)
{
    for (const QString& text : allSequences()) {
        for (const QString& other : {QString("+Z+Y+X"), QString("+Z+X+Z")}) {
            for (int i = 0; i < 13 * 13 * 13; ++i) {
                const MbgAxisSequence::Angles angles = {i / 169 * 30.0 - 180, i / 13 % 13 * 30.0 - 180,
                                                        i % 13 * 30.0 - 180};
                expectFinds(sequence(text), sequence(other).toAxes(angles), text);
                if (HasFatalFailure())
                    return;
            }
        }
    }
}

TEST(MbgAxisSequence, FindsAnglesNearTheEndsOfTheMiddleTurn)
{
    for (const QString& text : allSequences()) {
        for (double offset = 1; offset > 1e-17; offset /= 3) {
            for (const double end : {-180.0, -90.0, 0.0, 90.0, 180.0}) {
                const MbgAxisSequence::Angles angles = {17, end + offset, -163};
                expectFinds(sequence(text), sequence(text).toAxes(angles), text);
                if (HasFatalFailure())
                    return;
            }
        }
    }
}

TEST(MbgAxisSequence, FindsAnglesWithOffsets)
{
    for (const QString& text : {QString("90-Z+Y+X"), QString("180+Z270-X90+Z"), QString("90-Z+Y90-Z")}) {
        for (int i = 0; i < 13 * 13 * 13; ++i)
            expectFinds(sequence(text),
                        MbgAxisSequence().toAxes({i / 169 * 30.0 - 180, i / 13 % 13 * 30.0 - 180, i % 13 * 30.0 - 180}),
                        text);
    }
}

TEST(MbgAxisSequence, FindsTheVeryAnglesWithinTheRangeOfTheMiddleTurn)
{
    for (const QString& text : allSequences()) {
        const bool comesBack = text[1] == text[5];
        const double sign = text[2] == '+' ? 1 : -1;
        for (int first = -170; first <= 180; first += 10) {
            for (int middle = -80; middle <= 80; middle += 10) {
                const MbgAxisSequence::Angles angles = {double(first), comesBack ? sign * (middle + 90) : middle,
                                                        -33.5};
                ASSERT_EQ(sequence(text).toAngles(sequence(text).toAxes(angles)), angles) << text.toStdString();
            }
        }
    }
}

TEST(MbgAxisSequence, GivesTheWholeTurnToTheFirstAngleWhereTheMiddleOneIsAtAnEnd)
{
    const struct
    {
        const char* text;
        MbgAxisSequence::Angles given;
        MbgAxisSequence::Angles found;
    } cases[] = {
        {"+Z+Y+X", {30, 90, 10}, {20, 90, 0}}, {"+Z+Y+X", {30, -90, 10}, {40, -90, 0}},
        {"+Z+X+Z", {30, 0, 10}, {40, 0, 0}},   {"+Z+X+Z", {30, 180, 10}, {20, 180, 0}},
        {"+X+Y+Z", {30, 90, 10}, {40, 90, 0}}, {"+Z-Y+X", {30, -90, 10}, {20, -90, 0}},
    };
    for (const auto& [text, given, found] : cases)
        EXPECT_EQ(sequence(text).toAngles(sequence(text).toAxes(given)), found) << text;
}
