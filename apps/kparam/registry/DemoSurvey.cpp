#include <registry/DemoSurvey.h>

#include <QtCore/QObject>

#include <param/atomic/KpaData.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcCatalogCategories.h>
#include <param/composite/KpcCutoffs.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/list/KplDataList.h>
#include <param/watcher/KpwDataRootSynchronizer.h>

namespace {

/// A new parameter that only a dataset can take: one of its variables, or a list of them.
template <class T>
std::unique_ptr<T> make(const char* key, const QString& label, const KstITransactable& transactable)
{
    auto parameter = std::make_unique<T>(QString::fromLatin1(key), transactable);
    parameter->setLabel(label);
    return parameter;
}

KsoDataFilter numbers()
{
    return KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY,
                                   {MbdEVarType::BYTE, MbdEVarType::INTEGER, MbdEVarType::FLOAT, MbdEVarType::DOUBLE},
                                   KsoDataFilter::Strict);
}

void describeCutoffs(KpcCutoffs& cutoffs)
{
    cutoffs.setItemLabel(QObject::tr("Cutoff"));
    cutoffs.setValues({0.1, 0.3, 0.5});
}

void describeColumn(KpaData& column)
{
    column.setRootType(KsoEDataType::FILE);
    column.setFilter(
        KsoDataFilter::variable(MbdEIo::INPUT, MbdVarRoleFlags::ANY, MbdVarTypeFlags::ANY, KsoDataFilter::Strict));
    column.setRelative(true);
}

} // namespace

DemoSurvey::DemoSurvey(const QString& key, const KstITransactable& transactable)
    : KpcFiche(key, QStringLiteral("DemoSurvey"), transactable)
{
    setLabel(QObject::tr("Samples of a survey"));
    _declare({*this, KpcChildren::Create});
    _fillData();
    _keepColumnInFile();
}

DemoSurvey::DemoSurvey(const DemoSurvey& other, const QString& newKey) : KpcFiche(other, newKey)
{
    _declare({*this, KpcChildren::Rebind});
}

DemoSurvey::~DemoSurvey() = default;

DemoSurvey* DemoSurvey::duplicate(const QString& newKey) const
{
    return new DemoSurvey(*this, newKey);
}

QList<KpbAParameter*> DemoSurvey::getKeyParameters() const
{
    return {_name};
}

void DemoSurvey::_declare(KpcChildren c)
{
    // clang-format off
    c.add(_name,    "NAME",    QObject::tr("Name of the study"    )).value(QStringLiteral("Study 1"));
    c.add(_data,    "DATA",    QObject::tr("Data"                 ), _getTransactable());
    c.add(_cutoffs, "CUTOFFS", QObject::tr("Cutoffs of the grade" ), _getTransactable())
        .with(describeCutoffs);
    c.add(_report,  "REPORT",  QObject::tr("Report"               ), _getTransactable());
    c.in(*_report).add(_column, "COLUMN", QObject::tr("Column of names"), _getTransactable()).with(describeColumn);
    c.add(_rocks,   "ROCKS",   QObject::tr("Catalog of the rocks" ), _getTransactable());
    // clang-format on
}

void DemoSurvey::_fillData()
{
    auto grade = make<KpaData>("GRADE", QObject::tr("Grade"), _getTransactable());
    grade->setFilter(numbers());
    _data->addVariable(grade.get());
    grade.release();
    auto others = make<KplDataList>("OTHERS", QObject::tr("Other grades"), _getTransactable());
    others->setItemLabel(QObject::tr("Grade"));
    others->setFilter(numbers());
    _data->addVariableList(others.get());
    others.release();
    _data->createSelectionParameter();
    auto filter = make<KpcSampleFilter>("FILTER", QObject::tr("Filter"), _getTransactable());
    _data->addSampleFilter(filter.get());
    filter.release();
    auto categories = make<KpcSampleCategories>("CATEGORIES", QObject::tr("Categories"), _getTransactable());
    _data->addSampleCategories(categories.get());
    categories.release();
}

void DemoSurvey::_keepColumnInFile()
{
    auto synchronizer = std::make_unique<KpwDataRootSynchronizer>();
    synchronizer->setDataset(_data);
    synchronizer->addTargetData(_column);
    registerWatcher(RootSynchronizer, synchronizer.get());
    synchronizer.release();
}
