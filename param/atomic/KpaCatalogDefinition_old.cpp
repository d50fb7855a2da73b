#include <param/atomic/KpaCatalogDefinition_old.h>
#include <param/atomic/KpaConfigTools.h>

#include <QtCore/QStringList>

template class KpaAAtomic<MbdEnumCatalog, KpaCatalogDefinition_oldConfig>;

namespace {

using SerialForm = MbbOrderedMap<QString, QString>;

constexpr QLatin1Char separator('|');

QString idKey()
{
    return QStringLiteral("id");
}

QString nameKey()
{
    return QStringLiteral("name");
}

QString undefColorKey()
{
    return QStringLiteral("undefRgba");
}

/// What the keys of the categories begin with.
QString categoryKey()
{
    return QStringLiteral("enum");
}

QString colorText(const MbbColor& color)
{
    return QString::number(color.getRgba());
}

MbbColor storedColor(const QString& text)
{
    return MbbColor(text.toUInt());
}

/// Whether what follows the number of a category is its label, without a colour.
bool isLabelAlone(const QStringList& parts)
{
    bool isColor = false;
    parts.last().toUInt(&isColor);
    return parts.size() == 1 && !isColor;
}

/// The label is what stands between the number and the colour: it may be empty, or hold the separator.
void readCategory(MbdEnumCatalog& catalog, const QString& text)
{
    QStringList parts = text.split(separator, Qt::SkipEmptyParts);
    if (parts.size() < 2)
        return;
    bool isNumber = false;
    const int value = parts.takeFirst().toInt(&isNumber);
    const MbbColor color = isLabelAlone(parts) ? MbbColor(0) : storedColor(parts.takeLast());
    if (isNumber)
        catalog.setCategory(value, KpaConfigTools::withoutEscapes(parts.join(separator)), color);
}

} // namespace

bool KpaCatalogDefinition_oldConfig::setCatalogNameReadOnly(bool readOnly)
{
    return KpaConfigTools::store(_catalogNameReadOnly, readOnly);
}

bool KpaCatalogDefinition_oldConfig::setNumericValuesReadOnly(bool readOnly)
{
    return KpaConfigTools::store(_numericValuesReadOnly, readOnly);
}

SerialForm KpaCatalogDefinition_oldConfig::serializeValue(const MbdEnumCatalog& value) const
{
    SerialForm map{
        {idKey(), value.getId()}, {nameKey(), value.getName()}, {undefColorKey(), colorText(value.getUndefColor())}};
    const auto& categories = value.getCategories();
    int number = 0;
    for (auto category = categories.begin(); category != categories.end(); ++category) {
        const QStringList parts{QString::number(category.key()), category->label, colorText(category->color)};
        map.insert(categoryKey() + QString::number(++number), parts.join(separator));
    }
    return map;
}

MbdEnumCatalog KpaCatalogDefinition_oldConfig::unserializeValue(const SerialForm& map,
                                                                const MbdEnumCatalog& previous) const
{
    const QString* id = map.find(idKey());
    const QString* name = map.find(nameKey());
    const QString* undefColor = map.find(undefColorKey());
    if (!id || !name || !undefColor)
        return previous;
    MbdEnumCatalog catalog(*id, KpaConfigTools::withoutEscapes(*name));
    catalog.setUndefColor(storedColor(*undefColor));
    for (const auto& entry : map) {
        if (entry.key.startsWith(categoryKey()))
            readCategory(catalog, entry.value);
    }
    return catalog;
}

QString KpaCatalogDefinition_oldConfig::debug() const
{
    return QStringLiteral("----- KpaCatalogDefinition_oldConfig --------\n");
}

KpaCatalogDefinition_old::KpaCatalogDefinition_old(const QString& key)
    : KpaAAtomic(key, KpaCatalogDefinition_oldConfig())
{}

KpaCatalogDefinition_old::KpaCatalogDefinition_old(const KpaCatalogDefinition_old& other, const QString& newKey)
    : KpaAAtomic(other, newKey)
{}

KpaCatalogDefinition_old* KpaCatalogDefinition_old::duplicate(const QString& newKey) const
{
    return new KpaCatalogDefinition_old(*this, newKey);
}
