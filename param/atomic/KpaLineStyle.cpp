#include "KpaGraphicForm.h"

#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaLineStyle.h>

#include <basic/MbbGlobal.h>

template class KpaAAtomic<KugLineStyle, KpaLineStyleConfig>;

namespace {

using SerialForm = KpaGraphicForm::Map;

QString penKey()
{
    return QStringLiteral("pen");
}

QString colorKey()
{
    return QStringLiteral("color");
}

QString widthKey()
{
    return QStringLiteral("width");
}

QString borderKey()
{
    return QStringLiteral("border");
}

QString borderColorKey()
{
    return QStringLiteral("borderColor");
}

QString borderWidthKey()
{
    return QStringLiteral("borderWidth");
}

QColor storedColor(const SerialForm& map, const QString& key, const QColor& previous)
{
    const QString text = map.value(key);
    return QColor::isValidColor(text) ? QColor(text) : previous;
}

double storedWidth(const SerialForm& map, const QString& key, double previous)
{
    const QString* text = map.find(key);
    return text ? KpsSerializer::toDouble(*text, previous, false) : previous;
}

const char* trueFalse(bool value)
{
    return value ? "true" : "false";
}

} // namespace

bool KpaLineStyleConfig::setColorEnabled(bool enabled)
{
    return KpaConfigTools::store(_colorEnabled, enabled);
}

bool KpaLineStyleConfig::setNoLineAvailable(bool available)
{
    return KpaConfigTools::store(_noLineAvailable, available);
}

bool KpaLineStyleConfig::setWidthEnabled(bool enabled)
{
    return KpaConfigTools::store(_widthEnabled, enabled);
}

QString KpaLineStyleConfig::toString(const KugLineStyle& value) const
{
    QString text = QStringLiteral("Pen[") + value.getPen().getLabel() + QLatin1Char(']');
    if (_colorEnabled)
        text += QStringLiteral(" Color[") + value.getColor().name(QColor::HexArgb) + QLatin1Char(']');
    if (_widthEnabled) {
        const double width = value.getWidth();
        const QString number = width == MbbGlobal::D_FFFF ? MbbGlobal::STR_NA : QString::number(width);
        text += QStringLiteral(" Width[") + number + QLatin1Char(']');
    }
    return text;
}

SerialForm KpaLineStyleConfig::serializeValue(const KugLineStyle& value) const
{
    return {
        {penKey(), value.getPen().getKey()},
        {colorKey(), value.getColor().name(QColor::HexArgb)},
        {widthKey(), KpaGraphicForm::numberText(value.getWidth())},
        {borderKey(), KpsSerializer::fromBool(value.hasBorder())},
        {borderColorKey(), value.getBorderColor().name(QColor::HexArgb)},
        {borderWidthKey(), KpaGraphicForm::numberText(value.getBorderWidth())},
    };
}

KugLineStyle KpaLineStyleConfig::unserializeValue(const SerialForm& map, const KugLineStyle& previous) const
{
    const auto* pen = KpaGraphicForm::storedItem<KugEPen>(map, penKey());
    if (!pen || !map.contains(colorKey()) || !map.contains(widthKey()))
        return previous;
    KugLineStyle read;
    read.setPen(*pen);
    read.setColor(storedColor(map, colorKey(), previous.getColor()));
    read.setWidth(storedWidth(map, widthKey(), previous.getWidth()));
    read.setBorder(KpsSerializer::toBool(map.value(borderKey()), previous.hasBorder()));
    read.setBorderColor(storedColor(map, borderColorKey(), previous.getBorderColor()));
    read.setBorderWidth(storedWidth(map, borderWidthKey(), previous.getBorderWidth()));
    return read;
}

QString KpaLineStyleConfig::debug() const
{
    QString text;
    QTextStream(&text) << "----- KpaLineStyleConfig --------\n"
                       << "color enabled = " << trueFalse(_colorEnabled) << '\n'
                       << "width enabled = " << trueFalse(_widthEnabled) << '\n'
                       << "'No Line' available = " << trueFalse(_noLineAvailable) << '\n';
    return text;
}

KpaLineStyle::KpaLineStyle(const QString& key) : KpaAAtomic(key, KpaLineStyleConfig()) {}

KpaLineStyle::KpaLineStyle(const KpaLineStyle& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaLineStyle* KpaLineStyle::duplicate(const QString& newKey) const
{
    return new KpaLineStyle(*this, newKey);
}
