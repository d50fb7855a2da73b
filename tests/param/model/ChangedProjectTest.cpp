#include "FormChecks.h"
#include "PlainCounts.h"

#include <gtest/gtest.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaDouble.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaString.h>
#include <study/KsmModelCharts.h>
#include <study/KsmModelColorScale.h>
#include <study/KsmModelGeosSet.h>
#include <study/KsmModelNeighborhood.h>
#include <study/KsmModelScene.h>
#include <study/KsoDataSubset.h>
#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>

#include <functional>
#include <vector>

// A form of all data classes is used call by call, and between two of the calls its project changes.

namespace {

struct Call
{
    const char* name;
    std::function<void(DataForm&, const SurveyProject&)> make;
};

struct Change
{
    const char* name;
    std::function<void(SurveyProject&)> make;
};

void addRule(DataForm& form, const KsoDataIdentifier& variable)
{
    KpcSampleFilterRule& rule = *form.filter->addRule();
    rule.getVariableParameter()->setValue(variable);
    rule.getNumModeParameter()->setValue(1);
    rule.getNumCompareOperatorParameter()->setValue(2);
    rule.getNumCompareValueParameter()->setValue(1.0);
    rule.getFlagsParameter()->setCheckedFlagsFromLabels({QStringLiteral("Clay")});
}

template <class Kind>
auto firstIdent(const KsmANamedModel<Kind>& model)
{
    const auto items = model.getUserItems();
    return items.isEmpty() ? typename Kind::Identifier() : items.first()->getIdentifier();
}

void chooseNamedItems(DataForm& form, const SurveyProject& context)
{
    const KssProject* project = context.getProject();
    if (!project)
        return;
    form.catalog->setValue(firstIdent(*project->getModelEnumCatalog()));
    form.colorScale->setValue(firstIdent(*project->getModelColorScale()));
    form.geosSet->setValue(firstIdent(*project->getModelGeosSet()));
    form.neighborhood->setValue(firstIdent(*project->getModelNeighborhood()));
    form.scene->setValue(firstIdent(*project->getModelScene()));
    form.display->setScene(firstIdent(*project->getModelScene()));
    KsmModelCharts* charts = project->getModelCharts();
    form.charts->setValue(firstIdent(*charts));
    form.chartFolder->setValue({charts, QStringLiteral("Plots"), QStringLiteral("Grades")});
    form.chartView->setValue({charts, QStringLiteral("Plots"), QStringLiteral("Grades"), QStringLiteral("Histogram")});
    form.project->setValue(project->getUrl());
    form.projects->setValues({project->getUrl()});
}

const std::vector<Call>& calls()
{
    using Form = DataForm;
    using Project = SurveyProject;
    static const std::vector<Call> all = {
        {"root", [](Form& f, const Project& p) { f.dataset->setRootIdent(p.ident("Site/North")); }},
        {"grade", [](Form& f, const Project& p) { f.grade->setValue(p.ident("Site/North/Cu")); }},
        {"others",
         [](Form& f, const Project& p) {
             f.others->setValues({p.ident("Site/North/Count"), p.ident("Site/North/Cu")});
         }},
        {"inner",
         [](Form& f, const Project& p) {
             f.inner->setRootIdent(p.ident("Site/North"));
             f.innerGrade->setValue(p.ident("Site/North/Cu"));
         }},
        {"followers",
         [](Form& f, const Project& p) {
             f.follower->setValue(p.ident("Site/North/Cu"));
             f.followers->setValues({p.ident("Site/North/Cu")});
         }},
        {"selection", [](Form& f, const Project& p) { f.selectionVariable().setValue(p.ident("Site/North/Rock")); }},
        {"categories of the selection",
         [](Form& f, const Project&) {
             f.selectionCategories().setCheckedFlagsFromLabels({"Clay", "Undefined"});
         }},
        {"inversion", [](Form& f, const Project&) { f.selectionInverted().setValue(true); }},
        {"automatic selection",
         [](Form& f, const Project&) { f.selection->setAutoValue(f.selection->getSelection()); }},
        {"rule on a number", [](Form& f, const Project& p) { addRule(f, p.ident("Site/North/Cu")); }},
        {"rule on a category", [](Form& f, const Project& p) { addRule(f, p.ident("Site/North/Rock")); }},
        {"filter", [](Form& f, const Project&) { f.filter->getIsActiveParameter()->setValue(true); }},
        {"variables of the categories",
         [](Form& f, const Project& p) {
             f.categories->addVariable(p.ident("Site/North/Cu"));
             f.categories->addVariable(p.ident("Site/North/Rock"));
         }},
        {"rules of the categories",
         [](Form& f, const Project&) {
             for (const QString& condition : PlainCounts::conditions())
                 f.categories->addRule(QColor(1, 2, 3), QStringLiteral("Class"), condition);
         }},
        {"catalog table",
         [](Form& f, const Project& p) { f.catalogTable->resetCategoriesFromCatalog(p.catalog("Rock")); }},
        {"named items", chooseNamedItems},
        {"other root", [](Form& f, const Project& p) { f.dataset->setRootIdent(p.ident("Site/South")); }},
        {"copy",
         [](Form& f, const Project&) {
             const std::unique_ptr<KpcGroup> copy(f.group.duplicate(QString()));
             readForm(*copy, storedForm(f.group));
         }},
        {"reading", [](Form& f, const Project&) { readForm(f.group, storedForm(f.group)); }},
    };
    return all;
}

void removeCatalogs(SurveyProject& project)
{
    for (KsoEnumCatalog* catalog : project.catalogs().getUserItems())
        project.catalogs().remove(catalog);
}

template <class Kind>
void renameAll(KsmANamedModel<Kind>& model)
{
    for (auto* item : model.getUserItems())
        model.rename(item, item->getName() + QStringLiteral(" 2"));
}

template <class Kind>
void removeAll(KsmANamedModel<Kind>& model)
{
    for (auto* item : model.getUserItems())
        model.remove(item);
}

void replaceByAnother(SurveyProject& project, const QString& path)
{
    KsoADataItem* item = project.item(path);
    auto* support = static_cast<KsoDataSupport*>(item->getParentItem());
    const QString name = item->getName();
    project.data().remove(item);
    project.data().createVariable(support, name, MbdVariableDetails());
}

const std::vector<Change>& changes()
{
    using Project = SurveyProject;
    static const std::vector<Change> all = {
        {"directory renamed", [](Project& p) { p.data().rename(p.item("Site"), "Place"); }},
        {"file renamed", [](Project& p) { p.data().rename(p.item("Site/North"), "North 2"); }},
        {"file moved", [](Project& p) { p.data().move(p.item("Site/North"), p.item("Archive")); }},
        {"variables renamed",
         [](Project& p) {
             p.data().rename(p.item("Site/North/Cu"), "Copper");
             p.data().rename(p.item("Site/North/Rock"), "Lithology");
         }},
        {"variables exchanged",
         [](Project& p) {
             KsoADataItem* copper = p.item("Site/North/Cu");
             KsoADataItem* count = p.item("Site/North/Count");
             p.data().inOneStep([&] {
                 p.data().rename(copper, "Aside");
                 p.data().rename(count, "Cu");
                 p.data().rename(copper, "Count");
             });
         }},
        {"variable removed", [](Project& p) { p.data().remove(p.item("Site/North/Cu")); }},
        {"category variable replaced by one of numbers", [](Project& p) { replaceByAnother(p, "Site/North/Rock"); }},
        {"file removed", [](Project& p) { p.data().remove(p.item("Site/North")); }},
        {"everything removed", [](Project& p) { p.data().remove(p.item("Site")); }},
        {"second support",
         [](Project& p) { p.data().createSupport(static_cast<KsoDataFile*>(p.item("Site/North")), "Second", 3); }},
        {"values",
         [](Project& p) {
             p.data().writeValues(p.variable("Site/North/Cu"), std::vector<double>(12, 1.25));
             p.data().writeValues(p.variable("Site/North/Rock"), std::vector<double>(12, 2.0));
         }},
        {"category renamed", [](Project& p) { p.catalogs().setCategoryLabel(p.catalog("Rock"), 1, "Marl"); }},
        {"category removed", [](Project& p) { p.catalogs().removeCategory(p.catalog("Rock"), 1); }},
        {"category added",
         [](Project& p) {
             p.catalogs().addCategory(p.catalog("Rock"), {9, "Undefined", MbbColor(0xFF000000)});
         }},
        {"catalog renamed", [](Project& p) { p.catalogs().rename(p.catalog("Rock"), "Lithology"); }},
        {"catalogs removed", removeCatalogs},
        {"named items renamed",
         [](Project& p) {
             renameAll(*p.getProject()->getModelColorScale());
             renameAll(*p.getProject()->getModelGeosSet());
             renameAll(*p.getProject()->getModelNeighborhood());
             renameAll(*p.getProject()->getModelScene());
             renameAll(*p.getProject()->getModelCharts());
         }},
        {"named items removed",
         [](Project& p) {
             removeAll(*p.getProject()->getModelColorScale());
             removeAll(*p.getProject()->getModelGeosSet());
             removeAll(*p.getProject()->getModelNeighborhood());
             removeAll(*p.getProject()->getModelScene());
             removeAll(*p.getProject()->getModelCharts());
         }},
        {"models read again", [](Project& p) { p.catalogs().reload(); }},
        {"project closed", [](Project& p) { p.close(); }},
    };
    return all;
}

void check(const DataForm& form, const SurveyProject& project)
{
    readAll(form);
    if (!project.getProject())
        return;
    expectKnownRoots(form);
    expectSameCounts(form, project);
}

class ChangedProject : public testing::TestWithParam<std::size_t>
{
protected:
    /// Makes the change before the call of that number, and looks at the form then and after each further call.
    static void callAll(DataForm& form, SurveyProject& project, const Change& change, std::size_t before)
    {
        for (std::size_t i = 0; i < before; ++i)
            calls()[i].make(form, project);
        change.make(project);
        check(form, project);
        for (std::size_t i = before; i < calls().size(); ++i) {
            SCOPED_TRACE(calls()[i].name);
            calls()[i].make(form, project);
            check(form, project);
        }
    }

    RecordedMessages messages;
};

} // namespace

TEST_P(ChangedProject, LeavesTheFormWholeBetweenAnyTwoCalls)
{
    const Change& change = changes()[GetParam()];
    for (std::size_t before = 0; before <= calls().size(); ++before) {
        SCOPED_TRACE(testing::Message() << change.name << " before call " << before);
        SurveyProject project;
        auto form = std::make_unique<DataForm>(project);
        callAll(*form, project, change, before);
        // Form and project end in either order.
        if (before % 2 == 0)
            form.reset();
    }
    EXPECT_TRUE(messages.errors.isEmpty()) << messages.errors.join("\n").toStdString();
}

INSTANTIATE_TEST_SUITE_P(Changes, ChangedProject, testing::Range(std::size_t(0), changes().size()),
                         [](const auto& info) {
                             QString name = QString::fromLatin1(changes()[info.param].name);
                             return name.replace(QLatin1Char(' '), QLatin1Char('_')).toStdString();
                         });
