#pragma once

#include <param/atomic/KpaColor.h>
#include <param/list/KplAAtomicList.h>

/// A number that is the same for equal colours. Those in hue, saturation and lightness are equal within a tolerance.
inline uint qHash(const QColor& color, uint seed = 0)
{
    if (color.spec() != QColor::Hsl && color.spec() != QColor::Hsv)
        return qHash(color.rgba(), seed);
    // The hue of a grey, which reads as -1, compares as the number that stands for it: 65535 hundredths.
    const int hue = color.spec() == QColor::Hsl ? color.hslHue() : color.hsvHue();
    return qHash((hue < 0 ? 655 : hue) % 360, seed);
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
