#include "Subjects.h"

#include "Atomics.h"
#include "Trees.h"

#include <QtCore/QRegularExpression>

#include <basic/MbuEUnitClass.h>
#include <param/composite/KpcBasicFiche.h>
#include <param/composite/KpcCheckableGroup.h>
#include <param/watcher/KpwEnabler.h>
#include <registry/ClassRegistry.h>

#include <utility>

namespace {

QList<KpaItemDef> threeItems()
{
    return {{0, "First item", "FIRST"}, {1, "Second item", "SECOND"}, {2, "Third item", "THIRD"}};
}

// States of atomics

void bound(KpaInteger& atomic)
{
    atomic.setRange(1, 10);
    atomic.setValue(5);
}

void wrap(KpaInteger& atomic)
{
    atomic.setRange(0, 10);
    atomic.setWrapping(true);
    atomic.setValue(3);
}

void undefine(KpaInteger& atomic)
{
    atomic.setUndefineEnabled(true);
    atomic.setValue(MbbGlobal::I32_FFFF);
}

void makeAutomatic(KpaInteger& atomic)
{
    atomic.activateAutoValue(7);
}

void bound(KpaDouble& atomic)
{
    atomic.setRange(0.5, 2.5);
    atomic.setValue(1.25);
}

void wrap(KpaDouble& atomic)
{
    atomic.setUnitClass(MbuEUnitClass::ANGLE);
    atomic.setRange(0.0, 360.0);
    atomic.setWrapping(true);
    atomic.setValue(-45.0);
}

void undefine(KpaDouble& atomic)
{
    atomic.setUndefineEnabled(true);
    atomic.setUndefString("none");
    atomic.setValue(MbbGlobal::D_FFFF);
}

void makeAutomatic(KpaDouble& atomic)
{
    atomic.setUnitClass(MbuEUnitClass::LENGTH);
    atomic.activateAutoValue(1.25e6);
}

void deny(KpaBool& atomic)
{
    atomic.setValue(false);
}

void draw(KpaSeed& atomic)
{
    atomic.setRandom(true);
}

void generate(KpaSeed& atomic)
{
    atomic.setValue(4711);
    atomic.generateSeed();
}

void measureLengths(KpaUnit& atomic)
{
    atomic.setUnitClass(MbuEUnitClass::LENGTH);
    atomic.setPowerValue(2);
    atomic.setValue(MbuUnitService::getUnit("ft"));
}

void fill(KpaEnum& atomic)
{
    atomic.reset(threeItems());
    atomic.setValue(1);
}

void disableItems(KpaEnum& atomic)
{
    fill(atomic);
    atomic.setItemEnabled(0, false);
    atomic.setItemEnabled(1, false);
}

void fill(KpaFlags& atomic)
{
    atomic.reset(threeItems(), false);
    atomic.setValue({0, 2});
}

void disableItems(KpaFlags& atomic)
{
    fill(atomic);
    atomic.setItemEnabled(0, false);
}

void writeLines(KpaString& atomic)
{
    atomic.setValue("  <first> & \"second\"\n\tthird ]]> \u00e9\u4e2d ");
}

void trim(KpaString& atomic)
{
    atomic.setAutoTrim(true);
    atomic.setValue(" x ");
}

void match(KpaString& atomic)
{
    atomic.setRegExp(QRegularExpression("^a+$"));
    atomic.setValue("aa");
}

void limit(KpaString& atomic)
{
    atomic.setMaxLength(3);
    atomic.setValue("abcdef");
}

void filter(KpaFSFile& atomic)
{
    atomic.addFilter("Tables", {"*.csv", "*.txt"});
    atomic.setAnyFileAllowed(false);
    atomic.setValue("/data/samples.csv");
}

void chooseTarget(KpaFSFile& atomic)
{
    filter(atomic);
    atomic.setOpenMode(false);
    atomic.setValue("/data/results");
}

void requireFolder(KpaFSDirectory& atomic)
{
    atomic.setDirectoryMustExists(true);
    atomic.setValue("/");
}

// States of composites

template <class T, class... Arguments>
T* newChild(const QString& key, void (*prepare)(T&), const Arguments&... arguments)
{
    auto child = std::make_unique<T>(key, arguments...);
    child->setLabel("Label of " + key);
    if (prepare)
        prepare(*child);
    return child.release();
}

const ClassRegistry::Row& rowOf(const QString& className)
{
    return *ClassRegistry::find(className);
}

KpcGroup* newGroup(const QString& key)
{
    std::unique_ptr<KpbAParameter> made = rowOf("KpcGroup").make(key);
    made->setLabel("Label of " + key);
    return dynamic_cast<KpcGroup*>(made.release());
}

/// One child of each kind, another group, a volatile and an automatic child, registered parameters and a watcher.
void fillGroup(KpcGroup& group)
{
    enum Id
    {
        Box,
        Count,
        Enabler
    };
    KpaBool* box = newChild<KpaBool>("BOX", deny);
    group.registerChild(Box, box);
    group.addChild(newChild<KpaDouble>("NUMBER", makeAutomatic));
    group.addChild(newChild<KpaSeed>("SEED", generate));
    group.addChild(newChild<KpaUnit>("UNIT", measureLengths));
    group.addChild(newChild<KpaEnum>("CHOICE", fill));
    group.addChild(newChild<KpaFlags>("FLAGS", fill));
    KpcGroup* inner = newGroup("INNER");
    group.addChild(inner);
    KpaInteger* count = newChild<KpaInteger>("COUNT", bound);
    inner->addChild(count);
    inner->addChild(newChild<KpaString>("TEXT", writeLines));
    inner->addChild(newGroup("EMPTY"));
    group.registerParam(Count, count);
    group.addChild(newChild<KpaFSFile>("FILE", filter));
    group.addChild(newChild<KpaFSDirectory>("FOLDER", requireFolder));
    group.addChild(newChild<KpaString>("FLEETING", trim));
    group.getChild("FLEETING")->setVolatile(true);
    group.registerWatcher(Enabler, KpwEnabler::watch(box, count));
}

void fillContent(KpcCheckableGroup& group)
{
    fillGroup(dynamic_cast<KpcGroup&>(*group.getChild("KpcCheckableGroup_GROUP")));
    group.setLabels("Use it", "All of it");
}

void uncheck(KpcCheckableGroup& group)
{
    fillContent(group);
    dynamic_cast<KpaBool&>(*group.getChild("USE_KpcCheckableGroup")).setValue(false);
}

void disable(KpcCheckableGroup& group)
{
    fillContent(group);
    group.setEnabled(false);
}

// The lists

template <class T>
Subject inState(const QString& className, const QString& state, void (*prepare)(T&))
{
    return {className + "_" + state, className, [className, prepare] {
                std::unique_ptr<KpbAParameter> made = rowOf(className).make(className);
                prepare(dynamic_cast<T&>(*made));
                return made;
            }};
}

std::vector<Subject> statesOfClasses()
{
    return {
        inState<KpaInteger>("KpaInteger", "Bounded", bound),
        inState<KpaInteger>("KpaInteger", "Wrapped", wrap),
        inState<KpaInteger>("KpaInteger", "Undefined", undefine),
        inState<KpaInteger>("KpaInteger", "Automatic", makeAutomatic),
        inState<KpaDouble>("KpaDouble", "Bounded", bound),
        inState<KpaDouble>("KpaDouble", "Wrapped", wrap),
        inState<KpaDouble>("KpaDouble", "Undefined", undefine),
        inState<KpaDouble>("KpaDouble", "Automatic", makeAutomatic),
        inState<KpaBool>("KpaBool", "No", deny),
        inState<KpaSeed>("KpaSeed", "Random", draw),
        inState<KpaSeed>("KpaSeed", "Generated", generate),
        inState<KpaUnit>("KpaUnit", "OfLength", measureLengths),
        inState<KpaEnum>("KpaEnum", "Filled", fill),
        inState<KpaEnum>("KpaEnum", "WithDisabledItems", disableItems),
        inState<KpaFlags>("KpaFlags", "Filled", fill),
        inState<KpaFlags>("KpaFlags", "WithDisabledItems", disableItems),
        inState<KpaString>("KpaString", "WithLines", writeLines),
        inState<KpaString>("KpaString", "Trimmed", trim),
        inState<KpaString>("KpaString", "Matched", match),
        inState<KpaString>("KpaString", "Limited", limit),
        inState<KpaFSFile>("KpaFSFile", "Filtered", filter),
        inState<KpaFSFile>("KpaFSFile", "ToSave", chooseTarget),
        inState<KpaFSDirectory>("KpaFSDirectory", "Existing", requireFolder),
        inState<KpcGroup>("KpcGroup", "Filled", fillGroup),
        inState<KpcGroup>("KpcFiche", "Filled", fillGroup),
        inState<KpcGroup>("KpcBasicFiche", "Filled", fillGroup),
        inState<KpcCheckableGroup>("KpcCheckableGroup", "Filled", fillContent),
        inState<KpcCheckableGroup>("KpcCheckableGroup", "Unchecked", uncheck),
        inState<KpcCheckableGroup>("KpcCheckableGroup", "Disabled", disable),
    };
}

std::vector<Subject> collectSubjects()
{
    std::vector<Subject> subjects;
    for (const ClassRegistry::Row& row : ClassRegistry::getRows())
        subjects.push_back({row.name, row.name, [&row] { return row.make(row.name); }});
    for (Subject& subject : statesOfClasses())
        subjects.push_back(std::move(subject));
    return subjects;
}

} // namespace

const std::vector<Subject>& allSubjects()
{
    static const std::vector<Subject> subjects = collectSubjects();
    return subjects;
}

std::unique_ptr<KpbAParameter> SubjectTest::makeChanged() const
{
    std::unique_ptr<KpbAParameter> changed = make();
    for (KpbAParameter* parameter : allOf(*changed)) {
        if (isStored(*parameter))
            changeValue(*parameter);
    }
    return changed;
}

bool GroupClass::concerns(const KpbAParameter& parameter)
{
    return dynamic_cast<const KpcGroup*>(&parameter) != nullptr;
}
