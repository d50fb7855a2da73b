#include "CompositeTestTools.h"

#include <QtCore/QMetaMethod>

#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaColor.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcSampleCategories.h>
#include <study/KsoSampleCategories.h>
#include <support/BracketTranslator.h>
#include <support/SampledProject.h>

namespace {

/// A categorisation below the support "assays".
struct Categories
{
    Categories() { param.setRootIdent(project.support(), true); }

    KpaString* name(int i) const { return child<KpaString>(i, "NAME"); }
    KpaString* cond(int i) const { return child<KpaString>(i, "COND"); }
    KpaColor* color(int i) const { return child<KpaColor>(i, "COLOR"); }
    KpcSampleCategoriesRule* prototype() const { return param.getRulesListParameter()->getItemPrototype(); }
    QString nextName() const { return dynamic_cast<KpaString*>(prototype()->getChild("NAME"))->getValue(); }
    QColor nextColor() const { return dynamic_cast<KpaColor*>(prototype()->getChild("COLOR"))->getValue(); }
    void addVariable(const QString& name) { param.addVariable(project.variable(name)); }
    void addRule(const QString& name, const QString& cond = {}) { param.addRule(Qt::red, name, cond); }
    /// Sets the condition of a rule of its own and reads it back.
    QString normalised(const QString& text)
    {
        addRule("rule");
        cond(param.getRulesCount() - 1)->setValue(text);
        return param.getRuleCond(param.getRulesCount() - 1);
    }
    QStringList messages(bool expectedOk)
    {
        bool ok = !expectedOk;
        const QStringList texts = param.testRules(ok);
        EXPECT_EQ(ok, expectedOk);
        return texts;
    }

    SampledProject project;
    KpcSampleCategories param{"CATEGORIES", project};

private:
    template <class T>
    T* child(int i, const char* key) const
    {
        return dynamic_cast<T*>(param.getRuleParameter(i)->getChild(QString::fromLatin1(key)));
    }
};

/// The flags of the entry for `parameter` itself in all records.
int ownFlags(const RecordingObserver& observer, const KpbAParameter& parameter)
{
    int flags = 0;
    for (int i = 0; i < observer.records.size(); ++i)
        flags |= observer.flagsOf(parameter, i);
    return flags;
}

constexpr int allThree = Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem;

} // namespace

TEST(KpcSampleCategories, IsOfItsKindAndVersion)
{
    const Categories categories;
    EXPECT_EQ(categories.param.getType(), KpbEType::SAMPLE_CATEGORIES);
    EXPECT_EQ(categories.param.getType().getValue(), 52);
    EXPECT_EQ(categories.param.getVersion(), 1);
}

TEST(KpcSampleCategories, IsAQObjectFirstAndHasOneSignal)
{
    Categories categories;
    QObject* object = &categories.param;
    EXPECT_EQ(static_cast<void*>(object), static_cast<void*>(&categories.param));
    EXPECT_EQ(object->parent(), nullptr);
    EXPECT_STREQ(object->metaObject()->className(), "KpcSampleCategories");
    const QMetaObject& meta = KpcSampleCategories::staticMetaObject;
    ASSERT_EQ(meta.methodCount() - meta.methodOffset(), 1);
    EXPECT_EQ(meta.method(meta.methodOffset()).methodType(), QMetaMethod::Signal);
    EXPECT_EQ(meta.method(meta.methodOffset()).methodSignature(), "addIndicesPressed()");
    int calls = 0;
    QObject::connect(&categories.param, &KpcSampleCategories::addIndicesPressed, [&calls] { ++calls; });
    Q_EMIT categories.param.addIndicesPressed();
    EXPECT_EQ(calls, 1);
}

TEST(KpcSampleCategories, HasItsChildrenInOrder)
{
    const Categories categories;
    EXPECT_EQ(childKeys(categories.param), QStringList({"VARIABLES", "RULES", "FLAGS"}));
    EXPECT_EQ(categories.param.getChild(0), categories.param.getVariableListParameter());
    EXPECT_EQ(categories.param.getChild(1), categories.param.getRulesListParameter());
    EXPECT_EQ(categories.param.getChild(2), categories.param.getFlags());
    EXPECT_EQ(categories.param.getChild(0)->getLabel(), "Input Variables");
    EXPECT_EQ(categories.param.getChild(1)->getLabel(), "Rules");
    EXPECT_EQ(categories.param.getChild(2)->getLabel(), "Flags");
    EXPECT_FALSE(categories.param.getChild(0)->isVolatile());
    EXPECT_FALSE(categories.param.getChild(1)->isVolatile());
    EXPECT_TRUE(categories.param.getChild(2)->isVolatile());
}

TEST(KpcSampleCategories, NamesTheKeysOfItsChildrenAndOneMore)
{
    EXPECT_EQ(KpcSampleCategories::Variables, "VARIABLES");
    EXPECT_EQ(KpcSampleCategories::Rules, "RULES");
    EXPECT_EQ(KpcSampleCategories::Flags, "FLAGS");
    EXPECT_EQ(KpcSampleCategories::Support, "SUPPORT");
    EXPECT_EQ(Categories().param.getChild(KpcSampleCategories::Support), nullptr);
}

TEST(KpcSampleCategories, TranslatesInItsOwnContext)
{
    const BracketTranslator translator;
    EXPECT_EQ(KpcSampleCategories::tr("Rock"), "[Rock]");
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    EXPECT_EQ(KpcSampleCategories::trUtf8("Rock"), "[Rock]");
    QT_WARNING_POP
}

TEST(KpcSampleCategories, BeginsAsItsTableSays)
{
    const SampledProject project;
    const KpcSampleCategories param("CATEGORIES", project);
    EXPECT_TRUE(param.isRelative());
    EXPECT_EQ(param.getVariableListParameter()->getRootType(), KsoEDataType::SUPPORT);
    const KsoDataFilter& filter = param.getVariableListParameter()->getFilter();
    EXPECT_EQ(filter.getDataType(), KsoEDataType::VARIABLE);
    EXPECT_EQ(filter.getIo(), MbdEIo::INPUT);
    EXPECT_EQ(filter.getRoles(), MbdVarRoleFlags::ANY);
    EXPECT_EQ(filter.getVariableTypes(), MbdVarTypeFlags::ANY);
    EXPECT_EQ(filter.getRuleLevel(), 0);
    EXPECT_EQ(param.getVariablesCount(), 0);
    EXPECT_EQ(param.getRulesCount(), 0);
    EXPECT_TRUE(param.isColorEnabled());
    EXPECT_FALSE(param.isIndiceGenerationAvailable());
    EXPECT_EQ(param.getAuxLabel(), "AUX");
    const auto* prototype = param.getRulesListParameter()->getItemPrototype();
    EXPECT_EQ(dynamic_cast<KpaString*>(prototype->getChild("NAME"))->getValue(), "Category 1");
    EXPECT_NE(dynamic_cast<KpaColor*>(prototype->getChild("COLOR"))->getValue(), QColor(Qt::black));
}

TEST(KpcSampleCategories, SetsUpTheChildrenOfARule)
{
    Categories categories;
    categories.addRule("rule");
    const KpcSampleCategoriesRule* rule = categories.param.getRuleParameter(0);
    EXPECT_EQ(rule->getType(), KpbEType::SAMPLE_CATEGORIES_RULE);
    EXPECT_EQ(rule->getType().getValue(), 53);
    EXPECT_EQ(childKeys(*rule), QStringList({"COLOR", "NAME", "COND"}));
    EXPECT_EQ(categories.color(0)->getLabel(), "Color");
    EXPECT_EQ(categories.name(0)->getLabel(), "Name");
    EXPECT_EQ(categories.cond(0)->getLabel(), "Rules");
    EXPECT_FALSE(categories.name(0)->isClearEnabled());
    EXPECT_FALSE(categories.cond(0)->isClearEnabled());
    EXPECT_FALSE(categories.name(0)->isAutoTrimmed());
    EXPECT_TRUE(categories.cond(0)->isAutoTrimmed());
}

TEST(KpcSampleCategories, TranslatesLabels)
{
    const BracketTranslator translator;
    Categories categories;
    categories.addRule("rule");
    EXPECT_EQ(categories.param.getChild(0)->getLabel(), "[Input Variables]");
    EXPECT_EQ(categories.param.getChild(1)->getLabel(), "[Rules]");
    EXPECT_EQ(categories.param.getChild(2)->getLabel(), "[Flags]");
    EXPECT_EQ(categories.color(0)->getLabel(), "[Color]");
    EXPECT_EQ(categories.name(0)->getLabel(), "[Name]");
    EXPECT_EQ(categories.cond(0)->getLabel(), "[Rules]");
}

TEST(KpcSampleCategories, AddsRules)
{
    Categories categories;
    categories.param.addRule(QColor(1, 2, 3, 4), "Sand", "AUX1 > 0");
    categories.param.addRule(MbcCategoryRule("Clay", "AUX1 < 0", MbbColor(0x80112233)));
    EXPECT_EQ(categories.param.getRulesCount(), 2);
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"Sand", "Clay"}));
    EXPECT_EQ(categories.param.getRuleConds(), QStringList({"AUX1 > 0", "AUX1 < 0"}));
    EXPECT_EQ(categories.param.getRuleName(1), "Clay");
    EXPECT_EQ(categories.param.getRuleCond(1), "AUX1 < 0");
    EXPECT_EQ(categories.param.getRuleColor(0), QColor(1, 2, 3, 4));
    EXPECT_EQ(categories.param.getRuleColor(1).rgba(), 0x80112233U);
    EXPECT_EQ(categories.param.getValues(),
              QList<MbcCategoryRule>({MbcCategoryRule("Sand", "AUX1 > 0", MbbColor(0x04010203)),
                                      MbcCategoryRule("Clay", "AUX1 < 0", MbbColor(0x80112233))}));
}

TEST(KpcSampleCategories, AddsARuleInOneRecord)
{
    Categories categories;
    const RecordingObserver observer(categories.param);
    categories.addRule("Sand", "aux1");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_TRUE(observer.records[0].hasModif(categories.param.getRulesListParameter(), Kp::NotifyChildren));
}

TEST(KpcSampleCategories, HasNothingAtAnIndexOutOfRange)
{
    const Categories categories;
    for (const int i : {-1, 0}) {
        EXPECT_EQ(categories.param.getRuleParameter(i), nullptr);
        EXPECT_EQ(categories.param.getRuleName(i), "");
        EXPECT_EQ(categories.param.getRuleCond(i), "");
        EXPECT_FALSE(categories.param.getRuleColor(i).isValid());
        EXPECT_TRUE(categories.param.getVariable(i).isNull());
    }
}

TEST(KpcSampleCategories, RemovesRulesAndTellsItsConfiguration)
{
    Categories categories;
    for (const char* name : {"a", "b", "c"})
        categories.addRule(QString::fromLatin1(name));
    const RecordingObserver observer(categories.param);
    categories.param.removeRule(0);
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"b", "c"}));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(categories.param), Kp::NotifyConfig);
    categories.param.removeLastRule();
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"b"}));
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.flagsOf(categories.param, 1), Kp::NotifyConfig);
}

TEST(KpcSampleCategories, TellsItsConfigurationThoughThereIsNoRuleToRemove)
{
    Categories categories;
    const RecordingObserver observer(categories.param);
    categories.param.removeRule(0);
    categories.param.removeLastRule();
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.flagsOf(categories.param, 0), Kp::NotifyConfig);
    EXPECT_EQ(observer.flagsOf(categories.param, 1), Kp::NotifyConfig);
}

TEST(KpcSampleCategories, MovesRules)
{
    Categories categories;
    for (const char* name : {"a", "b", "c"})
        categories.addRule(QString::fromLatin1(name));
    categories.param.moveRuleUp(2);
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"a", "c", "b"}));
    categories.param.moveRuleDown(0);
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"c", "a", "b"}));
    categories.param.moveRuleUp(0);
    categories.param.moveRuleDown(2);
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"c", "a", "b"}));
}

TEST(KpcSampleCategories, GivesTheAuxiliaryNamesOfAConditionTheirLetterCase)
{
    Categories categories;
    EXPECT_EQ(categories.normalised("aux1 > 0 and Aux2 < 3"), "AUX1 > 0 and AUX2 < 3");
    EXPECT_EQ(categories.normalised("aux12 > 3"), "AUX12 > 3");
    EXPECT_EQ(categories.normalised("maux1 > aux"), "maux1 > aux");
    EXPECT_EQ(categories.normalised("aux1b > aux_1"), "aux1b > aux_1");
    EXPECT_EQ(categories.normalised("  aux1  "), "AUX1");
    categories.addRule("rule", "aux3 == aux4");
    EXPECT_EQ(categories.param.getRuleCond(categories.param.getRulesCount() - 1), "AUX3 == AUX4");
}

TEST(KpcSampleCategories, UsesTheAuxiliaryLabelAsItStandsInThePattern)
{
    Categories categories;
    categories.param.setAuxLabel("Var");
    EXPECT_EQ(categories.param.getAuxLabel(), "Var");
    EXPECT_EQ(categories.normalised("VAR1 > aux1"), "Var1 > aux1");
    categories.param.setAuxLabel("");
    EXPECT_EQ(categories.normalised("Aux1 > 12"), "Aux1 > 12");
    categories.param.setAuxLabel("V.");
    EXPECT_EQ(categories.normalised("vx1 > 0"), "V.1 > 0");
    categories.param.setAuxLabel("(");
    EXPECT_EQ(categories.normalised("vx1 > 0"), "vx1 > 0");
}

TEST(KpcSampleCategories, NormalisesAConditionOnceWhereTheLabelFindsItselfAgain)
{
    Categories categories;
    categories.param.setAuxLabel(".*");
    EXPECT_EQ(categories.normalised("x12"), ".*2");
    categories.param.setAuxLabel("AUX|B");
    EXPECT_EQ(categories.normalised("aux > b3"), "AUX|B > AUX|B3");
    categories.addRule("rule", "b4");
    EXPECT_EQ(categories.param.getRuleCond(2), "AUX|B4");
}

TEST(KpcSampleCategories, NormalisesWhatAnObserverSetsMeanwhile)
{
    Categories categories;
    categories.addRule("first");
    categories.addRule("second");
    const ActingObserver observer(*categories.cond(0), [&] { categories.cond(1)->setValue("aux2"); });
    categories.cond(0)->setValue("aux1");
    EXPECT_EQ(categories.param.getRuleConds(), QStringList({"AUX1", "AUX2"}));
}

TEST(KpcSampleCategories, NormalisesWhatAnObserverMakesOfTheConditionThatWasNormalised)
{
    Categories categories;
    categories.addRule("rule");
    const ActingObserver observer(*categories.cond(0), [&] {
        if (categories.param.getRuleCond(0) == "AUX1")
            categories.cond(0)->setValue("aux2");
    });
    categories.cond(0)->setValue("aux1");
    EXPECT_EQ(categories.param.getRuleCond(0), "AUX2");
}

TEST(KpcSampleCategories, NormalisesInTheOrderOfTheRules)
{
    for (const bool isReversed : {false, true}) {
        Categories categories;
        for (int i = 0; i < 3; ++i)
            categories.addRule("rule");
        if (isReversed) {
            categories.param.getRulesListParameter()->moveItem(0, 2);
            categories.param.getRulesListParameter()->moveItem(0, 1);
        }
        QStringList order;
        std::vector<std::unique_ptr<ActingObserver>> observers;
        {
            KuoLock<KpnModif> lock(categories.param.getRulesListParameter());
            for (int i = 0; i < 3; ++i)
                categories.cond(i)->setValue("aux1");
            for (int i = 0; i < 3; ++i) {
                observers.push_back(std::make_unique<ActingObserver>(
                    *categories.cond(i), [&order, i] { order.append(QString::number(i)); }));
            }
            lock.commit();
        }
        EXPECT_EQ(order, QStringList({"0", "1", "2"})) << isReversed;
        EXPECT_EQ(categories.param.getRuleConds(), QStringList({"AUX1", "AUX1", "AUX1"}));
    }
}

TEST(KpcSampleCategories, LeavesTheConditionOfARuleThatIsOutOfTheListByThen)
{
    Categories categories;
    categories.addRule("rule");
    KpaString* cond = categories.cond(0);
    KpcList<KpcSampleCategoriesRule>* rules = categories.param.getRulesListParameter();
    KuoLock<KpnModif> lock(rules);
    cond->setValue("aux1");
    const std::unique_ptr<KpcSampleCategoriesRule> taken(rules->takeItemAt(0));
    lock.commit();
    EXPECT_EQ(cond->getValue(), "aux1");
}

TEST(KpcSampleCategories, SettingALabelLeavesTheConditions)
{
    Categories categories;
    categories.addRule("rule", "var1 > 0");
    const RecordingObserver observer(categories.param);
    categories.param.setAuxLabel("VAR");
    EXPECT_EQ(categories.param.getRuleCond(0), "var1 > 0");
    EXPECT_EQ(observer.records.size(), 0);
}

TEST(KpcSampleCategories, NamesTheNextRule)
{
    Categories categories;
    categories.param.getRulesListParameter()->addItem();
    EXPECT_EQ(categories.param.getRuleName(0), "Category 1");
    EXPECT_EQ(categories.nextName(), "Category 2");
    categories.param.getRulesListParameter()->addItem();
    EXPECT_EQ(categories.param.getRuleName(1), "Category 2");
    EXPECT_EQ(categories.nextName(), "Category 3");
    categories.param.removeLastRule();
    EXPECT_EQ(categories.nextName(), "Category 2");
}

TEST(KpcSampleCategories, CountsOnFromTheGreatestNumber)
{
    for (const QStringList& names : {QStringList{"Category 2", "Category 7"}, QStringList{"Category 7", "Category 2"}})
    {
        Categories categories;
        for (const QString& name : names)
            categories.addRule(name);
        EXPECT_EQ(categories.nextName(), "Category 8");
    }
}

TEST(KpcSampleCategories, CountsOnlyNamesWithThePrefix)
{
    Categories categories;
    categories.addRule("Other");
    EXPECT_EQ(categories.nextName(), "Category 1");
    categories.addRule("Category x");
    EXPECT_EQ(categories.nextName(), "Category 1");
    categories.addRule("My Category 4 of 9");
    EXPECT_EQ(categories.nextName(), "Category 5");
    categories.addRule("Category 99999999999999999999");
    EXPECT_EQ(categories.nextName(), "Category 5");
    categories.addRule("Category 2147483647");
    EXPECT_EQ(categories.nextName(), "Category 2147483648");
}

TEST(KpcSampleCategories, CountsWithoutAPrefixOnlyWhatANameBeginsWith)
{
    Categories categories;
    categories.param.setCategoryPrefix("");
    EXPECT_EQ(categories.nextName(), "1");
    categories.addRule("Other 7");
    EXPECT_EQ(categories.nextName(), "1");
    categories.addRule("4");
    EXPECT_EQ(categories.nextName(), "5");
}

TEST(KpcSampleCategories, GivesTheNextRuleANewColor)
{
    Categories categories;
    QSet<QRgb> colors{categories.nextColor().rgba()};
    for (int i = 0; i < 20; ++i) {
        categories.addRule("rule");
        colors.insert(categories.nextColor().rgba());
    }
    EXPECT_GT(colors.size(), 10);
}

TEST(KpcSampleCategories, ANewPrefixBeginsWithTheNumber1)
{
    Categories categories;
    categories.addRule("Rock 5");
    categories.param.setCategoryPrefix("Rock");
    EXPECT_EQ(categories.nextName(), "Rock 1");
    categories.addRule("x");
    EXPECT_EQ(categories.nextName(), "Rock 6");
    categories.param.setCategoryPrefix("(");
    categories.addRule("x");
    EXPECT_EQ(categories.nextName(), "( 1");
}

TEST(KpcSampleCategories, NormalisesConditionsWhoseValueOrItemHasChanged)
{
    for (const auto& [flag, expected] : {std::pair(Kp::NotifyValue, "VAR1"), std::pair(Kp::NotifyConfig, "var1"),
                                         std::pair(Kp::NotifyChildren, "var1"), std::pair(Kp::NotifyItem, "VAR1")})
    {
        Categories categories;
        categories.addRule("rule", "var1");
        categories.param.setAuxLabel("VAR");
        categories.param.update(KpnModif(flag, categories.cond(0)));
        EXPECT_EQ(categories.param.getRuleCond(0), expected) << flag;
    }
}

TEST(KpcSampleCategories, LeavesWhatIsNoCondition)
{
    Categories categories;
    categories.prototype()->getChild("COND")->unserialize({{"value", "aux1"}});
    categories.addRule("aux1");
    EXPECT_EQ(categories.param.getRuleName(0), "aux1");
    EXPECT_EQ(dynamic_cast<KpaString*>(categories.prototype()->getChild("COND"))->getValue(), "aux1");
}

TEST(KpcSampleCategories, NamesTheNextRuleOnlyWhereRulesComeGoOrMove)
{
    Categories categories;
    categories.addRule("Category 3");
    const QColor color = categories.nextColor();
    categories.name(0)->setValue("Category 8");
    categories.cond(0)->setValue("AUX1");
    EXPECT_EQ(categories.nextName(), "Category 4");
    EXPECT_EQ(categories.nextColor(), color);
    categories.addRule("x");
    EXPECT_EQ(categories.nextName(), "Category 9");
    categories.name(1)->setValue("Category 20");
    categories.param.moveRuleUp(1);
    EXPECT_EQ(categories.nextName(), "Category 21");
}

TEST(KpcSampleCategories, OffersFlagsWhereTheValueOrAnItemOfTheVariablesHasChanged)
{
    for (const auto& [flag, expected] : {std::pair(Kp::NotifyValue, 1), std::pair(Kp::NotifyConfig, 0),
                                         std::pair(Kp::NotifyChildren, 0), std::pair(Kp::NotifyItem, 1)})
    {
        Categories categories;
        categories.addVariable("Au");
        categories.param.getFlags()->setFlagFromKey("Au", false);
        categories.param.update(KpnModif(flag, categories.param.getVariableListParameter()));
        EXPECT_EQ(categories.param.getFlags()->getCheckedCount(), expected) << flag;
    }
}

TEST(KpcSampleCategories, NormalisesThenNamesThenOffersFlags)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addRule("Category 1", "var1 > 0");
    categories.param.setAuxLabel("VAR");
    categories.param.getFlags()->setFlagFromKey("Au", false);
    auto* nextName = dynamic_cast<KpaString*>(categories.prototype()->getChild("NAME"));
    nextName->setValue("other");
    QStringList order;
    const ActingObserver normalised(*categories.cond(0), [&] { order.append("condition"); });
    const ActingObserver named(*nextName, [&] { order.append("name"); });
    const ActingObserver offered(*categories.param.getFlags(), [&] { order.append("flags"); });
    KpnModif modif(Kp::NotifyValue, categories.param.getVariableListParameter());
    modif.merge(KpnModif(Kp::NotifyChildren, categories.param.getRulesListParameter()));
    modif.merge(KpnModif(Kp::NotifyValue, categories.cond(0)));
    categories.param.update(modif);
    EXPECT_EQ(order, QStringList({"condition", "name", "flags"}));
    EXPECT_EQ(categories.param.getRuleCond(0), "VAR1 > 0");
    EXPECT_EQ(nextName->getValue(), "Category 2");
    EXPECT_EQ(categories.param.getFlags()->getCheckedKeys(), QStringList({"Au"}));
}

TEST(KpcSampleCategories, LabelsTheNamesOfAllRules)
{
    Categories categories;
    categories.addRule("a");
    categories.addRule("b");
    const RecordingObserver observer(*categories.param.getRulesListParameter());
    categories.param.setCategoryName("Rock");
    EXPECT_EQ(categories.name(0)->getLabel(), "Rock");
    EXPECT_EQ(categories.name(1)->getLabel(), "Rock");
    EXPECT_EQ(categories.prototype()->getChild("NAME")->getLabel(), "Rock");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(*categories.name(0)), Kp::NotifyConfig);
    categories.param.setCategoryName("Rock");
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpcSampleCategories, StoresColorsOnlyWhileTheyAreEnabled)
{
    Categories categories;
    categories.addRule("a");
    categories.param.setColorEnabled(false);
    EXPECT_FALSE(categories.param.isColorEnabled());
    EXPECT_TRUE(categories.color(0)->isVolatile());
    categories.addRule("b");
    EXPECT_TRUE(categories.color(1)->isVolatile());
    categories.param.setColorEnabled(true);
    EXPECT_FALSE(categories.color(0)->isVolatile());
    EXPECT_FALSE(categories.color(1)->isVolatile());
    EXPECT_FALSE(categories.prototype()->getChild("COLOR")->isVolatile());
}

TEST(KpcSampleCategories, LeavesColorsThatAreEnabledAlreadyAsTheyAre)
{
    Categories categories;
    categories.addRule("a");
    categories.color(0)->setVolatile(true);
    categories.param.setColorEnabled(true);
    EXPECT_TRUE(categories.color(0)->isVolatile());
}

TEST(KpcSampleCategories, HoldsWhetherIndicesCanBeGenerated)
{
    Categories categories;
    categories.param.setIndiceGenerationAvailable(true);
    EXPECT_TRUE(categories.param.isIndiceGenerationAvailable());
}

TEST(KpcSampleCategories, HoldsInputVariables)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addVariable("Cu");
    EXPECT_EQ(categories.param.getVariablesCount(), 2);
    EXPECT_EQ(categories.param.getVariable(1), categories.project.variable("Cu"));
    categories.param.clearVariables();
    EXPECT_EQ(categories.param.getVariablesCount(), 0);
}

TEST(KpcSampleCategories, OffersItsVariablesAsFlagsThatAreAllOn)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addVariable("Cu");
    categories.param.addVariable(KsoDataIdentifier());
    const KpaFlags* flags = categories.param.getFlags();
    EXPECT_EQ(flags->getFlagLabels(), QStringList({"Au", "Cu"}));
    EXPECT_EQ(flags->getFlagKeys(), QStringList({"Au", "Cu"}));
    EXPECT_EQ(flags->getFlagValues(),
              QList<int>({categories.project.item("Au")->getId(), categories.project.item("Cu")->getId()}));
    EXPECT_EQ(flags->getCheckedCount(), 2);
}

TEST(KpcSampleCategories, OffersOneFlagForVariablesOfTheSameNumber)
{
    Categories categories;
    for (const char* name : {"Au", "Cu", "Au", "No"})
        categories.addVariable(QString::fromLatin1(name));
    EXPECT_EQ(categories.param.getFlags()->getFlagKeys(), QStringList({"Au", "Cu", "No"}));
    for (const char* name : {"Cu", "No"})
        categories.project.model->remove(categories.project.item(QString::fromLatin1(name)));
    EXPECT_EQ(categories.param.getVariablesCount(), 4);
    EXPECT_EQ(categories.param.getVariable(1).getName(), "Cu");
    EXPECT_EQ(categories.param.getFlags()->getFlagKeys(), QStringList({"Au", "No"}));
    EXPECT_EQ(categories.param.getFlags()->getFlagValues(), QList<int>({categories.project.item("Au")->getId(), -1}));
}

TEST(KpcSampleCategories, SkipsVariablesThatHaveGone)
{
    Categories categories;
    categories.addVariable("Cu");
    categories.addVariable("Au");
    categories.addRule("good", "AUX2 > 0");
    categories.project.model->remove(categories.project.item("Cu"));
    EXPECT_EQ(categories.messages(true), QStringList());
    EXPECT_EQ(categories.param.getReadableRules(), QStringList({"good : Au > 0"}));
}

TEST(KpcSampleCategories, TellsOfNewFlagsInOneRecord)
{
    Categories categories;
    categories.addVariable("Au");
    const RecordingObserver observer(*categories.param.getFlags());
    categories.addVariable("Cu");
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flags(), Kp::NotifyConfig | Kp::NotifyValue);
}

TEST(KpcSampleCategories, SwitchesTheFlagsOnAfreshWhenVariablesChange)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addVariable("Cu");
    categories.param.getFlags()->setFlagFromKey("Au", false);
    categories.addRule("rule", "AUX1 > 0");
    EXPECT_EQ(categories.param.getFlags()->getCheckedKeys(), QStringList({"Cu"}));
    categories.addVariable("No");
    EXPECT_EQ(categories.param.getFlags()->getCheckedKeys(), QStringList({"Au", "Cu", "No"}));
}

TEST(KpcSampleCategories, TakesTheDataFilterToItsVariables)
{
    Categories categories;
    const KsoDataFilter filter = KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, {MbdEVarType::DOUBLE}, 1);
    categories.param.setDataFilter(filter);
    EXPECT_EQ(categories.param.getVariableListParameter()->getFilter().getVariableTypes(),
              MbdVarTypeFlags({MbdEVarType::DOUBLE}));
}

TEST(KpcSampleCategories, TakesRootsThatAreAFileOrASupport)
{
    Categories categories;
    const KplDataList* list = categories.param.getVariableListParameter();
    categories.param.setRootIdent(categories.project.file->getIdentifier(), true);
    EXPECT_EQ(list->getRootIdent(), categories.project.file->getIdentifier());
    EXPECT_EQ(list->getRootType(), KsoEDataType::FILE);
    categories.param.setRootIdent(categories.project.support(), false);
    EXPECT_EQ(list->getRootType(), KsoEDataType::FILE);
    categories.param.setRootType(KsoEDataType::SUPPORT);
    EXPECT_EQ(list->getRootType(), KsoEDataType::SUPPORT);
    categories.param.setRelative(false);
    EXPECT_FALSE(categories.param.isRelative());
    EXPECT_FALSE(list->isRelative());
}

TEST(KpcSampleCategories, AsksNothingOfARootWhoseTypeItDoesNotTake)
{
    Categories categories;
    EXPECT_NO_THROW(categories.param.setRootIdent(categories.project.model->getRootDirectory(), false));
    EXPECT_EQ(categories.param.getVariableListParameter()->getRootType(), KsoEDataType::SUPPORT);
}

TEST(KpcSampleCategories, RefusesOtherRoots)
{
    Categories categories;
    const QString text = "'%1' in file 'composite\\KpcSampleCategories' failed:\n\n"
                         "Sample Categories root can only be a file or a support.";
    for (const KsoEDataType& type : {KsoEDataType::DIRECTORY, KsoEDataType::VARIABLE, KsoEDataType::MACRO_VARIABLE}) {
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { categories.param.setRootType(type); }),
                  text.arg("void __cdecl KpcSampleCategories::setRootType(const class KsoEDataType &)"));
    }
    for (const KsoDataIdentifier& root :
         {categories.project.model->getRootDirectory(), categories.project.variable("Au")}) {
        EXPECT_EQ(messageOf<MbeProgrammingError>([&] { categories.param.setRootIdent(root, true); }),
                  text.arg("void __cdecl KpcSampleCategories::setRootIdent(const class KsoDataIdentifier &,bool)"));
    }
    EXPECT_EQ(categories.param.getVariableListParameter()->getRootIdent(), categories.project.support());
    EXPECT_EQ(categories.param.getVariableListParameter()->getRootType(), KsoEDataType::SUPPORT);
}

TEST(KpcSampleCategories, MakesTheEnginesRecord)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addVariable("Cu");
    categories.param.addRule(QColor(1, 2, 3, 4), "Sand", "AUX1 > 0");
    categories.param.addRule(QColor(5, 6, 7), "Clay", "");
    const std::unique_ptr<KsoSampleCategories> record(categories.param.createSampleCategories());
    EXPECT_EQ(record->getRootIdent(), categories.project.support());
    ASSERT_EQ(record->getVariablesCount(), 2);
    EXPECT_EQ(record->getVariable(0), categories.project.variable("Au"));
    EXPECT_EQ(record->getVariable(1), categories.project.variable("Cu"));
    ASSERT_EQ(record->getRulesCount(), 2);
    EXPECT_EQ(record->getRule(0), MbcCategoryRule("Sand", "AUX1 > 0", MbbColor(0x04010203)));
    EXPECT_EQ(record->getRule(1), MbcCategoryRule("Clay", "", MbbColor(0xff050607)));
}

TEST(KpcSampleCategories, MakesTheEnginesRecordOfNothing)
{
    const SampledProject project;
    const KpcSampleCategories param("CATEGORIES", project);
    const std::unique_ptr<KsoSampleCategories> record(param.createSampleCategories());
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->getRulesCount(), 0);
}

TEST(KpcSampleCategories, TakesTheRulesOfTheEnginesRecordAndKeepsItsVariables)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addRule("old");
    KsoSampleCategories record;
    record.addVariable(categories.project.variable("Cu"));
    record.addRule(MbcCategoryRule("Sand", "aux1 > 0", MbbColor(0x04010203)));
    record.addRule(MbcCategoryRule("Clay", "", MbbColor(0xff050607)));
    const RecordingObserver observer(categories.param);
    categories.param.resetFromSampleCategories(record);
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"Sand", "Clay"}));
    EXPECT_EQ(categories.param.getRuleConds(), QStringList({"AUX1 > 0", ""}));
    EXPECT_EQ(categories.param.getRuleColor(0), QColor(1, 2, 3, 4));
    EXPECT_EQ(categories.param.getVariablesCount(), 1);
    EXPECT_EQ(categories.param.getVariable(0), categories.project.variable("Au"));
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(categories.param), allThree);
}

TEST(KpcSampleCategories, SendsNothingForTheRulesThatItHas)
{
    Categories categories;
    categories.addRule("Sand", "AUX1 > 0");
    const std::unique_ptr<KsoSampleCategories> record(categories.param.createSampleCategories());
    const RecordingObserver observer(categories.param);
    categories.param.resetFromSampleCategories(*record);
    EXPECT_EQ(observer.records.size(), 0);
}

TEST(KpcSampleCategories, TellsOnlyOfTheRulesWhereTheirTextStays)
{
    Categories categories;
    categories.addRule("Sand", "AUX1 > 0");
    KsoSampleCategories record;
    record.addRule(MbcCategoryRule("Sand", "AUX1 > 0", MbbColor(0xff050607)));
    const RecordingObserver observer(categories.param);
    categories.param.resetFromSampleCategories(record);
    EXPECT_EQ(categories.param.getRuleColor(0), QColor(5, 6, 7));
    EXPECT_EQ(ownFlags(observer, categories.param), 0);
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpcSampleCategories, TakesOverAnother)
{
    Categories other;
    other.addVariable("Au");
    other.addVariable("Cu");
    other.param.addRule(QColor(1, 2, 3, 4), "Sand", "AUX1 > 0");
    other.param.setAuxLabel("VAR");
    KpcSampleCategories param("COPY", other.project);
    param.setRootIdent(other.project.support(), true);
    param.addRule(Qt::blue, "old", "");
    const RecordingObserver observer(param);
    param.resetFromParam(other.param);
    EXPECT_EQ(param.getVariablesCount(), 2);
    EXPECT_EQ(param.getVariable(1).getName(), "Cu");
    EXPECT_EQ(param.getRuleNames(), QStringList({"Sand"}));
    EXPECT_EQ(param.getRuleConds(), QStringList({"AUX1 > 0"}));
    EXPECT_EQ(param.getRuleColor(0), QColor(1, 2, 3, 4));
    EXPECT_EQ(param.getAuxLabel(), "AUX");
    EXPECT_EQ(param.getFlags()->getFlagCount(), 2);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.flagsOf(param), allThree);
    param.resetFromParam(other.param);
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.flagsOf(param, 1), allThree);
}

TEST(KpcSampleCategories, TakesOverItself)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addRule("Sand", "AUX1 > 0");
    categories.param.resetFromParam(categories.param);
    EXPECT_EQ(categories.param.getVariablesCount(), 1);
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"Sand"}));
}

TEST(KpcSampleCategories, ShowsTheNamesOfTheVariablesInReadableRules)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addVariable("Cu");
    categories.addRule("Rich", "AUX1 > 0 and AUX2 < AUX1");
    categories.addRule("Rest", "");
    EXPECT_EQ(categories.param.getReadableRules(), QStringList({"Rich : Au > 0 and Cu < Au", "Rest : "}));
    categories.param.setAuxLabel("aux");
    EXPECT_EQ(categories.param.getReadableRules(), QStringList({"Rich : AUX1 > 0 and AUX2 < AUX1", "Rest : "}));
}

TEST(KpcSampleCategories, FindsTheFirstAuxiliaryNameInTheTenth)
{
    Categories categories;
    for (int i = 0; i < 10; ++i)
        categories.addVariable(i == 0 ? "Au" : "Cu");
    categories.addRule("Rich", "AUX10 > 0");
    EXPECT_EQ(categories.param.getReadableRules(), QStringList({"Rich : Au0 > 0"}));
}

TEST(KpcSampleCategories, ReadableRulesDoNotGrowWithoutEnd)
{
    Categories categories;
    for (int i = 1; i <= 40; ++i)
        categories.addVariable(QStringLiteral("AUX%1 ").arg(i + 1).repeated(10));
    categories.addRule("Rich", "AUX1");
    const QStringList rules = categories.param.getReadableRules();
    ASSERT_EQ(rules.size(), 1);
    EXPECT_LT(rules[0].size(), 2000000);
}

TEST(KpcSampleCategories, TestsThatThereAreRulesFirst)
{
    Categories categories;
    EXPECT_EQ(categories.messages(true), QStringList({"No rule defined"}));
}

TEST(KpcSampleCategories, TestsThatThereAreVariablesBeforeItLooksAtRules)
{
    Categories categories;
    categories.addRule("", "AUX1 >");
    EXPECT_EQ(categories.messages(false), QStringList({"No input variable selected"}));
}

TEST(KpcSampleCategories, FindsNothingWrongWithGoodRules)
{
    Categories categories;
    for (const char* name : {"Au", "Cu", "No", "Kg", "Ore", "Name", "Rock"})
        categories.addVariable(QString::fromLatin1(name));
    categories.addRule("Numbers", "AUX1 + AUX2 + AUX3 + AUX4 + AUX5 > 1 / AUX1");
    categories.addRule("Texts", "AUX6 == 'a1' or AUX7 < 'Sand'");
    EXPECT_EQ(categories.messages(true), QStringList());
}

TEST(KpcSampleCategories, TellsOfRulesWithoutANameOrACondition)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addRule("empty", "");
    EXPECT_EQ(categories.messages(true), QStringList({"Warning: Rule 1 is empty"}));
    categories.addRule("  ", "AUX1 >");
    EXPECT_EQ(categories.messages(false), QStringList({"Warning: Rule 1 is empty", "Error: No name for rule 2"}));
}

TEST(KpcSampleCategories, TellsWhatIsWrongWithEachCondition)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addVariable("Name");
    categories.addRule("syntax", "AUX1 >");
    categories.addRule("good", "AUX1 > 0");
    categories.addRule("unknown", "AUX3 == 1");
    categories.addRule("type", "AUX2 < 1");
    EXPECT_EQ(categories.messages(false),
              QStringList({"<pre>Error in rule 1:\ninvalid syntax\nAUX1 &gt;\n      ^",
                           "<pre>Error in rule 3:\nname 'AUX3' is not defined\nAUX3 == 1\n^",
                           "<pre>Error in rule 4:\n'&lt;' not supported between instances of 'str' and 'float'\n"
                           "AUX2 &lt; 1\n^"}));
}

TEST(KpcSampleCategories, TranslatesWhatItTells)
{
    Categories categories;
    {
        const BracketTranslator translator;
        EXPECT_EQ(categories.messages(true), QStringList({"[No rule defined]"}));
    }
    categories.addRule("", "");
    const BracketTranslator translator;
    EXPECT_EQ(categories.messages(false), QStringList({"[No input variable selected]"}));
    categories.addVariable("Au");
    categories.addRule("b", "");
    categories.addRule("c", "x");
    EXPECT_EQ(categories.messages(false), QStringList({"[Error: No name for rule 1]", "[Warning: Rule 2 is empty]",
                                                       "[<pre>Error in rule 3:\nname 'x' is not defined\nx\n^]"}));
}

TEST(KpcSampleCategories, SkipsVariablesThatDoNotExist)
{
    Categories categories;
    categories.addVariable("Gone");
    categories.addVariable("Au");
    categories.addRule("good", "AUX2 > 0");
    EXPECT_EQ(categories.messages(true), QStringList());
    categories.addRule("bad", "AUX1 > 0");
    EXPECT_EQ(categories.messages(false),
              QStringList({"<pre>Error in rule 2:\nname 'AUX1' is not defined\nAUX1 &gt; 0\n^"}));
}

TEST(KpcSampleCategories, StopsAtWhatIsNoVariable)
{
    Categories categories;
    categories.param.setDataFilter(KsoDataFilter());
    categories.param.setRelative(false);
    categories.addVariable("Au");
    categories.param.addVariable(categories.project.support());
    ASSERT_EQ(categories.param.getVariable(1), categories.project.support());
    categories.addRule("", "AUX1 >");
    const BracketTranslator translator;
    EXPECT_EQ(categories.messages(false), QStringList({"Invalid AUX2 variable"}));
}

TEST(KpcSampleCategories, EvaluatesMacroVariablesByTheirType)
{
    Categories categories;
    MbdVariableDetails texts;
    texts.setType(MbdEVarType::STRING);
    MbdVariableDetails numbers;
    numbers.setType(MbdEVarType::FLOAT);
    for (const auto& [name, details] : {std::pair("texts", texts), std::pair("numbers", numbers)}) {
        const KsoADataItem* item =
            categories.project.model->createMacroVariable(categories.project.assays, name, details, 3);
        KsoDataFilter filter = categories.param.getVariableListParameter()->getFilter();
        filter.setMacroVariableAccepted(true);
        categories.param.setDataFilter(filter);
        categories.param.addVariable(item->getIdentifier());
    }
    categories.addRule("good", "AUX1 == 'a' and AUX1 < 'b' or AUX2 < 1");
    EXPECT_EQ(categories.messages(true), QStringList());
    categories.addRule("bad", "AUX1 < 1");
    EXPECT_EQ(categories.messages(false).size(), 1);
}

TEST(KpcSampleCategories, NamesVariablesByTheAuxiliaryLabel)
{
    Categories categories;
    categories.param.setAuxLabel("VAR");
    categories.addVariable("Au");
    categories.addRule("good", "var1 > 0");
    EXPECT_EQ(categories.messages(true), QStringList());
}

TEST(KpcSampleCategories, ShowsItselfInLines)
{
    Categories categories;
    categories.param.setLabel("Rock types");
    EXPECT_EQ(categories.param.toString(), "Rock types");
    categories.addVariable("Au");
    categories.addVariable("Cu");
    EXPECT_EQ(categories.param.toString(), "Rock types\n"
                                           "Number of input variables: 2\n"
                                           " Variable 1 : Au\n"
                                           " Variable 2 : Cu");
    categories.addRule("%2", "AUX1 > %1");
    EXPECT_EQ(categories.param.toString(), "Rock types\n"
                                           "Number of input variables: 2\n"
                                           " Variable 1 : Au\n"
                                           " Variable 2 : Cu\n"
                                           "Number of combined rules: 1\n"
                                           " Rule 1 : %2 : AUX1 > %1");
}

TEST(KpcSampleCategories, TranslatesTheNumberOfVariablesAlone)
{
    Categories categories;
    categories.param.setLabel("Rock types");
    categories.addVariable("Au");
    categories.addRule("Sand", "AUX1 > 0");
    const BracketTranslator translator;
    EXPECT_EQ(categories.param.toString(), "Rock types\n"
                                           "[Number of input variables: 1]\n"
                                           " Variable 1 : Au\n"
                                           "Number of combined rules: 1\n"
                                           " Rule 1 : Sand : AUX1 > 0");
}

TEST(KpcSampleCategories, ACopyHasTheFourMembersAndChildrenOfItsOwn)
{
    Categories categories;
    categories.addVariable("Au");
    categories.addRule("Category 3", "AUX1 > 0");
    categories.param.setAuxLabel("VAR");
    categories.param.setColorEnabled(false);
    categories.param.setIndiceGenerationAvailable(true);
    const std::unique_ptr<KpcSampleCategories> copy(categories.param.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getAuxLabel(), "VAR");
    EXPECT_FALSE(copy->isColorEnabled());
    EXPECT_TRUE(copy->isIndiceGenerationAvailable());
    EXPECT_EQ(copy->toString(), categories.param.toString());
    copy->addRule(Qt::red, "Category 8", "var1 > 0");
    EXPECT_EQ(copy->getRuleCond(1), "VAR1 > 0");
    EXPECT_EQ(categories.param.getRulesCount(), 1);
    EXPECT_EQ(categories.nextName(), "Category 4");
    copy->getRulesListParameter()->addItem();
    EXPECT_EQ(copy->getRuleName(2), "Category 9");
}

TEST(KpcSampleCategories, ACopyKeepsThePrefix)
{
    Categories categories;
    categories.param.setCategoryPrefix("Rock");
    const std::unique_ptr<KpcSampleCategories> copy(categories.param.duplicate("COPY"));
    copy->addRule(Qt::red, "Rock 6", "");
    copy->getRulesListParameter()->addItem();
    EXPECT_EQ(copy->getRuleName(1), "Rock 7");
}

TEST(KpcSampleCategories, StoresVariablesAndRules)
{
    Categories categories;
    categories.addVariable("Au");
    categories.param.addRule(QColor(1, 2, 3), "Sand", "AUX1 > 0");
    const QString stored = SerializerTest::writtenParam(categories.param);
    EXPECT_FALSE(stored.contains("FLAGS"));
    KpcSampleCategories reread("CATEGORIES", categories.project);
    reread.setRootIdent(categories.project.support(), true);
    SerializerTest::read(reread, stored);
    EXPECT_EQ(reread.toString(), categories.param.toString());
    EXPECT_EQ(reread.getRuleColor(0), QColor(1, 2, 3));
    EXPECT_EQ(reread.getFlags()->getCheckedKeys(), QStringList({"Au"}));
    EXPECT_EQ(SerializerTest::writtenParam(reread), stored);
}

TEST(KpcSampleCategories, StoresNoColorsThatAreNotEnabled)
{
    Categories categories;
    categories.addRule("Sand", "AUX1 > 0");
    categories.param.setColorEnabled(false);
    EXPECT_FALSE(SerializerTest::writtenParam(categories.param).contains("COLOR"));
}

TEST(KpcSampleCategories, ReadsManyRulesInReasonableTime)
{
    Categories categories;
    categories.addVariable("Au");
    KsoSampleCategories record;
    for (int i = 0; i < 3000; ++i)
        record.addRule(MbcCategoryRule(QStringLiteral("Category %1").arg(i), "aux1 > 0", MbbColor(0xff050607)));
    categories.param.resetFromSampleCategories(record);
    EXPECT_EQ(categories.param.getRuleCond(2999), "AUX1 > 0");
    EXPECT_EQ(categories.nextName(), "Category 3000");
    KpcSampleCategories reread("CATEGORIES", categories.project);
    SerializerTest::read(reread, SerializerTest::writtenParam(categories.param));
    EXPECT_EQ(reread.getRulesCount(), 3000);
}

TEST(KpcSampleCategories, SurvivesAnObserverThatDestroysIt)
{
    for (int step = 0; step < 4; ++step) {
        const SampledProject project;
        auto param = std::make_unique<KpcSampleCategories>("CATEGORIES", project);
        param->addRule(Qt::red, "a", "");
        ActingObserver observer(*param, [&param] { param.reset(); });
        KsoSampleCategories record;
        record.addRule(MbcCategoryRule("b", "", MbbColor(0xff050607)));
        switch (step) {
        case 0:
            param->removeLastRule();
            break;
        case 1:
            param->addRule(Qt::red, "b", "aux1");
            break;
        case 2:
            param->resetFromSampleCategories(record);
            break;
        default:
            param->addVariable(project.variable("Au"));
        }
        EXPECT_EQ(param, nullptr) << step;
    }
}

TEST(KpcSampleCategoriesRule, TakesOverAnother)
{
    Categories categories;
    categories.param.addRule(QColor(1, 2, 3), "Sand", "AUX1 > 0");
    categories.param.addRule(QColor(4, 5, 6), "Clay", "AUX1 < 0");
    const RecordingObserver observer(*categories.param.getRuleParameter(1));
    categories.param.getRuleParameter(1)->resetFromParam(categories.param.getRuleParameter(0));
    EXPECT_EQ(categories.param.getRuleNames(), QStringList({"Sand", "Sand"}));
    EXPECT_EQ(categories.param.getRuleCond(1), "AUX1 > 0");
    EXPECT_EQ(categories.param.getRuleColor(1), QColor(1, 2, 3));
    EXPECT_EQ(observer.records.size(), 1);
    categories.param.getRuleParameter(1)->resetFromParam(nullptr);
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpcSampleCategoriesRule, TakesOverTheColorThenTheNameThenTheCondition)
{
    Categories categories;
    categories.param.addRule(QColor(1, 2, 3), "Sand", "AUX1 > 0");
    categories.param.addRule(QColor(4, 5, 6), "Clay", "AUX1 < 0");
    QStringList order;
    const ActingObserver cond(*categories.cond(1), [&] { order.append("COND"); });
    const ActingObserver name(*categories.name(1), [&] { order.append("NAME"); });
    const ActingObserver color(*categories.color(1), [&] { order.append("COLOR"); });
    categories.param.getRuleParameter(1)->resetFromParam(categories.param.getRuleParameter(0));
    EXPECT_EQ(order, QStringList({"COLOR", "NAME", "COND"}));
}

TEST(KpcSampleCategoriesRule, ShowsItsNameAndCondition)
{
    Categories categories;
    categories.addRule("Sand", "AUX1 > 0");
    EXPECT_EQ(categories.param.getRuleParameter(0)->toString(), "Sand : AUX1 > 0");
}

TEST(KpcSampleCategoriesRule, ACopyHasItsValuesAndIsSetUpTheSame)
{
    Categories categories;
    categories.param.addRule(QColor(1, 2, 3, 4), "Sand", "AUX1 > 0");
    const KpcSampleCategoriesRule& rule = *categories.param.getRuleParameter(0);
    const std::unique_ptr<KpcSampleCategoriesRule> copy(rule.duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(std::unique_ptr<KpcSampleCategoriesRule>(rule.duplicate(""))->getKey(), rule.getKey());
    EXPECT_EQ(copy->toString(), "Sand : AUX1 > 0");
    EXPECT_EQ(dynamic_cast<KpaColor*>(copy->getChild("COLOR"))->getValue(), QColor(1, 2, 3, 4));
    auto* cond = dynamic_cast<KpaString*>(copy->getChild("COND"));
    cond->setValue("  aux1 ");
    EXPECT_EQ(cond->getValue(), "aux1");
    EXPECT_FALSE(cond->isClearEnabled());
    EXPECT_EQ(rule.toString(), "Sand : AUX1 > 0");
}
