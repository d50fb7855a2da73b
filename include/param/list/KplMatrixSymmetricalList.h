#pragma once

#include <param/atomic/KpaMatrixSymmetrical.h>
#include <param/list/KplAAtomicList.h>

/// A number that is the same for equal matrices.
inline uint qHash(const KuuMatrixSymmetrical& matrix, uint seed = 0)
{
    for (int row = 0; row < matrix.getSize(); ++row) {
        for (int column = row; column < matrix.getSize(); ++column)
            seed = 31 * seed + qHash(matrix.getElementAt(row, column));
    }
    return seed;
}

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaMatrixSymmetrical>;
extern template class KESTRIN_PARAM_EXPORT
    KplAAtomicList<KpaMatrixSymmetrical, KuuMatrixSymmetrical, KpaMatrixSymmetricalConfig>;

/// A list of symmetric matrices.
class KESTRIN_PARAM_EXPORT KplMatrixSymmetricalList
    : public KplAAtomicList<KpaMatrixSymmetrical, KuuMatrixSymmetrical, KpaMatrixSymmetricalConfig>
{
public:
    explicit KplMatrixSymmetricalList(const QString& key);
    KplMatrixSymmetricalList(const KplMatrixSymmetricalList& other, const QString& newKey);
    KplMatrixSymmetricalList* duplicate(const QString& newKey) const override;

    /// Whether the item admits the null matrix; false for a rank out of range.
    bool canItBeNull(int rank) const;
};
