#include <param/list/KplMatrixSymmetricalList.h>
#include <support/SymmetricMatrix.h>

#include <memory>

#include <gtest/gtest.h>

namespace {
KuuMatrixSymmetrical matrix(int size, const QList<double>& triangle)
{
    KuuMatrixSymmetrical result(1);
    result.setMatrix(symmetric(size, triangle));
    return result;
}
} // namespace

TEST(KplMatrixSymmetricalList, HoldsMatrices)
{
    KplMatrixSymmetricalList list("KEY");
    EXPECT_EQ(list.getItemType(), KpbEType::MATRIX);
    EXPECT_EQ(list.getItemCount(), 0);
    list.setValues({matrix(1, {5}), matrix(2, {1, 2, 3})});
    EXPECT_EQ(list.getItemCount(), 2);
    EXPECT_EQ(list.getValueAt(1), matrix(2, {1, 2, 3}));
    EXPECT_EQ(list.getValueAt(2), KuuMatrixSymmetrical());
}

TEST(KplMatrixSymmetricalList, TellsWhetherAnItemMayBeNull)
{
    KplMatrixSymmetricalList list("KEY");
    list.setItemCount(2);
    list.getItemAt(1)->canBeNull(false);
    EXPECT_TRUE(list.canItBeNull(0));
    EXPECT_FALSE(list.canItBeNull(1));
    EXPECT_FALSE(list.canItBeNull(-1));
    EXPECT_FALSE(list.canItBeNull(2));
}

TEST(KplMatrixSymmetricalList, BringsItsValuesWithinTheLimitsOfThePrototype)
{
    KplMatrixSymmetricalList list("KEY");
    list.getItemPrototype()->setElementMaximum(4);
    list.setValues({matrix(1, {5})});
    EXPECT_EQ(list.getValueAt(0), matrix(1, {4}));
}

TEST(KplMatrixSymmetricalList, AdmitsEachMatrixOnceWhereItIsUnique)
{
    KplMatrixSymmetricalList list("KEY");
    list.setUnique(true);
    list.setValues({matrix(1, {0}), matrix(2, {1, 2, 3}), matrix(1, {-0.0}), matrix(2, {1, 2, 3}), matrix(2, {0, 0, 0}),
                    matrix(2, {1, 2, 4})});
    EXPECT_EQ(list.getValues(), QList<KuuMatrixSymmetrical>({matrix(1, {0}), matrix(2, {1, 2, 3}), matrix(2, {0, 0, 0}),
                                                             matrix(2, {1, 2, 4})}));
}

TEST(KplMatrixSymmetricalList, DuplicatesItsItems)
{
    KplMatrixSymmetricalList list("KEY");
    list.setValues({matrix(1, {5})});
    const std::unique_ptr<KplMatrixSymmetricalList> sameKey(list.duplicate(""));
    const std::unique_ptr<KplMatrixSymmetricalList> copy(list.duplicate("COPY"));
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValueAt(0), matrix(1, {5}));
    copy->clear();
    EXPECT_EQ(list.getItemCount(), 1);
}
