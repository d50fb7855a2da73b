#pragma once

#include <demo/DemoReport.h>
#include <registry/DemoTask.h>
#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <memory>

/// The demonstration: a form is built, changed, saved in a store, opened again, and read from documents of older
/// versions. Each step is held against what it must give.
class DemoSession
{
public:
    /// The store is made in `folder`, which must exist. A store of an earlier demonstration is used again.
    DemoSession(const QString& folder, DemoReport& report);
    ~DemoSession();
    DemoSession(const DemoSession&) = delete;
    DemoSession& operator=(const DemoSession&) = delete;

    void run();

private:
    /// What a task reaches its project through.
    class Context : public KstATransactableDefault
    {
    public:
        KssProject* getProject() const override { return project; }
        KssProject* project = nullptr;
    };

    void _build();
    void _change();
    void _changeInBatch();
    void _save();
    void _reopen();

    /// Changes one thing and holds the records that reach the root, each as a line, against those that must.
    void _changeOne(const QString& what, const std::function<void()>& change, const QStringList& records);

    QString _storeFile;
    DemoReport& _report;
    Context _context;
    std::unique_ptr<KssProject> _project;
    std::unique_ptr<DemoTask> _task;
};
