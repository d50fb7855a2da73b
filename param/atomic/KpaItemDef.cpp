#include <param/atomic/KpaItemDef.h>

#include <basic/MbbAEnum.h>

namespace {

bool samePixmap(const QPixmap& a, const QPixmap& b)
{
    // Pixmaps with one cache key share their data, which spares the images.
    return a.cacheKey() == b.cacheKey() || a.toImage() == b.toImage();
}

} // namespace

KpaItemDef::KpaItemDef(const MbbAEnum& item) : KpaItemDef(item.getValue(), item.getLabel(), item.getKey()) {}

KpaItemDef::KpaItemDef(int itemValue, const QString& itemLabel, const QString& itemKey)
    : value(itemValue),
      label(itemLabel),
      key(itemKey.isEmpty() ? itemLabel : itemKey),
      echoLabel(itemLabel)
{}

bool operator==(const KpaItemDef& a, const KpaItemDef& b)
{
    return a.value == b.value && a.label == b.label && a.key == b.key && a.enabled == b.enabled &&
           a.echoLabel == b.echoLabel && a.comment == b.comment && a.marked == b.marked &&
           samePixmap(a.pixmap, b.pixmap);
}
