#pragma once

#include <QtCore/QString>

#include <study/KssOpenMode.h>
#include <study/StudyExport.h>

#include <memory>

class KsbIDriverTaskFiche;

/// A study project: one file, and the stores in it. It owns its drivers; what it gives out stays its own and dies with
/// it. The project belongs to the caller and outlives the trees and serializers that use it.
class KESTRIN_STUDY_EXPORT KssProject
{
public:
    /// A project without a file and without a store for forms.
    KssProject();
    /// A project without a file that keeps its forms in `driver`, which may be null.
    explicit KssProject(std::unique_ptr<KsbIDriverTaskFiche> driver);
    KssProject(const KssProject&) = delete;
    KssProject& operator=(const KssProject&) = delete;
    ~KssProject();

    /// Makes a project file and opens it. A file that exists is refused and stays as it is. Errors are those of
    /// `KsbDriverTaskFicheSqlite`.
    static std::unique_ptr<KssProject> create(const QString& filePath);
    /// Opens a project file, which must exist. Errors are those of `KsbDriverTaskFicheSqlite`.
    static std::unique_ptr<KssProject> open(const QString& filePath, KssOpenMode mode = KssOpenMode::ReadWrite);

    /// The absolute path of the file; empty for a project without one.
    const QString& getFilePath() const { return _filePath; }
    /// The store of task forms, owned by the project; null if it has none.
    KsbIDriverTaskFiche* getDriverTaskFiche() const { return _driverTaskFiche.get(); }

private:
    KssProject(std::unique_ptr<KsbIDriverTaskFiche> driver, const QString& filePath);

    QString _filePath;
    std::unique_ptr<KsbIDriverTaskFiche> _driverTaskFiche;
};
