#include <registry/DemoModel.h>

#include <QtCore/QObject>

#include <basic/MbuEUnitClass.h>
#include <param/atomic/KpaCoordSystem.h>
#include <param/atomic/KpaDirection.h>
#include <param/atomic/KpaLineStyle.h>
#include <param/atomic/KpaMatrixSymmetrical.h>
#include <param/atomic/KpaPalette.h>
#include <param/atomic/KpaPlaneOrientation.h>
#include <param/atomic/KpaString.h>
#include <param/atomic/KpaSymbol.h>
#include <param/atomic/KpaSymbol3D.h>
#include <param/atomic/KpaSystemOrientation.h>
#include <param/atomic/KpaVectorDouble.h>
#include <param/atomic/KpaVectorInt.h>
#include <param/composite/KpcGroupList.h>
#include <param/composite/KpcVectorConstraintDouble.h>
#include <param/list/KplColorList.h>
#include <param/list/KplDoubleList.h>
#include <param/list/KplStringList.h>
#include <param/watcher/KpwGroupCopier.h>
#include <util/KuuCoordSystemCatalog.h>

namespace {

void describeSystem(KpaCoordSystem& system)
{
    system.setFilter(Ku::CoordSystemMode::Projected | Ku::CoordSystemMode::Local);
    system.setValue(KuuCoordSystemCatalog::getCoordSystem(KuuCoordSystemCatalog::KEY_LOCAL));
}

void describeOrigin(KpaVectorDouble& origin)
{
    origin.setComponentUnitClass(MbuEUnitClass::LENGTH);
}

void describeCell(KpaVectorDouble& cell)
{
    cell.setComponentUnitClass(MbuEUnitClass::LENGTH);
    cell.setComponentMinimum(0.1);
    cell.setLinkMode(Kp::LinkHorizontal);
    cell.setComponentValues(25.0, 25.0, 5.0);
}

void describeNodes(KpaVectorInt& nodes)
{
    nodes.setComponentMinimum(1);
    nodes.setComponentMaximums(1000, 1000, 200);
    nodes.setComponentValues(40, 40, 20);
}

void describeRotation(KpaRotation& rotation)
{
    rotation.setDimension(MbgEDimension::DIM_2D, 0.0);
}

void describeSills(KpaMatrixSymmetrical& sills)
{
    sills.setLabels({QObject::tr("Copper"), QObject::tr("Gold")});
    sills.wantPositiveDefinite(true);
    KuuMatrixSymmetrical matrix(2);
    matrix.setElement(0, 0, 1.0);
    matrix.setElement(1, 1, 1.0);
    sills.setValue(matrix);
}

void describeNugget(KpcConstraintDouble& nugget)
{
    nugget.setMode(Ku::Constraint::Constraints);
    nugget.setMinimum(0.0);
}

void describeRanges(KpcVectorConstraintDouble& ranges)
{
    ranges.setMode(Ku::Constraint::Constraints);
    ranges.setUnitClass(MbuEUnitClass::LENGTH);
    ranges.setMinimum(0.0);
    ranges.setValues({120.0, 120.0, 15.0});
    ranges.setComponentLink(Ku::Vector::SecondFollowsFirst);
}

void describeCutoffs(KplDoubleList& cutoffs)
{
    cutoffs.setItemLabel(QObject::tr("Cutoff"));
    cutoffs.setRange(0.0, 100.0);
    cutoffs.setUnitClass(MbuEUnitClass::PERCENTAGE);
    cutoffs.setUnique(true);
}

void describeDomains(KplStringList& domains)
{
    domains.setItemLabel(QObject::tr("Domain"));
    domains.getItemPrototype()->setMaxLength(20);
    domains.setValues({QStringLiteral("Ore")});
}

void describeColors(KplColorList& colors)
{
    colors.setItemLabel(QObject::tr("Colour"));
    colors.getItemPrototype()->setAlphaEnabled(false);
    colors.setValues({QColor(255, 128, 0)});
}

void describeDrillHoles(KpcGroupList& holes)
{
    holes.setItemLabel(QObject::tr("Drill hole"));
    auto* collar = new KpaVectorDouble(QStringLiteral("COLLAR"));
    collar->setLabel(QObject::tr("Collar"));
    collar->setComponentUnitClass(MbuEUnitClass::LENGTH);
    holes.getItemPrototype()->addChild(collar);
    auto* course = new KpaDirection(QStringLiteral("COURSE"));
    course->setLabel(QObject::tr("Course"));
    holes.getItemPrototype()->addChild(course);
}

void describeContour(KpaLineStyle& contour)
{
    contour.setColorEnabled(true);
}

} // namespace

DemoModel::DemoModel(const QString& key, const KstITransactable& transactable)
    : KpcFiche(key, QStringLiteral("DemoModel"), transactable)
{
    setLabel(QObject::tr("Model of a deposit"));
    _declare({*this, KpcChildren::Create});
    _copyScreenToPrint();
    _watch();
}

DemoModel::DemoModel(const DemoModel& other, const QString& newKey) : KpcFiche(other, newKey)
{
    _declare({*this, KpcChildren::Rebind});
    _watch();
}

DemoModel::~DemoModel() = default;

DemoModel* DemoModel::duplicate(const QString& newKey) const
{
    return new DemoModel(*this, newKey);
}

QList<KpbAParameter*> DemoModel::getKeyParameters() const
{
    return {_name};
}

void DemoModel::_declare(KpcChildren c)
{
    // clang-format off
    c.add(_name,         "NAME",          QObject::tr("Name of the model"      )).value(QStringLiteral("Model 1"));
    c.add(_grid,         "GRID",          QObject::tr("Grid"                   ), _getTransactable());
    _declareGrid(c.in(*_grid));
    c.add(_structure,    "STRUCTURE",     QObject::tr("Structure of the grades"), _getTransactable());
    _declareStructure(c.in(*_structure));
    c.add(_cutoffs,      "CUTOFFS",       QObject::tr("Cutoffs"                )).with(describeCutoffs);
    c.add(_domains,      "DOMAINS",       QObject::tr("Domains"                )).with(describeDomains);
    c.add(_domainColors, "DOMAIN_COLORS", QObject::tr("Colours of the domains" )).with(describeColors);
    c.add(_drillHoles,   "DRILL_HOLES",   QObject::tr("Drill holes"            ), _getTransactable())
        .with(describeDrillHoles);
    c.add(_screen.group, "SCREEN",        QObject::tr("On the screen"          ), _getTransactable());
    _declareDrawing(c.in(*_screen.group), _screen);
    c.add(_print.group,  "PRINT",         QObject::tr("In print"               ), _getTransactable());
    _declareDrawing(c.in(*_print.group), _print);
    // clang-format on
}

void DemoModel::_declareGrid(KpcChildren c)
{
    // clang-format off
    c.add(_system,   "SYSTEM",   QObject::tr("Coordinate system")).with(describeSystem);
    c.add(_origin,   "ORIGIN",   QObject::tr("Origin"           )).with(describeOrigin);
    c.add(_cell,     "CELL",     QObject::tr("Size of a cell"   )).with(describeCell);
    c.add(_nodes,    "NODES",    QObject::tr("Number of cells"  )).with(describeNodes);
    c.add(_rotation, "ROTATION", QObject::tr("Rotation"         )).with(describeRotation);
    // clang-format on
}

void DemoModel::_declareStructure(KpcChildren c)
{
    // clang-format off
    c.add(_shoots,     "SHOOTS",     QObject::tr("Direction of the ore shoots"));
    c.add(_layers,     "LAYERS",     QObject::tr("Attitude of the layers"     ));
    c.add(_anisotropy, "ANISOTROPY", QObject::tr("Axes of the ranges"         ));
    c.add(_sills,      "SILLS",      QObject::tr("Sills"                      )).with(describeSills);
    c.add(_nugget,     "NUGGET",     QObject::tr("Nugget effect"), _getTransactable()).with(describeNugget);
    c.add(_ranges,     "RANGES",     QObject::tr("Ranges"), _getTransactable()).with(describeRanges);
    // clang-format on
}

void DemoModel::_declareDrawing(KpcChildren c, Drawing& drawing)
{
    // clang-format off
    c.add(drawing.palette,   "PALETTE",    QObject::tr("Colours of the grades"));
    c.add(drawing.contour,   "CONTOUR",    QObject::tr("Contour lines"        )).with(describeContour);
    c.add(drawing.sample,    "SAMPLE",     QObject::tr("Samples"              ));
    c.add(drawing.drillHole, "DRILL_HOLE", QObject::tr("Ends of drill holes"  ));
    // clang-format on
}

void DemoModel::_copyScreenToPrint()
{
    auto copier = std::make_unique<KpwGroupCopier>();
    copier->setSource(_screen.group, Kp::NotifyValue);
    copier->addDestination(_print.group);
    registerWatcher(PrintCopier, copier.get());
    copier.release();
}

void DemoModel::_watch()
{
    _domainTable.addList(_domains);
    _domainTable.addList(_domainColors);
}
