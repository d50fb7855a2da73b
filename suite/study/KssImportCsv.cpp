#include <basic/MbeError.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssCsvColumn.h>
#include <study/KssImportCsv.h>
#include <study/KssProject.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSet>
#include <QtGui/QColor>

#include <algorithm>

namespace {

using Mistakes = QList<KssImportCsv::Mistake>;
using Columns = std::vector<KssCsvColumn>;

[[noreturn]] void fail(const QString& name, const QString& what)
{
    throw MbeUserError(QStringLiteral("'%1' cannot be imported: %2").arg(name, what));
}

QString describe(const KssImportCsv::Mistake& mistake)
{
    QStringList parts;
    if (mistake.line > 0)
        parts.append(QStringLiteral("line %1").arg(mistake.line));
    if (mistake.column > 0)
        parts.append(QStringLiteral("column %1").arg(mistake.column));
    return parts.isEmpty() ? mistake.text
                           : QStringLiteral("%1: %2").arg(parts.join(QStringLiteral(", ")), mistake.text);
}

[[noreturn]] void fail(const QString& name, const Mistakes& mistakes)
{
    QStringList lines{QStringLiteral("there are mistakes in it.")};
    const int shown = std::min(mistakes.size(), KssImportCsv::MaxReportedMistakes);
    for (int i = 0; i < shown; ++i)
        lines.append(describe(mistakes.at(i)));
    if (shown < mistakes.size())
        lines.append(QStringLiteral("... and %1 more").arg(mistakes.size() - shown));
    fail(name, lines.join(QLatin1Char('\n')));
}

/// A colour that differs clearly from those of its neighbours.
MbbColor colorOf(int index)
{
    return MbbColor(QColor::fromHsv(index * 137 % 360, 170, 220).rgba());
}

bool hasAll(const MbdEnumCatalog& catalog, const QStringList& labels)
{
    QStringList names;
    catalog.getNamesList(names, false);
    const QSet<QString> all(names.begin(), names.end());
    return std::all_of(labels.begin(), labels.end(), [&](const QString& label) { return all.contains(label); });
}

MbdEnumCatalog catalogOf(const QStringList& labels)
{
    MbdEnumCatalog catalog;
    for (int i = 0; i < labels.size(); ++i)
        catalog.setCategory(i + 1, labels.at(i), colorOf(i));
    return catalog;
}

QString freeName(const KsmModelEnumCatalog& model, const QString& name)
{
    QString free = name;
    for (int i = 2; model.findItem(free); ++i)
        free = QStringLiteral("%1 %2").arg(name).arg(i);
    return free;
}

/// The catalogs that an import makes; those that are not kept are removed at the end.
class NewCatalogs
{
public:
    explicit NewCatalogs(KsmModelEnumCatalog* model) : _model(model) {}
    NewCatalogs(const NewCatalogs&) = delete;
    NewCatalogs& operator=(const NewCatalogs&) = delete;

    /// A catalog for the column, made unless there is one.
    const KsoEnumCatalog* find(const QString& name, const QStringList& labels)
    {
        for (const auto& items : {_model->getUserItems(), _model->getBuiltInItems()}) {
            for (const KsoEnumCatalog* item : items) {
                if (item->getName() == name && hasAll(item->getCatalog(), labels))
                    return item;
            }
        }
        _made.append(_model->create(freeName(*_model, name), catalogOf(labels))->getId());
        return _model->getItemFromId(_made.last());
    }
    void removeAll()
    {
        for (const int id : _made) {
            if (KsoEnumCatalog* catalog = _model->getItemFromId(id))
                _model->remove(catalog);
        }
    }

private:
    KsmModelEnumCatalog* _model;
    QList<int> _made;
};

/// The values of the categories of a column, in place of the indices of their labels.
std::vector<double> codesOf(const KssCsvColumn& column, const MbdEnumCatalog& catalog)
{
    QHash<QString, int> values;
    const auto& categories = catalog.getCategories();
    for (auto category = categories.begin(); category != categories.end(); ++category)
        values.insert(category->label, category.key());
    std::vector<double> codes = column.getValues();
    for (double& code : codes) {
        if (code != MbbGlobal::D_FFFF)
            code = values.value(column.getLabels().at(int(code)));
    }
    return codes;
}

bool isCoordinate(const QString& name, const KssCsvColumn& column)
{
    static const QStringList axes{QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};
    return column.getType().isNumeric() && axes.contains(name, Qt::CaseInsensitive);
}

MbgEDimension dimensionOf(const QStringList& names, const Columns& columns)
{
    for (int i = 0; i < names.size(); ++i) {
        if (names.at(i).compare(QLatin1String("Z"), Qt::CaseInsensitive) == 0 &&
            isCoordinate(names.at(i), columns[std::size_t(i)]))
            return MbgEDimension::DIM_3D;
    }
    return MbgEDimension::DIM_2D;
}

void makeVariable(KsoDataSupport* support, const QString& name, const KssCsvColumn& column, NewCatalogs& catalogs)
{
    KsmModelData* model = support->getModel();
    const MbdEVarRole role = isCoordinate(name, column) ? MbdEVarRole::COORDINATE : MbdEVarRole::NONE;
    MbdVariableDetails details;
    details.setType(column.getType());
    if (column.getType() == MbdEVarType::STRING) {
        model->createVariable(support, name, details, role, column.getTexts());
        return;
    }
    if (column.getType() != MbdEVarType::ENUM) {
        model->createVariable(support, name, details, role, column.getValues());
        return;
    }
    const KsoEnumCatalog* catalog = catalogs.find(name, column.getLabels());
    details.getEnumDetails().setCatalogId(catalog->getId());
    model->createVariable(support, name, details, role, codesOf(column, catalog->getCatalog()));
}

KsoDataFile* makeFile(KsoDataDirectory* directory, const QString& name, const KssCsvTable& table,
                      const Columns& columns, NewCatalogs& catalogs)
{
    KsmModelData* model = directory->getModel();
    const QStringList& names = table.getNames();
    KsoDataFile* file = model->createFile(directory, name, MbgEGeometrySet::POINTS, dimensionOf(names, columns));
    KsoDataSupport* support = model->createSupport(file, QStringLiteral("Samples"), table.getRowCount());
    for (int i = 0; i < names.size(); ++i)
        makeVariable(support, names.at(i), columns[std::size_t(i)], catalogs);
    return file;
}

} // namespace

KsoDataFile* KssImportCsv::importFile(const QString& filePath, KsoDataDirectory* directory)
{
    const QFileInfo info(filePath);
    QFile file(filePath);
    if (!info.isFile())
        fail(info.fileName(), QStringLiteral("there is no such file."));
    if (!file.open(QIODevice::ReadOnly))
        fail(info.fileName(), file.errorString());
    const QByteArray text = file.read(MaxFileSize + 1);
    if (file.error() != QFileDevice::NoError)
        fail(info.fileName(), file.errorString());
    return importText(text, info.completeBaseName(), directory);
}

std::vector<KssCsvColumn> KssImportCsv::_readColumns(const KssCsvTable& table)
{
    for (const QString& name : _types.keys()) {
        if (!table.getNames().contains(name))
            _mistakes.append({0, 0, QStringLiteral("There is no column of the name '%1'.").arg(name)});
    }
    Columns columns;
    for (int i = 0; i < table.getColumnCount() && _mistakes.size() < KssCsvTable::MaxMistakes; ++i) {
        const auto type = _types.constFind(table.getNames().at(i));
        columns.emplace_back(table, i, type == _types.constEnd() ? std::nullopt : std::optional(*type));
        _mistakes.append(columns.back().getMistakes());
    }
    std::stable_sort(_mistakes.begin(), _mistakes.end(),
                     [](const Mistake& a, const Mistake& b) { return a.line < b.line; });
    return columns;
}

KsoDataFile* KssImportCsv::importText(const QByteArray& text, const QString& name, KsoDataDirectory* directory)
{
    _mistakes.clear();
    if (!_project)
        throw MbeProgrammingError(QStringLiteral("A file is imported into no project."));
    if (text.size() > MaxFileSize)
        fail(name, QStringLiteral("it is larger than %1 bytes.").arg(MaxFileSize));
    const KssCsvTable table(text);
    _mistakes = table.getMistakes();
    if (!_mistakes.isEmpty())
        fail(name, _mistakes);
    const Columns columns = _readColumns(table);
    if (!_mistakes.isEmpty())
        fail(name, _mistakes);

    KsmModelData* model = _project->getModelData();
    if (!directory)
        directory = model->getRootItem();
    if (directory->getModel() != model)
        throw MbeProgrammingError(QStringLiteral("A file is imported into a directory of another project."));
    NewCatalogs catalogs(_project->getModelEnumCatalog());
    KsoDataFile* imported = nullptr;
    try {
        model->inOneStep([&] { imported = makeFile(directory, name, table, columns, catalogs); });
    }
    catch (...) { // an observer may have thrown when all was done
        if (!directory->getChildItem(KsoEDataType::FILE, name))
            catalogs.removeAll();
        throw;
    }
    return imported;
}
