#include "RandomEdits.h"

#include "PlainCounts.h"

#include <basic/MbeError.h>
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
#include <study/KsoSampleCategories.h>
#include <study/KsoSampleFilter.h>

namespace {

const QStringList fileNames = {QStringLiteral("North"), QStringLiteral("South"), QStringLiteral("East")};
const QStringList numberNames = {QStringLiteral("Cu"), QStringLiteral("Count"), QStringLiteral("X")};
const QStringList variableNames = {QStringLiteral("Cu"),   QStringLiteral("Count"),     QStringLiteral("Fresh"),
                                   QStringLiteral("Rock"), QStringLiteral("Geologist"), QStringLiteral("X")};
const QStringList rocks = {QStringLiteral("Clay"), QStringLiteral("Sand"), QStringLiteral("Granite"),
                           QStringLiteral("Marl")};
const QStringList itemNames = {QStringLiteral("Rock"), QStringLiteral("Copper"), QStringLiteral("Fit"),
                               QStringLiteral("Near"), QStringLiteral("Pit"),    QStringLiteral("Plots")};

void collect(QList<KsoADataItem*>& found, KsoADataItem* item, const KsoEDataType& type)
{
    if (item->getType() == type)
        found.append(item);
    for (KsoADataItem* child : item->getChildItems())
        collect(found, child, type);
}

} // namespace

RandomEdits::RandomEdits(DataForm& form, SurveyProject& project, unsigned seed)
    : _form(form),
      _project(project),
      _random(seed),
      _stored(storedForm(form.group))
{
    _addDatasetEdits();
    _addSelectionEdits();
    _addFilterEdits();
    _addCategoriesEdits();
    _addItemEdits();
    _edits = &_projectEdits;
    _addTreeEdits();
    _addValueEdits();
    _addCatalogEdits();
    _addNamedItemEdits();
}

const char* RandomEdits::makeNext()
{
    // A project that changed at every other edit would hardly let a form have anything to count.
    const std::vector<Edit>& edits = _number(5) == 0 ? _projectEdits : _formEdits;
    const Edit& edit = edits.at(std::size_t(_number(int(edits.size()))));
    try {
        edit.make();
    }
    catch (const MbeUserError&) { // the project has refused it
    }
    return edit.name;
}

QList<KsoADataItem*> RandomEdits::_items(const KsoEDataType& type) const
{
    QList<KsoADataItem*> found;
    collect(found, _project.data().getRootItem(), type);
    return found;
}

KsoDataIdentifier RandomEdits::_oneIdent(const KsoEDataType& type)
{
    const KsoADataItem* item = _number(20) == 0 ? nullptr : _oneItem(type);
    return item ? item->getIdentifier() : KsoDataIdentifier();
}

KsoDataIdentifier RandomEdits::_oneVariable()
{
    const KsoDataSupport* support = _form.dataset->getSupport();
    if (!support || support->getChildItems().isEmpty() || _number(8) == 0)
        return _oneIdent(KsoEDataType::VARIABLE);
    return _oneItem(support->getChildItems())->getIdentifier();
}

void RandomEdits::_addDatasetEdits()
{
    _add("root", [this] { _form.dataset->setRootIdent(_oneIdent(KsoEDataType::FILE)); });
    _add("root to a support", [this] {
        _form.dataset->setRootFilter(
            KsoDataFilter::support(MbdEIo::INPUT, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY));
        _form.dataset->setRootIdent(_oneIdent(KsoEDataType::SUPPORT));
    });
    _add("root to a file", [this] {
        _form.dataset->setRootFilter(
            KsoDataFilter::file(MbdEIo::INPUT, MbgGeometrySetFlags::ANY, MbgDimensionFlags::ANY));
        _form.dataset->setRootIdent(_oneIdent(KsoEDataType::FILE));
    });
    _add("root again", [this] {
        if (!_form.dataset->getSupport())
            _form.dataset->setRootIdent(_oneIdent(_form.dataset->getRootParameter()->getFilter().getDataType()));
    });
    _add("grade", [this] { _form.grade->setValue(_oneVariable()); });
    _add("others", [this] {
        _form.others->setItemCount(_number(4));
        if (KpaData* last = _form.others->getLastItem())
            last->setValue(_oneVariable());
    });
    _add("inner", [this] {
        _form.inner->setRootIdent(_form.dataset->getRootIdent());
        _form.innerGrade->setValue(_oneVariable());
    });
    _add("followers", [this] {
        _form.follower->setValue(_oneVariable());
        _form.followers->setValues({_oneVariable()});
    });
    _add("batch", [this] {
        KuoLock<KpnModif> lock(&_form.group);
        _form.dataset->setRootIdent(_oneIdent(KsoEDataType::FILE));
        _form.grade->setValue(_oneVariable());
        lock.commit();
    });
}

void RandomEdits::_addSelectionEdits()
{
    _add("selection", [this] {
        const KsoDataSupport* support = _form.dataset->getSupport();
        const KsoADataItem* item =
            support ? support->getChildItem(KsoEDataType::VARIABLE, _oneOf({"Rock", "Fresh"})) : nullptr;
        _form.selectionVariable().setValue(item ? item->getIdentifier() : _oneVariable());
    });
    _add("selected category", [this] {
        const QList<int> values = _form.selectionCategories().getFlagValues();
        if (!values.isEmpty())
            _form.selectionCategories().setFlagFromValue(values.at(_number(values.size())), _coin());
    });
    _add("inversion", [this] { _form.selectionInverted().setValue(_coin()); });
    _add("selection again", [this] { _form.selection->setSelection(_form.selection->getSelection()); });
}

KpcSampleFilterRule* RandomEdits::_oneRule()
{
    const int count = _form.filter->getRulesCount();
    return count == 0 ? nullptr : _form.filter->getRuleParameter(_number(count));
}

void RandomEdits::_editRule(KpcSampleFilterRule& rule)
{
    rule.getNumModeParameter()->setValue(_number(3));
    rule.getNumCompareOperatorParameter()->setValue(_number(6));
    if (_coin())
        rule.getNumCompareValueParameter()->setValue(_number(8) * 0.5);
    if (_coin())
        rule.getNumCompareToleranceParameter()->setValue(_number(3) * 0.5);
    rule.getNumIntervalLowerOperatorParameter()->setValue(_number(2));
    rule.getNumIntervalUpperOperatorParameter()->setValue(_number(2));
    if (_coin())
        rule.getNumIntervalLowerParameter()->setValue(_number(10) * 0.5);
    if (_coin())
        rule.getNumIntervalUpperParameter()->setValue(_number(10) * 0.5);
    rule.getAlphaModeParameter()->setValue(_number(3));
    rule.getAlphaContainsValueParameter()->setValue(_oneOf({"", "a", "en"}));
    rule.getAlphaEQValueParameter()->setValue(_oneOf({"Ana", "Ben"}));
    rule.getAlphaNEQValueParameter()->setValue(_oneOf({"Ana", ""}));
    rule.getFlagsParameter()->setCheckedFlagsFromLabels({_oneOf(rocks), _oneOf(rocks)});
    rule.getInvertSelectionParameter()->setValue(_coin());
}

void RandomEdits::_addFilterEdits()
{
    _add("new rule", [this] {
        if (_form.filter->getRulesCount() < 4)
            _form.filter->addRule()->getVariableParameter()->setValue(_oneVariable());
    });
    _add("rule removed", [this] {
        if (const int count = _form.filter->getRulesCount())
            _form.filter->removeRule(_number(count));
    });
    _add("variable of a rule", [this] {
        if (KpcSampleFilterRule* rule = _oneRule())
            rule->getVariableParameter()->setValue(_oneVariable());
    });
    _add("numbers of a rule", [this] {
        if (KpcSampleFilterRule* rule = _oneRule())
            _editRule(*rule);
    });
    _add("combination", [this] {
        QStringList texts = PlainCounts::combinations();
        texts.append({QString(), QStringLiteral("R1 and"), QStringLiteral("R9")});
        _form.filter->getCombinationParameter()->setValue(_oneOf(texts));
    });
    _add("automatic combination", [this] { _form.filter->getCombinationParameter()->setAutomatic(true); });
    _add("filter switched", [this] { _form.filter->getIsActiveParameter()->setValue(_number(4) != 0); });
    _add("filter from its record", [this] {
        const std::unique_ptr<KsoSampleFilter> record(_form.filter->createSampleFilter());
        if (record)
            _form.filter->resetFromSampleFilter(*record);
    });
}

void RandomEdits::_addCategoriesEdits()
{
    KpcSampleCategories& categories = *_form.categories;
    _add("variables of the categories", [this, &categories] {
        categories.clearVariables();
        const KsoDataSupport* support = _form.dataset->getSupport();
        for (const QString& name : {_oneOf(numberNames), QStringLiteral("Rock")}) {
            const KsoADataItem* item = support ? support->getChildItem(KsoEDataType::VARIABLE, name) : nullptr;
            categories.addVariable(item ? item->getIdentifier() : KsoDataIdentifier());
        }
    });
    _add("new category", [this, &categories] {
        if (categories.getRulesCount() < 5)
            categories.addRule(QColor(1, 2, 3), QStringLiteral("Class %1").arg(_number(9)),
                               _oneOf(PlainCounts::conditions()));
    });
    _add("category removed", [this, &categories] {
        if (const int count = categories.getRulesCount())
            categories.removeRule(_number(count));
    });
    _add("category moved", [this, &categories] {
        if (const int count = categories.getRulesCount(); count > 1)
            categories.moveRuleUp(1 + _number(count - 1));
    });
    _add("categories from their record", [&categories] {
        const std::unique_ptr<KsoSampleCategories> record(categories.createSampleCategories());
        categories.resetFromSampleCategories(*record);
    });
}

void RandomEdits::_editCatalogRow()
{
    auto& rows = *static_cast<KpcList<KpcCatalogCategory>*>(_form.catalogTable->getChild(QStringLiteral("CATEGORIES")));
    if (rows.getItemCount() == 0)
        return;
    KpcCatalogCategory& row = *rows.getItemAt(_number(rows.getItemCount()));
    static_cast<KpaEnum*>(row.getChild(QStringLiteral("OPERATION")))->setValue(_number(3));
    static_cast<KpaString*>(row.getChild(QStringLiteral("OPERATION_VALUE")))->setValue(_oneOf(rocks + QStringList{""}));
}

void RandomEdits::_addItemEdits()
{
    KssProject& project = *_project.getProject();
    const auto name = [this] { return _oneOf(itemNames); };
    _add("named items", [this, name, &project] {
        _form.catalog->setValue({project.getModelEnumCatalog(), name()});
        _form.colorScale->setValue({project.getModelColorScale(), name()});
        _form.geosSet->setValue({project.getModelGeosSet(), name()});
        _form.neighborhood->setValue({project.getModelNeighborhood(), name()});
        _form.scene->setValue({project.getModelScene(), name()});
        _form.display->setScene({project.getModelScene(), name()});
    });
    _add("charts", [this, name, &project] {
        KsmModelCharts* model = project.getModelCharts();
        _form.charts->setValue({model, name()});
        _form.chartFolder->setRootIdent({model, QStringLiteral("Plots")});
        _form.chartFolder->setValue({model, QStringLiteral("Plots"), QStringLiteral("Grades")});
        _form.chartView->setValue(
            {model, QStringLiteral("Plots"), QStringLiteral("Grades"), QStringLiteral("Histogram")});
    });
    _add("catalog table",
         [this] { _form.catalogTable->resetCategoriesFromCatalog(_project.catalog(QStringLiteral("Rock"))); });
    _add("row of the catalog table", [this] { _editCatalogRow(); });
    _add("new row of the catalog table", [this] { _form.catalogTable->addNewCategory(_oneOf(rocks)); });
    _add("cutoffs", [this] { _form.cutoffs->setValues({0.5 * _number(4), 0.5 * _number(4)}); });
    _add("stored", [this] { _stored = storedForm(_form.group); });
    _add("read again", [this] { readForm(_form.group, _stored); });
    _add("copied", [this] {
        const std::unique_ptr<KpcGroup> copy(_form.group.duplicate(QString()));
        readForm(*copy, _stored);
    });
}

void RandomEdits::_addTreeEdits()
{
    KsmModelData& data = _project.data();
    _add("file renamed", [this, &data] { data.rename(_oneItem(KsoEDataType::FILE), _oneOf(fileNames)); });
    _add("support renamed", [this, &data] {
        data.rename(_oneItem(KsoEDataType::SUPPORT), _oneOf({"Samples", "Points"}));
    });
    _add("variable renamed", [this, &data] {
        KsoADataItem* item = _oneItem(KsoEDataType::VARIABLE);
        // Only within one type, so that a name keeps its meaning.
        if (item && numberNames.contains(item->getName()))
            data.rename(item, _oneOf(numberNames));
    });
    _add("variable renamed aside and back", [this, &data] {
        if (KsoADataItem* item = _oneItem(KsoEDataType::VARIABLE)) {
            const QString name = item->getName();
            data.rename(item, QStringLiteral("Aside"));
            data.rename(item, name);
        }
    });
    _add("file moved", [this, &data] {
        data.move(_oneItem(KsoEDataType::FILE), _project.item(_oneOf({"Site", "Archive"})));
    });
    _add("variable moved", [this, &data] {
        KsoADataItem* item = _oneItem(KsoEDataType::VARIABLE);
        KsoADataItem* support = _oneItem(KsoEDataType::SUPPORT);
        if (item && support)
            data.move(item, support);
    });
    _add("variable removed", [this, &data] {
        if (KsoADataItem* item = _oneItem(KsoEDataType::VARIABLE))
            data.remove(item);
    });
    _add("variables made", [this] {
        auto* support = static_cast<KsoDataSupport*>(_oneItem(KsoEDataType::SUPPORT));
        for (const QString& name : variableNames) {
            if (!support->getChildItem(KsoEDataType::VARIABLE, name))
                _createVariable(*support, name);
        }
    });
    _add("file replaced", [this, &data] {
        KsoADataItem* file = _oneItem(KsoEDataType::FILE);
        auto* directory = static_cast<KsoDataDirectory*>(file->getParentItem());
        const QString name = file->getName();
        data.remove(file);
        KsoDataFile* made = data.createFile(directory, name, MbgEGeometrySet::POINTS, MbgEDimension::DIM_2D);
        KsoDataSupport* support = data.createSupport(made, QStringLiteral("Samples"), 5 + _number(3));
        for (const QString& name : variableNames)
            _createVariable(*support, name);
    });
    _add("two supports, then one", [this, &data] {
        auto* file = static_cast<KsoDataFile*>(_oneItem(KsoEDataType::FILE));
        data.remove(data.createSupport(file, QStringLiteral("Second"), 2));
    });
    _add("file in one step", [this, &data] {
        data.inOneStep([this, &data] {
            data.rename(_oneItem(KsoEDataType::FILE), _oneOf(fileNames));
            if (KsoADataItem* item = _oneItem(KsoEDataType::VARIABLE))
                data.remove(item);
        });
    });
}

void RandomEdits::_createVariable(KsoDataSupport& support, const QString& name)
{
    MbdVariableDetails details;
    details.setType(name == QLatin1String("Cu")          ? MbdEVarType::FLOAT
                    : name == QLatin1String("Count")     ? MbdEVarType::INTEGER
                    : name == QLatin1String("Fresh")     ? MbdEVarType::BOOLEAN
                    : name == QLatin1String("Rock")      ? MbdEVarType::ENUM
                    : name == QLatin1String("Geologist") ? MbdEVarType::STRING
                                                         : MbdEVarType::DOUBLE);
    if (const KsoEnumCatalog* catalog = _project.catalog(QStringLiteral("Rock")))
        details.getEnumDetails().setCatalogId(catalog->getId());
    _writeValues(*_project.data().createVariable(&support, name, details));
}

void RandomEdits::_writeValues(KsoAVariableItem& variable)
{
    const int count = variable.getSupport()->getSampleCount();
    if (variable.getStorageType() == MbdEVarType::STRING) {
        QStringList texts;
        for (int i = 0; i < count; ++i)
            texts.append(_oneOf({"Ana", "Ben", "Cid", ""}));
        _project.data().writeTexts(&variable, texts);
        return;
    }
    const bool isBoolean = variable.getStorageType() == MbdEVarType::BOOLEAN;
    std::vector<double> values;
    for (int i = 0; i < count; ++i)
        values.push_back(_number(6) == 0 ? MbbGlobal::D_FFFF : _number(isBoolean ? 2 : 6));
    _project.data().writeValues(&variable, values);
}

void RandomEdits::_addValueEdits()
{
    _add("values", [this] {
        if (KsoADataItem* item = _oneItem(KsoEDataType::VARIABLE))
            _writeValues(*static_cast<KsoAVariableItem*>(item));
    });
    _add("details", [this] {
        KsoADataItem* item = _oneItem(KsoEDataType::VARIABLE);
        if (!item)
            return;
        auto* variable = static_cast<KsoAVariableItem*>(item);
        MbdVariableDetails details = variable->getDetails();
        details.setUnitClass(_coin() ? MbuEUnitClass::LENGTH : MbuEUnitClass::NONE);
        _project.data().setDetails(variable, details);
    });
}

void RandomEdits::_addCatalogEdits()
{
    KsmModelEnumCatalog& catalogs = _project.catalogs();
    const auto one = [this, &catalogs] { return _oneItem(catalogs.getUserItems()); };
    _add("category renamed", [this, one, &catalogs] {
        if (KsoEnumCatalog* catalog = one())
            catalogs.setCategoryLabel(catalog, short(_number(4)), _oneOf(rocks));
    });
    _add("category of a catalog made", [this, one, &catalogs] {
        if (KsoEnumCatalog* catalog = one())
            catalogs.addCategory(catalog, {short(_number(6)), _oneOf(rocks), MbbColor(0xFF102030)});
    });
    _add("category of a catalog removed", [this, one, &catalogs] {
        if (KsoEnumCatalog* catalog = one())
            catalogs.removeCategory(catalog, short(_number(6)));
    });
    _add("catalog renamed", [this, one, &catalogs] {
        if (KsoEnumCatalog* catalog = one())
            catalogs.rename(catalog, _oneOf({"Rock", "Lithology"}));
    });
    _add("catalog removed", [this, one, &catalogs] {
        KsoEnumCatalog* catalog = one();
        if (catalog && _number(4) == 0)
            catalogs.remove(catalog);
    });
    _add("catalog made", [this, &catalogs] {
        MbdEnumCatalog content;
        content.setCategory(1, QStringLiteral("Clay"), MbbColor(0xFF0000FF));
        content.setCategory(3, QStringLiteral("Sand"), MbbColor(0xFF00FF00));
        catalogs.create(_oneOf({"Rock", "Lithology"}), content);
    });
}

void RandomEdits::_addNamedItemEdits()
{
    KssProject& project = *_project.getProject();
    const auto edit = [this](auto& model) {
        auto* item = _oneItem(model.getUserItems());
        if (!item || _number(3) == 0)
            model.create(_oneOf(itemNames));
        else if (_coin())
            model.rename(item, _oneOf(itemNames));
        else
            model.remove(item);
    };
    _add("geos sets", [edit, &project] { edit(*project.getModelGeosSet()); });
    _add("neighborhoods", [edit, &project] { edit(*project.getModelNeighborhood()); });
    _add("scenes", [edit, &project] { edit(*project.getModelScene()); });
    _add("charts files", [edit, &project] { edit(*project.getModelCharts()); });
    _add("color scales", [this, &project] {
        project.getModelColorScale()->create(_oneOf(itemNames), {QColor(0, 0, 0), QColor(255, 255, 255)});
    });
    _add("folders and views", [this, &project] {
        KsmModelCharts& model = *project.getModelCharts();
        KsoCharts* charts = _oneItem(model.getUserItems());
        if (!charts)
            return;
        if (_coin())
            model.renameFolder(charts, _oneOf({"Grades", "Maps"}), _oneOf({"Grades", "Maps"}));
        else
            model.addFolder(charts, QStringLiteral("Grades"));
        model.addView(charts, QStringLiteral("Grades"), QStringLiteral("Histogram"));
    });
}
