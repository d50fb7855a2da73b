#include <registry/DemoTask.h>

#include <QtCore/QObject>
#include <QtCore/QRegularExpression>

#include <basic/MbuEUnitClass.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaSeed.h>
#include <param/atomic/KpaString.h>
#include <param/atomic/KpaUnit.h>
#include <param/composite/KpcCheckableGroup.h>
#include <param/watcher/KpwEnabler.h>

namespace {

QList<KpaItemDef> methodItems()
{
    return {{DemoTask::Nearest, QObject::tr("Nearest sample"), "NEAREST"},
            {DemoTask::InverseDistance, QObject::tr("Inverse distance"), "INVERSE_DISTANCE"},
            {DemoTask::OrdinaryKriging, QObject::tr("Ordinary kriging"), "ORDINARY_KRIGING"}};
}

QList<KpaItemDef> statisticItems()
{
    return {{DemoTask::Mean, QObject::tr("Mean"), "MEAN"},
            {DemoTask::Variance, QObject::tr("Variance"), "VARIANCE"},
            {DemoTask::SampleCount, QObject::tr("Sample count"), "SAMPLE_COUNT"}};
}

/// A nearest sample is worth less far away than a weighted mean of many.
double radiusFor(int method)
{
    return method == DemoTask::Nearest ? 50.0 : 100.0;
}

void describeName(KpaString& name)
{
    name.setAutoTrim(true);
    name.setMaxLength(40);
    name.setRegExp(QRegularExpression("^[A-Za-z][A-Za-z0-9 _-]*$"));
    name.setValue("Run 1");
}

void describeMethod(KpaEnum& method)
{
    method.reset(methodItems());
    method.setValue(DemoTask::OrdinaryKriging);
}

void describeRadius(KpaDouble& radius)
{
    radius.setUnitClass(MbuEUnitClass::LENGTH);
    radius.setRange(1.0, 10000.0);
    radius.activateAutoValue(radiusFor(DemoTask::OrdinaryKriging));
}

void describeAzimuth(KpaDouble& azimuth)
{
    azimuth.setUnitClass(MbuEUnitClass::ANGLE);
    azimuth.setRange(0.0, 360.0);
    azimuth.setWrapping(true);
}

void describeStatistics(KpaFlags& statistics)
{
    statistics.reset(statisticItems(), false);
    statistics.setFlagFromValue(DemoTask::Variance, true);
}

void describeReportUnit(KpaUnit& unit)
{
    unit.setUnitClass(MbuEUnitClass::LENGTH);
}

void describeSamplesFile(KpaFSFile& file)
{
    file.addFilter(QObject::tr("Sample tables"), {"*.csv", "*.txt"});
    file.setAnyFileAllowed(false);
}

} // namespace

DemoTask::DemoTask(const QString& key, const KstITransactable& transactable)
    : KpcFiche(key, QStringLiteral("DemoTask"), transactable)
{
    setLabel(QObject::tr("Estimation on blocks"));
    _declare({*this, KpcChildren::Create});
    registerWatcher(SeedEnabler, KpwEnabler::watch(_randomPath, _seed));
    _watch();
}

DemoTask::DemoTask(const DemoTask& other, const QString& newKey) : KpcFiche(other, newKey)
{
    _declare({*this, KpcChildren::Rebind});
    _watch();
}

DemoTask::~DemoTask() = default;

DemoTask* DemoTask::duplicate(const QString& newKey) const
{
    return new DemoTask(*this, newKey);
}

QList<KpbAParameter*> DemoTask::getKeyParameters() const
{
    return {_method, _name};
}

void DemoTask::_declare(KpcChildren c)
{
    // clang-format off
    c.add(_name,         "NAME",          QObject::tr("Name of the run"              )).with(describeName);
    c.add(_method,       "METHOD",        QObject::tr("Method"                       )).with(describeMethod);
    c.add(_samplesFile,  "SAMPLES_FILE",  QObject::tr("Samples"                      )).with(describeSamplesFile);
    c.add(_resultFolder, "RESULT_FOLDER", QObject::tr("Folder of the results"        ));
    c.add(_search,       "SEARCH",        QObject::tr("Search of samples"            ), _getTransactable());
    _declareSearch(c.in(*_search));
    c.add(_trimming,     "TRIMMING",      QObject::tr("Trimming of high grades"      ), _getTransactable());
    _declareTrimming(c.in(*_trimming));
    c.add(_randomPath,   "RANDOM_PATH",   QObject::tr("Visit blocks in random order" )).value(false);
    c.add(_seed,         "SEED",          QObject::tr("Seed of the random order"     ));
    c.add(_statistics,   "STATISTICS",    QObject::tr("Store beside the estimate"    )).with(describeStatistics);
    c.add(_reportUnit,   "REPORT_UNIT",   QObject::tr("Unit of the report"           )).with(describeReportUnit);
    c.add(_preview,      "PREVIEW",       QObject::tr("Show a preview"               )).value(false).isVolatile(true);
    // clang-format on
}

void DemoTask::_declareSearch(KpcChildren c)
{
    // clang-format off
    c.add(_radius,      "RADIUS",      QObject::tr("Radius"            )).with(describeRadius);
    c.add(_azimuth,     "AZIMUTH",     QObject::tr("Azimuth"           )).with(describeAzimuth);
    c.add(_maxSamples,  "MAX_SAMPLES", QObject::tr("Most samples"      )).range(1, 256).value(16);
    c.add(_sectors,     "SECTORS",     QObject::tr("Sectors"           ), _getTransactable());
    KpcChildren sectors = c.in(*_sectors);
    sectors.add(_sectorCount, "COUNT", QObject::tr("Number of sectors" )).range(1, 12).value(4);
    sectors.add(_balanced, "BALANCED", QObject::tr("Same in each"      )).value(true);
    // clang-format on
}

void DemoTask::_declareTrimming(KpcChildren c)
{
    if (c.isCreating())
        _trimming->setLabels(QObject::tr("Trim high grades"), QObject::tr("Trimming"));
    KpcChildren content = c.in(dynamic_cast<KpcGroup&>(*_trimming->getChild("TRIMMING_GROUP")));
    content.add(_upperLimit, "UPPER_LIMIT", QObject::tr("Upper limit"))
        .unitClass(MbuEUnitClass::PERCENTAGE)
        .range(0.0, 100.0)
        .value(30.0);
    if (c.isCreating())
        dynamic_cast<KpaBool&>(*_trimming->getChild("USE_TRIMMING")).setValue(false);
}

void DemoTask::_watch()
{
    _methodTrigger.resetWatch(
        _method, Kp::NotifyValue, [this] { _updateAutomaticRadius(); }, nullptr);
}

void DemoTask::_updateAutomaticRadius()
{
    _radius->setAutoValue(radiusFor(_method->getValue()));
}
