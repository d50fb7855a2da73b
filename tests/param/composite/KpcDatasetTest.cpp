#include "CompositeTestTools.h"

#include <param/KpsSerializer.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSelection.h>
#include <param/list/KplDataList.h>
#include <param/list/KplIntegerList.h>
#include <support/BracketTranslator.h>
#include <support/DataProject.h>
#include <support/RecordedMessages.h>

namespace {

using Flags = QList<int>;

constexpr int value = Kp::NotifyValue;
constexpr int config = Kp::NotifyConfig;
constexpr int children = Kp::NotifyChildren;
constexpr int item = Kp::NotifyItem;

/// A dataset that takes children of every kind.
class OpenDataset : public KpcDataset
{
public:
    using KpcDataset::_addDataset;
    using KpcDataset::appendChild;
    using KpcDataset::KpcDataset;
    using KpcDataset::takeChild;
};

/// A dataset with the root north/holes, and what can be put into it.
struct Dataset
{
    Dataset() { dataset.setRootIdent(data.file("north", "holes")); }

    KpaData* addVariable(const QString& key = "VARIABLE")
    {
        auto* variable = new KpaData(key, data);
        variable->setFilter(AnyData::variable());
        dataset.addVariable(variable);
        return variable;
    }
    KplDataList* addList()
    {
        auto* list = new KplDataList("LIST", data);
        list->setFilter(AnyData::variable());
        dataset.addVariableList(list);
        return list;
    }
    KpcSampleFilter* addFilter()
    {
        auto* filter = new KpcSampleFilter("FILTER", data);
        dataset.addSampleFilter(filter);
        return filter;
    }
    KpcSampleCategories* addCategories()
    {
        auto* categories = new KpcSampleCategories("CATEGORIES", data);
        dataset.addSampleCategories(categories);
        return categories;
    }
    OpenDataset* addDataset()
    {
        auto* inner = new OpenDataset("INNER", data);
        inner->setRootFilter(AnyData::support());
        dataset._addDataset(inner);
        return inner;
    }
    KsoDataIdentifier au(const QString& directory = "north") const
    {
        return data.variable(directory, "holes", "assays", "Au");
    }
    KsoDataIdentifier south() const { return data.file("south", "holes"); }

    DataProject data;
    OpenDataset dataset{"DATASET", data};
};

const KpaData& variableOf(const KpcSelection& selection)
{
    return static_cast<const KpaData&>(*selection.getChild("VARIABLE"));
}

/// A child that depends on the root, and the parameter that shows what it knows of it.
struct Dependent
{
    const char* kind;
    KpbAParameter* child;
    const KpaData* holder;
    /// Whose change a new root is.
    const KpbAParameter* origin;
};

/// One child of each kind.
std::vector<Dependent> addAll(Dataset& set)
{
    KpaData* variable = set.addVariable();
    KplDataList* list = set.addList();
    KpcSelection* selection = set.dataset.createSelectionParameter();
    KpcSampleFilter* filter = set.addFilter();
    KpcSampleCategories* categories = set.addCategories();
    OpenDataset* inner = set.addDataset();
    return {
        {"variable", variable, variable, variable},
        {"list", list, list->getItemPrototype(), list},
        {"selection", selection, &variableOf(*selection), &variableOf(*selection)},
        {"filter", filter, filter->getRulesParameter()->getItemPrototype()->getVariableParameter(),
         filter->getRulesParameter()},
        {"categories", categories, categories->getVariableListParameter()->getItemPrototype(),
         categories->getVariableListParameter()},
        {"dataset", inner, inner->getRootParameter(), inner->getRootParameter()},
    };
}

} // namespace

TEST(KpcDataset, IsOfTheKindDataset)
{
    Dataset set;
    EXPECT_EQ(set.dataset.getType(), KpbEType::DATASET);
    EXPECT_EQ(set.dataset.getType().getValue(), 36);
    EXPECT_EQ(set.dataset.getVersion(), 1);
    EXPECT_TRUE(set.dataset.serialize().isEmpty());
}

TEST(KpcDataset, BeginsWithARootForFiles)
{
    DataProject data;
    const KpcDataset dataset("DATASET", data);
    EXPECT_EQ(childKeys(dataset), QStringList{"ROOT"});
    const KpaData* root = dataset.getRootParameter();
    ASSERT_EQ(root, dataset.getChild("ROOT"));
    EXPECT_EQ(root->getLabel(), "Data file");
    EXPECT_TRUE(root->getValue().isNull());
    KsoDataFilter files = KsoDataFilter::file(MbdEIo::INPUT, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY);
    files.setApplicationFlags({"kriging"});
    EXPECT_EQ(root->getFilter(), files);
    EXPECT_FALSE(root->isRelative());
}

TEST(KpcDataset, TranslatesItsLabels)
{
    const BracketTranslator translator;
    Dataset set;
    EXPECT_EQ(set.dataset.getRootParameter()->getLabel(), "[Data file]");
    EXPECT_EQ(set.dataset.createSelectionParameter()->getLabel(), "[Selection]");
}

TEST(KpcDataset, SetsTheValueOfItsRoot)
{
    Dataset set;
    EXPECT_EQ(set.dataset.getRootIdent(), set.data.file("north", "holes"));
    EXPECT_EQ(set.dataset.getRootParameter()->getValue(), set.data.file("north", "holes"));
    set.dataset.setRootIdent(set.au("south"));
    EXPECT_EQ(set.dataset.getRootIdent(), set.data.file("south", "holes"));
    set.dataset.setRootIdent(set.data.directory("north"));
    EXPECT_EQ(set.dataset.getRootIdent(), set.data.file("south", "holes"));
}

TEST(KpcDataset, TellsALabelOfItsRootOnce)
{
    Dataset set;
    RecordingObserver observer(set.dataset);
    set.dataset.setRootLabel("Samples");
    set.dataset.setRootLabel("Samples");
    EXPECT_EQ(set.dataset.getRootParameter()->getLabel(), "Samples");
    EXPECT_EQ(observer.allFlags(), Flags{config});
}

TEST(KpcDataset, TakesFilesAndSupportsAsItsRoot)
{
    Dataset set;
    set.dataset.setRootFilter(AnyData::support());
    EXPECT_EQ(set.dataset.getRootParameter()->getFilter().getDataType(), KsoEDataType::SUPPORT);
    EXPECT_EQ(set.dataset.getRootParameter()->getFilter().getApplicationFlags(), QStringList{"kriging"});
    set.dataset.setRootFilter(AnyData::file());
    EXPECT_EQ(set.dataset.getRootParameter()->getFilter().getDataType(), KsoEDataType::FILE);
}

TEST(KpcDataset, TakesNothingElseAsItsRoot)
{
    Dataset set;
    const KsoDataFilter before = set.dataset.getRootParameter()->getFilter();
    for (const KsoDataFilter& filter : {AnyData::variable(), KsoDataFilter::directory(MbdEIo::INPUT)}) {
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { set.dataset.setRootFilter(filter); }),
                  "'void __cdecl KpcDataset::setRootFilter(const class KsoDataFilter &)' in file "
                  "'composite\\KpcDataset' failed:\n\nDataset root can only be a file or a support.");
        EXPECT_EQ(set.dataset.getRootParameter()->getFilter(), before);
    }
}

TEST(KpcDataset, GivesFileAndSupportOfItsRoot)
{
    DataProject data;
    struct Case
    {
        KsoDataFilter filter;
        KsoDataIdentifier root;
        KsoDataIdentifier file;
        KsoDataIdentifier support;
    };
    const KsoDataIdentifier null;
    const KsoDataIdentifier holes = data.file("north", "holes");
    const KsoDataIdentifier assays = data.support("north", "holes", "assays");
    const KsoDataIdentifier blocks = data.file("north", "blocks");
    const KsoDataIdentifier cells = data.support("north", "blocks", "cells");
    const std::vector<Case> cases{
        {AnyData::file(), null, null, null},
        {AnyData::file(), holes, holes, assays},
        {AnyData::file(), blocks, blocks, null},
        {AnyData::support(), null, null, null},
        {AnyData::support(), assays, holes, assays},
        {AnyData::support(), cells, blocks, cells},
        {AnyData::file(MbdEIo::OUTPUT), data.file("north", "missing"), null, null},
        {AnyData::support(MbdEIo::OUTPUT), data.support("north", "holes", "missing"), null, null},
    };
    for (const Case& each : cases) {
        KpcDataset dataset("DATASET", data);
        dataset.setRootFilter(each.filter);
        dataset.setRootIdent(each.root);
        ASSERT_EQ(dataset.getRootIdent(), each.root);
        EXPECT_EQ(static_cast<KsoADataItem*>(dataset.getFile()), each.file.getDataItem())
            << each.root.toString().toStdString();
        EXPECT_EQ(static_cast<KsoADataItem*>(dataset.getSupport()), each.support.getDataItem())
            << each.root.toString().toStdString();
    }
}

TEST(KpcDataset, HasTheTextOfItsRoot)
{
    Dataset set;
    set.addVariable()->setValue(set.au());
    EXPECT_EQ(set.dataset.toString(), "north/holes");
    set.dataset.setRootIdent(KsoDataIdentifier());
    EXPECT_EQ(set.dataset.toString(), "");
}

TEST(KpcDataset, TellsANewChildOfTheRootAndMakesItRelative)
{
    Dataset set;
    for (const Dependent& each : addAll(set)) {
        EXPECT_EQ(each.child->getParent(), &set.dataset) << each.kind;
        EXPECT_EQ(each.holder->getRootType(), KsoEDataType::FILE) << each.kind;
        EXPECT_EQ(each.holder->getRootIdent(), set.data.file("north", "holes")) << each.kind;
        EXPECT_TRUE(each.holder->isRelative()) << each.kind;
    }
    EXPECT_EQ(childKeys(set.dataset),
              (QStringList{"ROOT", "VARIABLE", "LIST", "SELECTION", "FILTER", "CATEGORIES", "INNER"}));
}

TEST(KpcDataset, TellsANewChildOfTheRootBeforeItArrives)
{
    Dataset set;
    auto* variable = new KpaData("VARIABLE", set.data);
    RecordingObserver ofVariable(*variable);
    QStringList states;
    ActingObserver ofDataset(set.dataset, [&] {
        states.append(QStringLiteral("%1 %2 %3")
                          .arg(variable->getRootType().getKey(), variable->getRootIdent().toString(),
                               variable->isRelative() ? "relative" : "absolute"));
    });
    set.dataset.addVariable(variable);
    EXPECT_EQ(states, (QStringList{"FILE north/holes absolute", "FILE north/holes relative"}));
    EXPECT_EQ(ofDataset.allFlags(), (Flags{children, config}));
    EXPECT_EQ(ofVariable.allFlags(), (Flags{config, config, config}));
}

TEST(KpcDataset, TellsANewSelectionOfTheRootAfterItHasArrived)
{
    Dataset set;
    QStringList states;
    ActingObserver observer(set.dataset, [&] {
        const KpaData& variable = variableOf(*static_cast<KpcSelection*>(set.dataset.getChild("SELECTION")));
        states.append(QStringLiteral("%1 '%2' %3")
                          .arg(variable.getRootType().getKey(), variable.getRootIdent().toString(),
                               variable.isRelative() ? "relative" : "absolute"));
    });
    set.dataset.createSelectionParameter();
    EXPECT_EQ(states, (QStringList{"DIRECTORY '/' absolute", "DIRECTORY '/' relative", "FILE '' relative",
                                   "FILE 'north/holes' relative"}));
    EXPECT_EQ(observer.flagsOf(set.dataset, 0), children);
}

TEST(KpcDataset, MakesOneSelection)
{
    Dataset set;
    KpcSelection* selection = set.dataset.createSelectionParameter();
    ASSERT_NE(selection, nullptr);
    EXPECT_EQ(selection->getKey(), "SELECTION");
    EXPECT_EQ(selection->getLabel(), "Selection");
    RecordingObserver observer(set.dataset);
    EXPECT_EQ(set.dataset.createSelectionParameter(), selection);
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(childKeys(set.dataset), (QStringList{"ROOT", "SELECTION"}));
}

TEST(KpcDataset, GivesNoSelectionThatDidNotSurviveItsArrival)
{
    Dataset set;
    ActingObserver observer(set.dataset, [&] { delete set.dataset.getChild("SELECTION"); });
    EXPECT_EQ(set.dataset.createSelectionParameter(), nullptr);
}

TEST(KpcDataset, MayBeDestroyedByAnObserverThatTakesTheNewSelectionOut)
{
    DataProject data;
    auto* set = new OpenDataset("DATASET", data);
    set->setRootIdent(data.file("north", "holes"));
    std::unique_ptr<KpbAParameter> taken;
    ActingObserver observer(*set, [&] {
        if (!childKeys(*set).contains("SELECTION"))
            return;
        taken.reset(set->takeChild("SELECTION"));
        delete std::exchange(set, nullptr);
    });
    const KpcSelection* selection = set->createSelectionParameter();
    EXPECT_EQ(set, nullptr);
    ASSERT_TRUE(taken);
    EXPECT_EQ(selection, taken.get());
    EXPECT_EQ(selection->getParent(), nullptr);
}

TEST(KpcDataset, TakesNoOtherChildForTheSelection)
{
    Dataset set;
    set.dataset.appendChild(new KpaInteger("SELECTION"));
    EXPECT_EQ(set.dataset.createSelectionParameter(), nullptr);
    EXPECT_EQ(childKeys(set.dataset), (QStringList{"ROOT", "SELECTION"}));
}

TEST(KpcDataset, LeavesAChildThatRefusesTheLevelOfTheRootWithTheCaller)
{
    Dataset set;
    set.dataset.getRootParameter()->setFilter(KsoDataFilter::directory(MbdEIo::INPUT));
    KpcSampleFilter filter("FILTER", set.data);
    KpcSampleCategories categories("CATEGORIES", set.data);
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { set.dataset.addSampleFilter(&filter); }),
              "'void __cdecl KpcSampleFilter::setRootType(const class KsoEDataType &)' in file "
              "'composite\\KpcSampleFilter' failed:\n\nSample Filter root can only be a file or a support.");
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { set.dataset.addSampleCategories(&categories); }),
              "'void __cdecl KpcSampleCategories::setRootType(const class KsoEDataType &)' in file "
              "'composite\\KpcSampleCategories' failed:\n\nSample Categories root can only be a file or a support.");
    EXPECT_EQ(filter.getParent(), nullptr);
    EXPECT_EQ(categories.getParent(), nullptr);
    EXPECT_EQ(childKeys(set.dataset), QStringList{"ROOT"});
}

TEST(KpcDataset, TakesNoChildThatDiesOfWhatItIsTold)
{
    Dataset set;
    for (int deadly : {1, 2, 3}) {
        auto* variable = new KpaData("VARIABLE", set.data);
        ActingObserver observer(*variable, [&] {
            if (observer.records.count() == deadly)
                delete variable;
        });
        set.dataset.addVariable(variable);
        EXPECT_EQ(observer.records.count(), deadly);
        EXPECT_EQ(observer.deaths, 1) << deadly;
        EXPECT_EQ(childKeys(set.dataset), QStringList{"ROOT"}) << deadly;
    }
}

TEST(KpcDataset, MayBeDestroyedByTheObserverOfAChildToCome)
{
    DataProject data;
    auto* set = new KpcDataset("DATASET", data);
    set->setRootIdent(data.file("north", "holes"));
    KpaData variable("VARIABLE", data);
    ActingObserver observer(variable, [&] { delete std::exchange(set, nullptr); });
    set->addVariable(&variable);
    EXPECT_EQ(set, nullptr);
    EXPECT_EQ(variable.getParent(), nullptr);
    EXPECT_EQ(variable.getRootIdent(), data.file("north", "holes"));
}

TEST(KpcDataset, LeavesAChildThatItCannotTakeWithTheCaller)
{
    Dataset set;
    set.addVariable("A");
    auto again = std::make_unique<KpaData>("A", set.data);
    EXPECT_THROW(set.dataset.addVariable(again.get()), MbeError);
    EXPECT_EQ(again->getParent(), nullptr);
    EXPECT_FALSE(again->isRelative());
    EXPECT_THROW(set.dataset.addVariable(nullptr), MbeError);
    EXPECT_THROW(set.dataset.addVariableList(nullptr), MbeError);
    EXPECT_THROW(set.dataset.addSampleFilter(nullptr), MbeError);
    EXPECT_THROW(set.dataset.addSampleCategories(nullptr), MbeError);
    EXPECT_EQ(childKeys(set.dataset), (QStringList{"ROOT", "A"}));
}

TEST(KpcDataset, TellsAllChildrenOfANewRoot)
{
    Dataset set;
    const std::vector<Dependent> dependents = addAll(set);
    set.dataset.setRootIdent(set.data.file("south", "holes"));
    for (const Dependent& each : dependents) {
        EXPECT_EQ(each.holder->getRootIdent(), set.data.file("south", "holes")) << each.kind;
        EXPECT_EQ(each.holder->getRootType(), KsoEDataType::FILE) << each.kind;
    }
}

TEST(KpcDataset, TellsAllChildrenOfANewLevelOfRoots)
{
    Dataset set;
    const std::vector<Dependent> dependents = addAll(set);
    set.dataset.setRootFilter(AnyData::support());
    EXPECT_EQ(set.dataset.getRootIdent(), set.data.support("north", "holes", "assays"));
    for (const Dependent& each : dependents) {
        EXPECT_EQ(each.holder->getRootType(), KsoEDataType::SUPPORT) << each.kind;
        EXPECT_EQ(each.holder->getRootIdent(), set.data.support("north", "holes", "assays")) << each.kind;
    }
}

TEST(KpcDataset, LeavesTheRootOfItsChildrenAloneWhereOnlyTheLevelChanges)
{
    Dataset set;
    set.dataset.setRootIdent(KsoDataIdentifier());
    KpaData* variable = set.addVariable();
    RecordingObserver observer(*variable);
    set.dataset.setRootFilter(AnyData::support());
    EXPECT_EQ(variable->getRootType(), KsoEDataType::SUPPORT);
    EXPECT_TRUE(variable->getRootIdent().isNull());
    EXPECT_EQ(observer.allFlags(), Flags{config});
}

TEST(KpcDataset, TellsTheObserversOfEachChildOnceThatItsConfigurationChanged)
{
    Dataset set;
    const std::vector<Dependent> dependents = addAll(set);
    const auto check = [&](const char* change, const std::function<void()>& doChange, int ofRoot) {
        std::vector<std::unique_ptr<RecordingObserver>> observers;
        for (const Dependent& each : dependents)
            observers.push_back(std::make_unique<RecordingObserver>(*each.child));
        const RecordingObserver ofDataset(set.dataset);
        doChange();
        ASSERT_EQ(ofDataset.records.count(), 1) << change;
        EXPECT_EQ(ofDataset.flagsOf(*set.dataset.getRootParameter()), ofRoot) << change;
        EXPECT_EQ(ofDataset.records.first().getNumberOfModif(), 7) << change;
        for (std::size_t i = 0; i < dependents.size(); ++i) {
            EXPECT_EQ(observers[i]->allFlags(), Flags{config}) << change << ' ' << dependents[i].kind;
            EXPECT_EQ(observers[i]->flagsOf(*dependents[i].origin), config) << change << ' ' << dependents[i].kind;
            EXPECT_EQ(ofDataset.flagsOf(*dependents[i].origin), config) << change << ' ' << dependents[i].kind;
        }
    };
    check(
        "root", [&] { set.dataset.setRootIdent(set.south()); }, value);
    check(
        "level and root", [&] { set.dataset.setRootFilter(AnyData::support()); }, config | value);
    set.dataset.setRootIdent(KsoDataIdentifier());
    check(
        "level", [&] { set.dataset.setRootFilter(AnyData::file()); }, config);
}

TEST(KpcDataset, LosesWhatWasChosenWhereItsRootGoesDownALevel)
{
    Dataset set;
    KpaData* variable = set.addVariable();
    variable->setValue(set.au());
    RecordingObserver observer(*variable);
    set.dataset.setRootFilter(AnyData::support());
    EXPECT_EQ(variable->getRootIdent(), set.data.support("north", "holes", "assays"));
    EXPECT_TRUE(variable->getValue().isNull());
    EXPECT_EQ(observer.allFlags(), Flags{config | value});
}

TEST(KpcDataset, KeepsWhatWasChosenWhereItsRootGoesUpALevel)
{
    Dataset set;
    set.dataset.setRootFilter(AnyData::support());
    KpaData* variable = set.addVariable();
    variable->setValue(set.au());
    RecordingObserver observer(*variable);
    set.dataset.setRootFilter(AnyData::file());
    EXPECT_EQ(variable->getRootIdent(), set.data.file("north", "holes"));
    EXPECT_EQ(variable->getValue(), set.au());
    EXPECT_EQ(observer.allFlags(), Flags{config});
}

TEST(KpcDataset, LetsValuesFollowTheRoot)
{
    Dataset set;
    KpaData* variable = set.addVariable();
    variable->setValue(set.au());
    RecordingObserver observer(*variable);
    set.dataset.setRootIdent(set.data.file("south", "holes"));
    EXPECT_EQ(variable->getValue(), set.au("south"));
    EXPECT_EQ(observer.allFlags(), Flags{config | value});
}

TEST(KpcDataset, TouchesNoChildWhereTheRootStays)
{
    Dataset set;
    addAll(set);
    RecordingObserver observer(set.dataset);
    set.dataset.setRootIdent(set.data.file("north", "holes"));
    set.dataset.setRootFilter(AnyData::file());
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcDataset, KeepsALabelOfTheRootFromTheChildren)
{
    Dataset set;
    std::vector<std::unique_ptr<RecordingObserver>> observers;
    for (const Dependent& each : addAll(set))
        observers.push_back(std::make_unique<RecordingObserver>(*each.child));
    RecordingObserver ofDataset(set.dataset);
    set.dataset.setRootLabel("Samples");
    for (const auto& observer : observers)
        EXPECT_TRUE(observer->records.isEmpty());
    EXPECT_EQ(ofDataset.allFlags(), Flags{config});
}

TEST(KpcDataset, TellsTheObserversOfAChildOnlyWhenEveryChildKnowsTheRoot)
{
    Dataset set;
    const std::vector<Dependent> dependents = addAll(set);
    const auto knowing = [&] {
        int count = 0;
        for (const Dependent& each : dependents)
            count += each.holder->getRootIdent() == set.data.support("south", "holes", "assays") &&
                     each.holder->getRootType() == KsoEDataType::SUPPORT;
        return count;
    };
    QStringList order;
    std::vector<std::unique_ptr<ActingObserver>> observers;
    const auto watch = [&](const KpbAParameter& parameter, const char* kind) {
        observers.push_back(std::make_unique<ActingObserver>(
            parameter, [&order, &knowing, kind] { order.append(QStringLiteral("%1 %2").arg(kind).arg(knowing())); }));
    };
    for (const Dependent& each : dependents)
        watch(*each.child, each.kind);
    watch(set.dataset, "all");

    set.dataset.setRootIdent(KsoDataIdentifier());
    set.dataset.setRootFilter(AnyData::support());
    order.clear();
    set.dataset.setRootIdent(set.data.support("south", "holes", "assays"));
    EXPECT_EQ(order,
              (QStringList{"variable 6", "list 6", "selection 6", "filter 6", "categories 6", "dataset 6", "all 6"}));
}

TEST(KpcDataset, LeavesWhatSomebodyElseHoldsToThem)
{
    Dataset set;
    KpaData* variable = set.addVariable();
    KpaData* second = set.addVariable("SECOND");
    RecordingObserver ofVariable(*variable);
    RecordingObserver ofSecond(*second);
    RecordingObserver ofDataset(set.dataset);
    {
        KuoLock<KpnModif> held(variable);
        set.dataset.setRootIdent(set.south());
        EXPECT_EQ(variable->getRootIdent(), set.south());
        EXPECT_TRUE(ofVariable.records.isEmpty());
        EXPECT_EQ(ofSecond.allFlags(), Flags{config});
        ASSERT_EQ(ofDataset.records.count(), 1);
        EXPECT_EQ(ofDataset.flagsOf(*variable), 0);
        EXPECT_EQ(ofDataset.flagsOf(*second), config);
        held.commit();
    }
    EXPECT_EQ(ofVariable.allFlags(), Flags{config});
    ASSERT_EQ(ofDataset.records.count(), 2);
    EXPECT_EQ(ofDataset.flagsOf(*variable, 1), config);
}

TEST(KpcDataset, LeavesItsOwnRecordToWhomHoldsIt)
{
    Dataset set;
    KpaData* variable = set.addVariable();
    RecordingObserver ofVariable(*variable);
    RecordingObserver ofDataset(set.dataset);
    KuoLock<KpnModif> held(&set.dataset);
    set.dataset.setRootIdent(set.south());
    EXPECT_EQ(ofVariable.allFlags(), Flags{config});
    EXPECT_TRUE(ofDataset.records.isEmpty());
    held.commit();
    ASSERT_EQ(ofDataset.records.count(), 1);
    EXPECT_EQ(ofDataset.flagsOf(*set.dataset.getRootParameter()), value);
    EXPECT_EQ(ofDataset.flagsOf(*variable), config);
}

TEST(KpcDataset, PassesTheChangesOfOtherChildrenOn)
{
    Dataset set;
    KpaData* variable = set.addVariable();
    RecordingObserver observer(set.dataset);
    variable->setValue(set.au());
    EXPECT_EQ(observer.allFlags(), Flags{value});
    EXPECT_EQ(observer.flagsOf(*variable), value);
}

TEST(KpcDataset, DoesNotStartASecondPassWhileTheChildrenAreTold)
{
    Dataset set;
    KpaData* variable = set.addVariable();
    KpaData* second = set.addVariable("SECOND");
    bool done = false;
    ActingObserver observer(*variable, [&] {
        if (!std::exchange(done, true))
            set.dataset.setRootIdent(set.data.file("north", "blocks"));
    });
    set.dataset.setRootIdent(set.data.file("south", "holes"));
    EXPECT_EQ(set.dataset.getRootIdent(), set.data.file("north", "blocks"));
    EXPECT_EQ(variable->getRootIdent(), set.data.file("south", "holes"));
    EXPECT_EQ(second->getRootIdent(), set.data.file("south", "holes"));

    set.dataset.setRootIdent(set.data.file("south", "lonely"));
    EXPECT_EQ(variable->getRootIdent(), set.data.file("south", "lonely"));
    EXPECT_EQ(second->getRootIdent(), set.data.file("south", "lonely"));
}

TEST(KpcDataset, LeavesChildrenOfOtherKindsAlone)
{
    Dataset set;
    set.dataset.appendChild(new KpaInteger("COUNT"));
    auto* integers = new KplIntegerList("INTEGERS");
    integers->setItemCount(2);
    set.dataset.appendChild(integers);
    KpaData* variable = set.addVariable();
    RecordingObserver observer(set.dataset);
    set.dataset.setRootIdent(set.data.file("south", "holes"));
    EXPECT_EQ(variable->getRootIdent(), set.data.file("south", "holes"));
    ASSERT_EQ(observer.records.count(), 1);
    EXPECT_EQ(observer.flagsOf(*integers), 0);
}

TEST(KpcDataset, TellsOnlyTheChildrenBeforeTheOneThatRefusesTheLevelOfTheRoot)
{
    Dataset set;
    KpaData* before = set.addVariable("BEFORE");
    KpcSampleFilter* filter = set.addFilter();
    KpcSampleCategories* categories = set.addCategories();
    KpaData* after = set.addVariable("AFTER");
    RecordingObserver ofBefore(*before);
    RecordingObserver ofDataset(set.dataset);
    RecordedMessages messages;
    set.dataset.getRootParameter()->setFilter(KsoDataFilter::directory(MbdEIo::INPUT));
    EXPECT_EQ(
        messages.warnings,
        QStringList{"KuoAObservable: exception caught while sending notification.\n"
                    "It is recommended to catch the exception in the update() method.\nException message: "
                    "'void __cdecl KpcSampleFilter::setRootType(const class KsoEDataType &)' in file "
                    "'composite\\KpcSampleFilter' failed:\n\nSample Filter root can only be a file or a support."});
    EXPECT_EQ(set.dataset.getRootIdent(), set.data.directory("north"));
    EXPECT_EQ(before->getRootType(), KsoEDataType::DIRECTORY);
    EXPECT_EQ(before->getRootIdent(), set.data.directory("north"));
    EXPECT_EQ(filter->getRulesParameter()->getItemPrototype()->getVariableParameter()->getRootType(),
              KsoEDataType::FILE);
    EXPECT_EQ(categories->getVariableListParameter()->getRootType(), KsoEDataType::FILE);
    EXPECT_EQ(after->getRootType(), KsoEDataType::FILE);
    EXPECT_EQ(after->getRootIdent(), set.data.file("north", "holes"));
    EXPECT_TRUE(ofBefore.records.isEmpty());
    EXPECT_TRUE(ofDataset.records.isEmpty());
}

TEST(KpcDataset, TellsTheChildrenAgainAfterAFailure)
{
    Dataset set;
    const std::vector<Dependent> dependents = addAll(set);
    {
        RecordedMessages messages;
        set.dataset.getRootParameter()->setFilter(KsoDataFilter::directory(MbdEIo::INPUT));
        EXPECT_EQ(messages.warnings.count(), 1);
    }
    set.dataset.setRootFilter(AnyData::file());
    set.dataset.setRootIdent(set.south());
    for (const Dependent& each : dependents) {
        EXPECT_EQ(each.holder->getRootType(), KsoEDataType::FILE) << each.kind;
        EXPECT_EQ(each.holder->getRootIdent(), set.south()) << each.kind;
    }
}

TEST(KpcDataset, TellsThatSomethingHappenedToItsFile)
{
    Dataset set;
    KpaData* variable = set.addVariable();
    RecordingObserver ofVariable(*variable);
    RecordingObserver ofDataset(set.dataset);
    set.data.model->remove(set.dataset.getFile());
    EXPECT_EQ(ofDataset.allFlags(), Flags{item});
    EXPECT_TRUE(ofVariable.records.isEmpty());
    EXPECT_EQ(set.dataset.getFile(), nullptr);
}

TEST(KpcDataset, HandsItsRootDownThroughADatasetInside)
{
    Dataset set;
    OpenDataset* inner = set.addDataset();
    inner->setRootIdent(set.data.support("north", "holes", "assays"));
    auto* variable = new KpaData("VARIABLE", set.data);
    variable->setFilter(AnyData::variable());
    inner->addVariable(variable);
    variable->setValue(set.au());
    EXPECT_TRUE(inner->getRootParameter()->isRelative());
    EXPECT_EQ(inner->toString(), "assays");

    RecordingObserver observer(set.dataset);
    set.dataset.setRootIdent(set.data.file("south", "holes"));
    EXPECT_EQ(inner->getRootIdent(), set.data.support("south", "holes", "assays"));
    EXPECT_EQ(variable->getRootIdent(), set.data.support("south", "holes", "assays"));
    EXPECT_EQ(variable->getValue(), set.au("south"));
    EXPECT_EQ(observer.records.count(), 1);
}

TEST(KpcDataset, HandsItsRootDownAChainOfDatasets)
{
    Dataset set;
    auto* middle = new OpenDataset("MIDDLE", set.data);
    auto* inner = new OpenDataset("INNER", set.data);
    auto* variable = new KpaData("VARIABLE", set.data);
    inner->setRootFilter(AnyData::support());
    set.dataset._addDataset(middle);
    middle->_addDataset(inner);
    inner->addVariable(variable);
    middle->setRootIdent(set.data.file("north", "holes"));
    inner->setRootIdent(set.data.support("north", "holes", "assays"));
    EXPECT_EQ(variable->getRootType(), KsoEDataType::SUPPORT);
    RecordingObserver ofVariable(*variable);
    RecordingObserver ofMiddle(*middle);
    RecordingObserver ofDataset(set.dataset);
    set.dataset.setRootIdent(set.south());
    EXPECT_EQ(middle->getRootIdent(), set.south());
    EXPECT_EQ(inner->getRootIdent(), set.data.support("south", "holes", "assays"));
    EXPECT_EQ(variable->getRootIdent(), set.data.support("south", "holes", "assays"));
    EXPECT_EQ(ofVariable.allFlags(), Flags{config});
    ASSERT_EQ(ofMiddle.records.count(), 1);
    EXPECT_EQ(ofMiddle.flagsOf(*middle->getRootParameter()), config | value);
    EXPECT_EQ(ofMiddle.flagsOf(*inner->getRootParameter()), config | value);
    EXPECT_EQ(ofMiddle.flagsOf(*variable), config);
    ASSERT_EQ(ofDataset.records.count(), 1);
    EXPECT_EQ(ofDataset.flagsOf(*set.dataset.getRootParameter()), value);
    EXPECT_EQ(ofDataset.flagsOf(*variable), config);
}

TEST(KpcDataset, IsCopiedWithChildrenThatFollowTheRootOfTheCopy)
{
    Dataset set;
    addAll(set);
    static_cast<KpaData*>(set.dataset.getChild("VARIABLE"))->setValue(set.au());
    const std::unique_ptr<KpcDataset> copy(set.dataset.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(childKeys(*copy), childKeys(set.dataset));
    EXPECT_EQ(copy->getRootIdent(), set.data.file("north", "holes"));
    copy->setRootIdent(set.data.file("south", "holes"));
    EXPECT_EQ(static_cast<KpaData*>(copy->getChild("VARIABLE"))->getValue(), set.au("south"));
    EXPECT_EQ(set.dataset.getRootIdent(), set.data.file("north", "holes"));
    EXPECT_EQ(static_cast<KpaData*>(set.dataset.getChild("VARIABLE"))->getValue(), set.au());
    EXPECT_EQ(KpcDataset(set.dataset, QString()).getKey(), "DATASET");
}

TEST(KpcDataset, MayBeDestroyedByTheObserverOfAChild)
{
    for (const char* key : {"VARIABLE", "LIST", "SELECTION", "INNER"}) {
        DataProject data;
        auto* set = new OpenDataset("DATASET", data);
        set->setRootIdent(data.file("north", "holes"));
        set->addVariable(new KpaData("VARIABLE", data));
        set->addVariableList(new KplDataList("LIST", data));
        set->createSelectionParameter();
        set->_addDataset(new OpenDataset("INNER", data));
        ActingObserver observer(*set->getChild(key), [&] { delete std::exchange(set, nullptr); });
        set->setRootIdent(data.file("south", "holes"));
        EXPECT_EQ(set, nullptr) << key;
        EXPECT_EQ(observer.deaths, 1) << key;
    }
}

TEST(KpcDataset, MayBeDestroyedByTheObserverOfWhatIsBelowAChild)
{
    DataProject data;
    auto* set = new OpenDataset("DATASET", data);
    set->setRootIdent(data.file("north", "holes"));
    const KpcSelection* selection = set->createSelectionParameter();
    set->addVariable(new KpaData("VARIABLE", data));
    ActingObserver observer(variableOf(*selection), [&] { delete std::exchange(set, nullptr); });
    set->setRootIdent(data.file("south", "holes"));
    EXPECT_EQ(set, nullptr);
}

TEST(KpcDataset, TellsEveryChildThatStaysWhenAnObserverDestroysOneThatHasBeenTold)
{
    for (const char* key : {"FIRST", "SECOND", "SELECTION"}) {
        Dataset set;
        set.addVariable("FIRST");
        set.addVariable("SECOND");
        const KpcSelection* selection = set.dataset.createSelectionParameter();
        KpaData* third = set.addVariable("THIRD");
        KpaData* fourth = set.addVariable("FOURTH");
        ActingObserver observer(variableOf(*selection), [&] { delete set.dataset.getChild(key); });
        set.dataset.setRootIdent(set.south());
        EXPECT_FALSE(childKeys(set.dataset).contains(key));
        EXPECT_EQ(third->getRootIdent(), set.south()) << key;
        EXPECT_EQ(fourth->getRootIdent(), set.south()) << key;
    }
}

TEST(KpcDataset, TellsNoChildThatLeavesBeforeItsTurn)
{
    Dataset set;
    set.addVariable("FIRST");
    const KpcSelection* selection = set.dataset.createSelectionParameter();
    set.addVariable("SECOND");
    KpaData* third = set.addVariable("THIRD");
    std::unique_ptr<KpbAParameter> first;
    std::unique_ptr<KpbAParameter> second;
    ActingObserver observer(variableOf(*selection), [&] {
        first.reset(set.dataset.takeChild("FIRST"));
        second.reset(set.dataset.takeChild("SECOND"));
    });
    RecordingObserver ofFirst(*set.dataset.getChild("FIRST"));
    RecordingObserver ofSecond(*set.dataset.getChild("SECOND"));
    set.dataset.setRootIdent(set.south());
    EXPECT_EQ(static_cast<KpaData&>(*first).getRootIdent(), set.south());
    EXPECT_EQ(ofFirst.allFlags(), Flags{config});
    EXPECT_EQ(static_cast<KpaData&>(*second).getRootIdent(), set.data.file("north", "holes"));
    EXPECT_TRUE(ofSecond.records.isEmpty());
    EXPECT_EQ(third->getRootIdent(), set.south());
}

TEST(KpcDataset, SendsWhatIsHeldOfTheChildrenThatLive)
{
    Dataset set;
    set.addVariable("FIRST");
    KpaData* second = set.addVariable("SECOND");
    KpaData* third = set.addVariable("THIRD");
    QStringList order;
    ActingObserver ofFirst(*set.dataset.getChild("FIRST"), [&] {
        order.append("first");
        delete second;
    });
    ActingObserver ofSecond(*second, [&] { order.append("second"); });
    ActingObserver ofThird(*third, [&] { order.append("third"); });
    ActingObserver ofDataset(set.dataset, [&] { order.append("dataset"); });
    set.dataset.setRootIdent(set.south());
    EXPECT_EQ(order, (QStringList{"first", "third", "dataset"}));
    EXPECT_EQ(ofDataset.flagsOf(*third), config);
}

TEST(KpcDataset, TellsACopyThatIsMadeWhileTheChildrenAreTold)
{
    Dataset set;
    std::unique_ptr<KpcDataset> copy;
    const KpaData* variable = set.addVariable();
    ActingObserver observer(*variable, [&] {
        if (!copy)
            copy.reset(set.dataset.duplicate("COPY"));
    });
    set.dataset.setRootIdent(set.south());
    ASSERT_TRUE(copy);
    copy->setRootIdent(set.data.file("south", "lonely"));
    EXPECT_EQ(static_cast<KpaData*>(copy->getChild("VARIABLE"))->getRootIdent(), set.data.file("south", "lonely"));
}

TEST(KpcDataset, GoesOnWhenAnObserverDestroysAChild)
{
    Dataset set;
    const KpcSelection* selection = set.dataset.createSelectionParameter();
    KpaData* variable = set.addVariable();
    KpaData* last = set.addVariable("LAST");
    ActingObserver observer(variableOf(*selection), [&] { delete std::exchange(variable, nullptr); });
    set.dataset.setRootIdent(set.data.file("south", "holes"));
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(last->getRootIdent(), set.data.file("south", "holes"));
}

TEST(KpcDataset, OutlivesItsProject)
{
    Dataset set;
    addAll(set);
    set.data.project.reset();
    EXPECT_EQ(set.dataset.getFile(), nullptr);
    EXPECT_EQ(set.dataset.getSupport(), nullptr);
    EXPECT_EQ(set.dataset.toString(), "north/holes");
    const KpcDataset copy(set.dataset, "COPY");
    set.dataset.setRootIdent(KsoDataIdentifier());
    set.dataset.setRootFilter(AnyData::support());
    EXPECT_TRUE(set.dataset.getRootIdent().isNull());
    EXPECT_EQ(copy.toString(), "north/holes");
}

TEST(KpcDataset, IsStoredAsItsChildrenAndReadBelowTheRootThatIsStored)
{
    Dataset set;
    KpaData* variable = set.addVariable();
    variable->setValue(set.au());
    QDomElement element = KpsSerializer::convertParamToXml(&set.dataset);
    set.dataset.setRootIdent(set.data.file("south", "holes"));
    EXPECT_EQ(variable->getValue(), set.au("south"));
    KpsSerializer::updateParamFromXml(&set.dataset, element);
    EXPECT_EQ(set.dataset.getRootIdent(), set.data.file("north", "holes"));
    EXPECT_EQ(variable->getValue(), set.au());
}
