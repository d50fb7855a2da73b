#pragma once

#include <study/KssProject.h>
#include <study/KstATransactableDefault.h>

#include <QtCore/QFileInfo>

#include <memory>

/// The store of the demonstration, and the context through which its forms reach it. One of an earlier demonstration is
/// used again.
class DemoStore
{
public:
    explicit DemoStore(const QString& file) : _file(file) {}
    DemoStore(const DemoStore&) = delete;
    DemoStore& operator=(const DemoStore&) = delete;

    const QString& getFile() const { return _file; }
    const KstITransactable& getContext() const { return _context; }

    void close()
    {
        _context.project = nullptr;
        _project.reset();
    }
    /// Opens the store, also one that is open, or makes it.
    KssProject* open()
    {
        close();
        _project = QFileInfo::exists(_file) ? KssProject::open(_file) : KssProject::create(_file);
        return _context.project = _project.get();
    }

private:
    class Context : public KstATransactableDefault
    {
    public:
        KssProject* getProject() const override { return project; }
        KssProject* project = nullptr;
    };

    QString _file;
    Context _context;
    std::unique_ptr<KssProject> _project;
};
