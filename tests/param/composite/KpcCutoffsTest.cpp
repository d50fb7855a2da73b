#include "CompositeTestTools.h"

#include <basic/MbuEUnitClass.h>
#include <basic/MbuUnitService.h>
#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcCutoffs.h>
#include <param/composite/KpcGroup.h>
#include <study/KssDoubleListRegistry.h>
#include <support/BracketTranslator.h>
#include <support/RecordedMessages.h>

namespace {

using Values = QList<double>;

constexpr double undefined = MbbGlobal::D_FFFF;
constexpr int listChanged = Kp::NotifyValue | Kp::NotifyChildren | Kp::NotifyItem;

/// Cutoffs and their parts.
struct Cut
{
    explicit Cut(const Values& values = {}) { cutoffs->setValues(values); }

    std::unique_ptr<KpcCutoffs> cutoffs = std::make_unique<KpcCutoffs>("C", TestContext::instance());
    KplDoubleList* list = dynamic_cast<KplDoubleList*>(cutoffs->getChild("LIST"));
    KpaString* ident = dynamic_cast<KpaString*>(cutoffs->getChild("IDENTIFIER"));
};

/// A list of the registry while it lives.
class Registered
{
public:
    Registered(const QString& name, const MbuEUnitClass& unitClass, const Values& values) : _name(name)
    {
        set(unitClass, values);
    }
    ~Registered() { _registry().removeList(type, _name); }
    Registered(const Registered&) = delete;
    Registered& operator=(const Registered&) = delete;

    void set(const MbuEUnitClass& unitClass, const Values& values) const
    {
        _registry().setList(type, _name, unitClass, values);
    }
    Values get() const { return _registry().getInfo(type, _name).getList(); }

    const KssEDoubleListType type = KssEDoubleListType::ISOLINES;

private:
    static KssDoubleListRegistry& _registry() { return *KssDoubleListRegistry::getInstance(); }

    QString _name;
};

using Form = KpbAParameter::SerialForm;

Form formOf(std::initializer_list<std::pair<QString, QString>> entries)
{
    Form form;
    for (const auto& [name, text] : entries)
        form.insert(name, text);
    return form;
}

const QString storedForm = R"(<param key="C" version="2"><value>1,2</value></param>)";

} // namespace

TEST(KpcCutoffs, HasAListAndAnIdentifier)
{
    const Cut c;
    EXPECT_TRUE(c.cutoffs->isA(KpbEType::CUTOFFS));
    EXPECT_EQ(c.cutoffs->getLabel(), "Cutoffs");
    EXPECT_EQ(c.cutoffs->getVersion(), 2);
    EXPECT_EQ(childKeys(*c.cutoffs), QStringList({"LIST", "IDENTIFIER"}));
    ASSERT_TRUE(c.list && c.ident);
    EXPECT_EQ(c.list->getLabel(), "Cutoffs");
    EXPECT_TRUE(c.list->isUnique());
    EXPECT_TRUE(c.list->isVolatile());
    EXPECT_EQ(c.ident->getLabel(), "Identifier");
    EXPECT_TRUE(c.ident->isVolatile());
    EXPECT_EQ(c.cutoffs->getIdent(), "");
    EXPECT_EQ(c.cutoffs->getValues(), Values());
    EXPECT_EQ(c.cutoffs->getListType(), KssEDoubleListType());
    EXPECT_EQ(c.cutoffs->getItemPrototype(), c.list->getItemPrototype());
}

TEST(KpcCutoffs, TranslatesItsLabel)
{
    const BracketTranslator translator;
    EXPECT_EQ(Cut().cutoffs->getLabel(), "[Cutoffs]");
}

TEST(KpcCutoffs, KeepsTheValuesThatAreTypedIn)
{
    const Cut c({1, 2.5, 4});
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2.5, 4}));
    EXPECT_EQ(c.cutoffs->getItemCount(), 3);
    EXPECT_EQ(c.cutoffs->getValueAt(1), 2.5);
    EXPECT_EQ(c.cutoffs->getValueAt(3), 0);
    c.cutoffs->removeItemAt(1);
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 4}));
    c.cutoffs->clear();
    EXPECT_EQ(c.cutoffs->getValues(), Values());
}

TEST(KpcCutoffs, KeepsOneOfValuesThatRepeat)
{
    EXPECT_EQ(Cut({1, 2, 1, 2, 3}).cutoffs->getValues(), Values({1, 2, 3}));
}

TEST(KpcCutoffs, GivesTheNameUpWhenValuesAreSet)
{
    const Cut c;
    c.cutoffs->setIdent("Grades");
    EXPECT_EQ(c.cutoffs->getIdent(), "Grades");
    c.cutoffs->setValues({1, 2});
    EXPECT_EQ(c.cutoffs->getIdent(), "");
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
}

TEST(KpcCutoffs, FollowsTheListOfTheRegistry)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {5, 1, 3});
    const Cut c({7});
    c.cutoffs->setListType(grades.type);
    c.cutoffs->setIdent("Grades");
    EXPECT_EQ(c.cutoffs->getValues(), Values({5, 1, 3}));
    EXPECT_EQ(c.list->getValues(), Values({7}));
    grades.set(MbuEUnitClass::NONE, {2, 4});
    EXPECT_EQ(c.cutoffs->getValues(), Values({2, 4}));
}

TEST(KpcCutoffs, LooksForNamesInThePartOfTheRegistryThatIsMeant)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {5, 6});
    const Cut c({7});
    c.cutoffs->setIdent("Grades");
    EXPECT_EQ(c.cutoffs->getValues(), Values({7}));
    c.cutoffs->setListType(KssEDoubleListType::ISOLINES);
    EXPECT_EQ(c.cutoffs->getValues(), Values({5, 6}));
}

TEST(KpcCutoffs, LeavesOutWhatOfAListOfTheRegistryIsOutOfBounds)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {0, 1, 2, 3, 4});
    const Cut c;
    c.cutoffs->setListType(grades.type);
    c.cutoffs->setIdent("Grades");
    c.cutoffs->setMinimum(1);
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2, 3, 4}));
    c.cutoffs->setMaximum(3);
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2, 3}));
    c.cutoffs->unsetMinimum();
    EXPECT_EQ(c.cutoffs->getValues(), Values({0, 1, 2, 3}));
    EXPECT_EQ(grades.get(), Values({0, 1, 2, 3, 4}));
}

TEST(KpcCutoffs, ComparesTheListOfTheRegistryWithBoundsInItsReferenceUnit)
{
    const Registered depths("Depths", MbuEUnitClass::LENGTH, {999, 1000, 1500, 2000, 2001});
    const Cut c;
    c.cutoffs->setUnitClass(MbuEUnitClass::LENGTH);
    c.cutoffs->setRange(1, 2, MbuUnitService::getUnit("km"));
    c.cutoffs->setListType(depths.type);
    c.cutoffs->setIdent("Depths");
    EXPECT_EQ(c.cutoffs->getValues(), Values({1000, 1500, 2000}));
}

TEST(KpcCutoffs, FallsBackOnWhatWasTypedInWhereTheRegistryHasNoSuchList)
{
    const Cut c({1, 2});
    c.cutoffs->setIdent("No such list");
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
}

TEST(KpcCutoffs, FallsBackOnWhatWasTypedInWhereTheUnitClassIsAnother)
{
    const Registered depths("Depths", MbuEUnitClass::LENGTH, {10, 20});
    const Cut c({1, 2});
    c.cutoffs->setListType(depths.type);
    c.cutoffs->setIdent("Depths");
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
    c.cutoffs->setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(c.cutoffs->getValues(), Values({10, 20}));
}

TEST(KpcCutoffs, ForwardsItsConfigurationToTheList)
{
    const Cut c({1, 2});
    KpcCutoffs& cutoffs = *c.cutoffs;
    const KpaDouble& prototype = *c.list->getItemPrototype();
    const KpaDouble& item = *c.list->getItemAt(0);
    cutoffs.setUnitClass(MbuEUnitClass::LENGTH);
    const MbuUnit km = MbuUnitService::getUnit("km");
    const std::tuple<std::function<void()>, std::function<bool(const KpaDouble&)>> changes[] = {
        {[&] { cutoffs.setMinimum(-5); }, [](auto& n) { return n.getMinimum() == -5; }},
        {[&] { cutoffs.setMaximum(50); }, [](auto& n) { return n.getMaximum() == 50; }},
        {[&] { cutoffs.setStep(0.5); }, [](auto& n) { return n.getStep() == 0.5; }},
        {[&] { cutoffs.setMinimum(-1, km); }, [](auto& n) { return n.getMinimum() == -1000; }},
        {[&] { cutoffs.setMaximum(1, km); }, [](auto& n) { return n.getMaximum() == 1000; }},
        {[&] { cutoffs.setStep(0.25, km); }, [](auto& n) { return n.getStep() == 250; }},
        {[&] { cutoffs.setRange(100, -100); }, [](auto& n) { return n.getMinimum() == -100 && n.getMaximum() == 100; }},
        {[&] { cutoffs.setRange(-2, 2, km); },
         [](auto& n) { return n.getMinimum() == -2000 && n.getMaximum() == 2000; }},
        {[&] { cutoffs.unsetMinimum(); }, [](auto& n) { return !n.isMinimumDefined(); }},
        {[&] { cutoffs.unsetMaximum(); }, [](auto& n) { return !n.isMaximumDefined(); }},
        {[&] { cutoffs.unsetStep(); }, [](auto& n) { return !n.isStepDefined(); }},
        {[&] { cutoffs.setUnitClass(MbuEUnitClass::NONE); },
         [](auto& n) { return n.getUnitClass() == MbuEUnitClass::NONE; }},
    };
    for (const auto& [change, isThere] : changes) {
        change();
        EXPECT_TRUE(isThere(prototype));
        EXPECT_TRUE(isThere(item));
    }
    cutoffs.setItemLabel("Limit");
    EXPECT_EQ(prototype.getLabel(), "Limit");
    EXPECT_EQ(item.getLabel(), "Limit #1");
}

TEST(KpcCutoffs, TellsOfDetailsAndOfTheUnitClassOnceMore)
{
    const Cut c({1});
    {
        RecordingObserver observer(*c.cutoffs);
        c.cutoffs->setUnitClass(MbuEUnitClass::LENGTH);
        ASSERT_FALSE(observer.records.isEmpty());
        EXPECT_EQ(observer.allFlags().last(), int(Kp::NotifyConfig));
        const int before = observer.records.size();
        c.cutoffs->setUnitClass(MbuEUnitClass::LENGTH);
        EXPECT_EQ(observer.records.size(), before + 1);
        EXPECT_EQ(observer.flags(before), int(Kp::NotifyConfig));
    }
    RecordingObserver observer(*c.cutoffs);
    c.cutoffs->setDetails(c.list->getItemPrototype()->getDetails());
    EXPECT_EQ(observer.allFlags().last(), int(Kp::NotifyConfig));
}

TEST(KpcCutoffs, TakesTheUnitClassOfDetails)
{
    const Cut c({1});
    KpaDouble length("L");
    length.setUnitClass(MbuEUnitClass::LENGTH);
    c.cutoffs->setDetails(length.getDetails());
    EXPECT_EQ(c.list->getUnitClass(), MbuEUnitClass::LENGTH);
}

TEST(KpcCutoffs, TellsOfTheListTypeOnce)
{
    const Cut c;
    RecordingObserver observer(*c.cutoffs);
    c.cutoffs->setListType(KssEDoubleListType::ISOLINES);
    EXPECT_EQ(observer.allFlags(), QList<int>({Kp::NotifyConfig}));
    c.cutoffs->setListType(KssEDoubleListType::ISOLINES);
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpcCutoffs, IsOneParameterToItsObservers)
{
    const Cut c({1, 2});
    RecordingObserver observer(*c.cutoffs);
    c.list->setValueAt(0, 3);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flags(), int(Kp::NotifyValue));
    EXPECT_EQ(observer.flagsOf(*c.cutoffs), int(Kp::NotifyValue));

    c.cutoffs->setIdent("Grades");
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.flags(1), int(Kp::NotifyValue));
    EXPECT_EQ(observer.flagsOf(*c.cutoffs, 1), int(Kp::NotifyValue));

    c.cutoffs->removeItemAt(1);
    ASSERT_EQ(observer.records.size(), 3);
    EXPECT_EQ(observer.flags(2), listChanged);
    EXPECT_EQ(observer.flagsOf(*c.cutoffs, 2), listChanged);
}

TEST(KpcCutoffs, IsOneParameterInTheTree)
{
    KpcGroup group("G", TestContext::instance());
    auto* cutoffs = new KpcCutoffs("C", TestContext::instance());
    group.addChild(cutoffs);
    RecordingObserver observer(group);
    cutoffs->setValues({1, 2});
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flags(), listChanged);
    EXPECT_EQ(observer.records.first().getModifs().firstKey().toString(), "G/C");
}

TEST(KpcCutoffs, TellsOfWhatConcernsItsPartsAsOfItself)
{
    const Cut c({1, 2});
    const std::pair<std::function<void()>, int> changes[] = {
        {[&] { c.list->setLabel("Limits"); }, Kp::NotifyConfig},
        {[&] { c.ident->setLabel("Name"); }, Kp::NotifyConfig},
        {[&] { c.list->getItemAt(1)->setLabel("Last"); }, Kp::NotifyConfig},
        {[&] { c.cutoffs->setMinimum(-5); }, Kp::NotifyConfig},
        {[&] { c.cutoffs->setEnabled(false); }, Kp::NotifyConfig},
        {[&] { c.cutoffs->setMinimum(2); }, listChanged | Kp::NotifyConfig},
    };
    for (const auto& [change, flags] : changes) {
        RecordingObserver observer(*c.cutoffs);
        change();
        ASSERT_EQ(observer.records.size(), 1);
        EXPECT_EQ(observer.flags(), flags);
        EXPECT_EQ(observer.flagsOf(*c.cutoffs), flags);
    }
}

TEST(KpcCutoffs, TellsOfABatchInOneRecord)
{
    const Cut c({1, 2});
    RecordingObserver observer(*c.cutoffs);
    KuoLock<KpnModif> lock(c.cutoffs.get());
    c.cutoffs->setIdent("Grades");
    c.list->setValueAt(0, 3);
    EXPECT_TRUE(observer.records.isEmpty());
    c.cutoffs->setValues({4});
    lock.commit();
    EXPECT_EQ(observer.allFlags(), QList<int>({listChanged}));
}

TEST(KpcCutoffs, GivesTheNameUpBeforeItTakesTheValues)
{
    const Cut c;
    c.cutoffs->setIdent("Grades");
    RecordingObserver observer(*c.cutoffs);
    c.cutoffs->setValues({1, 2});
    EXPECT_EQ(observer.allFlags(), QList<int>({Kp::NotifyValue, listChanged}));
}

TEST(KpcCutoffs, IsSerializedAsOneText)
{
    const std::pair<Values, QString> rows[] = {
        {{}, ""},
        {{1}, "1"},
        {{0.1, 1e-20, -3.25, 123456789.125}, "0.1,1e-20,-3.25,123456789.125"},
        {{1.0 / 3.0}, "0.3333333333333333"},
    };
    for (const auto& [values, text] : rows)
        EXPECT_EQ(Cut(values).cutoffs->serialize(), formOf({{"value", text}}));
}

TEST(KpcCutoffs, IsSerializedWithItsNameAndWhatIsInTheList)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {5, 6});
    const Cut c({1, 2});
    c.cutoffs->setListType(grades.type);
    c.cutoffs->setIdent("Grades");
    EXPECT_EQ(c.cutoffs->serialize(), formOf({{"name", "Grades"}, {"value", "1,2"}}));
    EXPECT_EQ(c.cutoffs->serialize().keys(), QList<QString>({"name", "value"}));
}

TEST(KpcCutoffs, IsStoredWithoutItsChildren)
{
    EXPECT_EQ(SerializerTest::writtenParam(*Cut({1, 2}).cutoffs),
              "<param key=\"C\" version=\"2\">\n <value>1,2</value>\n</param>\n");
}

TEST(KpcCutoffs, ReadsItsText)
{
    const std::pair<QString, Values> rows[] = {
        {"1,2.5,-3", {1, 2.5, -3}}, {"1,2,1", {1, 2}}, {"7", {7}}, {" 1 , 2 ", {1, 2}}, {"1e3", {1000}},
    };
    for (const auto& [text, values] : rows) {
        const Cut c({9});
        c.cutoffs->unserialize(formOf({{"value", text}}));
        EXPECT_EQ(c.cutoffs->getValues(), values) << text.toStdString();
    }
}

TEST(KpcCutoffs, ReadsAnEmptyTextAsOneUndefinedNumber)
{
    const Cut c({9});
    c.list->getItemPrototype()->setUndefineEnabled(true);
    c.cutoffs->unserialize(formOf({{"value", ""}}));
    EXPECT_EQ(c.cutoffs->getValues(), Values({undefined}));

    const Cut defined({9});
    defined.cutoffs->unserialize(formOf({{"value", ""}}));
    EXPECT_EQ(defined.cutoffs->getValues(), Values({0}));
}

TEST(KpcCutoffs, ReadsWhatIsNoNumberAsUndefined)
{
    const Cut c;
    c.list->getItemPrototype()->setUndefineEnabled(true);
    c.cutoffs->unserialize(formOf({{"value", "1,x,2,"}}));
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, undefined, 2}));
}

TEST(KpcCutoffs, KeepsAllWhereNothingIsStored)
{
    const Cut c({1, 2});
    c.cutoffs->setIdent("Grades");
    RecordingObserver observer(*c.cutoffs);
    c.cutoffs->unserialize({});
    c.cutoffs->unserialize(formOf({{"other", "3"}}));
    EXPECT_EQ(c.cutoffs->getIdent(), "Grades");
    EXPECT_EQ(c.list->getValues(), Values({1, 2}));
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcCutoffs, KeepsTheNameWhereOnlyValuesAreStored)
{
    const Cut c;
    c.cutoffs->setIdent("Grades");
    c.cutoffs->unserialize(formOf({{"value", "1,2"}}));
    EXPECT_EQ(c.cutoffs->getIdent(), "Grades");
    EXPECT_EQ(c.list->getValues(), Values({1, 2}));
}

TEST(KpcCutoffs, ReadsANamedListFromTheRegistry)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {5, 6});
    const Cut c({9});
    c.cutoffs->setListType(grades.type);
    c.cutoffs->unserialize(formOf({{"name", "Grades"}, {"value", "1,2"}}));
    EXPECT_EQ(c.cutoffs->getIdent(), "Grades");
    EXPECT_EQ(c.list->getValues(), Values({5, 6}));
}

TEST(KpcCutoffs, TakesTheNameOfAnyUnitClassWhileItHasNone)
{
    const Registered depths("Depths", MbuEUnitClass::LENGTH, {5, 6});
    const Cut c;
    c.cutoffs->setListType(depths.type);
    c.cutoffs->unserialize(formOf({{"name", "Depths"}}));
    EXPECT_EQ(c.cutoffs->getIdent(), "Depths");
    EXPECT_EQ(c.list->getValues(), Values({5, 6}));
}

TEST(KpcCutoffs, DropsTheNameOfAnotherUnitClassAndTakesItsNumbers)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {5, 6});
    const Cut c({9});
    c.cutoffs->setListType(grades.type);
    c.cutoffs->setUnitClass(MbuEUnitClass::LENGTH);
    c.cutoffs->unserialize(formOf({{"name", "Grades"}, {"value", "1,2"}}));
    EXPECT_EQ(c.cutoffs->getIdent(), "");
    EXPECT_EQ(c.list->getValues(), Values({5, 6}));
}

TEST(KpcCutoffs, TakesNothingFromAListThatIsNotThere)
{
    const Cut plain({9});
    plain.cutoffs->unserialize(formOf({{"name", "No such list"}, {"value", "1,2"}}));
    EXPECT_EQ(plain.cutoffs->getIdent(), "No such list");
    EXPECT_EQ(plain.list->getValues(), Values());

    const Cut lengths({9});
    lengths.cutoffs->setUnitClass(MbuEUnitClass::LENGTH);
    lengths.cutoffs->unserialize(formOf({{"name", "No such list"}, {"value", "1,2"}}));
    EXPECT_EQ(lengths.cutoffs->getIdent(), "");
    EXPECT_EQ(lengths.list->getValues(), Values());
}

TEST(KpcCutoffs, ReadsInOneRecord)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {5, 6});
    const Cut c({9});
    c.cutoffs->setListType(grades.type);
    RecordingObserver observer(*c.cutoffs);
    c.cutoffs->unserialize(formOf({{"name", "Grades"}}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flags(), listChanged);
}

TEST(KpcCutoffs, PrintsItsValues)
{
    const Cut c({1, 2.5});
    EXPECT_EQ(c.cutoffs->toString(), "1; 2.5 ");
    c.cutoffs->setUnitClass(MbuEUnitClass::LENGTH);
    EXPECT_EQ(c.cutoffs->toString(), "1; 2.5 m");
}

TEST(KpcCutoffs, PrintsTheListOfTheRegistry)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {5, 6});
    const Cut c({1});
    c.cutoffs->setListType(grades.type);
    c.cutoffs->setIdent("Grades");
    EXPECT_EQ(c.cutoffs->toString(), "5; 6 ");
}

TEST(KpcCutoffs, PrintsThatItIsEmpty)
{
    const Cut c;
    EXPECT_EQ(c.cutoffs->toString(), "empty");
    const BracketTranslator translator;
    EXPECT_EQ(c.cutoffs->toString(), "[empty]");
}

TEST(KpcCutoffs, FollowsAutomaticValuesWhileItIsAutomatic)
{
    const Cut c({9});
    c.cutoffs->setAutoValues({1, 2});
    EXPECT_EQ(c.cutoffs->getAutoValues(), Values({1, 2}));
    EXPECT_TRUE(c.cutoffs->isAutomaticValueInitialized());
    EXPECT_EQ(c.cutoffs->getValues(), Values({9}));
    c.cutoffs->setAutomatic(true);
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
    c.cutoffs->setAutoValues({3, 4, 5});
    EXPECT_EQ(c.cutoffs->getValues(), Values({3, 4, 5}));
    EXPECT_TRUE(c.cutoffs->isAutomatic());
}

TEST(KpcCutoffs, TakesItsFirstAutomaticValuesAtOnceIfItIsAutomatic)
{
    const Cut c({9});
    c.cutoffs->setAutomatic(true);
    c.cutoffs->setAutoValues({1, 2});
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
    EXPECT_TRUE(c.cutoffs->isAutomatic());
}

TEST(KpcCutoffs, TellsOfAutomaticValuesInOneRecord)
{
    const Cut c;
    RecordingObserver observer(*c.cutoffs);
    c.cutoffs->setAutoValues({1, 2});
    EXPECT_EQ(observer.allFlags(), QList<int>({Kp::NotifyConfig}));
    c.cutoffs->setAutoValues({1, 2});
    EXPECT_EQ(observer.records.size(), 1);
    c.cutoffs->setAutomatic(true);
    EXPECT_EQ(observer.flags(1), listChanged | Kp::NotifyConfig);
    c.cutoffs->setAutoValues({3});
    ASSERT_EQ(observer.records.size(), 3);
    EXPECT_EQ(observer.flags(2), listChanged | Kp::NotifyConfig);
}

TEST(KpcCutoffs, DoesNothingWithAutomaticValuesThatItHas)
{
    const Cut c;
    RecordingObserver observer(*c.cutoffs);
    c.cutoffs->setAutoValues({});
    EXPECT_FALSE(c.cutoffs->isAutomaticValueInitialized());
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpcCutoffs, KeepsAutomaticValuesAdmissible)
{
    const Cut c;
    c.cutoffs->setMaximum(2);
    c.cutoffs->setAutomatic(true);
    c.cutoffs->setAutoValues({1, 1, 3, 2});
    EXPECT_EQ(c.cutoffs->getAutoValues(), Values({1, 2}));
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
    EXPECT_TRUE(c.cutoffs->isAutomatic());
}

TEST(KpcCutoffs, StaysAutomaticWhileItsListTakesItsOwnAutomaticValues)
{
    const Cut c;
    c.cutoffs->setAutoValues({1, 2});
    c.cutoffs->setAutomatic(true);
    c.list->setAutomatic(true);
    c.cutoffs->setAutoValues({3});
    EXPECT_TRUE(c.list->isAutomatic());
    EXPECT_TRUE(c.cutoffs->isAutomatic());
    EXPECT_EQ(c.cutoffs->getValues(), Values({3}));
    c.list->setValueAt(0, 4);
    EXPECT_FALSE(c.list->isAutomatic());
    EXPECT_FALSE(c.cutoffs->isAutomatic());
}

TEST(KpcCutoffs, TakesItsAutomaticValuesWhereTheStoredOnesWereAutomatic)
{
    for (const bool automatic : {true, false}) {
        const Cut c;
        c.cutoffs->setAutoValues({3});
        SerializerTest::read(*c.cutoffs,
                             QString(R"(<param key="C" version="2" automatic="%1"><value>1,2</value></param>)")
                                 .arg(automatic ? "yes" : "no"));
        EXPECT_EQ(c.cutoffs->isAutomatic(), automatic);
        EXPECT_EQ(c.cutoffs->getValues(), automatic ? Values({3}) : Values({1, 2}));
    }
}

TEST(KpcCutoffs, GivesTheNameUpForAutomaticValues)
{
    const Cut c;
    c.cutoffs->setIdent("Grades");
    c.cutoffs->setAutoValues({1, 2});
    EXPECT_EQ(c.cutoffs->getIdent(), "Grades");
    c.cutoffs->setAutomatic(true);
    EXPECT_EQ(c.cutoffs->getIdent(), "");
}

TEST(KpcCutoffs, BecomesAutomaticWhenItIsResetToItsAutomaticValues)
{
    const Cut c({9});
    c.cutoffs->setAutoValues({1, 2});
    c.cutoffs->resetToAutomaticValue();
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
    EXPECT_TRUE(c.cutoffs->isAutomatic());
}

TEST(KpcCutoffs, EndsTheAutomaticModeWhenItIsChangedByHand)
{
    const std::function<void(const Cut&)> changes[] = {
        [](const Cut& c) { c.cutoffs->setValues({3}); },  [](const Cut& c) { c.list->setValueAt(0, 7); },
        [](const Cut& c) { c.cutoffs->removeItemAt(0); }, [](const Cut& c) { c.cutoffs->clear(); },
        [](const Cut& c) { c.cutoffs->setIdent("X"); },
    };
    for (const auto& change : changes) {
        const Cut c;
        c.cutoffs->setAutoValues({1, 2});
        c.cutoffs->setAutomatic(true);
        RecordingObserver observer(*c.cutoffs);
        change(c);
        EXPECT_FALSE(c.cutoffs->isAutomatic());
        ASSERT_EQ(observer.records.size(), 1);
        EXPECT_TRUE(observer.flags() & Kp::NotifyConfig);
    }
}

TEST(KpcCutoffs, StaysAutomaticWhereTheValuesStayTheAutomaticOnes)
{
    const Cut c;
    c.cutoffs->setAutoValues({1, 2});
    c.cutoffs->setAutomatic(true);
    c.cutoffs->setValues({1, 2});
    c.cutoffs->setItemLabel("Limit");
    EXPECT_TRUE(c.cutoffs->isAutomatic());
}

TEST(KpcCutoffs, StaysAutomaticWhileItHasNoAutomaticValues)
{
    const Cut c;
    c.cutoffs->setAutomatic(true);
    c.cutoffs->setValues({1});
    EXPECT_TRUE(c.cutoffs->isAutomatic());
}

TEST(KpcCutoffs, ForgetsItsAutomaticValues)
{
    const Cut c({9});
    c.cutoffs->setAutoValues({1, 2});
    c.cutoffs->unsetAutoValues();
    EXPECT_FALSE(c.cutoffs->isAutomaticValueInitialized());
    EXPECT_EQ(c.cutoffs->getAutoValues(), Values());
    c.cutoffs->setAutomatic(true);
    EXPECT_EQ(c.cutoffs->getValues(), Values({9}));
    c.cutoffs->setAutoValues({1, 2});
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
}

TEST(KpcCutoffs, KeepsTheAutomaticValuesThatItsListIsTakingWhenTheyAreToBeForgotten)
{
    const Cut c({9});
    c.cutoffs->setAutoValues({1, 2});
    ActingObserver observer(*c.list, [&] { c.cutoffs->unsetAutoValues(); });
    c.cutoffs->resetToAutomaticValue();
    EXPECT_FALSE(c.cutoffs->isAutomaticValueInitialized());
    EXPECT_TRUE(c.list->isAutomaticValueInitialized());
    EXPECT_EQ(c.cutoffs->getAutoValues(), Values({1, 2}));
    EXPECT_EQ(c.cutoffs->getValues(), Values({1, 2}));
}

TEST(KpcCutoffs, CopiesItsStateAndReactsOnItsOwn)
{
    const Registered grades("Grades", MbuEUnitClass::NONE, {5, 6});
    const Cut c({1, 2});
    c.cutoffs->setListType(grades.type);
    c.cutoffs->setAutoValues({3});
    c.cutoffs->setIdent("Grades");
    const std::unique_ptr<KpcCutoffs> copy(c.cutoffs->duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getListType(), grades.type);
    EXPECT_EQ(copy->getIdent(), "Grades");
    EXPECT_EQ(copy->getValues(), Values({5, 6}));
    EXPECT_EQ(copy->getAutoValues(), Values({3}));
    copy->setAutomatic(true);
    EXPECT_EQ(copy->getValues(), Values({3}));
    copy->setValues({4});
    EXPECT_FALSE(copy->isAutomatic());
    EXPECT_EQ(c.cutoffs->getIdent(), "Grades");
    EXPECT_EQ(c.list->getValues(), Values({1, 2}));
    EXPECT_EQ(std::unique_ptr<KpcCutoffs>(c.cutoffs->duplicate(QString()))->getKey(), "C");
}

TEST(KpcCutoffs, ReadsTheItemsOfVersion1)
{
    const Cut c({9});
    SerializerTest::read(*c.cutoffs,
                         R"(<param key="C"><param key="ITEM_1">0.5</param><param key="ITEM_4">1e-20</param>)"
                         R"(<param key="ITEM_2">3</param></param>)");
    EXPECT_EQ(c.cutoffs->getValues(), Values({0.5, 1e-20, 3}));
    EXPECT_EQ(c.cutoffs->serialize(), formOf({{"value", "0.5,1e-20,3"}}));
}

TEST(KpcCutoffs, ReadsTheListOfVersion1WhereItIsAChild)
{
    const Cut c({9});
    SerializerTest::read(*c.cutoffs, R"(<param key="C" version="1"><param key="LIST"><param key="ITEM_1">0.5</param>)"
                                     R"(<param key="ITEM_2">3</param></param></param>)");
    EXPECT_EQ(c.cutoffs->getValues(), Values({0.5, 3}));
}

TEST(KpcCutoffs, ReadsADamagedFormOfVersion1AsFarAsItCanBe)
{
    const std::pair<QString, QString> rows[] = {
        {"", ""},
        {"text", ""},
        {"<value>5</value>", ""},
        {R"(<param key="ITEM_1">x</param><param>2</param><other/><param key="ITEM_1">3</param>)", "0,2,3"},
        {R"(<param key="ITEM_1" version="7">4</param><param key="ITEM_2">5</param>)", "0,5"},
        {R"(<param key="LIST"/>)", ""},
    };
    for (const auto& [content, text] : rows) {
        const RecordedMessages messages;
        const QDomDocument document = SerializerTest::parsed(R"(<param key="C">)" + content + "</param>");
        QDomElement element = document.documentElement();
        Cut().cutoffs->convert(element, 1);
        EXPECT_EQ(element.firstChildElement("value").text(), text) << content.toStdString();
        EXPECT_EQ(element.childNodes().count(), 1);
    }
}

TEST(KpcCutoffs, ConvertsTheItemsOfVersion1IntoOneText)
{
    const QDomDocument document = SerializerTest::parsed(
        R"(<param key="C" automatic="no">text<param key="ITEM_1">0.5</param><param key="ITEM_2">2</param></param>)");
    QDomElement element = document.documentElement();
    Cut().cutoffs->convert(element, 1);
    EXPECT_EQ(element.childNodes().count(), 1);
    EXPECT_EQ(element.firstChildElement().tagName(), "value");
    EXPECT_EQ(element.firstChildElement().text(), "0.5,2");
    EXPECT_EQ(element.attribute("automatic"), "no");
}

TEST(KpcCutoffs, LeavesAnElementOfItsOwnVersionAlone)
{
    const QDomDocument document = SerializerTest::parsed(storedForm);
    QDomElement element = document.documentElement();
    const QString before = SerializerTest::written(element);
    Cut().cutoffs->convert(element, 2);
    EXPECT_EQ(SerializerTest::written(element), before);
}

TEST(KpcCutoffs, FailsOnAVersionThatThereIsNot)
{
    const QDomDocument document = SerializerTest::parsed(storedForm);
    for (const int version : {0, -1, 3}) {
        QDomElement element = document.documentElement();
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { Cut().cutoffs->convert(element, version); }),
                  "'void __cdecl KpcCutoffs::convert(class QDomElement &,int) const' in file "
                  "'param/composite/KpcCutoffs' failed:\n\nUnexpected version number requested");
    }
}

TEST(KpcCutoffs, IsLeftAloneByAFormThatIsTooNew)
{
    const RecordedMessages messages;
    const Cut c({9});
    SerializerTest::read(*c.cutoffs, R"(<param key="C" version="3"><value>1</value></param>)");
    EXPECT_EQ(c.cutoffs->getValues(), Values({9}));
    EXPECT_EQ(messages.warnings, QStringList("Cannot load parameter 'C' because version is too recent."));
}

TEST(KpcCutoffs, ReadsWhatItStores)
{
    for (const Values& values : {Values({1}), Values({0.1, 1e-20, -3.25}), Values({1.0 / 3.0, 1e300})}) {
        const Cut read;
        SerializerTest::read(*read.cutoffs, SerializerTest::writtenParam(*Cut(values).cutoffs));
        EXPECT_EQ(read.cutoffs->getValues(), values);
    }
}

TEST(KpcCutoffs, SurvivesThatItIsDestroyedByAnObserver)
{
    const std::function<void(Cut&)> changes[] = {
        [](Cut& c) { c.cutoffs->setValues({3}); },
        [](Cut& c) { c.cutoffs->setAutoValues({4}); },
        [](Cut& c) { c.cutoffs->unsetAutoValues(); },
        [](Cut& c) { c.cutoffs->resetToAutomaticValue(); },
        [](Cut& c) { c.cutoffs->setUnitClass(MbuEUnitClass::LENGTH); },
        [](Cut& c) {
            c.cutoffs->unserialize(formOf({{"value", "7"}}));
        },
        [](Cut& c) {
            c.cutoffs->unserialize(formOf({{"name", "No such list"}}));
        },
    };
    for (const auto& change : changes) {
        for (const char* key : {"LIST", "IDENTIFIER", ""}) {
            Cut c({1, 2});
            c.cutoffs->setAutoValues({3});
            c.cutoffs->setIdent("Grades");
            const KpbAParameter& observed = *key ? *c.cutoffs->getChild(key) : *c.cutoffs;
            ActingObserver observer(observed, [&] { c.cutoffs.reset(); });
            change(c);
            EXPECT_EQ(!c.cutoffs, !observer.records.isEmpty());
        }
    }
}

TEST(KpcCutoffs, ReadsManyValuesInLittleTime)
{
    QStringList texts;
    for (int i = 0; i < 20000; ++i)
        texts.append(QString::number(i));
    const Cut c;
    c.cutoffs->unserialize(formOf({{"value", texts.join(',')}}));
    EXPECT_EQ(c.cutoffs->getItemCount(), 20000);
}
