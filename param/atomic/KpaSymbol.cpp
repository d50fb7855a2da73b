#include "KpaGraphicForm.h"

#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaSymbol.h>

template class KpaAAtomic<KugSymbol, KpaSymbolConfig>;

namespace {

KpaGraphicForm::ColorKeys borderColorKeys()
{
    return {QStringLiteral("borderRed"), QStringLiteral("borderGreen"), QStringLiteral("borderBlue")};
}

QString drawBorderKey()
{
    return QStringLiteral("drawBorder");
}

} // namespace

bool KpaSymbolConfig::setColorReadonly(bool readonly)
{
    return KpaConfigTools::store(_colorReadonly, readonly);
}

bool KpaSymbolConfig::setBorderAvailable(bool available)
{
    return KpaConfigTools::store(_borderAvailable, available);
}

bool KpaSymbolConfig::setSizeAvailable(bool available)
{
    return KpaConfigTools::store(_sizeAvailable, available);
}

QString KpaSymbolConfig::toString(const KugSymbol& value) const
{
    return KpaGraphicForm::symbolText(value.getShape().getLabel(), QString::number(value.getSize()), value.getColor());
}

MbbOrderedMap<QString, QString> KpaSymbolConfig::serializeValue(const KugSymbol& value) const
{
    MbbOrderedMap<QString, QString> map;
    map.insert(KpaGraphicForm::shapeKey(), value.getShape().getKey());
    map.insert(KpaGraphicForm::sizeKey(), KpsSerializer::fromInt(value.getSize()));
    KpaGraphicForm::insertColor(map, KpaGraphicForm::colorKeys(), value.getColor());
    KpaGraphicForm::insertOpacity(map, value.getColor());
    map.insert(drawBorderKey(), KpsSerializer::fromBool(value.isBorderDrawn()));
    KpaGraphicForm::insertColor(map, borderColorKeys(), value.getBorderColor());
    return map;
}

KugSymbol KpaSymbolConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, const KugSymbol& previous) const
{
    const auto* shape = KpaGraphicForm::storedItem<KugEMarker>(map, KpaGraphicForm::shapeKey());
    if (!shape)
        return previous;
    const QColor& color = previous.getColor();
    const QColor& border = previous.getBorderColor();
    KugSymbol read;
    read.setShape(*shape);
    read.setSize(KpsSerializer::toInt(map.value(KpaGraphicForm::sizeKey()), previous.getSize(), true));
    read.setColor(KpaGraphicForm::storedColor(map, KpaGraphicForm::colorKeys(), color,
                                              KpaGraphicForm::storedOpacity(map, color.alpha())));
    read.setDrawBorder(KpsSerializer::toBool(map.value(drawBorderKey()), previous.isBorderDrawn()));
    read.setBorderColor(KpaGraphicForm::storedColor(map, borderColorKeys(), border, border.alpha()));
    return read;
}

QString KpaSymbolConfig::debug() const
{
    QString text;
    QTextStream(&text) << "----- KpaSymbolConfig --------\n"
                       << "color readonly   = " << KpaConfigTools::yesNo(_colorReadonly) << '\n'
                       << "border available = " << KpaConfigTools::yesNo(_borderAvailable) << '\n'
                       << "size available = " << KpaConfigTools::yesNo(_sizeAvailable) << '\n';
    return text;
}

KpaSymbol::KpaSymbol(const QString& key) : KpaAAtomic(key, KpaSymbolConfig()) {}

KpaSymbol::KpaSymbol(const KpaSymbol& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaSymbol* KpaSymbol::duplicate(const QString& newKey) const
{
    return new KpaSymbol(*this, newKey);
}
