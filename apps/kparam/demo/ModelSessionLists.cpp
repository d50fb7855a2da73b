#include <demo/ModelSession.h>

#include <cli/MessageLog.h>
#include <demo/DemoLookup.h>
#include <document/WrittenForm.h>
#include <param/KpsSerializer.h>
#include <param/atomic/KpaVectorDouble.h>
#include <param/composite/KpcGroupList.h>
#include <param/list/KplColorList.h>
#include <param/list/KplDoubleList.h>
#include <param/list/KplStringList.h>
#include <param/watcher/KpwAutoVolatile.h>
#include <param/watcher/KpwTracer.h>
#include <tree/ParameterTable.h>

// The steps about lists, and about watchers that a program adds to a form.

namespace {

constexpr int watcherId = 100; // the form's own watchers have small numbers

QString labels(const KpcAbstractList& list)
{
    QStringList texts;
    for (int i = 0; i < list.getItemCount(); ++i)
        texts.append(list.getAbstractItemAt(i)->getLabel());
    return texts.join(QStringLiteral(", "));
}

} // namespace

void ModelSession::_growLists()
{
    auto& holes = lookUp<KpcGroupList>(*_model, "DRILL_HOLES");
    const QString changed = QStringLiteral("DRILL_HOLES value, children, items");

    _expectRecords("Three drill holes, each a group like the prototype:",
                   [&] {
                       for (int i = 0; i < 3; ++i)
                           holes.addItem();
                   },
                   {changed, changed, changed});
    _report.expect("keys", itemKeys(*_model, "DRILL_HOLES"), "ITEM_1, ITEM_2, ITEM_3");
    _expectStored("DRILL_HOLES/ITEM_2/COLLAR", "v1=0 v2=0 v3=0");

    _expectRecords("The second one goes: keys stay, labels are numbered anew:", [&] { holes.removeItemAt(1); },
                   {changed + QStringLiteral("; DRILL_HOLES/ITEM_3 config")});
    holes.addItem();
    _report.expect("keys", itemKeys(*_model, "DRILL_HOLES"), "ITEM_1, ITEM_3, ITEM_4");
    _report.expect("labels", labels(holes), "Drill hole #1, Drill hole #2, Drill hole #3");

    _report.startPart("Cutoffs come as a whole; each is within its limits, and stands there once:");
    lookUp<KplDoubleList>(*_model, "CUTOFFS").setValues({0.5, 2.0, 0.5, 150.0});
    _expectText("CUTOFFS", "0.5; 2; 100 %");
}

void ModelSession::_growTable()
{
    auto& domains = lookUp<KplStringList>(*_model, "DOMAINS");
    auto& colors = lookUp<KplColorList>(*_model, "DOMAIN_COLORS");
    _expectRecords("A domain and its colour come together; each column tells of it when all have grown:",
                   [this] { _model->getDomains().addItem(); },
                   {"DOMAINS value, children, items", "DOMAIN_COLORS value, children, items"});
    domains.setValueAt(1, "Waste");
    colors.setValueAt(1, QColor(128, 128, 128, 64));
    _expectText("DOMAINS", "2 items: 'Ore' 'Waste'");
    _report.expect("DOMAIN_COLORS, which are opaque", colors.toString(), "2 items: '#ff8000' '#808080'");

    _report.startPart("So do they go:");
    _model->getDomains().removeItemAt(0);
    _expectText("DOMAINS", "1 item: 'Waste'");
    _expectText("DOMAIN_COLORS", "1 item: '#808080'");
}

void ModelSession::_keepItems()
{
    const KpsSerializer serializer(_store.open());
    serializer.saveFiche(_model.get(), _model->getKeyParameters());
    DemoModel fresh("MODEL", _store.getContext());
    _report.expect("there is a form of Model 1", serializer.loadFiche(&fresh, fresh.getKeyParameters()));
    _report.expect("keys of the drill holes", itemKeys(fresh, "DRILL_HOLES"), "ITEM_1, ITEM_3, ITEM_4");
    _report.expect("keys of the domains", itemKeys(fresh, "DOMAINS"), "ITEM_2");
    lookUp<KpcGroupList>(*_model, "DRILL_HOLES").addItem();
    lookUp<KpcGroupList>(fresh, "DRILL_HOLES").addItem();
    _report.expect("the next one has the same key in both", itemKeys(fresh, "DRILL_HOLES"),
                   itemKeys(*_model, "DRILL_HOLES"));
    _report.expect("CUTOFFS", lookUp(fresh, "CUTOFFS").toString(), "0.5; 2; 100 %");
    _report.expect("PRINT/PALETTE, which differs from the screen's", storedText(fresh, "PRINT/PALETTE"), "GREY");
    _report.expect("written again, the form is the same", createBytes(fresh, true) == createBytes(*_model, true));
    _report.show(QLatin1Char('\n') + treeText(fresh));
}

void ModelSession::_leaveAutomaticValuesOut()
{
    const std::unique_ptr<DemoModel> model(_model->duplicate(QString()));
    auto& origin = lookUp<KpaVectorDouble>(*model, "GRID/ORIGIN");
    auto watcher = std::make_unique<KpwAutoVolatile>();
    watcher->addParameter(&lookUp(*model, "GRID"));
    model->registerWatcher(watcherId, watcher.get());
    watcher.release();

    const auto isStored = [&] { return createBytes(*model, true).contains("\"ORIGIN\""); };
    _report.expect("the origin that was chosen is stored", isStored());
    origin.activateAutoValue({1000.0, 2000.0, 0.0});
    _report.expect("GRID/ORIGIN, which is automatic now", storedText(*model, "GRID/ORIGIN"), "v1=1000 v2=2000 v3=0");
    _report.expect("the automatic origin is not stored", !isStored());
    origin.setComponentValue(2, 50.0);
    _report.expect("one that is chosen again is", isStored());
}

void ModelSession::_trace()
{
    const std::unique_ptr<DemoModel> model(_model->duplicate(QString()));
    const MessageLog log;
    auto tracer = std::make_unique<KpwTracer>(QStringLiteral("tracer"));
    tracer->setRoot(&lookUp(*model, "GRID"));
    model->registerWatcher(watcherId, tracer.get());
    tracer.release();
    lookUp<KpaVectorDouble>(*model, "GRID/CELL").setComponentValue(0, 20.0);

    const QStringList traced = log.getMessages();
    _report.expect("first", traced.value(0), "tracer: start watching root GRID");
    _report.expect("then", traced.value(1).section("<br/>", 1, 1),
                   "&nbsp;&nbsp;parameter '<nobr><tt>MODEL/GRID/CELL</tt></nobr>' has been modified. "
                   "[<small><b> value </small></b>]");
}
