#include <demo/DemoSession.h>

#include <cli/SafeText.h>
#include <demo/DemoLookup.h>
#include <demo/OldDocuments.h>
#include <document/WrittenForm.h>
#include <observer/KuoLock.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaString.h>
#include <tree/ParameterPath.h>
#include <tree/ParameterTable.h>

namespace {

const QString formKey = QStringLiteral("ESTIMATION");

int countParameters(const KpbAParameter& root)
{
    int count = 0;
    forEachParameter(root, [&](const KpbAParameter&) { ++count; });
    return count;
}

QString yesNo(bool b)
{
    return b ? QStringLiteral("yes") : QStringLiteral("no");
}

} // namespace

DemoSession::DemoSession(const QString& storeFile, DemoReport& report) : _report(report), _store(storeFile) {}

DemoSession::~DemoSession() = default;

void DemoSession::run()
{
    _report.runStep("build", "Build: a task form is a tree of parameters", [this] { _build(); });
    _report.runStep("change", "Change: each change reaches the observers of the root as a record",
                    [this] { _change(); });
    _report.runStep("batch", "Change in a batch: one record for all", [this] { _changeInBatch(); });
    _report.runStep("save", "Save: the store files the form for the values that tell it apart", [this] { _save(); });
    _report.runStep("reopen", "Open again: a fresh form with the same key values finds what was saved",
                    [this] { _reopen(); });
    _report.runStep("migrate", "Read older documents: what they say is brought up to the present version",
                    [this] { readOldDocuments(_report); });
    _report.runStep("refuse", "Read bad documents: they change nothing", [this] { readBadDocuments(_report); });
}

void DemoSession::_build()
{
    _task = std::make_unique<DemoTask>(formKey, _store.getContext());
    _report.show(treeText(*_task) + QLatin1Char('\n'));
    _report.expect("parameters", QString::number(countParameters(*_task)), "21");
    _report.expect("version", QString::number(_task->getVersion()), "3");
    _report.expect("SEARCH/RADIUS, which follows the method", storedText(*_task, "SEARCH/RADIUS"), "100");
    _report.expect("SEARCH/RADIUS is automatic", yesNo(lookUp(*_task, "SEARCH/RADIUS").isAutomatic()), "yes");
    _report.expect("SEED is enabled", yesNo(lookUp(*_task, "SEED").isEnabled()), "no");
}

void DemoSession::_change()
{
    auto& method = lookUp<KpaEnum>(*_task, "METHOD");
    auto& radius = lookUp<KpaDouble>(*_task, "SEARCH/RADIUS");
    auto& azimuth = lookUp<KpaDouble>(*_task, "SEARCH/AZIMUTH");
    auto& name = lookUp<KpaString>(*_task, "NAME");

    _expectRecords("The method becomes NEAREST, and a trigger sets the automatic radius:",
                   [&] { method.setItemFromKey("NEAREST"); }, {"METHOD value", "SEARCH/RADIUS value, config"});
    _report.expect("radius", storedText(*_task, "SEARCH/RADIUS"), "50");

    _expectRecords("A radius of 0.2 m is below the minimum, and any choice ends the automatic mode:",
                   [&] { radius.setValue(0.2); }, {"SEARCH/RADIUS value, config"});
    _report.expect("radius", storedText(*_task, "SEARCH/RADIUS"), "1");

    _expectRecords("A radius of 250 m fits:", [&] { radius.setValue(250.0); }, {"SEARCH/RADIUS value"});

    _expectRecords("An azimuth of 400 degrees wraps around:", [&] { azimuth.setValue(400.0); },
                   {"SEARCH/AZIMUTH value"});
    _report.expect("azimuth", storedText(*_task, "SEARCH/AZIMUTH"), "40");

    _expectRecords("The name 42! is refused, and views of it are told to fall back:", [&] { name.setValue("42!"); },
                   {"NAME value"});
    _report.expect("name", name.getValue(), "Run 1");

    _expectRecords("Random order is switched on, and a watcher enables the seed:",
                   [&] { lookUp<KpaBool>(*_task, "RANDOM_PATH").setValue(true); },
                   {"RANDOM_PATH value", "SEED config"});

    _expectRecords("The box of a checkable group is checked, and its content is enabled with it:",
                   [&] { lookUp<KpaBool>(*_task, "TRIMMING/USE_TRIMMING").setValue(true); },
                   {"TRIMMING/TRIMMING_GROUP config; TRIMMING/TRIMMING_GROUP/UPPER_LIMIT config; "
                    "TRIMMING/USE_TRIMMING value"});
}

void DemoSession::_changeInBatch()
{
    _expectRecords("Name, statistics and number of samples change together:",
                   [this] {
                       KuoLock<KpnModif> lock(_task.get());
                       lookUp<KpaString>(*_task, "NAME").setValue("Run 2");
                       lookUp<KpaFlags>(*_task, "STATISTICS").setFlagFromKey("MEAN", true);
                       lookUp<KpaInteger>(*_task, "SEARCH/MAX_SAMPLES").setValue(32);
                       lock.commit();
                   },
                   {"NAME value; SEARCH/MAX_SAMPLES value; STATISTICS value"});
    _report.startPart(QString());
    _report.show(treeText(*_task));
}

void DemoSession::_save()
{
    const KpsSerializer serializer(_store.open());
    _report.show(QStringLiteral("store: ") + SafeText::inLine(_store.getFile()));
    serializer.saveFiche(_task.get(), _task->getKeyParameters());
    _report.expect("identifier", _task->getKey(), "ESTIMATION");
    _report.expect("fiche key", serializer.buildFicheKey(_task->getKeyParameters()),
                   "METHOD=<value|TkVBUkVTVA==>{}NAME=<value|UnVuIDI=>");
    _report.expect("the store has the form", serializer.ficheExists(_task.get(), _task->getKeyParameters()));
    _report.show(QStringLiteral("\nThe document of the form:\n\n") +
                 QString::fromUtf8(createBytes(*_task, true)).trimmed());
}

void DemoSession::_reopen()
{
    const KpsSerializer serializer(_store.open());
    DemoTask fresh(formKey, _store.getContext());
    lookUp<KpaEnum>(fresh, "METHOD").setItemFromKey("NEAREST");
    lookUp<KpaString>(fresh, "NAME").setValue("Run 9");
    _report.expect("there is no form of Run 9", !serializer.loadFiche(&fresh, fresh.getKeyParameters()));
    _report.expect("nothing was read: radius", storedText(fresh, "SEARCH/RADIUS"), "50");

    lookUp<KpaString>(fresh, "NAME").setValue("Run 2");
    _report.expect("there is a form of Run 2", serializer.loadFiche(&fresh, fresh.getKeyParameters()));
    const std::pair<const char*, const char*> values[] = {{"SEARCH/RADIUS", "250"},
                                                          {"SEARCH/AZIMUTH", "40"},
                                                          {"SEARCH/MAX_SAMPLES", "32"},
                                                          {"STATISTICS", "MEAN|VARIANCE"},
                                                          {"RANDOM_PATH", "yes"},
                                                          {"TRIMMING/USE_TRIMMING", "yes"},
                                                          {"TRIMMING/TRIMMING_GROUP/UPPER_LIMIT", "30"}};
    for (const auto& [path, value] : values)
        _report.expect(path, storedText(fresh, path), value);
    _report.expect("SEARCH/RADIUS is automatic", yesNo(lookUp(fresh, "SEARCH/RADIUS").isAutomatic()), "no");
    _report.expect("SEED is enabled", yesNo(lookUp(fresh, "SEED").isEnabled()), "yes");
    _report.expect("written again, the form is the same", createBytes(fresh, true) == createBytes(*_task, true));
}
