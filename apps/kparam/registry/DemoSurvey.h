#pragma once

#include <param/composite/KpcChildren.h>
#include <param/composite/KpcFiche.h>

class KpaData;
class KpaString;
class KpcCatalogCategories;
class KpcCutoffs;
class KpcDataset;

/// A third task form to show the library with: which samples of a survey are studied, and how they are cut up.
///
/// The column of the report lies in the data file of the dataset, wherever that is. Forms are told apart by the name of
/// the study.
class DemoSurvey : public KpcFiche
{
public:
    DemoSurvey(const QString& key, const KstITransactable& transactable);
    DemoSurvey(const DemoSurvey& other, const QString& newKey);
    ~DemoSurvey() override;
    DemoSurvey* duplicate(const QString& newKey) const override;

    /// The parameters by whose values forms are told apart in a store.
    QList<KpbAParameter*> getKeyParameters() const;

private:
    enum WatcherId
    {
        RootSynchronizer
    };

    void _declare(KpcChildren children);
    void _fillData();
    void _keepColumnInFile();

    KpcChild<KpaString> _name;
    KpcChild<KpcDataset> _data;
    KpcChild<KpcCutoffs> _cutoffs;
    KpcChild<KpcGroup> _report;
    KpcChild<KpaData> _column;
    KpcChild<KpcCatalogCategories> _rocks;
};
