#include <demo/DataSession.h>

#include <basic/MbeError.h>
#include <cli/Failure.h>
#include <demo/DemoLookup.h>
#include <param/atomic/KpaData.h>
#include <param/composite/KpcCutoffs.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSelection.h>
#include <param/list/KplDataList.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssImportCsv.h>
#include <tree/ParameterTable.h>
#include <tree/RecordListener.h>

#include <vector>

// The steps up to the change of the root.

namespace {

const QString formKey = QStringLiteral("SURVEY");
const QString directoryName = QStringLiteral("Demonstration");
const QString rockCatalog = QStringLiteral("ROCK");

// What a later campaign has brought: one more hole.
const char* const infill = "HOLE;X;Y;Z;CU;AU;BOXES;MINERALISED;ROCK;REMARK\n"
                           "DH-09;418290.10;6239920.40;1310.2;0.088;0.05;2;false;Andesite;\n"
                           "DH-09;418290.10;6239920.40;1300.2;0.342;0.21;2;true;Diorite;\n"
                           "DH-09;418290.10;6239920.40;1290.2;0.187;0.12;3;false;Limestone;\n"
                           "DH-09;418290.10;6239920.40;1280.2;1.105;0.48;2;true;Skarn;\n";

QString variablesOf(const KsoDataSupport& support)
{
    QStringList texts;
    for (const KsoADataItem* item : support.getChildItems()) {
        const auto* variable = dynamic_cast<const KsoAVariableItem*>(item);
        if (variable)
            texts.append(variable->getName() + QLatin1Char(' ') + variable->getStorageType().getKey());
    }
    return texts.join(QStringLiteral(", "));
}

QString categoriesOf(const KssProject& project, const QString& catalog)
{
    const auto* item = static_cast<KsoEnumCatalog*>(project.getModelEnumCatalog()->findItem(catalog));
    QStringList names;
    if (item)
        item->getCatalog().getNamesList(names, false);
    return names.join(QStringLiteral(", "));
}

QString nameOfRoot(const KsoDataIdentifier& root)
{
    return root.isNull() ? QStringLiteral("no file") : root.getName();
}

/// The names of the roots that the children of the dataset know, each once.
QString knownRoots(const KpcDataset& data)
{
    const KsoDataIdentifier roots[] = {
        lookUp<KpaData>(data, "GRADE").getRootIdent(),
        lookUp<KplDataList>(data, "OTHERS").getRootIdent(),
        lookUp<KpaData>(data, "SELECTION/VARIABLE").getRootIdent(),
        lookUp<KpcSampleFilter>(data, "FILTER")
            .getRulesParameter()
            ->getItemPrototype()
            ->getVariableParameter()
            ->getRootIdent(),
        lookUp<KplDataList>(data, "CATEGORIES/VARIABLES").getRootIdent(),
    };
    QStringList names;
    for (const KsoDataIdentifier& root : roots)
        names.append(nameOfRoot(root));
    names.removeDuplicates();
    return names.join(QStringLiteral(", "));
}

/// Writes down what reaches the observers of the children of a dataset, in the order in which they hear it, and what
/// roots the children know at that time.
class ChildListeners
{
public:
    explicit ChildListeners(const KpcDataset& data)
    {
        for (int i = 0; i < data.getChildCount(); ++i) {
            const KpbAParameter& child = *data.getChild(i);
            _listeners.push_back(std::make_unique<RecordListener>(child, [this, &data, &child](const auto& entries) {
                _heard.append(QStringLiteral("%1: %2 [%3]").arg(child.getKey(), recordText(entries), knownRoots(data)));
            }));
        }
    }
    const QStringList& getHeard() const { return _heard; }

private:
    std::vector<std::unique_ptr<RecordListener>> _listeners;
    QStringList _heard;
};

void expectLines(DemoReport& report, const QString& what, const QStringList& got, const QStringList& expected)
{
    for (int i = 0; i < std::max(got.size(), expected.size()); ++i)
        report.expect(what, got.value(i, "nothing"), expected.value(i, "nothing"));
}

} // namespace

DataSession::DataSession(const QString& storeFile, DemoReport& report) : _report(report), _store(storeFile) {}

DataSession::~DataSession() = default;

void DataSession::run()
{
    _report.runStep("import", "Import a data file into the project", [this] { _import(); });
    _report.runStep("survey", "Build a third form: which samples of a survey are studied", [this] { _build(); });
    _report.runStep("root", "Change the data file: all that depends on it learns of it before anybody is told",
                    [this] { _changeRoot(); });
    _report.runStep("select", "Select samples by category", [this] { _select(); });
    _report.runStep("filter", "Filter samples by rules", [this] { _filter(); });
    _report.runStep("categorise", "Categorise samples by conditions in Python", [this] { _categorise(); });
    _report.runStep("keep", "Save, close the project, and open both again", [this] { _keep(); });
    _report.runStep("project", "Change the project under the form: items renamed, moved, measured anew",
                    [this] { _changeItems(); });
    _report.runStep("removal", "Remove what the form has chosen", [this] { _removeVariable(); });
    _report.runStep("catalog", "Change a catalog: its categories change in the form", [this] { _changeCatalog(); });
    _report.runStep("rocks", "Edit a catalog in a table: what is to be done to it", [this] { _editCatalogTable(); });
    _report.runStep("close", "Close the project under the form: it keeps what it says", [this] { _closeProject(); });
}

KssProject& DataSession::_openedProject() const
{
    if (!_project)
        throw Failure(ExitCode::Internal, QStringLiteral("The project is not open."));
    return *_project;
}

KsmModelData& DataSession::_model() const
{
    return *_openedProject().getModelData();
}

KsoADataItem* DataSession::_item(const QString& path) const
{
    KsoADataItem* item = _model().getRootItem();
    const QStringList names = (directoryName + QLatin1Char('/') + path).split(QLatin1Char('/'));
    for (const QString& name : names) {
        // The only support of a file goes without saying.
        if (item->getType() == KsoEDataType::FILE && item->hasUniqueChild())
            item = item->getChildItems().first();
        const QList<KsoADataItem*>& children = item->getChildItems();
        const auto found = std::find_if(children.begin(), children.end(),
                                        [&](const KsoADataItem* child) { return child->getName() == name; });
        if (found == children.end())
            throw Failure(ExitCode::Internal, QStringLiteral("The project has no item %1 as expected.").arg(path));
        item = *found;
    }
    return item;
}

KsoDataIdentifier DataSession::_ident(const QString& path) const
{
    return _item(path)->getIdentifier();
}

void DataSession::_expectStored(const QString& path, const QString& expected)
{
    _report.expect(path, storedText(*_form, path), expected);
}

void DataSession::_expectText(const QString& path, const QString& expected)
{
    _report.expect(path, lookUp(*_form, path).toString(), expected);
}

void DataSession::_clearEarlierSurvey()
{
    if (KsoADataItem* directory = _model().getRootItem()->getChildItem(KsoEDataType::DIRECTORY, directoryName))
        _model().remove(directory);
    KsmModelEnumCatalog& catalogs = *_openedProject().getModelEnumCatalog();
    for (KsoEnumCatalog* catalog : catalogs.getUserItems())
        catalogs.remove(catalog);
}

void DataSession::_import()
{
    _project = _store.open();
    _clearEarlierSurvey();
    KsoDataDirectory* directory = _model().createDirectory(_model().getRootItem(), directoryName);
    KssImportCsv import(_project);
    const KsoDataFile* file = import.importFile(QStringLiteral(":/samples/drillholes.csv"), directory);
    _report.expect("file", file->getName(), "drillholes");
    _report.expect("samples", QString::number(file->getUniqueSupport()->getSampleCount()), "40");
    _report.expect("variables, with the types that their cells fit", variablesOf(*file->getUniqueSupport()),
                   "HOLE ENUM, X DOUBLE, Y DOUBLE, Z DOUBLE, CU DOUBLE, AU DOUBLE, BOXES INTEGER, MINERALISED BOOLEAN, "
                   "ROCK ENUM, REMARK STRING");
    _report.expect("categories of ROCK", categoriesOf(*_project, rockCatalog), "Andesite, Diorite, Limestone, Skarn");

    // A few samples tell less of the types than many.
    import.setType("HOLE", MbdEVarType::STRING);
    import.setType("ROCK", MbdEVarType::ENUM);
    import.setType("REMARK", MbdEVarType::STRING);
    const KsoDataFile* later = import.importText(infill, "infill", directory);
    _report.startPart("A later campaign has its rocks in the same catalog:");
    _report.expect("samples", QString::number(later->getUniqueSupport()->getSampleCount()), "4");
    _report.expect("catalogs", QString::number(_project->getModelEnumCatalog()->getUserItems().size()), "2");
    _expectBrokenFileIsRefused();
}

void DataSession::_expectBrokenFileIsRefused()
{
    _report.startPart("A file with mistakes is told of line by line, and nothing of it is imported:");
    KsoADataItem* directory = _model().getRootItem()->getChildItem(KsoEDataType::DIRECTORY, directoryName);
    KssImportCsv import(_project);
    QStringList told;
    try {
        import.importFile(QStringLiteral(":/samples/broken.csv"), static_cast<KsoDataDirectory*>(directory));
    }
    catch (const MbeUserError& error) {
        told = error.getMessage().split(QLatin1Char('\n')).mid(1);
    }
    expectLines(_report, "told", told,
                {"line 1, column 5: The name 'CU' is that of column 4, too.",
                 "line 3, column 6: The line has 5 cells instead of 6.",
                 "line 4, column 6: There is text after the closing quote.",
                 "line 5, column 7: The line has 7 cells instead of 6.", "line 6, column 6: The quote is not closed."});
    _report.expect("files", QString::number(directory->getChildItems().size()), "2");
}

void DataSession::_build()
{
    _form = std::make_unique<DemoSurvey>(formKey, _store.getContext());
    _report.show(treeText(*_form) + QLatin1Char('\n'));
    auto& grade = lookUp<KpaData>(*_form, "DATA/GRADE");
    grade.setValue(_ident("drillholes/CU"));
    _report.expect("without a data file there is no variable to choose", grade.getValue().isNull());

    _expectRecords(
        "The data file is chosen:", [this] { lookUp<KpaData>(*_form, "DATA/ROOT").setValue(_ident("drillholes")); },
        {"DATA/CATEGORIES/VARIABLES config; DATA/FILTER/RULES config; DATA/GRADE config; "
         "DATA/OTHERS config; DATA/ROOT value; DATA/SELECTION/VARIABLE config",
         "REPORT/COLUMN config"});
    _expectRecords("The grade is to be a number, so text is refused, and copper taken:",
                   [&] {
                       grade.setValue(_ident("drillholes/REMARK"));
                       grade.setValue(_ident("drillholes/CU"));
                   },
                   {"DATA/GRADE value", "DATA/GRADE value"});
    lookUp<KplDataList>(*_form, "DATA/OTHERS").setValues({_ident("drillholes/AU")});
    lookUp<KpaData>(*_form, "REPORT/COLUMN").setValue(_ident("drillholes/HOLE"));
    lookUp<KpcCutoffs>(*_form, "CUTOFFS").setValues({0.2, 0.5, 1.0});
    _expectText("DATA", "Demonstration/drillholes");
    _expectStored("DATA/ROOT", "path=Demonstration file=drillholes");
    _expectStored("DATA/GRADE", "CU");
    _expectStored("CUTOFFS", "0.2,0.5,1");
    _expectStored("REPORT/COLUMN", "HOLE");
}

void DataSession::_changeRoot()
{
    auto& data = lookUp<KpcDataset>(*_form, "DATA");
    const auto change = [&](const QString& file, const QStringList& expected) {
        const ChildListeners listeners(data);
        data.setRootIdent(_ident(file));
        expectLines(_report, "heard", listeners.getHeard(), expected);
    };
    _report.startPart(
        "What the observers of the children hear, in order, and in brackets where the children look then:");
    change("infill", {"GRADE: . value, config [infill]", "OTHERS: . config; ITEM_1 value, config [infill]",
                      "SELECTION: VARIABLE config [infill]", "FILTER: RULES config [infill]",
                      "CATEGORIES: VARIABLES config [infill]", "ROOT: . value [infill]"});
    _report.startPart("The choices are now those of the same names in the other file:");
    _expectText("DATA/GRADE", "Samples/CU");
    _report.expect("GRADE lies in", lookUp<KpaData>(data, "GRADE").getValue().getFileName(), "infill");
    _report.expect("COLUMN, which a watcher keeps in the data file, lies in",
                   lookUp<KpaData>(*_form, "REPORT/COLUMN").getValue().getFileName(), "infill");

    _report.startPart("Setting the same file again tells nobody:");
    change("infill", {});
    _report.expect("the children look at", knownRoots(data), "infill");
    _report.startPart("Back again:");
    data.setRootIdent(_ident("drillholes"));
    _report.expect("the children look at", knownRoots(data), "drillholes");
}
