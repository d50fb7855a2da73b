#include <study/KsmModelColorScale.h>

#include <study/KsbColorJson.h>
#include <study/KsbJson.h>
#include <util/KugPaletteService.h>

#include <QtCore/QJsonArray>

template class KsmANamedModel<KsoColorScaleKind>;

namespace {

const QString colorsKey = QStringLiteral("colors");

} // namespace

KsoColorScaleIdentifier::KsoColorScaleIdentifier(KsmModelColorScale* model, const QString& name)
    : KsoANamedIdentifierOf(model, name)
{}

// An invalid colour has no stored form that could be read back.
QJsonObject KsoColorScaleKind::write(const Content& content)
{
    QStringList colors;
    for (const QColor& color : content)
        colors.append(color.isValid() ? KsbColorJson::toText(MbbColor(color.rgba())) : QString());
    return {{colorsKey, QJsonArray::fromStringList(colors)}};
}

QVector<QColor> KsoColorScaleKind::read(const QJsonObject& json)
{
    QVector<QColor> colors;
    for (const QString& color : KsbJson::readTexts(json, colorsKey))
        colors.append(QColor::fromRgba(KsbColorJson::fromText(color).getRgba()));
    if (colors.isEmpty())
        throw MbeError(MbeError::Storage, QStringLiteral("The colour scale has no colour."));
    return colors;
}

KsmModelColorScale::KsmModelColorScale(KssProject* project, KsbIDriverItem* driver) : KsmANamedModel(project, driver)
{
    _load();
    // The name is stored, so it must be the same in all languages.
    for (const KugPalette& palette : KugPaletteService::getPalettes())
        addBuiltIn(palette.getId(), palette.getColors());
}

KsmModelColorScale::~KsmModelColorScale() = default;

void KsmModelColorScale::setColors(KsoColorScale* scale, const QVector<QColor>& colors)
{
    _edit(scale, colors, KsmReason::Colors);
}
