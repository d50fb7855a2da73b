#include <demo/ModelSession.h>

#include <demo/DemoLookup.h>
#include <demo/OldDocuments.h>
#include <param/atomic/KpaCoordSystem.h>
#include <param/atomic/KpaDirection.h>
#include <param/atomic/KpaLineStyle.h>
#include <param/atomic/KpaMatrixSymmetrical.h>
#include <param/atomic/KpaPalette.h>
#include <param/atomic/KpaPlaneOrientation.h>
#include <param/atomic/KpaSymbol.h>
#include <param/atomic/KpaSymbol3D.h>
#include <param/atomic/KpaSystemOrientation.h>
#include <param/atomic/KpaVectorDouble.h>
#include <param/atomic/KpaVectorInt.h>
#include <param/composite/KpcVectorConstraintDouble.h>
#include <tree/ParameterTable.h>
#include <util/KuuCoordSystemCatalog.h>

namespace {

MbgAngle degrees(double angle)
{
    return {angle, MbgEAngleUnit::DEGREE};
}

KuuMatrixSymmetrical matrix(double first, double both, double second)
{
    KuuMatrixSymmetrical matrix(2);
    matrix.setElement(0, 0, first);
    matrix.setElement(0, 1, both);
    matrix.setElement(1, 1, second);
    return matrix;
}

/// The interval from a bound up, as it is shown.
QString upFrom(const QString& bound)
{
    return QStringLiteral("[%1 +%2[").arg(bound, QChar(0x221E));
}

} // namespace

ModelSession::ModelSession(const QString& storeFile, DemoReport& report) : _report(report), _store(storeFile) {}

ModelSession::~ModelSession() = default;

void ModelSession::run()
{
    _report.runStep("model", "Build a second form: a model of a deposit, and how it is drawn", [this] { _build(); });
    _report.runStep("vectors", "Vectors: components within limits, and linked", [this] { _changeVectors(); });
    _report.runStep("orientations", "Orientations: one rotation in the words of geology",
                    [this] { _changeOrientations(); });
    _report.runStep("matrix", "Symmetric matrices: sills that have to be possible", [this] { _changeMatrix(); });
    _report.runStep("constraints", "Constraints: what is known of a number", [this] { _changeConstraints(); });
    _report.runStep("drawings", "Drawings: a group that copies another one", [this] { _changeDrawings(); });
    _report.runStep("lists", "Lists: items grow from a prototype and keep their keys", [this] { _growLists(); });
    _report.runStep("table", "Lists in a table: the columns grow together", [this] { _growTable(); });
    _report.runStep("items", "Save and open again: the items keep their keys", [this] { _keepItems(); });
    _report.runStep("automatic", "Automatic values: a watcher keeps them out of what is stored",
                    [this] { _leaveAutomaticValuesOut(); });
    _report.runStep("trace", "Trace: a watcher prints what changes", [this] { _trace(); });
    _report.runStep("rotations", "Read older rotations: what they say stays", [this] { readOldRotations(_report); });
}

void ModelSession::_expectStored(const QString& path, const QString& expected)
{
    _report.expect(path, storedText(*_model, path), expected);
}

void ModelSession::_expectText(const QString& path, const QString& expected)
{
    _report.expect(path, lookUp(*_model, path).toString(), expected);
}

void ModelSession::_build()
{
    _model = std::make_unique<DemoModel>("MODEL", _store.getContext());
    _report.show(treeText(*_model) + QLatin1Char('\n'));
    _expectStored("GRID/CELL", "v1=25 v2=25 v3=5");
    _expectText("STRUCTURE/SHOOTS", "Azimuth=90\u00b0 Plunge=0\u00b0");
    _expectText("DOMAINS", "1 item: 'Ore'");
}

void ModelSession::_changeVectors()
{
    auto& cell = lookUp<KpaVectorDouble>(*_model, "GRID/CELL");
    auto& nodes = lookUp<KpaVectorInt>(*_model, "GRID/NODES");

    _expectRecords("The first component of a cell becomes 10 m, and the second follows it:",
                   [&] { cell.setComponentValue(0, 10.0); }, {"GRID/CELL value"});
    _expectStored("GRID/CELL", "v1=10 v2=10 v3=5");

    _expectRecords("The second one alone cannot change:", [&] { cell.setComponentValue(1, 99.0); },
                   {"GRID/CELL value"});
    _expectStored("GRID/CELL", "v1=10 v2=10 v3=5");

    _expectRecords("All of them are linked, and the value falls into line:", [&] { cell.setLinkMode(Kp::LinkAll); },
                   {"GRID/CELL value, config"});
    _expectStored("GRID/CELL", "v1=10 v2=10 v3=10");

    _expectRecords("Numbers of cells beyond their limits are repaired, each on its own:",
                   [&] { nodes.setComponentValues(50, 0, 500); }, {"GRID/NODES value"});
    _expectStored("GRID/NODES", "v1=50 v2=1 v3=200");
}

void ModelSession::_changeOrientations()
{
    _expectRecords(
        "A direction of 400 degrees, 12.5 down:",
        [this] { lookUp<KpaDirection>(*_model, "STRUCTURE/SHOOTS").setDirection(degrees(400.0), degrees(12.5)); },
        {"STRUCTURE/SHOOTS value"});
    _expectStored("STRUCTURE/SHOOTS", "azimuth=40 plunge=12.5");
    _expectText("STRUCTURE/SHOOTS", "Azimuth=40\u00b0 Plunge=12.5\u00b0");

    _report.startPart("A plane, and one with the pitch of an axis in it:");
    lookUp<KpaPlaneOrientation>(*_model, "STRUCTURE/LAYERS").setOrientation(degrees(40.0), degrees(310.0));
    lookUp<KpaSystemOrientation>(*_model, "STRUCTURE/ANISOTROPY")
        .setOrientation(degrees(40.0), degrees(310.0), degrees(22.5));
    _expectStored("STRUCTURE/LAYERS", "dip=40 dipAzimuth=310");
    _expectStored("STRUCTURE/ANISOTROPY", "dip=40 dipAzimuth=310 pitch=22.5");

    _report.startPart("The grid turns in the plane, so that of three angles only the first is left:");
    lookUp<KpaRotation>(*_model, "GRID/ROTATION").setValue({degrees(30.0), degrees(20.0), degrees(10.0)});
    _expectStored("GRID/ROTATION", "conv_id=0 conv_string=+Z+Y+X a1=30 a2=0 a3=0");
}

void ModelSession::_changeMatrix()
{
    auto& sills = lookUp<KpaMatrixSymmetrical>(*_model, "STRUCTURE/SILLS");
    _expectRecords("Sills that are possible:", [&] { sills.setValue(matrix(4.0, 1.0, 9.0)); },
                   {"STRUCTURE/SILLS value"});
    _expectStored("STRUCTURE/SILLS", "size=2 node_1=4 node_2=1 node_3=9");
    _report.startPart("More correlation than there can be is brought to the nearest that is possible:");
    sills.setValue(matrix(1.0, 2.0, 1.0));
    _expectText("STRUCTURE/SILLS", "[1.50, 1.50; 1.50, 1.50]");
}

void ModelSession::_changeConstraints()
{
    auto& nugget = lookUp<KpcConstraintDouble>(*_model, "STRUCTURE/NUGGET");
    auto& ranges = lookUp<KpcVectorConstraintDouble>(*_model, "STRUCTURE/RANGES");

    _report.startPart("Entering a bound makes a number bounded, locking it known, and unlocking it unknown again:");
    nugget.setValue(Ku::Constraint::LowerBound, 0.25);
    _expectText("STRUCTURE/NUGGET", upFrom("0.25"));
    nugget.setValue(Ku::Constraint::Value, 0.5);
    nugget.getParameter(Ku::Constraint::Value)->setValueLocked(true);
    _expectText("STRUCTURE/NUGGET", "0.5");
    _expectStored("STRUCTURE/NUGGET/LOWER_BOUND", "");
    nugget.getParameter(Ku::Constraint::Value)->setValueLocked(false);
    _expectText("STRUCTURE/NUGGET", "[unknown]");

    _report.startPart("The second range follows the first with its bounds, the third does not:");
    ranges.getParameter(Ku::Vector::First)->setValue(Ku::Constraint::LowerBound, 50.0);
    const QString bounded = upFrom("50 m");
    _expectText("STRUCTURE/RANGES", QStringLiteral("[%1,%1,[unknown]]").arg(bounded));
}

void ModelSession::_changeDrawings()
{
    KugLineStyle dashed;
    dashed.setPen(KugEPen::DASH);
    dashed.setColor(QColor(255, 0, 0));
    dashed.setWidth(2.0);
    _expectRecords("Contour lines on the screen are dashed, and the print copies them:",
                   [&] { lookUp<KpaLineStyle>(*_model, "SCREEN/CONTOUR").setValue(dashed); },
                   {"SCREEN/CONTOUR value", "PRINT/CONTOUR value"});
    _expectText("PRINT/CONTOUR", "Pen[Dash] Color[#ffff0000] Width[2]");

    KugSymbol star;
    star.setShape(KugEMarker::STAR);
    KugSymbol3D cone;
    cone.setShape(KugEVolumeMarker::CONE);
    _report.startPart("So it does with symbols and palettes:");
    lookUp<KpaSymbol>(*_model, "SCREEN/SAMPLE").setValue(star);
    lookUp<KpaSymbol3D>(*_model, "SCREEN/DRILL_HOLE").setValue(cone);
    lookUp<KpaPalette>(*_model, "SCREEN/PALETTE").setPaletteId("HEAT");
    _expectText("PRINT/SAMPLE", "[Star] Size[8] Color[0|0|0]");
    _expectText("PRINT/DRILL_HOLE", "[Cone] Size[1] Color[0|0|0]");
    _expectStored("PRINT/PALETTE", "HEAT");

    _expectRecords("The print can be changed on its own:",
                   [this] { lookUp<KpaPalette>(*_model, "PRINT/PALETTE").setPaletteId("GREY"); },
                   {"PRINT/PALETTE value"});
    _expectStored("SCREEN/PALETTE", "HEAT");

    auto& system = lookUp<KpaCoordSystem>(*_model, "GRID/SYSTEM");
    _report.startPart("The coordinate system may be a projected one, but no geographic one:");
    system.setValue(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154"));
    system.setValue(KuuCoordSystemCatalog::getCoordSystem("EPSG:4326"));
    _expectStored("GRID/SYSTEM", "EPSG:2154");
}
