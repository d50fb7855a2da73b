#include "CompositeTestTools.h"

#include <param/KpbStatus.h>
#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaFlags.h>
#include <param/composite/KpcSelection.h>
#include <support/BracketTranslator.h>
#include <support/DrilledProject.h>
#include <support/RecordedMessages.h>

#include <QtGui/QColor>

#include <new>

namespace {

constexpr int undefinedItem = MbbGlobal::I32_FFFF;
constexpr short undefinedCategory = MbbGlobal::I16_FFFF;
const QString emptyWarning =
    "Sel data subset is empty! \nThere are no selected values in the current selection combination";

class KpcSelectionTest : public testing::Test
{
protected:
    void choose(const QString& name) { variable->setValue(drilled->variable(name)); }
    void check(const QStringList& labels) { categories->setCheckedFlagsFromLabels(labels); }
    int count() const { return selection->getSelection().getSelectedSampleCount(); }
    KsoDataSubset subset(const QString& name, const QList<short>& codes = {}, bool inverted = false) const
    {
        KsoDataSubset subset(inverted);
        subset.setSelectionVar(drilled->variable(name));
        subset.setCategories(codes);
        return subset;
    }
    QStringList stored() const { return childKeysOf(KpsSerializer::convertParamToXml(selection.get())); }
    static QStringList childKeysOf(const QDomElement& element)
    {
        QStringList keys;
        for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
            keys.append(child.tagName() == "param" ? "param " + child.attribute("key") : child.tagName());
        return keys;
    }
    /// Another selection of the same project, read from what this one writes.
    std::unique_ptr<KpcSelection> readBack(std::unique_ptr<KpcSelection> into = nullptr) const
    {
        if (!into)
            into = std::make_unique<KpcSelection>("S", *drilled);
        QDomElement element = KpsSerializer::convertParamToXml(selection.get());
        KpsSerializer::updateParamFromXml(into.get(), element);
        return into;
    }
    template <class T>
    static T* child(const KpcSelection& selection, const char* key)
    {
        return dynamic_cast<T*>(selection.getChild(key));
    }

    std::unique_ptr<DrilledProject> drilled = std::make_unique<DrilledProject>();
    std::unique_ptr<KpcSelection> selection = std::make_unique<KpcSelection>("S", *drilled);
    KpaData* variable = child<KpaData>(*selection, "VARIABLE");
    KpaFlags* categories = child<KpaFlags>(*selection, "CATEGORIES");
    KpaBool* invert = child<KpaBool>(*selection, "INVERT");
};

// What it is made of

TEST_F(KpcSelectionTest, HasAVariableCategoriesAndASwitch)
{
    EXPECT_TRUE(selection->isA(KpbEType::SELECTION));
    EXPECT_EQ(selection->getType().getValue(), 37);
    EXPECT_EQ(selection->getLabel(), "Selection");
    EXPECT_EQ(selection->getVersion(), 1);
    EXPECT_EQ(childKeys(*selection), QStringList({"VARIABLE", "CATEGORIES", "INVERT"}));
    ASSERT_TRUE(variable && categories && invert);
    EXPECT_EQ(variable->getLabel(), "Variable");
    EXPECT_EQ(categories->getLabel(), "Categories");
    EXPECT_EQ(invert->getLabel(), "Invert");
    EXPECT_EQ(categories->getFlagCount(), 0);
    EXPECT_EQ(categories->getEchoMessageNoItem(), "No category");
    EXPECT_EQ(categories->getEchoMessageItemCount(), "%1 categories");
    EXPECT_EQ(categories->getEchoMessageAllItems(), "All categories");
    EXPECT_FALSE(invert->getValue());
}

TEST_F(KpcSelectionTest, TranslatesItsTexts)
{
    const BracketTranslator translator;
    const KpcSelection translated("S", *drilled);
    child<KpaData>(translated, "VARIABLE")->setValue(drilled->variable("ROCK"));

    EXPECT_EQ(translated.getLabel(), "[Selection]");
    EXPECT_EQ(child<KpaData>(translated, "VARIABLE")->getLabel(), "[Variable]");
    EXPECT_EQ(child<KpaBool>(translated, "INVERT")->getLabel(), "[Invert]");
    const KpaFlags* flags = child<KpaFlags>(translated, "CATEGORIES");
    EXPECT_EQ(flags->getLabel(), "[Categories]");
    EXPECT_EQ(flags->getEchoMessageNoItem(), "[No category]");
    EXPECT_EQ(flags->getEchoMessageItemCount(), "[%1 categories]");
    EXPECT_EQ(flags->getEchoMessageAllItems(), "[All categories]");
    EXPECT_EQ(flags->getFlagLabels().first(), "[Undefined]");
}

TEST_F(KpcSelectionTest, AcceptsBooleanAndCategoricalVariablesOnly)
{
    const KsoDataFilter& filter = variable->getFilter();
    EXPECT_EQ(filter.getDataType(), KsoEDataType::VARIABLE);
    EXPECT_EQ(filter.getIo(), MbdEIo::INPUT);
    EXPECT_EQ(int(filter.getRuleLevel()), 0);
    for (const QString name : {"X", "BOXES", "REMARK"}) {
        choose(name);
        EXPECT_TRUE(variable->getValue().isNull()) << name.toStdString();
    }
    for (const QString name : {"MINERALISED", "ROCK"}) {
        choose(name);
        EXPECT_EQ(variable->getValue(), drilled->variable(name));
    }
}

TEST_F(KpcSelectionTest, SelectsNothingInParticularWithoutAVariable)
{
    EXPECT_FALSE(selection->isDefined());
    EXPECT_FALSE(selection->isCategorical());
    EXPECT_FALSE(selection->getSelection().isDefined());
    EXPECT_TRUE(selection->getStatus("Sel", true).isEmpty());
    EXPECT_EQ(selection->toString(), "");
    EXPECT_FALSE(categories->isEnabled());
    EXPECT_FALSE(invert->isEnabled());
    EXPECT_FALSE(invert->getValue());
}

TEST_F(KpcSelectionTest, WorksWithoutAProject)
{
    const KpcSelection alone("S", SerializerTest::noProject());

    EXPECT_FALSE(alone.getSelection().isDefined());
    EXPECT_TRUE(alone.getStatus("Sel", true).isEmpty());
    EXPECT_EQ(alone.toString(), "");
    const std::unique_ptr<KpcSelection> copy(alone.duplicate("T"));
    EXPECT_FALSE(copy->isDefined());
}

// The subset

TEST_F(KpcSelectionTest, SelectsTheSamplesWhereABooleanIsTrue)
{
    choose("MINERALISED");

    EXPECT_TRUE(selection->isDefined());
    EXPECT_FALSE(selection->isCategorical());
    EXPECT_EQ(int(selection->getMode()), 0);
    EXPECT_FALSE(categories->isEnabled());
    EXPECT_TRUE(invert->isEnabled());
    EXPECT_EQ(count(), DrilledProject::countLines("MINERALISED", {"true"}));
    EXPECT_EQ(count(), 10);
    EXPECT_EQ(selection->toString(), "drillholes/Samples/MINERALISED");
    EXPECT_TRUE(selection->getStatus("Sel", true).isEmpty());
}

TEST_F(KpcSelectionTest, SelectsTheComplementWhenItIsInverted)
{
    choose("MINERALISED");
    invert->setValue(true);

    EXPECT_TRUE(selection->getSelection().isInverted());
    EXPECT_EQ(count(), DrilledProject::countLines("MINERALISED", {"false", ""}));
    EXPECT_EQ(count(), 30);
}

TEST_F(KpcSelectionTest, SelectsTheSamplesOfEachSetOfCategories)
{
    const QStringList rocks{"Andesite", "Diorite", "Limestone", "Skarn", "Undefined"};
    choose("ROCK");
    for (int set = 0; set < 32; ++set) {
        QStringList chosen;
        for (int i = 0; i < rocks.size(); ++i) {
            if (set & (1 << i))
                chosen.append(rocks.at(i));
        }
        check(chosen);
        QStringList texts = chosen;
        texts.replaceInStrings("Undefined", "");
        invert->setValue(false);
        EXPECT_EQ(count(), DrilledProject::countLines("ROCK", texts)) << chosen.join(' ').toStdString();
        invert->setValue(true);
        EXPECT_EQ(count(), 40 - DrilledProject::countLines("ROCK", texts)) << chosen.join(' ').toStdString();
    }
}

TEST_F(KpcSelectionTest, TellsWhichSubsetItIs)
{
    choose("ROCK");
    check({"Undefined", "Skarn", "Diorite"});
    const KsoDataSubset made = selection->getSelection();

    EXPECT_EQ(int(selection->getMode()), 1);
    EXPECT_TRUE(selection->isCategorical());
    EXPECT_EQ(made.getSelectionIdent(), drilled->variable("ROCK"));
    EXPECT_EQ(made.getCategories(), QList<short>({undefinedCategory, 2, 4}));
    EXPECT_TRUE(made.getIntervals().isEmpty());
    EXPECT_TRUE(made.isCounted());
    EXPECT_FALSE(made.isInverted());
    EXPECT_EQ(selection->toString(), "drillholes/Samples/ROCK (undefined, Diorite, Skarn)");
}

TEST_F(KpcSelectionTest, TellsItsVariableBelowTheRoot)
{
    variable->setRootIdent(drilled->support()->getIdentifier(), true);
    choose("ROCK");
    check({"Skarn"});
    invert->setValue(true);

    EXPECT_EQ(selection->toString(), "not ROCK (Skarn)");
}

TEST_F(KpcSelectionTest, TakesCategoriesOutOfTheRangeOfItsListAsUndefined)
{
    KsoEnumCatalog* catalog = drilled->catalogs->create("wide");
    for (const short value : {-32767, -1, 32766, 32767})
        drilled->catalogs->addCategory(catalog, {value, QString::number(value), MbbColor()});
    drilled->createCategorical("WIDE", catalog);
    choose("WIDE");

    EXPECT_EQ(selection->getSelection().getCategories(), QList<short>({-32767, -1, 32766, undefinedCategory}));
}

TEST_F(KpcSelectionTest, CountsTheSamplesOfItsRootWithoutAVariable)
{
    variable->setRootIdent(drilled->support()->getIdentifier(), true);

    EXPECT_FALSE(selection->getSelection().isDefined());
    EXPECT_EQ(count(), 40);
}

TEST_F(KpcSelectionTest, ReadsTheVariableOnceUntilAChildChanges)
{
    choose("ROCK");
    drilled->driver->reads = 0;
    selection->getSelection();
    selection->getStatus("Sel", true);
    selection->toString();
    categories->setLabel("other");
    selection->getSelection();
    EXPECT_EQ(drilled->driver->reads, 1);

    check({"Skarn"});
    selection->getSelection();
    EXPECT_EQ(drilled->driver->reads, 2);
    invert->setValue(true);
    selection->getSelection();
    EXPECT_EQ(drilled->driver->reads, 3);
    choose("HOLE");
    selection->getSelection();
    EXPECT_EQ(drilled->driver->reads, 4);
}

TEST_F(KpcSelectionTest, CountsAnewWhenTheValuesChange)
{
    choose("MINERALISED");
    EXPECT_EQ(count(), 10);
    drilled->model->writeValues(drilled->item("MINERALISED"), std::vector<double>(40, 1.0));

    EXPECT_EQ(count(), 40);
}

TEST_F(KpcSelectionTest, TranslatesForeignExceptionsOfReading)
{
    choose("MINERALISED");
    drilled->driver->onRead = [] { throw std::bad_alloc(); };

    try {
        selection->getSelection();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (const MbeError& error) {
        EXPECT_EQ(error.getType(), MbeError::Memory);
    }
    drilled->driver->onRead = nullptr;
    EXPECT_EQ(count(), 10);
}

TEST_F(KpcSelectionTest, BecomesUndefinedWhenItsVariableGoes)
{
    choose("ROCK");
    invert->setValue(true);
    drilled->model->remove(drilled->item("ROCK"));

    EXPECT_FALSE(selection->isDefined());
    EXPECT_FALSE(selection->getSelection().isDefined());
    EXPECT_EQ(categories->getFlagCount(), 0);
    EXPECT_FALSE(categories->isEnabled());
    EXPECT_FALSE(invert->isEnabled());
    EXPECT_FALSE(invert->getValue());
}

TEST_F(KpcSelectionTest, DisablesItsSwitchBeforeItTurnsItOff)
{
    choose("ROCK");
    invert->setValue(true);
    QStringList states;
    const ActingObserver observer(*invert, [&] {
        states.append(QStringLiteral("%1 %2").arg(invert->isEnabled() ? "enabled" : "disabled",
                                                  invert->getValue() ? "on" : "off"));
    });
    variable->setValue(KsoDataIdentifier());

    EXPECT_EQ(states, QStringList({"disabled on", "disabled off"}));
}

// Macro variables

TEST_F(KpcSelectionTest, TakesMacroVariablesOnlyWhereTheyAreAuthorized)
{
    const KsoDataIdentifier macro = drilled->createMacro("SIM", MbdEVarType::BOOLEAN, 2)->getIdentifier();
    variable->setValue(macro);
    EXPECT_TRUE(variable->getValue().isNull());

    selection->setMacroAuthorized(true);
    EXPECT_TRUE(variable->getFilter().isMacroVariableAccepted());
    EXPECT_EQ(variable->getFilter().getVariableTypes().testFlag(MbdEVarType::DOUBLE), false);
    variable->setValue(macro);
    EXPECT_EQ(variable->getValue(), macro);
    EXPECT_TRUE(selection->isDefined());
    EXPECT_FALSE(selection->isCategorical());

    selection->setMacroAuthorized(false);
    EXPECT_FALSE(variable->getFilter().isMacroVariableAccepted());
}

TEST_F(KpcSelectionTest, SelectsCategoriesOfMacroVariables)
{
    KsoDataMacroVariable* macro = drilled->createMacro("SIM", MbdEVarType::ENUM, 2);
    std::vector<double> codes(40, 1.0);
    codes[3] = 2;
    drilled->model->writeValues(macro, 0, codes);
    codes[7] = 2;
    drilled->model->writeValues(macro, 1, codes);
    selection->setMacroAuthorized(true);
    variable->setValue(macro->getIdentifier());

    EXPECT_TRUE(selection->isCategorical());
    EXPECT_EQ(categories->getFlagCount(), 5);
    check({"Diorite"});
    EXPECT_EQ(count(), 2);
}

// The categories

TEST_F(KpcSelectionTest, OffersTheCategoriesOfTheCatalogBehindUndefined)
{
    drilled->catalogs->setUndefColor(drilled->rocks(), MbbColor(0xFF808080));
    drilled->catalogs->setCategoryColor(drilled->rocks(), 2, MbbColor(0xFF00FF00));
    choose("ROCK");

    EXPECT_TRUE(categories->isEnabled());
    EXPECT_EQ(categories->getFlagValues(), QList<int>({undefinedItem, 1, 2, 3, 4}));
    EXPECT_EQ(categories->getFlagLabels(), QStringList({"Undefined", "Andesite", "Diorite", "Limestone", "Skarn"}));
    EXPECT_EQ(categories->getFlagKeys(), categories->getFlagLabels());
    EXPECT_EQ(categories->getSeparators(), QList<int>({1}));
    const QPixmap undefined = categories->getFlags().value(undefinedItem).pixmap;
    const QPixmap diorite = categories->getFlags().value(2).pixmap;
    EXPECT_EQ(undefined.size(), QSize(16, 16));
    EXPECT_EQ(undefined.toImage().pixelColor(0, 0), QColor(128, 128, 128));
    EXPECT_EQ(diorite.toImage().pixelColor(15, 15), QColor(0, 255, 0));
}

TEST_F(KpcSelectionTest, StartsWithEveryCategoryCheckedButUndefined)
{
    choose("ROCK");

    EXPECT_EQ(categories->getCheckedValues(), QList<int>({1, 2, 3, 4}));
}

TEST_F(KpcSelectionTest, HasNoCategoriesForABooleanVariable)
{
    choose("ROCK");
    choose("MINERALISED");

    EXPECT_EQ(categories->getFlagCount(), 0);
    EXPECT_TRUE(categories->getSeparators().isEmpty());
    EXPECT_FALSE(categories->hasCheckedFlags());
    EXPECT_FALSE(categories->isEnabled());
}

TEST_F(KpcSelectionTest, KeepsTheChecksBetweenVariablesOfOneCatalog)
{
    drilled->createCategorical("ROCK2", drilled->rocks());
    choose("ROCK");
    check({"Diorite", "Skarn"});
    choose("ROCK2");

    EXPECT_EQ(categories->getCheckedLabels(), QStringList({"Diorite", "Skarn"}));
}

TEST_F(KpcSelectionTest, ChecksAllCategoriesButUndefinedOfACatalogWithoutACommonLabel)
{
    drilled->createCategorical("OTHER", drilled->createCatalog("others", {"andesite", "b"}));
    choose("ROCK");
    check({"Undefined", "Andesite"});
    choose("OTHER");

    EXPECT_EQ(categories->getCheckedLabels(), QStringList({"andesite", "b"}));
    EXPECT_EQ(categories->getFlagValues(), QList<int>({undefinedItem, 10, 11}));
}

TEST_F(KpcSelectionTest, KeepsTheChecksOfLabelsThatTwoCatalogsShare)
{
    drilled->createCategorical("OTHER", drilled->createCatalog("others", {"Skarn", "b", "Andesite"}));
    choose("ROCK");
    check({"Undefined", "Andesite", "Skarn"});
    choose("OTHER");

    EXPECT_EQ(categories->getCheckedLabels(), QStringList({"Skarn", "Andesite"}));
}

TEST_F(KpcSelectionTest, KeepsACategoryNamedUndefinedApart)
{
    drilled->createCategorical("OTHER", drilled->createCatalog("others", {"Undefined", "b"}));
    choose("OTHER");

    EXPECT_EQ(categories->getFlagValues(), QList<int>({undefinedItem, 10, 11}));
    EXPECT_EQ(categories->getFlagLabels(), QStringList({"Undefined", "Undefined", "b"}));
    EXPECT_EQ(categories->getFlagKeys(), QStringList({"Undefined", "Undefined", "b"}));
    EXPECT_EQ(categories->getCheckedValues(), QList<int>({10, 11}));
}

TEST_F(KpcSelectionTest, KeepsTheCheckOfACategoryNamedUndefined)
{
    const KsoEnumCatalog* catalog = drilled->createCatalog("others", {"Undefined", "b"});
    drilled->createCategorical("OTHER", catalog);
    drilled->createCategorical("SAME", catalog);
    choose("OTHER");
    categories->setValue({10});
    const RecordingObserver observer(*categories);
    choose("SAME");

    EXPECT_EQ(categories->getCheckedValues(), QList<int>({10}));
    EXPECT_TRUE(observer.records.isEmpty());
    drilled->catalogs->setCategoryLabel(drilled->catalogs->findItem("others"), 11, "c");
    EXPECT_EQ(categories->getCheckedValues(), QList<int>({10}));
    const auto read = readBack();
    EXPECT_EQ(child<KpaData>(*read, "VARIABLE")->getValue(), drilled->variable("SAME"));
    EXPECT_TRUE(child<KpaFlags>(*read, "CATEGORIES")->testFlagFromValue(10));
    EXPECT_FALSE(child<KpaFlags>(*read, "CATEGORIES")->testFlagFromValue(11));
}

TEST_F(KpcSelectionTest, ChecksEveryCategoryAgainWhenItsVariableChangesAndNoneIsChecked)
{
    choose("ROCK");
    check({"Undefined"});
    drilled->model->writeValues(drilled->item("ROCK"), std::vector<double>(40, 1.0));

    EXPECT_EQ(categories->getCheckedValues(), QList<int>({1, 2, 3, 4}));
}

TEST_F(KpcSelectionTest, HasNoCategoriesWithoutACatalog)
{
    drilled->model->createVariable(drilled->support(), "BARE", DrilledProject::details(MbdEVarType::ENUM, -1));
    drilled->model->createVariable(drilled->support(), "LOST", DrilledProject::details(MbdEVarType::ENUM, 4711));
    choose("ROCK");
    for (const QString name : {"BARE", "LOST"}) {
        choose(name);
        EXPECT_TRUE(selection->isCategorical());
        EXPECT_EQ(categories->getFlagCount(), 0);
        EXPECT_TRUE(categories->isEnabled());
    }
}

TEST_F(KpcSelectionTest, FollowsTheCatalogAndLeavesTheChecksAlone)
{
    choose("ROCK");
    check({"Andesite", "Skarn"});
    drilled->catalogs->setCategoryLabel(drilled->rocks(), 1, "Basalt");
    EXPECT_EQ(categories->getFlagLabels(), QStringList({"Undefined", "Basalt", "Diorite", "Limestone", "Skarn"}));
    EXPECT_EQ(categories->getCheckedValues(), QList<int>({1, 4}));

    drilled->catalogs->addCategory(drilled->rocks(), {9, "Vein", MbbColor(0xFFFF0000)});
    EXPECT_EQ(categories->getFlagValues(), QList<int>({undefinedItem, 1, 2, 3, 4, 9}));
    EXPECT_EQ(categories->getCheckedValues(), QList<int>({1, 4}));

    drilled->catalogs->removeCategory(drilled->rocks(), 4);
    EXPECT_EQ(categories->getCheckedValues(), QList<int>({1}));

    drilled->catalogs->setCategoryColor(drilled->rocks(), 1, MbbColor(0xFF0000FF));
    EXPECT_EQ(categories->getFlags().value(1).pixmap.toImage().pixelColor(8, 8), QColor(0, 0, 255));
}

TEST_F(KpcSelectionTest, KeepsItsCategoriesWhenTheCatalogIsRemoved)
{
    choose("ROCK");
    check({"Andesite", "Skarn"});
    const RecordingObserver observer(*selection);
    drilled->catalogs->remove(drilled->rocks());

    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(categories->getFlagValues(), QList<int>({undefinedItem, 1, 2, 3, 4}));
    EXPECT_EQ(categories->getCheckedValues(), QList<int>({1, 4}));
    EXPECT_EQ(selection->toString(), "drillholes/Samples/ROCK (1, 4)");

    choose("MINERALISED");
    choose("ROCK");
    EXPECT_TRUE(selection->isCategorical());
    EXPECT_EQ(categories->getFlagCount(), 0);
}

TEST_F(KpcSelectionTest, FollowsItsVariableToAnotherCatalog)
{
    choose("ROCK");
    check({"Skarn"});
    const KsoEnumCatalog* other = drilled->createCatalog("others", {"Skarn", "b"});
    drilled->model->setDetails(drilled->item("ROCK"), DrilledProject::details(MbdEVarType::ENUM, other->getId()));

    EXPECT_EQ(categories->getFlagLabels(), QStringList({"Undefined", "Skarn", "b"}));
    EXPECT_EQ(categories->getCheckedValues(), QList<int>({10}));
    drilled->catalogs->setCategoryLabel(drilled->rocks(), 1, "Basalt");
    EXPECT_EQ(categories->getFlagLabels(), QStringList({"Undefined", "Skarn", "b"}));
}

TEST_F(KpcSelectionTest, TellsNothingWhenAnotherCatalogChanges)
{
    KsoEnumCatalog* other = drilled->createCatalog("others", {"a"});
    choose("ROCK");
    const RecordingObserver observer(*selection);
    drilled->catalogs->rename(other, "renamed");
    drilled->catalogs->setCategoryLabel(other, 10, "b");

    EXPECT_TRUE(observer.records.isEmpty());
}

TEST_F(KpcSelectionTest, TellsOnceThatTheCatalogChanged)
{
    choose("ROCK");
    const RecordingObserver observer(*selection);
    drilled->catalogs->setCategoryLabel(drilled->rocks(), 1, "Basalt");

    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*categories), int(Kp::NotifyConfig));
}

// What is wrong with it

TEST_F(KpcSelectionTest, ReportsThatNoCategoryIsChecked)
{
    choose("ROCK");
    check({});

    EXPECT_EQ(selection->getStatus("Sel", true).getErrors(),
              QStringList({"Sel is empty (no categories selected)", emptyWarning}));
    EXPECT_EQ(selection->getStatus("Sel", false).getErrors(), QStringList("Sel is empty (no categories selected)"));
    EXPECT_EQ(selection->getStatus("Sel", false).getWarnings(), QStringList(emptyWarning));
}

TEST_F(KpcSelectionTest, ReportsOnlyThatNoCategoryIsCheckedWhereTheComplementHasSamples)
{
    choose("ROCK");
    check({});
    invert->setValue(true);
    const KpbStatus status = selection->getStatus("Sel", true);

    EXPECT_EQ(status.count(), 1);
    EXPECT_EQ(status.getErrors(), QStringList("Sel is empty (no categories selected)"));
}

TEST_F(KpcSelectionTest, ReportsThatNoSampleIsSelected)
{
    drilled->createCategorical("OTHER", drilled->createCatalog("others", {"a"}));
    choose("OTHER");

    EXPECT_EQ(selection->getStatus("Sel", true).getErrors(), QStringList(emptyWarning));
    EXPECT_FALSE(selection->getStatus("Sel", true).hasWarning());
    EXPECT_EQ(selection->getStatus("Sel", false).getWarnings(), QStringList(emptyWarning));
    EXPECT_FALSE(selection->getStatus("Sel", false).hasError());
}

TEST_F(KpcSelectionTest, TranslatesWhatIsWrongApartFromTheName)
{
    choose("ROCK");
    check({});
    const BracketTranslator translator;

    EXPECT_EQ(selection->getStatus("Sel", true).getErrors(),
              QStringList({"Sel[ is empty (no categories selected)]",
                           "Sel[ data subset is empty! \nThere are no selected values in the current selection "
                           "combination]"}));
}

// The hash

TEST_F(KpcSelectionTest, HasANumberOfItsChoice)
{
    EXPECT_EQ(selection->getUniqueIdentifier(), 4216856302U);
    choose("MINERALISED");
    EXPECT_EQ(variable->getValue().encode(), "VARIABLE:drillholes/Samples/MINERALISED");
    EXPECT_EQ(selection->getUniqueIdentifier(), 1011747684U);
    invert->setValue(true);
    EXPECT_EQ(selection->getUniqueIdentifier(), 1011747687U);
    choose("ROCK");
    invert->setValue(false);
    EXPECT_EQ(selection->getUniqueIdentifier(), 2623806669U);
    check({"Undefined", "Diorite", "Skarn"});
    invert->setValue(true);
    EXPECT_EQ(selection->getUniqueIdentifier(), 3819794679U);
}

TEST_F(KpcSelectionTest, HasAnotherNumberForEachChoice)
{
    QSet<unsigned int> numbers{selection->getUniqueIdentifier()};
    choose("MINERALISED");
    numbers.insert(selection->getUniqueIdentifier());
    invert->setValue(true);
    numbers.insert(selection->getUniqueIdentifier());
    choose("ROCK");
    numbers.insert(selection->getUniqueIdentifier());
    check({"Skarn"});
    numbers.insert(selection->getUniqueIdentifier());

    EXPECT_EQ(numbers.size(), 5);
    invert->setValue(false);
    choose("MINERALISED");
    EXPECT_TRUE(numbers.contains(selection->getUniqueIdentifier()));
}

// Setting it

TEST_F(KpcSelectionTest, TakesOverASubset)
{
    selection->setSelection(subset("ROCK", {4, 2}, true));

    EXPECT_EQ(variable->getValue(), drilled->variable("ROCK"));
    EXPECT_EQ(categories->getCheckedValues(), QList<int>({2, 4}));
    EXPECT_TRUE(invert->getValue());
    EXPECT_TRUE(selection->getSelection() == subset("ROCK", {2, 4}, true));
}

TEST_F(KpcSelectionTest, IsInvertedWhereTheHeadBooleansOfTheSubsetDiffer)
{
    KsoDataSubset twice = subset("MINERALISED", {}, true);
    twice.complement();
    invert->setValue(true);
    selection->setSelection(twice);
    EXPECT_FALSE(invert->getValue());

    KsoDataSubset once = subset("MINERALISED");
    once.complement();
    selection->setSelection(once);
    EXPECT_TRUE(invert->getValue());
}

TEST_F(KpcSelectionTest, TakesOverTheSubsetThatItGives)
{
    choose("ROCK");
    check({"Undefined", "Skarn"});
    const KsoDataSubset former = selection->getSelection();
    choose("MINERALISED");
    selection->setSelection(former);

    EXPECT_EQ(categories->getCheckedValues(), QList<int>({undefinedItem, 4}));
    EXPECT_TRUE(selection->getSelection() == former);
}

TEST_F(KpcSelectionTest, DropsTheCategoriesOfASubsetWhereThereAreNone)
{
    const RecordingObserver observer(*categories);
    selection->setSelection(subset("MINERALISED", {2, 4}));

    EXPECT_FALSE(categories->hasCheckedFlags());
    EXPECT_EQ(observer.records.size(), 0);
}

TEST_F(KpcSelectionTest, HasNoVariableAfterASubsetWithoutAnExistingOne)
{
    choose("ROCK");
    selection->setSelection(subset("gone"));
    EXPECT_TRUE(variable->getValue().isNull());

    choose("ROCK");
    selection->setSelection(KsoDataSubset());
    EXPECT_TRUE(variable->getValue().isNull());
    EXPECT_FALSE(selection->isDefined());
}

TEST_F(KpcSelectionTest, RefusesASubsetWithIntervalsBeforeAnythingChanges)
{
    MbiAIntervalIntDisjoint intervals;
    intervals.add(1, 3);
    KsoDataSubset refused = subset("ROCK", {1}, true);
    refused.setIntervals(intervals);
    choose("MINERALISED");
    const RecordingObserver observer(*selection);

    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { selection->setSelection(refused); }),
              "'void __cdecl KpcSelection::setSelection(const class KsoDataSubset &)' in file "
              "'composite\\KpcSelection' failed:\n\nIntervals are not supported for now for this parameter");
    EXPECT_EQ(variable->getValue(), drilled->variable("MINERALISED"));
    EXPECT_FALSE(invert->getValue());
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST_F(KpcSelectionTest, MakesItsVariableRelative)
{
    const RecordingObserver observer(*variable);
    selection->setRelative(true);
    selection->setRelative(true);

    EXPECT_TRUE(variable->isRelative());
    EXPECT_EQ(observer.allFlags(), QList<int>({Kp::NotifyConfig}));
}

// Notifications

TEST_F(KpcSelectionTest, TellsAChangeOfItsVariableAndWhatFollowsInOneRecord)
{
    const RecordingObserver observer(*selection);
    choose("ROCK");

    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*variable), int(Kp::NotifyValue));
    EXPECT_TRUE(observer.flagsOf(*categories) & Kp::NotifyConfig);
    EXPECT_TRUE(observer.flagsOf(*categories) & Kp::NotifyValue);
    EXPECT_NE(observer.flagsOf(*invert), 0);
}

TEST_F(KpcSelectionTest, TellsTheObserversOfTheCategoriesOnceOfANewVariable)
{
    choose("MINERALISED");
    categories->setEnabled(true);
    const RecordingObserver observer(*categories);
    drilled->createCategorical("OTHER", drilled->createCatalog("others", {"a"}));
    choose("OTHER");

    EXPECT_EQ(observer.allFlags(), QList<int>({Kp::NotifyConfig | Kp::NotifyValue}));
}

TEST_F(KpcSelectionTest, MayBeDestroyedByItsObservers)
{
    const ActingObserver observer(*categories, [&] { selection.reset(); });
    choose("ROCK");

    EXPECT_EQ(selection, nullptr);
}

TEST_F(KpcSelectionTest, MayBeDestroyedWhenItTellsItsNewCategories)
{
    choose("MINERALISED");
    categories->setEnabled(true);
    const ActingObserver observer(*categories, [&] { selection.reset(); });
    choose("ROCK");

    EXPECT_EQ(selection, nullptr);
}

TEST_F(KpcSelectionTest, MayBeDestroyedWhileItTakesASubset)
{
    const ActingObserver ofVariable(*variable, [&] { selection.reset(); });
    selection->setSelection(subset("ROCK", {1}, true));
    EXPECT_EQ(selection, nullptr);

    selection = std::make_unique<KpcSelection>("S", *drilled);
    selection->setAutomatic(true);
    const ActingObserver ofInvert(*selection->getChild("INVERT"), [&] { selection.reset(); });
    selection->setAutoValue(subset("ROCK", {1}, true));
    EXPECT_EQ(selection, nullptr);
}

// Stored forms

TEST_F(KpcSelectionTest, IsStoredLikeItsVariableIfThatIsAll)
{
    choose("MINERALISED");

    EXPECT_EQ(selection->serialize().keys(), variable->serialize().keys());
    EXPECT_EQ(selection->serialize().value("name"), "MINERALISED");
    EXPECT_TRUE(variable->isVolatile());
    EXPECT_TRUE(categories->isVolatile());
    EXPECT_TRUE(invert->isVolatile());
    EXPECT_EQ(stored(), QStringList({"path", "file", "name"}));
    const auto read = readBack();
    EXPECT_EQ(child<KpaData>(*read, "VARIABLE")->getValue(), drilled->variable("MINERALISED"));
    EXPECT_FALSE(child<KpaBool>(*read, "INVERT")->getValue());
}

TEST_F(KpcSelectionTest, StoresNothingWithoutAVariable)
{
    EXPECT_TRUE(selection->serialize().isEmpty());
    EXPECT_EQ(stored(), QStringList());
    auto other = std::make_unique<KpcSelection>("S", *drilled);
    child<KpaData>(*other, "VARIABLE")->setValue(drilled->variable("MINERALISED"));
    const auto read = readBack(std::move(other));
    EXPECT_EQ(child<KpaData>(*read, "VARIABLE")->getValue(), drilled->variable("MINERALISED"));
}

TEST_F(KpcSelectionTest, IsStoredByItsVariableAndSwitchIfItIsInverted)
{
    choose("MINERALISED");
    invert->setValue(true);

    EXPECT_TRUE(selection->serialize().isEmpty());
    EXPECT_FALSE(variable->isVolatile());
    EXPECT_TRUE(categories->isVolatile());
    EXPECT_FALSE(invert->isVolatile());
    EXPECT_EQ(stored(), QStringList({"param VARIABLE", "param INVERT"}));
    const auto read = readBack();
    EXPECT_EQ(child<KpaData>(*read, "VARIABLE")->getValue(), drilled->variable("MINERALISED"));
    EXPECT_TRUE(child<KpaBool>(*read, "INVERT")->getValue());
}

TEST_F(KpcSelectionTest, IsStoredByItsVariableAndCategoriesIfItIsCategorical)
{
    choose("ROCK");
    check({"Undefined", "Skarn"});

    EXPECT_TRUE(selection->serialize().isEmpty());
    EXPECT_FALSE(variable->isVolatile());
    EXPECT_FALSE(categories->isVolatile());
    EXPECT_TRUE(invert->isVolatile());
    EXPECT_EQ(stored(), QStringList({"param VARIABLE", "param CATEGORIES"}));
    const auto read = readBack();
    EXPECT_TRUE(read->getSelection() == selection->getSelection());
    invert->setValue(true);
    EXPECT_EQ(stored(), QStringList({"param VARIABLE", "param CATEGORIES", "param INVERT"}));
}

TEST_F(KpcSelectionTest, ReadsEveryFormWhateverItWroteBefore)
{
    choose("ROCK");
    check({"Skarn"});
    invert->setValue(true);
    auto plain = std::make_unique<KpcSelection>("S", *drilled);
    child<KpaData>(*plain, "VARIABLE")->setValue(drilled->variable("MINERALISED"));
    plain->serialize();
    const auto read = readBack(std::move(plain));

    EXPECT_TRUE(read->getSelection() == subset("ROCK", {4}, true));
}

TEST_F(KpcSelectionTest, LeavesItsChildrenAloneWhenAnEmptyMapIsRead)
{
    choose("ROCK");
    check({"Skarn"});
    invert->setValue(true);
    const RecordingObserver observer(*selection);
    selection->unserialize({});

    EXPECT_TRUE(selection->getSelection() == subset("ROCK", {4}, true));
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST_F(KpcSelectionTest, ReadsTheMapOfItsVariable)
{
    choose("ROCK");
    const KpbAParameter::SerialForm form = variable->serialize();
    choose("MINERALISED");
    selection->unserialize(form);

    EXPECT_EQ(variable->getValue(), drilled->variable("ROCK"));
    EXPECT_EQ(categories->getCheckedCount(), 4);
}

// The automatic mode

TEST_F(KpcSelectionTest, TakesOverTheAutomaticSubset)
{
    selection->setAutomatic(true);
    selection->setAutoValue(subset("ROCK", {4, 2}, true));

    EXPECT_TRUE(selection->isAutomaticValueInitialized());
    EXPECT_TRUE(selection->isAutomatic());
    EXPECT_TRUE(selection->getSelection() == subset("ROCK", {2, 4}, true));
}

TEST_F(KpcSelectionTest, KeepsTheAutomaticSubsetForTheAutomaticMode)
{
    selection->setAutoValue(subset("ROCK", {4}));
    EXPECT_FALSE(selection->isDefined());
    EXPECT_TRUE(selection->isAutomaticValueInitialized());

    selection->setAutomatic(true);
    EXPECT_TRUE(selection->getSelection() == subset("ROCK", {4}));
    EXPECT_TRUE(selection->isAutomatic());
}

TEST_F(KpcSelectionTest, ReturnsToTheAutomaticSubset)
{
    selection->setAutoValue(subset("ROCK", {4, undefinedCategory}));
    choose("MINERALISED");
    selection->resetToAutomaticValue();

    EXPECT_FALSE(selection->isAutomatic());
    EXPECT_TRUE(selection->getSelection() == subset("ROCK", {4, undefinedCategory}));
}

TEST_F(KpcSelectionTest, NotifiesOnceOfAnAutomaticSubsetThatIsGivenTwice)
{
    const RecordingObserver observer(*selection);
    selection->setAutoValue(subset("MINERALISED"));
    selection->setAutoValue(subset("MINERALISED"));

    EXPECT_EQ(observer.allFlags(), QList<int>({Kp::NotifyConfig}));
}

TEST_F(KpcSelectionTest, NotifiesOnceOfAnAutomaticSubsetThatIsGivenTwiceInTheAutomaticMode)
{
    selection->setAutomatic(true);
    const RecordingObserver observer(*selection);
    selection->setAutoValue(subset("MINERALISED"));
    selection->setAutoValue(subset("MINERALISED"));

    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*selection), int(Kp::NotifyConfig));
    EXPECT_EQ(observer.flagsOf(*variable), int(Kp::NotifyValue));
}

TEST_F(KpcSelectionTest, NotifiesThatItsAutomaticSubsetIsKnown)
{
    const RecordingObserver observer(*selection);
    selection->setAutoValue(KsoDataSubset());

    EXPECT_EQ(observer.allFlags(), QList<int>({Kp::NotifyConfig}));
    EXPECT_TRUE(selection->isAutomaticValueInitialized());
}

TEST_F(KpcSelectionTest, LeavesTheAutomaticModeWithTheFirstDifference)
{
    selection->setAutomatic(true);
    selection->setAutoValue(subset("MINERALISED"));
    const RecordingObserver observer(*selection);
    invert->setValue(true);

    EXPECT_FALSE(selection->isAutomatic());
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*selection), int(Kp::NotifyConfig));
    EXPECT_EQ(observer.flagsOf(*invert), int(Kp::NotifyValue));
}

TEST_F(KpcSelectionTest, LeavesTheAutomaticModeWhenTheVariableOrTheCategoriesDiffer)
{
    selection->setAutomatic(true);
    selection->setAutoValue(subset("ROCK", {1, 2}));
    check({"Andesite"});
    EXPECT_FALSE(selection->isAutomatic());

    selection->setAutomatic(true);
    EXPECT_TRUE(selection->isAutomatic());
    choose("MINERALISED");
    EXPECT_FALSE(selection->isAutomatic());
}

TEST_F(KpcSelectionTest, LeavesTheAutomaticModeWithoutReadingValues)
{
    selection->setAutomatic(true);
    drilled->driver->onRead = [] { throw std::bad_alloc(); };
    drilled->driver->reads = 0;
    const RecordingObserver observer(*selection);
    selection->setAutoValue(subset("MINERALISED"));
    choose("ROCK");

    EXPECT_FALSE(selection->isAutomatic());
    EXPECT_EQ(observer.records.size(), 2);
    EXPECT_EQ(drilled->driver->reads, 0);
}

TEST_F(KpcSelectionTest, StaysInTheAutomaticModeWhenValuesChange)
{
    selection->setAutomatic(true);
    selection->setAutoValue(subset("MINERALISED"));
    EXPECT_EQ(count(), 10);
    drilled->model->writeValues(drilled->item("MINERALISED"), std::vector<double>(40, 1.0));

    EXPECT_TRUE(selection->isAutomatic());
    EXPECT_EQ(count(), 40);
}

TEST_F(KpcSelectionTest, StaysAutomaticWhileNothingDiffers)
{
    selection->setAutomatic(true);
    selection->setAutoValue(subset("ROCK", {4, 2}));
    selection->setAutoValue(subset("ROCK", {1}));
    variable->setLabel("other");
    drilled->catalogs->setCategoryLabel(drilled->rocks(), 1, "Basalt");
    check({"Basalt"});

    EXPECT_TRUE(selection->isAutomatic());
    EXPECT_TRUE(selection->getSelection() == subset("ROCK", {1}));
}

// Copies and deaths

TEST_F(KpcSelectionTest, CopiesItsStateAndItsAutomaticSubset)
{
    selection->setAutoValue(subset("MINERALISED"));
    choose("ROCK");
    check({"Skarn"});
    invert->setValue(true);
    const std::unique_ptr<KpcSelection> copy(selection->duplicate("T"));

    EXPECT_EQ(copy->getKey(), "T");
    EXPECT_EQ(copy->getLabel(), "Selection");
    EXPECT_TRUE(copy->getSelection() == subset("ROCK", {4}, true));
    choose("MINERALISED");
    EXPECT_TRUE(copy->getSelection() == subset("ROCK", {4}, true));
    copy->setAutomatic(true);
    EXPECT_TRUE(copy->getSelection() == subset("MINERALISED"));
}

TEST_F(KpcSelectionTest, CountsForItselfAsACopy)
{
    choose("MINERALISED");
    EXPECT_EQ(count(), 10);
    drilled->driver->reads = 0;
    const std::unique_ptr<KpcSelection> copy(selection->duplicate("T"));

    EXPECT_EQ(copy->getSelection().getSelectedSampleCount(), 10);
    EXPECT_EQ(drilled->driver->reads, 1);
}

TEST_F(KpcSelectionTest, LeavesTheAutomaticModeAsACopyThatWasMadeWhileItsValueWasSet)
{
    std::unique_ptr<KpcSelection> copy;
    selection->setAutomatic(true);
    const ActingObserver observer(*variable, [&] { copy.reset(selection->duplicate("T")); });
    selection->setAutoValue(subset("MINERALISED"));
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isAutomatic());
    child<KpaBool>(*copy, "INVERT")->setValue(true);

    EXPECT_FALSE(copy->isAutomatic());
    EXPECT_TRUE(selection->isAutomatic());
}

TEST_F(KpcSelectionTest, FollowsTheCatalogAsACopyToo)
{
    choose("ROCK");
    const std::unique_ptr<KpcSelection> copy(selection->duplicate("T"));
    selection.reset();
    drilled->catalogs->setCategoryLabel(drilled->rocks(), 1, "Basalt");

    EXPECT_EQ(child<KpaFlags>(*copy, "CATEGORIES")->getFlagLabels().at(1), "Basalt");
}

TEST_F(KpcSelectionTest, MayDieBeforeTheCatalogs)
{
    choose("ROCK");
    selection.reset();

    EXPECT_NO_THROW(drilled->catalogs->setCategoryLabel(drilled->rocks(), 1, "Basalt"));
}

TEST_F(KpcSelectionTest, MayDieAfterTheProject)
{
    choose("ROCK");
    drilled->project.reset();

    EXPECT_FALSE(selection->isDefined());
    EXPECT_NO_THROW(selection.reset());
}

TEST_F(KpcSelectionTest, MayDieWhileTheCatalogsDo)
{
    struct Closing : KuoIObserver<KsmModifEnumCatalog>
    {
        std::unique_ptr<KpcSelection>& selection;
        bool chose = false;

        explicit Closing(std::unique_ptr<KpcSelection>& closed) : selection(closed) {}
        void update(const KsmModifEnumCatalog&) override {}
        void destroyed(const KuoAObservable<KsmModifEnumCatalog>*) override
        {
            child<KpaFlags>(*selection, "CATEGORIES")->setValue({1});
            chose = selection->getSelection().isDefined();
            selection.reset();
        }
    };
    selection.reset();
    Closing closing(selection);
    drilled->catalogs->addObserver(&closing);
    selection = std::make_unique<KpcSelection>("S", *drilled);
    child<KpaData>(*selection, "VARIABLE")->setValue(drilled->variable("ROCK"));
    drilled->project.reset();

    EXPECT_EQ(selection, nullptr);
    EXPECT_FALSE(closing.chose);
}

} // namespace
