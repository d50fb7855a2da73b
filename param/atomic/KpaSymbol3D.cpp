#include "KpaGraphicForm.h"

#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaSymbol3D.h>

template class KpaAAtomic<KugSymbol3D, KpaSymbol3DConfig>;

namespace {

QString qualityKey()
{
    return QStringLiteral("quality");
}

} // namespace

bool KpaSymbol3DConfig::setColorReadonly(bool readonly)
{
    return KpaConfigTools::store(_colorReadonly, readonly);
}

bool KpaSymbol3DConfig::setSizeReadonly(bool readonly)
{
    return KpaConfigTools::store(_sizeReadonly, readonly);
}

QString KpaSymbol3DConfig::toString(const KugSymbol3D& value) const
{
    return KpaGraphicForm::symbolText(value.getShape().getLabel(), QString::number(value.getSize()), value.getColor());
}

MbbOrderedMap<QString, QString> KpaSymbol3DConfig::serializeValue(const KugSymbol3D& value) const
{
    MbbOrderedMap<QString, QString> map;
    map.insert(KpaGraphicForm::shapeKey(), value.getShape().getKey());
    map.insert(KpaGraphicForm::sizeKey(), KpaGraphicForm::numberText(value.getSize()));
    map.insert(qualityKey(), KpaGraphicForm::numberText(value.getQuality()));
    KpaGraphicForm::insertColor(map, KpaGraphicForm::colorKeys(), value.getColor());
    KpaGraphicForm::insertOpacity(map, value.getColor());
    return map;
}

KugSymbol3D KpaSymbol3DConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                                const KugSymbol3D& previous) const
{
    const auto* shape = KpaGraphicForm::storedItem<KugEVolumeMarker>(map, KpaGraphicForm::shapeKey());
    if (!shape)
        return previous;
    const QColor& color = previous.getColor();
    KugSymbol3D read;
    read.setShape(*shape);
    read.setSize(KpsSerializer::toDouble(map.value(KpaGraphicForm::sizeKey()), previous.getSize(), true));
    read.setQuality(KpsSerializer::toDouble(map.value(qualityKey()), previous.getQuality(), true));
    read.setColor(KpaGraphicForm::storedColor(map, KpaGraphicForm::colorKeys(), color,
                                              KpaGraphicForm::storedOpacity(map, color.alpha())));
    return read;
}

QString KpaSymbol3DConfig::debug() const
{
    QString text;
    QTextStream(&text) << "----- KpaSymbol3DConfig --------\n"
                       << "color readonly = " << KpaConfigTools::yesNo(_colorReadonly) << '\n'
                       << "size readonly  = " << KpaConfigTools::yesNo(_sizeReadonly) << '\n';
    return text;
}

KpaSymbol3D::KpaSymbol3D(const QString& key) : KpaAAtomic(key, KpaSymbol3DConfig()) {}

KpaSymbol3D::KpaSymbol3D(const KpaSymbol3D& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaSymbol3D* KpaSymbol3D::duplicate(const QString& newKey) const
{
    return new KpaSymbol3D(*this, newKey);
}
