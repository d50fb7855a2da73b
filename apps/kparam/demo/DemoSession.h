#pragma once

#include <demo/DemoReport.h>
#include <demo/DemoStore.h>
#include <registry/DemoTask.h>

#include <memory>

/// The first part of the demonstration: a form is built, changed, saved in a store, opened again, and read from
/// documents of older versions. Each step is held against what it must give.
class DemoSession
{
public:
    DemoSession(const QString& storeFile, DemoReport& report);
    ~DemoSession();
    DemoSession(const DemoSession&) = delete;
    DemoSession& operator=(const DemoSession&) = delete;

    void run();

private:
    void _build();
    void _change();
    void _changeInBatch();
    void _save();
    void _reopen();

    void _expectRecords(const QString& what, const std::function<void()>& change, const QStringList& records)
    {
        _report.expectRecords(*_task, what, change, records);
    }

    DemoReport& _report;
    DemoStore _store;
    std::unique_ptr<DemoTask> _task;
};
