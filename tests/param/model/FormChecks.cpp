#include "FormChecks.h"

#include "PlainCounts.h"

#include <gtest/gtest.h>
#include <param/atomic/KpaFlags.h>

#include <ostream>

void expectKnownRoots(const DataForm& form)
{
    const KsoDataIdentifier root = form.dataset->getRootIdent();
    const KsoEDataType type = form.dataset->getRootParameter()->getFilter().getDataType();
    for (const DataForm::KnownRoot& known : form.knownRoots()) {
        EXPECT_EQ(known.type, type) << known.where.toStdString();
        EXPECT_EQ(known.ident, root) << known.where.toStdString();
    }
}

void expectSameCounts(const DataForm& form, const SurveyProject& project)
{
    const PlainCounts plain(form, project);
    const EngineCounts engine(form, project);
    EXPECT_EQ(engine.selected(), plain.selected());
    if (const auto kept = plain.kept()) {
        EXPECT_EQ(engine.kept(), kept);
    }
    if (const auto categorised = plain.categorised()) {
        EXPECT_EQ(engine.categorised(), categorised);
    }
}

void readAll(const KpbAParameter& parameter)
{
    parameter.toString();
    parameter.debug(0);
    for (int i = 0; i < parameter.getChildCount(); ++i)
        readAll(*parameter.getChild(i));
}

void readAll(const DataForm& form)
{
    readAll(form.group);
    form.selection->getStatus(QStringLiteral("Selection"), true);
    form.selection->getUniqueIdentifier();
    form.filter->testSampleFilter();
    bool ok = false;
    form.categories->testRules(ok);
    form.categories->getReadableRules();
    form.catalogTable->getStatus(true);
}

namespace {

bool lacksItsCatalog(const KpaData& data)
{
    const KsoAVariableItem* variable = data.getValue().getAVariableItem();
    if (!variable || variable->getStorageType() != MbdEVarType::ENUM)
        return false;
    const KssProject* project = variable->getModel()->getProject();
    return !project->getModelEnumCatalog()->getItemFromId(variable->getDetails().getEnumDetails().getCatalogId());
}

template <class T>
bool isResolved(const KpbAParameter& parameter)
{
    const auto* atomic = dynamic_cast<const T*>(&parameter);
    return !atomic || atomic->getValue().isNull() || atomic->getValue().exists();
}

} // namespace

bool isReproducible(const KpbAParameter& parameter)
{
    if (const auto* variable = dynamic_cast<const KpaData*>(&parameter); variable && lacksItsCatalog(*variable))
        return false;
    if (const auto* rule = dynamic_cast<const KpcSampleFilterRule*>(&parameter)) {
        const KsoAVariableItem* variable = rule->getVariableParameter()->getValue().getAVariableItem();
        if (!variable || !variable->getStorageType().isNumeric() || rule->getFlagsParameter()->hasCheckedFlags())
            return false;
    }
    bool reproducible = isResolved<KpaData>(parameter) && isResolved<KpaCatalog>(parameter) &&
                        isResolved<KpaColorScale>(parameter) && isResolved<KpaGeosSet>(parameter) &&
                        isResolved<KpaNeighborhoodItem>(parameter) && isResolved<KpaScene>(parameter) &&
                        isResolved<KpaCharts>(parameter) && isResolved<KpaChartFolder>(parameter) &&
                        isResolved<KpaChartView>(parameter);
    for (int i = 0; i < parameter.getChildCount(); ++i)
        reproducible = reproducible && isReproducible(*parameter.getChild(i));
    return reproducible;
}

QByteArray storedByAFreshForm(const QByteArray& stored, const KstITransactable& context)
{
    DataForm fresh(context);
    readForm(fresh.group, stored);
    return storedForm(fresh.group);
}
