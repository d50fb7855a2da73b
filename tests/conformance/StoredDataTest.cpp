#include "SampleStudy.h"
#include "Trees.h"

#include <registry/ClassRegistry.h>
#include <support/RecordedMessages.h>

#include <param/atomic/KpaData.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaGeosSet.h>
#include <param/composite/KpcCatalogCategories.h>
#include <param/composite/KpcCutoffs.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSelection.h>
#include <study/KssDoubleListRegistry.h>

#include <QtCore/QFile>
#include <QtCore/QMap>

namespace {

using Values = QMap<QString, QString>;

const SampleStudy& study()
{
    return SampleStudy::instance();
}

std::string bytesOfFile(const QString& name)
{
    QFile file(QStringLiteral(KESTRIN_SOURCE_DIR "/samples/stored/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll().toStdString();
}

void read(KpbAParameter& parameter, const QString& file)
{
    load(parameter, parsed(bytesOfFile(file)));
}

/// A parameter of the class that belongs to the study.
template <class T>
std::unique_ptr<T> make(const QString& key)
{
    return std::make_unique<T>(key, study());
}

KsoDataFilter anyVariable()
{
    return KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, MbdVarTypeFlags::ANY, 0);
}

/// The stored texts of the leaves that have one, by their places below the root.
Values valuesOf(KpbAParameter& root)
{
    Values values;
    for (const KpbAParameter* parameter : allBelow(root)) {
        if (!parameter->serialize().isEmpty())
            values[root.getRelatifPath(parameter).join("/")] = formOf(*parameter);
    }
    return values;
}

} // namespace

TEST(StoredData, OfARuleOfTheFirstVersionAreConverted)
{
    const auto rule = make<KpcSampleFilterRule>("RULE");
    rule->getVariableParameter()->setRelative(true);
    rule->setRootIdent(study().support(), true);
    read(*rule, "KpcSampleFilterRule-v1.xml");
    const Values values = valuesOf(*rule);
    const Values expected = {
        {"VARIABLE", "name=Au"},           {"INVERT_SELECTION", "no"},    {"NUM_MODE", "COMPARE"},
        {"NUM_COMPARE_OPERATOR", "EQUAL"}, {"NUM_COMPARE_VALUE", "2.5"},  {"NUM_COMPARE_TOLERANCE", "0.25"},
        {"NUM_INTERVAL_LOWER", "1"},       {"NUM_INTERVAL_UPPER", "3.5"}, {"ALPHA_MODE", "EQUAL_TO"},
        {"ALPHA_EQ_VALUE", "a1"},
    };
    for (auto each = expected.begin(); each != expected.end(); ++each)
        EXPECT_EQ(values[each.key()], each.value()) << each.key().toStdString();
}

TEST(StoredData, OfARuleThatLacksAComparisonAreNotConverted)
{
    const auto rule = make<KpcSampleFilterRule>("RULE");
    const std::string state = stateOf(*rule);
    read(*rule, "KpcSampleFilterRule-v1-partial.xml");
    EXPECT_EQ(stateOf(*rule), state);
}

TEST(StoredData, OfAFilterOfTheFirstVersionAreConverted)
{
    const auto filter = make<KpcSampleFilter>("FILTER");
    filter->setRootIdent(study().support(), true);
    read(*filter, "KpcSampleFilter-v1.xml");
    EXPECT_TRUE(filter->isActive());
    EXPECT_EQ(filter->getRulesCount(), 3);
    EXPECT_EQ(filter->getCombination(), "R1 and R2 or not R3");
}

TEST(StoredData, OfAFilterThatIsTooNewAreRefused)
{
    const auto filter = make<KpcSampleFilter>("FILTER");
    const std::string state = stateOf(*filter);
    const RecordedMessages messages;
    read(*filter, "KpcSampleFilter-too-new.xml");
    EXPECT_EQ(stateOf(*filter), state);
    EXPECT_EQ(messages.warnings, QStringList("Cannot load parameter 'FILTER' because version is too recent."));
}

TEST(StoredData, OfADamagedFilterAreReadAsFarAsTheyCanBe)
{
    const auto filter = make<KpcSampleFilter>("FILTER");
    filter->setRootIdent(study().support(), true);
    const RecordedMessages messages;
    read(*filter, "KpcSampleFilter-damaged.xml");
    EXPECT_FALSE(filter->isActive());
    ASSERT_EQ(filter->getRulesCount(), 2);
    const KpcSampleFilterRule& second = *filter->getRuleParameter(1);
    EXPECT_TRUE(second.getVariableParameter()->getValue().isNull());
    EXPECT_EQ(second.getNumModeParameter()->serialize().value("value"), "IS_DEFINED");
    EXPECT_EQ(second.getNumIntervalUpperParameter()->getValue(), 7.0);
    EXPECT_EQ(filter->getCombination(), "R1 and (R2 or");
    EXPECT_EQ(messages.warnings, QStringList("Cannot load parameter 'ITEM_1' because version is too recent."));
}

TEST(StoredData, OfCutoffsOfTheFirstVersionAreConverted)
{
    const auto cutoffs = make<KpcCutoffs>("CUTOFFS");
    read(*cutoffs, "KpcCutoffs-v1.xml");
    EXPECT_EQ(cutoffs->getValues(), QList<double>({0.5, 1e-20, 2.25}));
    EXPECT_EQ(savedBytes(*cutoffs),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<param key=\"CUTOFFS\" version=\"2\">\n"
              " <value>0.5,1e-20,2.25</value>\n</param>\n");
}

TEST(StoredData, OfNamedCutoffsComeFromTheRegistry)
{
    KssDoubleListRegistry& registry = *KssDoubleListRegistry::getInstance();
    registry.setList(KssEDoubleListType::CUTOFFS, "Grades", MbuEUnitClass::NONE, {1.0, 3.0});
    const auto cutoffs = make<KpcCutoffs>("CUTOFFS");
    read(*cutoffs, "KpcCutoffs-v2.xml");
    EXPECT_EQ(cutoffs->getIdent(), "Grades");
    EXPECT_EQ(cutoffs->getValues(), QList<double>({1.0, 3.0}));
    registry.removeList(KssEDoubleListType::CUTOFFS, "Grades");
    EXPECT_EQ(cutoffs->getValues(), QList<double>({1.0, 3.0}));
}

TEST(StoredData, OfDamagedCutoffsAreReadAsFarAsTheyCanBe)
{
    const auto cutoffs = make<KpcCutoffs>("CUTOFFS");
    cutoffs->getItemPrototype()->setUndefineEnabled(true);
    read(*cutoffs, "KpcCutoffs-damaged.xml");
    EXPECT_EQ(cutoffs->getIdent(), "");
    EXPECT_EQ(cutoffs->getValues(), QList<double>({0.5, MbbGlobal::D_FFFF, 2.25}));
}

TEST(StoredData, OfCutoffsThatAreTooNewAreRefused)
{
    const auto cutoffs = make<KpcCutoffs>("CUTOFFS");
    cutoffs->setValues({9.0});
    const RecordedMessages messages;
    read(*cutoffs, "KpcCutoffs-too-new.xml");
    EXPECT_EQ(cutoffs->getValues(), QList<double>({9.0}));
    EXPECT_EQ(messages.warnings, QStringList("Cannot load parameter 'CUTOFFS' because version is too recent."));
}

TEST(StoredData, OfItemsMayBeTheirUrl)
{
    const auto variable = make<KpaData>("VARIABLE");
    variable->setFilter(anyVariable());
    variable->setRootIdent(study().model->getRootDirectory(), true);
    read(*variable, "KpaData-url.xml");
    EXPECT_EQ(variable->getValue(), study().variable("Cu"));

    const auto set = make<KpaGeosSet>("SET");
    read(*set, "KpaGeosSet-url.xml");
    EXPECT_EQ(set->getValue().getName(), "Second");
}

TEST(StoredData, OfASelectionMayBeThoseOfItsVariable)
{
    const auto selection = make<KpcSelection>("SELECTION");
    dynamic_cast<KpaData&>(*selection->getChild("VARIABLE")).setRootIdent(study().support(), true);
    read(*selection, "KpcSelection-plain.xml");
    EXPECT_EQ(valuesOf(*selection),
              (Values{{"VARIABLE", "path= file=holes support=assays name=Ore"}, {"CATEGORIES", ""}, {"INVERT", "no"}}));
}

TEST(StoredData, OfASelectionMayBeThoseOfItsParts)
{
    const auto selection = make<KpcSelection>("SELECTION");
    dynamic_cast<KpaData&>(*selection->getChild("VARIABLE")).setRootIdent(study().support(), true);
    read(*selection, "KpcSelection-categories.xml");
    EXPECT_EQ(valuesOf(*selection), (Values{{"VARIABLE", "path= file=holes support=assays name=Rock"},
                                            {"CATEGORIES", "Sand|Marl"},
                                            {"INVERT", "yes"}}));
}

TEST(StoredData, OfADatasetAreReadRootFirst)
{
    const auto dataset = make<KpcDataset>("DATASET");
    dataset->setRootFilter(KsoDataFilter::support(MbdEIo::INPUT, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY));
    dataset->getRootParameter()->setRootIdent(study().model->getRootDirectory(), true);
    auto* variable = new KpaData("VARIABLE", study());
    variable->setFilter(anyVariable());
    dataset->addVariable(variable);
    read(*dataset, "KpcDataset-partial.xml");
    EXPECT_EQ(dataset->getRootIdent(), study().support());
    EXPECT_EQ(variable->getValue(), study().variable("Cu"));
}

TEST(StoredData, OfADamagedTableAreReadAsFarAsTheyCanBe)
{
    const auto table = make<KpcCatalogCategories>("TABLE");
    read(*table, "KpcCatalogCategories-damaged.xml");
    const Values values = valuesOf(*table);
    const Values expected = {
        {"CATEGORIES/ITEM_1/OPERATION", "ADD"},       {"CATEGORIES/ITEM_1/OPERATION_VALUE", "Sand"},
        {"CATEGORIES/ITEM_2/OPERATION", "EDIT"},      {"CATEGORIES/ITEM_2/NAME", "Ore"},
        {"CATEGORIES/ITEM_2/OPERATION_VALUE", "Ore"}, {"CATEGORIES/ITEM_3/OPERATION", "REMOVE"},
        {"CATEGORIES/ITEM_3/NAME", "Sand"},
    };
    for (auto each = expected.begin(); each != expected.end(); ++each)
        EXPECT_EQ(values[each.key()], each.value()) << each.key().toStdString();
    EXPECT_EQ(table->getStatus(true).getErrors(),
              QStringList({"Cannot create <b>Sand</b> while removing it at the same time.",
                           "A category does not have a name."}));
}
