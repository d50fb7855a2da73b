#pragma once

#include <demo/DemoReport.h>
#include <demo/DemoStore.h>
#include <registry/DemoModel.h>

#include <memory>

/// The second part of the demonstration: what vectors, orientations, matrices, constraints, drawings and lists do, and
/// the watchers that keep them in step. Each step is held against what it must give.
class ModelSession
{
public:
    ModelSession(const QString& storeFile, DemoReport& report);
    ~ModelSession();
    ModelSession(const ModelSession&) = delete;
    ModelSession& operator=(const ModelSession&) = delete;

    void run();

private:
    void _build();
    void _changeVectors();
    void _changeOrientations();
    void _changeMatrix();
    void _changeConstraints();
    void _changeDrawings();

    void _growLists();
    void _growTable();
    void _keepItems();
    void _leaveAutomaticValuesOut();
    void _trace();

    void _expectRecords(const QString& what, const std::function<void()>& change, const QStringList& records)
    {
        _report.expectRecords(*_model, what, change, records);
    }
    /// Holds the stored entries of a parameter, or its text, against what they must be.
    void _expectStored(const QString& path, const QString& expected);
    void _expectText(const QString& path, const QString& expected);

    DemoReport& _report;
    DemoStore _store;
    std::unique_ptr<DemoModel> _model;
};
