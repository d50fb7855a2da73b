#include "DataForm.h"

#include <param/KpsSerializer.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaFlags.h>
#include <param/watcher/KpwDataRootSynchronizer.h>
#include <util/KuxXml.h>

#include <memory>

namespace {

KsoDataFilter numbers()
{
    return KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY,
                                   MbdVarTypeFlags{MbdEVarType::INTEGER, MbdEVarType::FLOAT, MbdEVarType::DOUBLE}, 0);
}

void collect(QList<DataForm::KnownRoot>& roots, const QString& where, const KpaData& data)
{
    roots.append({where, data.getRootType(), data.getRootIdent()});
}

void collect(QList<DataForm::KnownRoot>& roots, const QString& where, const KplDataList& list)
{
    collect(roots, where + QStringLiteral(" prototype"), *list.getItemPrototype());
    for (int i = 0; i < list.getItemCount(); ++i)
        collect(roots, where + QStringLiteral(" item"), *list.getItemAt(i));
}

} // namespace

DataForm::DataForm(const KstITransactable& context) : group(QStringLiteral("FORM"), context)
{
    _fillDataset(context);
    _follow(context);
    catalog = _add<KpaCatalog>("CATALOG", context);
    colorScale = _add<KpaColorScale>("COLOR_SCALE", context);
    geosSet = _add<KpaGeosSet>("GEOS_SET", context);
    neighborhood = _add<KpaNeighborhoodItem>("NEIGHBORHOOD", context);
    scene = _add<KpaScene>("SCENE", context);
    charts = _add<KpaCharts>("CHARTS", context);
    chartFolder = _add<KpaChartFolder>("CHART_FOLDER", context);
    chartView = _add<KpaChartView>("CHART_VIEW", context);
    project = _add<KpaProject>("PROJECT", context);
    projects = _add<KplProjectList>("PROJECTS", context);
    catalogTable = _add<KpcCatalogCategories>("CATALOG_TABLE", context);
    cutoffs = _add<KpcCutoffs>("CUTOFFS", context);
    // What is stored of none is read as one that is undefined.
    cutoffs->setValues({0.5});
    display = _add<KpcDisplayScene>("DISPLAY", context);
    server = _add<KpcZvxConnection>("SERVER", context);
}

template <class T>
T* DataForm::_add(const char* key, const KstITransactable& context)
{
    std::unique_ptr<T> parameter;
    if constexpr (std::is_constructible_v<T, const QString&, const KstITransactable&>)
        parameter = std::make_unique<T>(QString::fromLatin1(key), context);
    else
        parameter = std::make_unique<T>(QString::fromLatin1(key));
    group.addChild(parameter.get());
    return parameter.release();
}

void DataForm::_fillDataset(const KstITransactable& context)
{
    dataset = _add<OuterDataset>("DATA", context);
    dataset->addVariable(grade = new KpaData(QStringLiteral("GRADE"), context));
    grade->setFilter(numbers());
    dataset->addVariableList(others = new KplDataList(QStringLiteral("OTHERS"), context));
    others->setFilter(numbers());
    selection = dataset->createSelectionParameter();
    dataset->addSampleFilter(filter = new KpcSampleFilter(QStringLiteral("FILTER"), context));
    dataset->addSampleCategories(categories = new KpcSampleCategories(QStringLiteral("CATEGORIES"), context));
    dataset->_addDataset(inner = new KpcDataset(QStringLiteral("INNER"), context));
    // A relative root that is the outer one is stored as nothing, which reads as null.
    inner->getRootParameter()->setRelative(false);
    inner->addVariable(innerGrade = new KpaData(QStringLiteral("GRADE"), context));
    innerGrade->setFilter(numbers());
}

void DataForm::_follow(const KstITransactable& context)
{
    follower = _add<KpaData>("FOLLOWER", context);
    followers = _add<KplDataList>("FOLLOWERS", context);
    follower->setRootType(KsoEDataType::FILE);
    followers->setRootType(KsoEDataType::FILE);
    follower->setFilter(numbers());
    followers->setFilter(numbers());
    auto synchronizer = std::make_unique<KpwDataRootSynchronizer>();
    synchronizer->setDataset(dataset);
    synchronizer->addTargetData(follower);
    synchronizer->addTargetDataList(followers);
    group.registerWatcher(0, synchronizer.get());
    synchronizer.release();
}

QList<DataForm::KnownRoot> DataForm::knownRoots() const
{
    QList<KnownRoot> roots;
    collect(roots, QStringLiteral("GRADE"), *grade);
    collect(roots, QStringLiteral("OTHERS"), *others);
    collect(roots, QStringLiteral("SELECTION"), selectionVariable());
    collect(roots, QStringLiteral("FILTER prototype"),
            *filter->getRulesParameter()->getItemPrototype()->getVariableParameter());
    for (int i = 0; i < filter->getRulesCount(); ++i)
        collect(roots, QStringLiteral("FILTER rule"), *filter->getRuleParameter(i)->getVariableParameter());
    collect(roots, QStringLiteral("CATEGORIES"), *categories->getVariableListParameter());
    collect(roots, QStringLiteral("INNER"), *inner->getRootParameter());
    return roots;
}

KpaFlags& DataForm::selectionCategories() const
{
    return *static_cast<KpaFlags*>(selection->getChild(QStringLiteral("CATEGORIES")));
}

KpaBool& DataForm::selectionInverted() const
{
    return *static_cast<KpaBool*>(selection->getChild(QStringLiteral("INVERT")));
}

QByteArray storedForm(const KpbAParameter& parameter)
{
    QDomDocument document{QString()};
    document.appendChild(document.importNode(KpsSerializer::convertParamToXml(&parameter), true));
    return KuxXml::toText(document);
}

void readForm(KpbAParameter& parameter, const QByteArray& stored)
{
    QDomDocument document;
    KuxXml::parse(stored, &document);
    QDomElement element = document.documentElement();
    KpsSerializer::updateParamFromXml(&parameter, element);
}
