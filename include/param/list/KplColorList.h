#pragma once

#include <param/atomic/KpaColor.h>
#include <param/list/KplAAtomicList.h>

/// A number that is the same for equal colours.
inline uint qHash(const QColor& color, uint seed = 0)
{
    return qHash(color.rgba(), seed);
}

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaColor>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaColor, QColor, KpaColorConfig>;

/// A list of colours.
class KESTRIN_PARAM_EXPORT KplColorList : public KplAAtomicList<KpaColor, QColor, KpaColorConfig>
{
public:
    explicit KplColorList(const QString& key);
    KplColorList(const KplColorList& other, const QString& newKey);
    KplColorList* duplicate(const QString& newKey) const override;

    /// Whether the item admits transparent colours; false for a rank out of range.
    bool isAlphaEnabled(int rank) const;
};
