#include <tree/ParameterBounds.h>

#include <basic/MbuUnitService.h>
#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaCoordSystem.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaLineStyle.h>
#include <param/atomic/KpaMatrixSymmetrical.h>
#include <param/atomic/KpaPalette.h>
#include <param/atomic/KpaRotation.h>
#include <param/atomic/KpaString.h>
#include <param/atomic/KpaSymbol.h>
#include <param/atomic/KpaSymbol3D.h>
#include <param/atomic/KpaUnit.h>
#include <param/atomic/KpaVectorDouble.h>
#include <param/atomic/KpaVectorInt.h>
#include <param/composite/KpcAbstractList.h>
#include <param/composite/KpcVectorConstraintDouble.h>
#include <util/KugPaletteService.h>

namespace {

QString joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QString numberText(double number)
{
    return QLocale::c().toString(number, 'g', 10);
}

/// Limits of which each may be the undefined marker.
QString rangeText(double minimum, bool hasMinimum, double maximum, bool hasMaximum)
{
    if (hasMinimum && hasMaximum)
        return QStringLiteral("%1 to %2").arg(numberText(minimum), numberText(maximum));
    if (hasMinimum)
        return QStringLiteral("from %1").arg(numberText(minimum));
    return hasMaximum ? QStringLiteral("up to %1").arg(numberText(maximum)) : QString();
}

QString stepText(double step, bool hasStep)
{
    return hasStep ? QStringLiteral("step %1").arg(numberText(step)) : QString();
}

QString ifSo(bool isSo, const char* text)
{
    return isSo ? QString::fromLatin1(text) : QString();
}

/// The configurations of integers and doubles have the same words for their limits.
template <class NumberConfig>
QString numberBounds(const NumberConfig& number)
{
    return joined(
        {rangeText(number.getMinimum(), number.isMinimumDefined(), number.getMaximum(), number.isMaximumDefined()),
         ifSo(number.isWrapped(), "wrapped"), stepText(number.getStep(), number.isStepDefined()),
         ifSo(number.isUndefineEnabled(), "or undefined")});
}

/// One text where it is that of all components; else each behind the name of its entry, where there is one.
QString componentTexts(const QStringList& texts)
{
    if (texts.count(texts.first()) == texts.size())
        return texts.first();
    QStringList named;
    for (int i = 0; i < texts.size(); ++i) {
        if (!texts[i].isEmpty())
            named.append(QStringLiteral("v%1 %2").arg(i + 1).arg(texts[i]));
    }
    return named.join(QStringLiteral("; "));
}

QString linkText(Kp::VectorLink link)
{
    return joined(
        {ifSo(link == Kp::LinkAll, "v2 and v3 follow v1"), ifSo(link == Kp::LinkHorizontal, "v2 follows v1")});
}

template <class Vector>
QString vectorBounds(const Vector& vector)
{
    QStringList bounds;
    for (int i = 0; i < vector.getDimension(); ++i)
        bounds.append(numberBounds(vector.getConfig().itemConfig(i)));
    const QString dimension =
        vector.getDimension() == Kp::VectorDim3 ? QString() : QStringLiteral("%1 of 3").arg(vector.getDimension());
    return joined({dimension, componentTexts(bounds), linkText(vector.getLinkMode())});
}

QString boundsOf(const KpcVectorConstraintDouble& vector)
{
    const auto link = vector.getComponentLink();
    return joined({vector.getDimension() == Ku::Vector::Dimension3
                       ? QString()
                       : QStringLiteral("%1 of 3").arg(vector.getDimension()),
                   ifSo(link == Ku::Vector::AllFollowFirst, "COMPONENT_2 and COMPONENT_3 follow COMPONENT_1"),
                   ifSo(link == Ku::Vector::SecondFollowsFirst, "COMPONENT_2 follows COMPONENT_1")});
}

QString boundsOf(const KpaMatrixSymmetrical& matrix)
{
    const QList<double>& minimums = matrix.getElementMinimumList();
    const QList<double>& maximums = matrix.getElementMaximumList();
    QStringList limits;
    for (int i = 0; i < std::max(minimums.size(), maximums.size()); ++i) {
        const double minimum = minimums.value(i, MbbGlobal::D_FFFF);
        const double maximum = maximums.value(i, MbbGlobal::D_FFFF);
        const QString range = rangeText(minimum, minimum != MbbGlobal::D_FFFF, maximum, maximum != MbbGlobal::D_FFFF);
        if (!range.isEmpty())
            limits.append(QStringLiteral("node_%1 %2").arg(i + 1).arg(range));
    }
    return joined({ifSo(matrix.getMode() == Ku::Constraint::Constraints, "constraints"),
                   ifSo(matrix.doesWantPositiveDefinite(), "positive definite"),
                   ifSo(!matrix.canItBeNull(), "not null"), limits.join(QStringLiteral("; ")),
                   stepText(matrix.getElementStep(), matrix.isElementStepDefined())});
}

QString boundsOf(const KpaCoordSystem& system)
{
    const Ku::CoordSystemModes filter = system.getFilter();
    if (filter == Ku::AllCoordSystemModes)
        return {};
    QStringList kinds{ifSo(filter.testFlag(Ku::CoordSystemMode::Geographic), "geographic"),
                      ifSo(filter.testFlag(Ku::CoordSystemMode::Local), "local"),
                      ifSo(filter.testFlag(Ku::CoordSystemMode::Projected), "projected")};
    kinds.removeAll(QString());
    return kinds.isEmpty() ? QStringLiteral("of no kind") : kinds.join(QStringLiteral(" | "));
}

QString boundsOf(const KpaPalette&)
{
    QStringList ids;
    for (const KugPalette& palette : KugPaletteService::getPalettes())
        ids.append(palette.getId());
    return ids.join(QStringLiteral(" | "));
}

/// The keys of an enumeration class of the drawing records.
template <class Enumeration>
QString keysBounds()
{
    QStringList keys;
    for (const Enumeration* item : Enumeration::items())
        keys.append(item->getKey());
    return keys.join(QStringLiteral(" | "));
}

QString boundsOf(const KpcAbstractList& list)
{
    const KpbAParameter& prototype = *list.getAbstractPrototype();
    return joined({QStringLiteral("items of the kind %1").arg(prototype.getType().getLabel()), boundsText(prototype),
                   ifSo(list.needToUnserializeAtomicItems(), "each value once"),
                   ifSo(!list.isResizable(), "of fixed number")});
}

QString itemBounds(const MbbOrderedMap<int, KpaItemDef>& items)
{
    QStringList keys;
    for (const auto& item : items)
        keys.append(item.value.enabled ? item.value.key : QStringLiteral("(%1)").arg(item.value.key));
    return keys.join(QStringLiteral(" | "));
}

QString boundsOf(const KpaString& string)
{
    QStringList parts;
    if (!string.getRegExp().pattern().isEmpty())
        parts.append(QStringLiteral("matches %1").arg(string.getRegExp().pattern()));
    if (string.getConfig().isMaxLengthDefined())
        parts.append(QStringLiteral("at most %1 characters").arg(string.getMaxLength()));
    if (string.isAutoTrimmed())
        parts.append(QStringLiteral("trimmed"));
    return joined(parts);
}

QString boundsOf(const KpaFSFile& file)
{
    QStringList patterns;
    for (const auto& filter : file.getFilters())
        patterns += filter.value;
    if (file.isAnyFileAllowed() && !patterns.isEmpty())
        patterns.append(QStringLiteral("or any"));
    return patterns.join(QLatin1Char(' '));
}

QString boundsOf(const KpaUnit& unit)
{
    QStringList keys;
    for (const MbuUnit& one : MbuUnitService::getUnits(unit.getUnitClass()))
        keys.append(one.getKey());
    return keys.join(QStringLiteral(" | "));
}

QString boundsOf(const KpaInteger& integer)
{
    return numberBounds(integer.getConfig());
}

QString boundsOf(const KpaDouble& number)
{
    return numberBounds(number.getConfig());
}

QString boundsOf(const KpaEnum& choice)
{
    return itemBounds(choice.getConfig().getItems());
}

QString boundsOf(const KpaFlags& flags)
{
    return itemBounds(flags.getFlags());
}

QString boundsOf(const KpaFSDirectory& folder)
{
    return ifSo(folder.getDirectoryMustExists(), "must exist");
}

QString boundsOf(const KpaVectorDouble& vector)
{
    return vectorBounds(vector);
}

QString boundsOf(const KpaVectorInt& vector)
{
    return vectorBounds(vector);
}

QString boundsOf(const KpaRotation& rotation)
{
    return ifSo(rotation.getConfig().is2D(), "in the plane");
}

QString boundsOf(const KpaColor& color)
{
    return ifSo(!color.isAlphaEnabled(), "opaque");
}

QString boundsOf(const KpaLineStyle&)
{
    return keysBounds<KugEPen>();
}

QString boundsOf(const KpaSymbol&)
{
    return keysBounds<KugEMarker>();
}

QString boundsOf(const KpaSymbol3D&)
{
    return keysBounds<KugEVolumeMarker>();
}

/// As the first of the classes that the parameter is of; empty where it is of none.
template <class... Classes>
QString boundsAsOneOf(const KpbAParameter& parameter)
{
    QString text;
    const auto tell = [&](const auto* as) {
        if (as)
            text = boundsOf(*as);
        return as != nullptr;
    };
    (tell(dynamic_cast<const Classes*>(&parameter)) || ...);
    return text;
}

QString symbolText(const MbuEUnitClass& unitClass, int power)
{
    return MbuUnitService::poweredUnitSymbol(MbuUnitService::getStorageUnit(unitClass).getSymbol(), power);
}

} // namespace

QString boundsText(const KpbAParameter& parameter)
{
    return boundsAsOneOf<KpaInteger, KpaDouble, KpaEnum, KpaFlags, KpaString, KpaFSFile, KpaFSDirectory, KpaUnit,
                         KpaVectorDouble, KpaVectorInt, KpaRotation, KpaMatrixSymmetrical, KpaColor, KpaCoordSystem,
                         KpaPalette, KpaLineStyle, KpaSymbol, KpaSymbol3D, KpcVectorConstraintDouble, KpcAbstractList>(
        parameter);
}

QString unitText(const KpbAParameter& parameter)
{
    if (const auto* number = dynamic_cast<const KpaDouble*>(&parameter))
        return symbolText(number->getUnitClass(), number->getPowerValue());
    if (const auto* vector = dynamic_cast<const KpaVectorDouble*>(&parameter)) {
        QStringList symbols;
        for (int i = 0; i < vector->getDimension(); ++i)
            symbols.append(symbolText(vector->getComponentUnitClass(i), vector->getComponentPowerValue(i)));
        return componentTexts(symbols);
    }
    if (const auto* matrix = dynamic_cast<const KpaMatrixSymmetrical*>(&parameter))
        return symbolText(matrix->getUnitClass(), matrix->getPowerValue());
    if (const auto* list = dynamic_cast<const KpcAbstractList*>(&parameter))
        return unitText(*list->getAbstractPrototype());
    return {};
}
