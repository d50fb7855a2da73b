#include "Subjects.h"

#include "Atomics.h"
#include "SampleStudy.h"
#include "Trees.h"

#include <QtCore/QRegularExpression>

#include <basic/MbuEUnitClass.h>
#include <param/composite/KpcBasicFiche.h>
#include <param/composite/KpcCatalogCategories.h>
#include <param/composite/KpcCheckableGroup.h>
#include <param/composite/KpcCutoffs.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcDisplayScene.h>
#include <param/composite/KpcGroupList.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSelection.h>
#include <param/composite/KpcVectorConstraintDouble.h>
#include <param/composite/KpcZvxConnection.h>
#include <param/list/KplBoolList.h>
#include <param/list/KplColorList.h>
#include <param/list/KplDataList.h>
#include <param/list/KplDoubleList.h>
#include <param/list/KplEnumList.h>
#include <param/list/KplIntegerList.h>
#include <param/list/KplMatrixSymmetricalList.h>
#include <param/list/KplProjectList.h>
#include <param/list/KplRotationList.h>
#include <param/list/KplStringList.h>
#include <param/list/KplUnitList.h>
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

void bound(KpaVectorDouble& atomic)
{
    atomic.setComponentUnitClass(MbuEUnitClass::LENGTH);
    atomic.setComponentMinimums(0.5, 1.0, -1.0);
    atomic.setComponentMaximums(2.5, 3.0, 1.0);
    atomic.setComponentValues(1.25, 3.0, -1.0);
}

void flatten(KpaVectorDouble& atomic)
{
    atomic.setDimension(Kp::VectorDim2, 7.0);
    atomic.setComponentValues(1.0, 2.0, 3.0);
}

void linkAll(KpaVectorDouble& atomic)
{
    atomic.setComponentValues(1.0, 2.0, 3.0);
    atomic.setLinkMode(Kp::LinkAll);
}

void makeAutomatic(KpaVectorDouble& atomic)
{
    atomic.activateAutoValue({10.0, 20.5, 0.0});
}

void bound(KpaVectorInt& atomic)
{
    atomic.setComponentMinimum(1);
    atomic.setComponentMaximum(10);
    atomic.setLinkMode(Kp::LinkHorizontal);
    atomic.setComponentValues(4, 5, 6);
}

void turn(KpaRotation& atomic)
{
    atomic.setValue(Candidates::rotation(12.5, -30.0, 200.0));
}

void turnInPlane(KpaRotation& atomic)
{
    turn(atomic);
    atomic.setDimension(MbgEDimension::DIM_2D, 0.0);
}

void point(KpaDirection& atomic)
{
    atomic.setDirection(Candidates::degrees(75.0), Candidates::degrees(-12.5));
}

void pointInPlane(KpaDirection& atomic)
{
    atomic.setDimension(MbgEDimension::DIM_2D, 0.0);
    atomic.setDirection(Candidates::degrees(75.0), Candidates::degrees(0.0));
}

void tilt(KpaPlaneOrientation& atomic)
{
    atomic.setOrientation(Candidates::degrees(40.0), Candidates::degrees(310.0));
}

void tilt(KpaSystemOrientation& atomic)
{
    atomic.setOrientation(Candidates::degrees(40.0), Candidates::degrees(310.0), Candidates::degrees(22.5));
}

MgmMatrix twoByTwo(double first, double both, double second)
{
    MgmMatrix matrix(2, 2, MgmMatrix::Symmetric);
    matrix.setElement(0, 0, first);
    matrix.setElement(0, 1, both);
    matrix.setElement(1, 1, second);
    return matrix;
}

void wantDefinite(KpaMatrixSymmetrical& atomic)
{
    atomic.wantPositiveDefinite(true);
    KuuMatrixSymmetrical matrix(2);
    matrix.setMatrix(twoByTwo(2.0, 0.5, 1.0));
    atomic.setValue(matrix);
}

void constrain(KpaMatrixSymmetrical& atomic)
{
    atomic.setMode(Ku::Constraint::Constraints);
    KuuMatrixSymmetrical matrix(2);
    matrix.setMatrixWC(twoByTwo(1.0, 0.5, 1.0), {1.0, 0.0, MbbGlobal::D_FFFF}, {2.0, MbbGlobal::D_FFFF, 1.0},
                       Ku::Constraint::Bounded);
    atomic.setValue(matrix);
}

void bound(KpaMatrixSymmetrical& atomic)
{
    atomic.setElementMinimum(0.0);
    atomic.setElementMaximum(2.0);
    atomic.setElementStep(0.5);
    atomic.setLabels({"Only"});
}

void makeTransparent(KpaColor& atomic)
{
    atomic.setValue(QColor(1, 2, 3, 4));
}

void makeOpaque(KpaColor& atomic)
{
    makeTransparent(atomic);
    atomic.setAlphaEnabled(false);
}

void choose(KpaPalette& atomic)
{
    atomic.setPaletteId("TERRAIN");
}

void drawBorder(KpaLineStyle& atomic)
{
    atomic.setColorEnabled(true);
    KugLineStyle style;
    style.setBorder(true);
    style.setBorderColor(QColor(1, 2, 3, 4));
    style.setBorderWidth(2.5);
    atomic.setValue(style);
}

void drawBorder(KpaSymbol& atomic)
{
    KugSymbol symbol;
    symbol.setDrawBorder(true);
    symbol.setBorderColor(QColor(1, 2, 3));
    atomic.setValue(symbol);
}

void enlarge(KpaSymbol3D& atomic)
{
    KugSymbol3D symbol;
    symbol.setSize(0.1);
    atomic.setValue(symbol);
}

void project(KpaCoordSystem& atomic)
{
    atomic.setFilter(Ku::CoordSystemMode::Projected);
    atomic.setValue(KuuCoordSystemCatalog::getCoordSystem("EPSG:2154"));
}

void fill(KpaCatalogDefinition_old& atomic)
{
    MbdEnumCatalog catalog("rocks", "Rock types");
    catalog.setCategory(1, "Oxide", MbbColor(0xFFFF8000));
    catalog.setCategory(2, "Sulphide", MbbColor(0xFF808080));
    atomic.setValue(catalog);
}

// States of lists

void fill(KplBoolList& list)
{
    list.setItemLabel("Box");
    list.setValues({true, false, true});
}

void fill(KplIntegerList& list)
{
    list.getItemPrototype()->setRange(0, 10);
    list.setItemLabel("Count");
    list.setValues({4, 4, 11});
}

void fill(KplDoubleList& list)
{
    list.setItemLabel("Number");
    list.setUnitClass(MbuEUnitClass::LENGTH);
    list.setValues({0.5, 4.0, 4.0});
}

void removeFromTheMiddle(KplDoubleList& list)
{
    fill(list);
    list.removeItemAt(1);
    list.addItem();
    list.moveItem(0, 1);
}

void fixSize(KplDoubleList& list)
{
    fill(list);
    list.setResizable(false);
}

void makeUnique(KplDoubleList& list)
{
    list.setUnique(true);
    list.setValues({4.0, 4.0});
}

void makeAutomatic(KplDoubleList& list)
{
    list.setAutomaticEnabled(true);
    list.setAutomatic(true);
    list.setAutoValues({1.0, 2.0});
}

void makeItemsAutomatic(KplDoubleList& list)
{
    fill(list);
    list.setAutomaticEnabled(true);
    for (int i = 0; i < list.getItemCount(); ++i) {
        list.getItemAt(i)->setAutomaticEnabled(true);
        list.setAutoValueAt(i, i);
    }
    list.setAutomatic(true);
}

void fill(KplUnitList& list)
{
    measureLengths(*list.getItemPrototype());
    list.setItemCount(2);
}

void fill(KplEnumList& list)
{
    fill(*list.getItemPrototype());
    list.setItemFromKeys({"THIRD", "FIRST"});
}

void fill(KplStringList& list)
{
    list.setItemLabel("Text");
    list.setValues({"first", "", "with\nlines"});
}

void fill(KplRotationList& list)
{
    list.setItemLabel("Rotation");
    list.setValues({Candidates::rotation(10.0, 20.0, 30.0), MbgRotation()});
}

void fill(KplMatrixSymmetricalList& list)
{
    wantDefinite(*list.getItemPrototype());
    list.setItemCount(2);
}

void fill(KplColorList& list)
{
    list.setItemLabel("Colour");
    list.setValues({Qt::red, QColor(1, 2, 3, 4)});
}

void fill(KpcGroupList& list)
{
    KpaInteger* count = new KpaInteger("COUNT");
    count->setLabel("Count");
    list.getItemPrototype()->addChild(count);
    KplStringList* texts = new KplStringList("TEXTS");
    texts->setLabel("Texts");
    fill(*texts);
    list.getItemPrototype()->addChild(texts);
    list.setItemLabel("Group");
    list.setItemCount(2);
}

// States of composites

void constrain(KpcConstraintDouble& constraint)
{
    constraint.setMode(Ku::Constraint::Constraints);
}

void boundBelow(KpcConstraintDouble& constraint)
{
    constrain(constraint);
    constraint.setUnitClass(MbuEUnitClass::LENGTH);
    constraint.setValue(Ku::Constraint::LowerBound, 0.25);
}

void link(KpcVectorConstraintDouble& vector)
{
    vector.setMode(Ku::Constraint::Constraints);
    vector.setComponentLink(Ku::Vector::AllFollowFirst);
    vector.setComponentLabels("a", "b", "c");
    vector.setDimension(Ku::Vector::Dimension2, 0.0);
    vector.getParameter(Ku::Vector::First)->setValue(Ku::Constraint::UpperBound, 10.0);
}

// States of what belongs to a project

const SampleStudy& study()
{
    return SampleStudy::instance();
}

KsoDataFilter anyVariable()
{
    return KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, MbdVarTypeFlags::ANY, 0);
}

void chooseVariable(KpaData& atomic)
{
    atomic.setFilter(anyVariable());
    atomic.setRootIdent(study().model->getRootDirectory(), true);
    atomic.setValue(study().variable("Au"));
}

void chooseBelowSupport(KpaData& atomic)
{
    chooseVariable(atomic);
    atomic.setRootIdent(study().support(), true);
    atomic.setRelative(true);
}

/// The first of those that the project has.
template <class T>
void chooseFirst(T& atomic)
{
    atomic.setValue(atomic.getIdentifiers().value(0));
}

template <class T>
void chooseBelowFirst(T& atomic)
{
    atomic.setRootIdent(KsoChartsIdentifier(study().project->getModelCharts(), "First"));
    atomic.setRelative(true);
    chooseFirst(atomic);
}

void chooseOpenProject(KpaProject& atomic)
{
    atomic.setValue(study().project->getUrl());
}

void fill(KplDataList& list)
{
    list.setFilter(anyVariable());
    list.setRootIdent(study().support(), true);
    list.setItemLabel("Variable");
    list.setValues({study().variable("Au"), study().variable("Ore"), study().variable("Au")});
}

void fill(KplProjectList& list)
{
    list.setItemLabel("Project");
    list.setProjects({study().project.get()});
}

void select(KpcSelection& selection)
{
    auto& variable = dynamic_cast<KpaData&>(*selection.getChild("VARIABLE"));
    variable.setRootIdent(study().support(), true);
    variable.setValue(study().variable("Ore"));
}

/// The tolerance is no automatic one, which has more digits than are stored.
void compare(KpcSampleFilterRule& rule, const QString& name)
{
    rule.setRootIdent(study().support(), true);
    rule.getVariableParameter()->setValue(study().variable(name));
    rule.getNumCompareValueParameter()->setValue(2.5);
    rule.getNumCompareToleranceParameter()->setValue(0.25);
}

void compare(KpcSampleFilterRule& rule)
{
    compare(rule, "Au");
}

/// One rule each for a number, a text, a category and a boolean.
void fill(KpcSampleFilter& filter)
{
    filter.setRootIdent(study().support(), true);
    for (const char* name : {"Au", "Name", "Rock", "Ore"})
        compare(*filter.addRule(), name);
    filter.getIsActiveParameter()->setValue(true);
}

/// A certain colour instead of the one by chance.
void settleColor(const KpcSampleCategories& categories)
{
    const KpcSampleCategoriesRule& prototype = *categories.getRulesListParameter()->getItemPrototype();
    dynamic_cast<KpaColor&>(*prototype.getChild("COLOR")).setValue(Qt::red);
}

void fill(KpcSampleCategories& categories)
{
    categories.setRootIdent(study().support(), true);
    categories.addVariable(study().variable("Au"));
    categories.addVariable(study().variable("Name"));
    categories.addRule(Qt::green, "Rich", "Au > 2");
    categories.addRule(Qt::gray, "Poor", "Au <= 2");
    settleColor(categories);
}

void fill(KpcDataset& dataset)
{
    dataset.getRootParameter()->setRootIdent(study().model->getRootDirectory(), true);
    auto* variable = new KpaData("VARIABLE", study());
    variable->setLabel("Variable");
    variable->setFilter(anyVariable());
    dataset.addVariable(variable);
    auto* filter = new KpcSampleFilter("FILTER", study());
    filter->setLabel("Filter");
    dataset.addSampleFilter(filter);
    dataset.setRootIdent(study().support());
    variable->setValue(study().variable("Au"));
}

void fill(KpcCutoffs& cutoffs)
{
    cutoffs.setUnitClass(MbuEUnitClass::LENGTH);
    cutoffs.setMinimum(0.5);
    cutoffs.setValues({1.25});
}

void makeAutomatic(KpcCutoffs& cutoffs)
{
    cutoffs.setAutoValues({1.0});
    cutoffs.setAutomaticEnabled(true);
    cutoffs.setAutomatic(true);
}

void fill(KpcCatalogCategories& table)
{
    for (const char* name : {"Ore", "Waste"})
        dynamic_cast<KpaColor&>(*table.addNewCategory(name)->getChild("COLOR")).setValue(Qt::green);
}

void display(KpcDisplayScene& display)
{
    display.setActive(true);
    chooseFirst(*display.getSceneParameter());
}

void useExisting(KpcZvxConnection& connection)
{
    dynamic_cast<KpaEnum&>(*connection.getChild("EXECUTION_MODE")).setItemFromKey("EXISTING_INSTANCE");
}

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
    group.addChild(newChild<KpaVectorInt>("NODES", bound));
    group.addChild(newChild<KpaDirection>("COURSE", point));
    group.addChild(newChild<KpaColor>("COLOUR", makeTransparent));
    group.addChild(newChild<KplStringList>("TEXTS", fill));
    KpbAParameter* constraint = rowOf("KpcConstraintDouble").make("CONSTRAINT").release();
    constraint->setLabel("Label of CONSTRAINT");
    group.addChild(constraint);
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

/// Lets those that mark what is not worth storing do so.
std::unique_ptr<KpbAParameter> marked(std::unique_ptr<KpbAParameter> made)
{
    for (const KpbAParameter* parameter : allOf(*made))
        parameter->serialize();
    return made;
}

std::unique_ptr<KpbAParameter> asBuilt(const ClassRegistry::Row& row)
{
    std::unique_ptr<KpbAParameter> made = settled(row.make(row.name));
    if (auto* category = dynamic_cast<KpcCatalogCategory*>(made.get()))
        dynamic_cast<KpaString&>(*category->getChild("OPERATION_VALUE")).setValue("Ore");
    return marked(std::move(made));
}

template <class T>
Subject inState(const QString& className, const QString& state, void (*prepare)(T&))
{
    return {className + "_" + state, className, [className, prepare] {
                std::unique_ptr<KpbAParameter> made = asBuilt(rowOf(className));
                prepare(dynamic_cast<T&>(*made));
                return marked(std::move(made));
            }};
}

template <class T>
Subject inProject(const QString& className, const QString& state, void (*prepare)(T&))
{
    return {className + "_" + state, className, [className, prepare] {
                std::unique_ptr<KpbAParameter> made = settled(rowOf(className).makeIn(className, study()));
                prepare(dynamic_cast<T&>(*made));
                return marked(std::move(made));
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
        inState<KpaVectorDouble>("KpaVectorDouble", "Bounded", bound),
        inState<KpaVectorDouble>("KpaVectorDouble", "OfTwo", flatten),
        inState<KpaVectorDouble>("KpaVectorDouble", "Linked", linkAll),
        inState<KpaVectorDouble>("KpaVectorDouble", "Automatic", makeAutomatic),
        inState<KpaVectorInt>("KpaVectorInt", "Bounded", bound),
        inState<KpaRotation>("KpaRotation", "Turned", turn),
        inState<KpaRotation>("KpaRotation", "InPlane", turnInPlane),
        inState<KpaDirection>("KpaDirection", "Pointing", point),
        inState<KpaDirection>("KpaDirection", "InPlane", pointInPlane),
        inState<KpaPlaneOrientation>("KpaPlaneOrientation", "Tilted", tilt),
        inState<KpaSystemOrientation>("KpaSystemOrientation", "Tilted", tilt),
        inState<KpaMatrixSymmetrical>("KpaMatrixSymmetrical", "Definite", wantDefinite),
        inState<KpaMatrixSymmetrical>("KpaMatrixSymmetrical", "Constrained", constrain),
        inState<KpaMatrixSymmetrical>("KpaMatrixSymmetrical", "Bounded", bound),
        inState<KpaCoordSystem>("KpaCoordSystem", "Projected", project),
        inState<KpaColor>("KpaColor", "Transparent", makeTransparent),
        inState<KpaColor>("KpaColor", "Opaque", makeOpaque),
        inState<KpaPalette>("KpaPalette", "Chosen", choose),
        inState<KpaLineStyle>("KpaLineStyle", "WithABorder", drawBorder),
        inState<KpaSymbol>("KpaSymbol", "WithABorder", drawBorder),
        inState<KpaSymbol3D>("KpaSymbol3D", "Large", enlarge),
        inState<KpaCatalogDefinition_old>("KpaCatalogDefinition_old", "Filled", fill),
        inState<KplBoolList>("KplBoolList", "Filled", fill),
        inState<KplIntegerList>("KplIntegerList", "Filled", fill),
        inState<KplDoubleList>("KplDoubleList", "Filled", fill),
        inState<KplDoubleList>("KplDoubleList", "WithGaps", removeFromTheMiddle),
        inState<KplDoubleList>("KplDoubleList", "OfFixedSize", fixSize),
        inState<KplDoubleList>("KplDoubleList", "Unique", makeUnique),
        inState<KplDoubleList>("KplDoubleList", "Automatic", makeAutomatic),
        inState<KplDoubleList>("KplDoubleList", "OfAutomaticItems", makeItemsAutomatic),
        inState<KplUnitList>("KplUnitList", "Filled", fill),
        inState<KplEnumList>("KplEnumList", "Filled", fill),
        inState<KplStringList>("KplStringList", "Filled", fill),
        inState<KplRotationList>("KplRotationList", "Filled", fill),
        inState<KplMatrixSymmetricalList>("KplMatrixSymmetricalList", "Filled", fill),
        inState<KplColorList>("KplColorList", "Filled", fill),
        inState<KpcGroupList>("KpcGroupList", "Filled", fill),
        inState<KpcConstraintDouble>("KpcConstraintDouble", "Unknown", constrain),
        inState<KpcConstraintDouble>("KpcConstraintDouble", "Bounded", boundBelow),
        inState<KpcVectorConstraintDouble>("KpcVectorConstraintDouble", "Linked", link),
        inState<KpcGroup>("KpcGroup", "Filled", fillGroup),
        inState<KpcGroup>("KpcFiche", "Filled", fillGroup),
        inState<KpcGroup>("KpcBasicFiche", "Filled", fillGroup),
        inState<KpcCheckableGroup>("KpcCheckableGroup", "Filled", fillContent),
        inState<KpcCheckableGroup>("KpcCheckableGroup", "Unchecked", uncheck),
        inState<KpcCheckableGroup>("KpcCheckableGroup", "Disabled", disable),
        inState<KpaProject>("KpaProject", "Chosen", chooseOpenProject),
        inProject<KpaData>("KpaData", "Chosen", chooseVariable),
        inProject<KpaData>("KpaData", "Relative", chooseBelowSupport),
        inProject<KpaCatalog>("KpaCatalog", "Chosen", chooseFirst),
        inProject<KpaColorScale>("KpaColorScale", "Chosen", chooseFirst),
        inProject<KpaGeosSet>("KpaGeosSet", "Chosen", chooseFirst),
        inProject<KpaNeighborhoodItem>("KpaNeighborhoodItem", "Chosen", chooseFirst),
        inProject<KpaScene>("KpaScene", "Chosen", chooseFirst),
        inProject<KpaCharts>("KpaCharts", "Chosen", chooseFirst),
        inProject<KpaChartFolder>("KpaChartFolder", "Chosen", chooseFirst),
        inProject<KpaChartFolder>("KpaChartFolder", "Relative", chooseBelowFirst),
        inProject<KpaChartView>("KpaChartView", "Chosen", chooseFirst),
        inProject<KpaChartView>("KpaChartView", "Relative", chooseBelowFirst),
        inProject<KplDataList>("KplDataList", "Filled", fill),
        inState<KplProjectList>("KplProjectList", "Filled", fill),
        inProject<KpcDataset>("KpcDataset", "Filled", fill),
        inProject<KpcSelection>("KpcSelection", "Chosen", select),
        inProject<KpcSampleFilter>("KpcSampleFilter", "Filled", fill),
        inProject<KpcSampleFilterRule>("KpcSampleFilterRule", "Comparing", compare),
        inProject<KpcSampleCategories>("KpcSampleCategories", "Filled", fill),
        inState<KpcCutoffs>("KpcCutoffs", "Filled", fill),
        inState<KpcCutoffs>("KpcCutoffs", "Automatic", makeAutomatic),
        inState<KpcCatalogCategories>("KpcCatalogCategories", "Filled", fill),
        inProject<KpcDisplayScene>("KpcDisplayScene", "Displaying", display),
        inState<KpcZvxConnection>("KpcZvxConnection", "Existing", useExisting),
    };
}

std::vector<Subject> collectSubjects()
{
    std::vector<Subject> subjects;
    for (const ClassRegistry::Row& row : ClassRegistry::getRows())
        subjects.push_back({row.name, row.name, [&row] { return asBuilt(row); }});
    for (Subject& subject : statesOfClasses())
        subjects.push_back(std::move(subject));
    return subjects;
}

} // namespace

std::unique_ptr<KpbAParameter> settled(std::unique_ptr<KpbAParameter> made)
{
    for (KpbAParameter* parameter : allOf(*made)) {
        if (auto* categories = dynamic_cast<KpcSampleCategories*>(parameter))
            settleColor(*categories);
        auto* cutoffs = dynamic_cast<KpcCutoffs*>(parameter);
        if (cutoffs && cutoffs->getItemCount() == 0)
            cutoffs->setValues({1.5});
    }
    return made;
}

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
    return dynamic_cast<const KpcGroup*>(&parameter) && !dynamic_cast<const KpcCatalogCategory*>(&parameter);
}

bool CompositeClass::concerns(const KpbAParameter& parameter)
{
    return isMadeOfOthers(parameter) && !isList(parameter);
}

bool ListClass::concerns(const KpbAParameter& parameter)
{
    return isList(parameter);
}
