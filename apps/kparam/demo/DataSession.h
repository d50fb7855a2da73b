#pragma once

#include <demo/DemoReport.h>
#include <demo/DemoStore.h>
#include <registry/DemoSurvey.h>

#include <memory>

class KsmModelData;
class KsoADataItem;
class KsoDataIdentifier;

/// The third part of the demonstration: a data file is imported into the project of the store, a form says which of its
/// samples are studied, and the project changes under the form. Each step is held against what it must give.
class DataSession
{
public:
    DataSession(const QString& storeFile, DemoReport& report);
    ~DataSession();
    DataSession(const DataSession&) = delete;
    DataSession& operator=(const DataSession&) = delete;

    void run();

private:
    void _import();
    void _build();
    void _changeRoot();
    void _select();
    void _filter();
    void _refuseCombination();
    void _categorise();
    void _refuseConditions();
    void _keep();

    void _changeItems();
    void _removeVariable();
    void _changeCatalog();
    void _editCatalogTable();
    void _closeProject();

    KssProject& _openedProject() const;
    KsmModelData& _model() const;
    void _clearEarlierSurvey();
    void _expectBrokenFileIsRefused();
    /// The item of the survey that the names in `path`, joined by "/", lead to. A `Failure` if there is none.
    KsoADataItem* _item(const QString& path) const;
    KsoDataIdentifier _ident(const QString& path) const;

    void _expectRecords(const QString& what, const std::function<void()>& change, const QStringList& records)
    {
        _report.expectRecords(*_form, what, change, records);
    }
    void _expectStored(const QString& path, const QString& expected);
    void _expectText(const QString& path, const QString& expected);
    /// Holds the numbers of samples against what they must be; those of the categories are joined by ", ".
    void _expectSelected(const QString& what, int expected);
    void _expectKept(const QString& what, int expected);
    void _expectCategorised(const QString& what, const QString& expected);

    DemoReport& _report;
    DemoStore _store;
    KssProject* _project = nullptr; // that of the store, while it is open
    std::unique_ptr<DemoSurvey> _form;
};
