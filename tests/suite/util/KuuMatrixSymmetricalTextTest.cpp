#include <gtest/gtest.h>

#include <basic/MbuUnitService.h>
#include <suite/util/SymmetricalMatrices.h>

using namespace Ku::Constraint;

namespace {
const MbbStringFormat twoDecimals(MbbEFormat::DECIMAL, 2, QString());

MbbStringFormat oneDecimal(const QString& symbol)
{
    return MbbStringFormat(MbbEFormat::DECIMAL, 1, symbol);
}
} // namespace

TEST(KuuMatrixSymmetrical, PrintsItsRows)
{
    EXPECT_EQ(plain(1, {1.5}).toString({oneDecimal("m")}, {1}, twoDecimals), "1.5 m");
    EXPECT_EQ(plain(2, {1, 0.5, 2}).toString({oneDecimal("m")}, {1}, twoDecimals), "[1.0 m, 0.5 m; 0.5 m, 2.0 m]");
    EXPECT_EQ(plain(2, {1, 0.5, 2}).toString({oneDecimal("m")}, {2}, twoDecimals), "[1.0 m², 0.5 m²; 0.5 m², 2.0 m²]");
    EXPECT_EQ(KuuMatrixSymmetrical(0).toString({oneDecimal("m")}, {1}, twoDecimals), "[]");
}

TEST(KuuMatrixSymmetrical, PrintsElementsBetweenDifferentRowsByTheDefaultFormat)
{
    const KuuMatrixSymmetrical matrix = plain(2, {1, 0.5, 2});
    EXPECT_EQ(matrix.toString({oneDecimal("m"), oneDecimal("s")}, {2, 2}, twoDecimals), "[1.0 m², 0.50; 0.50, 2.0 s²]");
    EXPECT_EQ(matrix.toString({oneDecimal("m"), oneDecimal("m")}, {1, 2}, twoDecimals), "[1.0 m, 0.50; 0.50, 2.0 m²]");
    EXPECT_EQ(matrix.toString({oneDecimal("m"), oneDecimal("m")}, {1, 1}, twoDecimals), "[1.0 m, 0.5 m; 0.5 m, 2.0 m]");
}

TEST(KuuMatrixSymmetrical, PrintsElementsWithoutAFormatByTheDefaultFormat)
{
    const KuuMatrixSymmetrical matrix = plain(2, {1, 0.5, 2});
    EXPECT_EQ(matrix.toString({}, {}, twoDecimals), "[1.00, 0.50; 0.50, 2.00]");
    EXPECT_EQ(matrix.toString({oneDecimal("m")}, {}, twoDecimals), "[1.0 m, 0.5 m; 0.5 m, 2.0 m]");
    const KuuMatrixSymmetrical three = plain(3, {1, 0, 0, 1, 0, 1});
    EXPECT_EQ(three.toString({oneDecimal("m"), oneDecimal("m")}, {1, 1}, twoDecimals),
              "[1.0 m, 0.0 m, 0.00; 0.0 m, 1.0 m, 0.00; 0.00, 0.00, 1.00]");
}

TEST(KuuMatrixSymmetrical, PrintsElementsInTheirDisplayUnit)
{
    MbbStringFormat centimeters(MbbEFormat::DECIMAL, 0, QString());
    centimeters.setDisplayUnit(MbuUnitService::getUnit("cm"));
    centimeters.unsetCustomSymbol();
    EXPECT_EQ(plain(1, {2}).toString({centimeters}, {2}, twoDecimals), "20000 cm²");
}

TEST(KuuMatrixSymmetrical, PrintsWhatIsKnownOfAConstraint)
{
    const QList<MbbStringFormat> formats = {oneDecimal(QString())};
    const auto text = [&formats](const KuuMatrixSymmetrical& matrix) {
        return matrix.toString(formats, {1}, twoDecimals);
    };
    EXPECT_EQ(text(constrained(2, {1, 2, 3}, {}, {}, Unknown)), "[unknown]");
    EXPECT_EQ(text(constrained(1, {1}, {}, {}, Known)), "1.0");
    EXPECT_EQ(text(constrained(1, {1}, {0}, {10}, Bounded)), "[0.0 10.0]");
    EXPECT_EQ(text(constrained(2, {1, 2, 3}, {0, none, none}, {10, 4, none}, Bounded)),
              "[[0.0 10.0], ]-∞ 4.0]; ]-∞ 4.0], ]-∞ +∞[]");
    KuuMatrixSymmetrical values = constrained(1, {1}, {0}, {10}, Bounded);
    values.setMode(Values);
    EXPECT_EQ(text(values), "1.0");
}
