#include <demo/DataSession.h>

#include <demo/DemoLookup.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFlags.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcCatalogCategories.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSelection.h>
#include <param/list/KplDataList.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KsoDataSubset.h>
#include <study/KsoSampleFilter.h>
#include <tree/ParameterTable.h>

// The steps in which the project changes under the form.

namespace {

KsoEnumCatalog* rocksOf(const KssProject& project)
{
    return static_cast<KsoEnumCatalog*>(project.getModelEnumCatalog()->findItem(QStringLiteral("ROCK")));
}

bool givesFilter(const KpcSampleFilter& filter)
{
    return std::unique_ptr<KsoSampleFilter>(filter.createSampleFilter()) != nullptr;
}

} // namespace

void DataSession::_changeItems()
{
    const auto& grade = lookUp<KpaData>(*_form, "DATA/GRADE");
    const auto& filter = lookUp<KpcSampleFilter>(*_form, "DATA/FILTER");
    KsoADataItem* copper = _item("drillholes/CU");
    _expectRecords("The copper is renamed; who has chosen it is told, and still names it as before:",
                   [&] { _model().rename(copper, "COPPER"); },
                   {"DATA/GRADE items", "DATA/FILTER/RULES/ITEM_1/VARIABLE items",
                    "DATA/CATEGORIES/FLAGS value, config; DATA/CATEGORIES/VARIABLES/ITEM_1 items"});
    _report.expect("GRADE", grade.getValue().getName(), "CU");
    _report.expect("there is no such variable now", !grade.getValue().exists());
    _report.expect("told of the filter", filter.testSampleFilter().join("; "),
                   "Variable 'CU' for R1 rule does not exist");
    _report.expect("there is no filter to be made", !givesFilter(filter));

    _expectRecords("Its name comes back, and with it the choice:", [&] { _model().rename(copper, "CU"); },
                   {"DATA/GRADE items",
                    "DATA/FILTER/RULES/ITEM_1/NUM_COMPARE_TOLERANCE config; "
                    "DATA/FILTER/RULES/ITEM_1/NUM_COMPARE_VALUE config; "
                    "DATA/FILTER/RULES/ITEM_1/NUM_INTERVAL_LOWER config; "
                    "DATA/FILTER/RULES/ITEM_1/NUM_INTERVAL_UPPER config; "
                    "DATA/FILTER/RULES/ITEM_1/VARIABLE items",
                    "DATA/CATEGORIES/FLAGS value, config; DATA/CATEGORIES/VARIABLES/ITEM_1 items"});
    _report.expect("there is such a variable again", grade.getValue().exists());
    _expectKept("kept samples", 18);

    _expectRecords("The file is renamed: so it is with all that lies in it:",
                   [&] { _model().rename(_item("drillholes"), "campaign 1"); },
                   {"DATA/ROOT items", "REPORT/COLUMN items", "DATA/GRADE items",
                    "DATA/SELECTION/CATEGORIES value, config; DATA/SELECTION/INVERT config; "
                    "DATA/SELECTION/VARIABLE items",
                    "DATA/OTHERS/ITEM_1 items", "DATA/FILTER/RULES/ITEM_1/VARIABLE items",
                    "DATA/FILTER/RULES/ITEM_2/VARIABLE items", "DATA/FILTER/RULES/ITEM_3/VARIABLE items",
                    "DATA/CATEGORIES/FLAGS value, config; DATA/CATEGORIES/VARIABLES/ITEM_1 items",
                    "DATA/CATEGORIES/VARIABLES/ITEM_2 items"});
    _report.expect("GRADE has no item", !grade.getDataItem());
    _report.startPart("With its name the choices are back; the selection, which had no variable, begins anew:");
    _model().rename(_item("campaign 1"), "drillholes");
    _report.expect("GRADE has an item", grade.getDataItem() != nullptr);
    _expectSelected("selected samples, with all categories", 39);
    lookUp<KpaFlags>(*_form, "DATA/SELECTION/CATEGORIES").setCheckedFlagsFromLabels({"Skarn", "Diorite"});

    std::vector<double> values;
    auto* rock = static_cast<KsoAVariableItem*>(_item("drillholes/ROCK"));
    _model().readValues(rock, values);
    const std::vector<double> measured = values;
    values[0] = 4.0; // Skarn in place of Andesite
    _expectRecords("One sample turns out to be skarn:", [&] { _model().writeValues(rock, values); },
                   {"DATA/SELECTION/VARIABLE items", "DATA/FILTER/RULES/ITEM_2/VARIABLE items",
                    "DATA/CATEGORIES/VARIABLES/ITEM_2 items"});
    _expectSelected("selected samples", 14);
    _model().writeValues(rock, measured);
    _expectSelected("selected samples, with the former values", 13);
}

void DataSession::_removeVariable()
{
    auto& filter = lookUp<KpcSampleFilter>(*_form, "DATA/FILTER");
    auto& others = lookUp<KplDataList>(*_form, "DATA/OTHERS");
    _expectRecords(
        "The gold is removed, which the list and a rule have chosen:", [&] { _model().remove(_item("drillholes/AU")); },
        {"DATA/OTHERS/ITEM_1 items", "DATA/FILTER/RULES/ITEM_3/VARIABLE items"});
    _report.expect("the list still names", others.getValueAt(0).getName(), "AU");
    _report.expect("told of the filter", filter.testSampleFilter().join(QStringLiteral("; ")),
                   "Variable 'AU' for R3 rule does not exist");

    _report.startPart("The list drops what does not exist, and the filter the rule, with a combination of the others:");
    others.compressEmptyItems();
    _report.expect("items of the list", QString::number(others.getItemCount()), "0");
    filter.removeRule(2);
    _report.expect("told of the filter", filter.testSampleFilter().join(QStringLiteral("; ")),
                   "Invalid filter combination");
    filter.getCombinationParameter()->setAutomatic(true);
    _expectKept(filter.getCombination(), 5);
}

void DataSession::_changeCatalog()
{
    KsmModelEnumCatalog& catalogs = *_openedProject().getModelEnumCatalog();
    KsoEnumCatalog* rocks = rocksOf(_openedProject());
    auto& categories = lookUp<KpaFlags>(*_form, "DATA/SELECTION/CATEGORIES");
    _expectRecords("Skarn gets another name, under which it stays checked:",
                   [&] { catalogs.setCategoryLabel(rocks, 4, "Exoskarn"); }, {"DATA/SELECTION/CATEGORIES config"});
    _report.expect("checked", categories.getCheckedLabels().join(QStringLiteral(", ")), "Diorite, Exoskarn");
    _expectSelected("selected samples", 13);
    _report.startPart("A rule keeps the categories that were there when its variable was chosen:");
    _expectKept("kept samples, with a rule that asks for Skarn", 0);

    _expectRecords("A category is added, and offered:",
                   [&] {
                       catalogs.addCategory(rocks, {5, QStringLiteral("Breccia"), MbbColor(0xFF804000)});
                   },
                   {"DATA/SELECTION/CATEGORIES config"});
    _report.expect("offered", categories.getFlagLabels().join(QStringLiteral(", ")),
                   "Undefined, Andesite, Diorite, Limestone, Exoskarn, Breccia");

    _expectRecords("One that is removed cannot be checked any more:", [&] { catalogs.removeCategory(rocks, 2); },
                   {"DATA/SELECTION/CATEGORIES value, config"});
    _report.expect("checked", categories.getCheckedLabels().join(QStringLiteral(", ")), "Exoskarn");
    _expectSelected("selected samples", 6);
}

void DataSession::_editCatalogTable()
{
    auto& table = lookUp<KpcCatalogCategories>(*_form, "ROCKS");
    auto& rows = lookUp<KpcList<KpcCatalogCategory>>(table, "CATEGORIES");
    const auto target = [&](int row) -> KpaString& {
        return lookUp<KpaString>(*rows.getItemAt(row), "OPERATION_VALUE");
    };
    const auto problems = [&] { return table.getStatus(true).getErrors().join(QStringLiteral("; ")); };

    table.resetCategoriesFromCatalog(rocksOf(_openedProject()));
    _report.show(treeText(table) + QLatin1Char('\n'));
    _report.expect("problems", problems(), "");
    _report.startPart("Andesite becomes Volcanics, and what becomes Andesite below it follows:");
    target(0).setValue("Volcanics");
    target(1).setValue("Andesite");
    _report.expect("the name that Limestone gets", target(1).getValue(), "Volcanics");
    _report.expect("problems", problems(), "Category name <b>Volcanics</b> must be unique.");

    _report.startPart("An emptied name becomes the old one again:");
    target(1).setValue("");
    _report.expect("the name that Limestone gets", target(1).getValue(), "Limestone");
    _report.startPart("A category cannot be removed and made at the same time:");
    lookUp<KpaEnum>(*rows.getItemAt(2), "OPERATION").setItemFromKey("REMOVE");
    table.addNewCategory("Exoskarn");
    _report.expect("problems", problems(), "Cannot create <b>Exoskarn</b> while removing it at the same time.");

    _report.startPart("Without a catalog, the table describes one to be made from nothing:");
    table.resetCategoriesFromCatalog(nullptr);
    QStringList made;
    for (int i = 0; i < rows.getItemCount(); ++i)
        made.append(rows.getItemAt(i)->getOperation().getKey() + QLatin1Char(' ') + target(i).getValue());
    _report.expect("rows", made.join(QStringLiteral(", ")), "ADD Volcanics, ADD Limestone, ADD Breccia, ADD Exoskarn");
}

void DataSession::_closeProject()
{
    auto& data = lookUp<KpcDataset>(*_form, "DATA");
    const auto& grade = lookUp<KpaData>(data, "GRADE");
    _openedProject();
    _expectRecords("The project is closed, of which a form need not be told:",
                   [this] {
                       _project = nullptr;
                       _store.close();
                   },
                   {});
    _report.expect("GRADE still names", grade.getValue().getName(), "CU");
    _report.expect("it has no item", !grade.getDataItem());
    _expectText("DATA", "Demonstration/drillholes");
    _report.expect("there is no filter to be made", !givesFilter(lookUp<KpcSampleFilter>(data, "FILTER")));
    _report.expect("nothing is selected", !lookUp<KpcSelection>(data, "SELECTION").getSelection().isDefined());
    _report.startPart("Other changes are made as ever:");
    lookUp<KpaString>(*_form, "NAME").setValue("Study 2");
    _expectStored("NAME", "Study 2");
    data.setRootIdent(KsoDataIdentifier());
    _report.expect("there is no data file any more", data.getRootIdent().isNull());
}
