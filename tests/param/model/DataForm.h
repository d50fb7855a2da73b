#pragma once

#include <param/atomic/KpaCatalog.h>
#include <param/atomic/KpaChartFolder.h>
#include <param/atomic/KpaChartView.h>
#include <param/atomic/KpaCharts.h>
#include <param/atomic/KpaColorScale.h>
#include <param/atomic/KpaData.h>
#include <param/atomic/KpaGeosSet.h>
#include <param/atomic/KpaNeighborhoodItem.h>
#include <param/atomic/KpaProject.h>
#include <param/atomic/KpaScene.h>
#include <param/composite/KpcCatalogCategories.h>
#include <param/composite/KpcCutoffs.h>
#include <param/composite/KpcDataset.h>
#include <param/composite/KpcDisplayScene.h>
#include <param/composite/KpcGroup.h>
#include <param/composite/KpcSampleCategories.h>
#include <param/composite/KpcSampleFilter.h>
#include <param/composite/KpcSelection.h>
#include <param/composite/KpcZvxConnection.h>
#include <param/list/KplDataList.h>
#include <param/list/KplProjectList.h>

/// A dataset that has another one in it.
class OuterDataset : public KpcDataset
{
public:
    using KpcDataset::KpcDataset;
    OuterDataset* duplicate(const QString& newKey) const override { return new OuterDataset(*this, newKey); }
    using KpcDataset::_addDataset;
};

/// A form with parameters of all classes that speak of a project.
class DataForm
{
public:
    explicit DataForm(const KstITransactable& context);

    /// What a dependent parameter of the dataset knows of the root.
    struct KnownRoot
    {
        QString where;
        KsoEDataType type;
        KsoDataIdentifier ident;
    };
    QList<KnownRoot> knownRoots() const;

    KpaData& selectionVariable() const
    {
        return *static_cast<KpaData*>(selection->getChild(QStringLiteral("VARIABLE")));
    }
    KpaFlags& selectionCategories() const;
    KpaBool& selectionInverted() const;

    KpcGroup group;
    // All of these belong to the group.
    OuterDataset* dataset;
    KpaData* grade;
    KplDataList* others;
    KpcSelection* selection;
    KpcSampleFilter* filter;
    KpcSampleCategories* categories;
    KpcDataset* inner;
    KpaData* innerGrade;
    KpaData* follower;
    KplDataList* followers;
    KpaCatalog* catalog;
    KpaColorScale* colorScale;
    KpaGeosSet* geosSet;
    KpaNeighborhoodItem* neighborhood;
    KpaScene* scene;
    KpaCharts* charts;
    KpaChartFolder* chartFolder;
    KpaChartView* chartView;
    KpaProject* project;
    KplProjectList* projects;
    KpcCatalogCategories* catalogTable;
    KpcCutoffs* cutoffs;
    KpcDisplayScene* display;
    KpcZvxConnection* server;

private:
    template <class T>
    T* _add(const char* key, const KstITransactable& context);
    void _fillDataset(const KstITransactable& context);
    void _follow(const KstITransactable& context);
};

/// The stored form, as the bytes of a file.
QByteArray storedForm(const KpbAParameter& parameter);
/// Reads what `storedForm` gave.
void readForm(KpbAParameter& parameter, const QByteArray& stored);
