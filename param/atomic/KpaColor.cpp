#include "KpaGraphicForm.h"

#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaConfigTools.h>

template class KpaAAtomic<QColor, KpaColorConfig>;

bool KpaColorConfig::setAlphaEnabled(bool enabled)
{
    return KpaConfigTools::store(_alphaEnabled, enabled);
}

namespace {
constexpr int opaque = 255;
}

QColor KpaColorConfig::fix(const QColor& value, const QColor&) const
{
    QColor fixed = value;
    if (!_alphaEnabled)
        fixed.setAlpha(opaque);
    return fixed;
}

QString KpaColorConfig::toString(const QColor& value) const
{
    if (!_alphaEnabled || value.alpha() == opaque)
        return value.name();
    return value.name() + QStringLiteral(" (opacity=%1%)").arg(QString::number(value.alphaF() * 100.0, 'f'));
}

MbbOrderedMap<QString, QString> KpaColorConfig::serializeValue(const QColor& value) const
{
    MbbOrderedMap<QString, QString> map;
    KpaGraphicForm::insertColor(map, KpaGraphicForm::colorKeys(), value);
    if (_alphaEnabled)
        KpaGraphicForm::insertOpacity(map, value);
    return map;
}

QColor KpaColorConfig::unserializeValue(const MbbOrderedMap<QString, QString>& map, const QColor& previous) const
{
    const int alpha = _alphaEnabled ? KpaGraphicForm::storedOpacity(map, opaque) : opaque;
    return KpaGraphicForm::storedColor(map, KpaGraphicForm::colorKeys(), previous, alpha);
}

QString KpaColorConfig::debug() const
{
    return QStringLiteral("----- KpaColorConfig --------\n"
                          " alpha enabled    = %1\n")
        .arg(KpaConfigTools::yesNo(_alphaEnabled));
}

KpaColor::KpaColor(const QString& key) : KpaAAtomic(key, KpaColorConfig()) {}

KpaColor::KpaColor(const KpaColor& other, const QString& newKey) : KpaAAtomic(other, newKey) {}

KpaColor* KpaColor::duplicate(const QString& newKey) const
{
    return new KpaColor(*this, newKey);
}
