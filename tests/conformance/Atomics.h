#pragma once

#include <QtCore/QList>

#include <basic/MbgRotationConventionDefault.h>
#include <basic/MbuUnitService.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaCatalog.h>
#include <param/atomic/KpaCatalogDefinition_old.h>
#include <param/atomic/KpaChartFolder.h>
#include <param/atomic/KpaChartView.h>
#include <param/atomic/KpaCharts.h>
#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaColorScale.h>
#include <param/atomic/KpaCoordSystem.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaDirection.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaGeosSet.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaLineStyle.h>
#include <param/atomic/KpaMatrixSymmetrical.h>
#include <param/atomic/KpaNeighborhoodItem.h>
#include <param/atomic/KpaPalette.h>
#include <param/atomic/KpaPlaneOrientation.h>
#include <param/atomic/KpaProject.h>
#include <param/atomic/KpaRotation.h>
#include <param/atomic/KpaScene.h>
#include <param/atomic/KpaSeed.h>
#include <param/atomic/KpaString.h>
#include <param/atomic/KpaSymbol.h>
#include <param/atomic/KpaSymbol3D.h>
#include <param/atomic/KpaSystemOrientation.h>
#include <param/atomic/KpaUnit.h>
#include <param/atomic/KpaVectorDouble.h>
#include <param/atomic/KpaVectorInt.h>
#include <param/composite/KpcCutoffs.h>
#include <study/KsmModelData.h>
#include <util/KugPaletteService.h>
#include <util/KuuCoordSystemCatalog.h>

#include <optional>

/// Values to try at an atomic; some of them are admissible, and among those is one that it does not hold.
namespace Candidates {

inline QList<int> of(const KpaInteger&)
{
    return {2, 3};
}
inline QList<double> of(const KpaDouble&)
{
    return {1.5, 2.25};
}
inline QList<bool> of(const KpaBool& atomic)
{
    return {!atomic.getValue()};
}
inline QList<unsigned long long> of(const KpaSeed&)
{
    return {99, 4712};
}
inline QList<MbuUnit> of(const KpaUnit& atomic)
{
    return MbuUnitService::getUnits(atomic.getUnitClass());
}
inline QList<int> of(const KpaEnum& atomic)
{
    QList<int> values;
    for (int i = 0; i < atomic.getItemCount(); ++i)
        values.append(atomic.getItemAt(i).value);
    return values;
}
inline QList<QSet<int>> of(const KpaFlags& atomic)
{
    QList<QSet<int>> sets{{}};
    for (const int value : atomic.getFlagValues())
        sets.append({value});
    return sets;
}
inline QList<QString> of(const KpaString&)
{
    return {"Other", "aaa", "b", ""};
}
inline QList<QString> of(const KpaFSFile&)
{
    return {"/data/other.csv", "/data/other"};
}
inline QList<QString> of(const KpaFSDirectory&)
{
    return {"/usr", "/"};
}
/// Those that the limits and the links of the components leave as they are.
inline QList<MbgVector3D> of(const KpaVectorDouble& atomic)
{
    return {atomic.getConfig().fix({1.5, 2.25, 1.75}), atomic.getConfig().fix({2.5, 1.25, 0.75})};
}
inline QList<MbgIntVector3D> of(const KpaVectorInt& atomic)
{
    return {atomic.getConfig().fix({2, 3, 4}), atomic.getConfig().fix({5, 6, 7})};
}
inline MbgAngle degrees(double angle)
{
    return {angle, MbgEAngleUnit::DEGREE};
}
inline MbgRotation rotation(double angle1, double angle2, double angle3)
{
    return {degrees(angle1), degrees(angle2), degrees(angle3)};
}
/// Of them, one has only a first angle, for rotations in the plane.
inline QList<MbgRotation> of(const KpaRotation&)
{
    return {rotation(30.0, 20.0, 10.0), rotation(45.0, -5.0, 60.0), rotation(60.0, 0.0, 0.0)};
}
// What these store are not all angles of a rotation.
inline QList<MbgRotation> of(const KpaDirection&)
{
    return {MbgRotationConventionDefault::directionToRotation(degrees(200.0), degrees(0.0)),
            MbgRotationConventionDefault::directionToRotation(degrees(10.5), degrees(0.0))};
}
inline QList<MbgRotation> of(const KpaPlaneOrientation&)
{
    return {MbgRotationConventionDefault::planeOrientationToRotation(degrees(30.0), degrees(120.0)),
            MbgRotationConventionDefault::planeOrientationToRotation(degrees(60.0), degrees(240.0))};
}
inline QList<MbgRotation> of(const KpaSystemOrientation&)
{
    return {MbgRotationConventionDefault::systemOrientationToRotation(degrees(30.0), degrees(120.0), degrees(15.0)),
            MbgRotationConventionDefault::systemOrientationToRotation(degrees(60.0), degrees(240.0), degrees(45.0))};
}
inline QList<KuuMatrixSymmetrical> of(const KpaMatrixSymmetrical& atomic)
{
    QList<KuuMatrixSymmetrical> matrices;
    for (const double corner : {1.5, 2.5}) {
        KuuMatrixSymmetrical matrix = atomic.getValue();
        matrix.setElement(0, 0, corner);
        matrices.append(matrix);
    }
    return matrices;
}
inline QList<QColor> of(const KpaColor&)
{
    return {QColor(10, 20, 30, 128), QColor(200, 100, 50), QColor(1, 2, 3)};
}
inline QList<KugPalette> of(const KpaPalette&)
{
    return KugPaletteService::getPalettes();
}
inline QList<KugLineStyle> of(const KpaLineStyle& atomic)
{
    KugLineStyle style = atomic.getValue();
    style.setPen(style.getPen() == KugEPen::DASH ? KugEPen::DOT : KugEPen::DASH);
    style.setColor(QColor(10, 20, 30, 128));
    style.setWidth(style.getWidth() + 0.25);
    style.setBorder(!style.hasBorder());
    return {style};
}
inline QList<KugSymbol> of(const KpaSymbol& atomic)
{
    KugSymbol symbol = atomic.getValue();
    symbol.setShape(symbol.getShape() == KugEMarker::STAR ? KugEMarker::CROSS : KugEMarker::STAR);
    symbol.setSize(symbol.getSize() + 3);
    symbol.setColor(QColor(10, 20, 30, 128));
    symbol.setDrawBorder(!symbol.isBorderDrawn());
    return {symbol};
}
inline QList<KugSymbol3D> of(const KpaSymbol3D& atomic)
{
    KugSymbol3D symbol = atomic.getValue();
    symbol.setShape(symbol.getShape() == KugEVolumeMarker::CONE ? KugEVolumeMarker::CUBE : KugEVolumeMarker::CONE);
    symbol.setSize(symbol.getSize() + 0.5);
    symbol.setQuality(0.75);
    symbol.setColor(QColor(10, 20, 30, 128));
    return {symbol};
}
inline QList<KuuCoordSystem> of(const KpaCoordSystem&)
{
    QList<KuuCoordSystem> systems;
    for (const char* key : {"LOCAL", "EPSG:4326", "EPSG:2154", "EPSG:3857"})
        systems.append(KuuCoordSystemCatalog::getCoordSystem(key));
    return systems;
}
/// All items of the project; none where there is no project.
inline QList<KsoDataIdentifier> of(const KpaData& atomic)
{
    if (!atomic.getDataModel())
        return {};
    QList<KsoDataIdentifier> idents;
    QList<const KsoADataItem*> items{atomic.getDataModel()->getRootItem()};
    while (!items.isEmpty()) {
        const KsoADataItem* item = items.takeFirst();
        idents.append(item->getIdentifier());
        for (const KsoADataItem* child : item->getChildItems())
            items.append(child);
    }
    return idents;
}
/// What the model of the project offers.
template <class Atomic>
requires requires(const Atomic& atomic)
{
    atomic.getIdentifiers();
}
QList<typename Atomic::ValueType> of(const Atomic& atomic)
{
    return atomic.getIdentifiers();
}
inline QList<QUrl> of(const KpaProject&)
{
    return {QUrl("file:///data/mine.study"), QUrl("study:other")};
}
inline QList<MbdEnumCatalog> of(const KpaCatalogDefinition_old& atomic)
{
    MbdEnumCatalog catalog(atomic.getValue().getId() + "x", "Another name");
    catalog.setUndefColor(MbbColor(0xFF102030));
    catalog.setCategory(3, "A label | of parts", MbbColor(0xFF000001));
    catalog.setCategory(-1, "Another label", MbbColor(0x80FFFFFF));
    return {catalog};
}

} // namespace Candidates

template <class... Atomics>
struct AtomicClasses
{
    /// Calls `function` with the parameter as what it is; gives whether it is one of the classes.
    template <class Function>
    static bool visit(KpbAParameter& parameter, Function function)
    {
        return (_visitAs<Atomics>(parameter, function) || ...);
    }

private:
    template <class Atomic, class Function>
    static bool _visitAs(KpbAParameter& parameter, Function& function)
    {
        auto* atomic = dynamic_cast<Atomic*>(&parameter);
        if (atomic)
            function(*atomic);
        return atomic != nullptr;
    }
};

/// A class stands before its base.
using KnownAtomics =
    AtomicClasses<KpaInteger, KpaDouble, KpaBool, KpaSeed, KpaUnit, KpaEnum, KpaFlags, KpaString, KpaFSFile,
                  KpaFSDirectory, KpaVectorDouble, KpaVectorInt, KpaDirection, KpaPlaneOrientation,
                  KpaSystemOrientation, KpaRotation, KpaMatrixSymmetrical, KpaColor, KpaPalette, KpaLineStyle,
                  KpaSymbol, KpaSymbol3D, KpaCoordSystem, KpaCatalogDefinition_old, KpaData, KpaCatalog, KpaColorScale,
                  KpaGeosSet, KpaNeighborhoodItem, KpaScene, KpaCharts, KpaChartFolder, KpaChartView, KpaProject>;

template <class Atomic, class Value>
bool admits(const Atomic& atomic, const Value& value)
{
    return atomic.getConfig().fix(value, value) == value;
}

/// Whether the atomic holds the upper end of a cycle, where the way down into the cycle can end. Asked for again, and
/// so when it is read again, the upper end is the lower one.
template <class Atomic>
bool isAtEndOfCycle(const Atomic& atomic)
{
    if constexpr (requires { atomic.isWrapped(); })
        return atomic.isWrapped() && atomic.getValue() == atomic.getMaximum();
    else
        return false;
}

/// An admissible value that the atomic does not hold; nothing where it has no choice.
template <class Atomic>
std::optional<typename Atomic::ValueType> otherValue(const Atomic& atomic)
{
    for (const auto& value : Candidates::of(atomic)) {
        if (value != atomic.getValue() && atomic.getConfig().fix(value, atomic.getValue()) == value)
            return value;
    }
    return std::nullopt;
}

/// Whether `parameter` is an atomic, or as good as one, that took on another value.
inline bool changeValue(KpbAParameter& parameter)
{
    if (auto* cutoffs = dynamic_cast<KpcCutoffs*>(&parameter)) {
        QList<double> values = cutoffs->getValues();
        for (double& value : values)
            value += 0.125;
        cutoffs->setValues(values);
        return !values.isEmpty();
    }
    bool changed = false;
    KnownAtomics::visit(parameter, [&](auto& atomic) {
        const auto value = otherValue(atomic);
        if (value)
            atomic.setValue(*value);
        changed = value.has_value();
    });
    return changed;
}

/// Whether the values that an atomic holds are admissible; a composite holds none.
inline bool holdsAdmissibleValues(KpbAParameter& parameter)
{
    bool admissible = true;
    KnownAtomics::visit(parameter, [&](auto& atomic) {
        admissible = (admits(atomic, atomic.getValue()) || isAtEndOfCycle(atomic)) &&
                     (!atomic.isAutomaticValueInitialized() || admits(atomic, atomic.getAutoValue()));
    });
    return admissible;
}
