#pragma once

#include <QtCore/QString>
#include <QtCore/QUrl>

#include <study/KssOpenMode.h>
#include <study/StudyExport.h>

#include <memory>

class KsbIDriverItem;
class KsbIDriverTaskFiche;
class KsbSqliteFile;
class KsmModelCharts;
class KsmModelColorScale;
class KsmModelData;
class KsmModelEnumCatalog;
class KsmModelGeosSet;
class KsmModelNeighborhood;
class KsmModelScene;

/// A study project: one file, the stores in it, and the models of what is stored. It owns its drivers and models; what
/// it gives out stays its own and dies with it, the models first, whose observers are told. The project belongs to the
/// caller and outlives the trees and serializers that use it.
///
/// A project without a file keeps its items in memory. Every project has all models.
class KESTRIN_STUDY_EXPORT KssProject
{
public:
    /// A project without a file and without a store for forms.
    explicit KssProject(const QString& name = QString());
    /// A project without a file that keeps its forms in `driver`, which may be null.
    explicit KssProject(std::unique_ptr<KsbIDriverTaskFiche> driver);
    /// A project without a file that keeps its items in `items`. What is stored there must be whole.
    explicit KssProject(std::unique_ptr<KsbIDriverItem> items);
    KssProject(const KssProject&) = delete;
    KssProject& operator=(const KssProject&) = delete;
    ~KssProject();

    /// Makes a project file and opens it. A file that exists is refused and stays as it is. Errors are those of
    /// `KsbDriverTaskFicheSqlite`.
    static std::unique_ptr<KssProject> create(const QString& filePath);
    /// Opens a project file, which must exist. Errors are those of `KsbDriverTaskFicheSqlite`; a damaged tree of items
    /// is an `MbeError` of type `MbeError::Storage`. Values are read when they are asked for.
    static std::unique_ptr<KssProject> open(const QString& filePath, KssOpenMode mode = KssOpenMode::ReadWrite);

    /// The absolute path of the file; empty for a project without one.
    const QString& getFilePath() const { return _filePath; }
    /// The name of the file without its last suffix, or the name that a project without a file was given.
    const QString& getName() const { return _name; }
    /// That of the file; "study:" and the name for a project without one, and empty without a name.
    QUrl getUrl() const;
    /// The store of task forms, owned by the project; null if it has none.
    KsbIDriverTaskFiche* getDriverTaskFiche() const { return _driverTaskFiche.get(); }

    KsmModelData* getModelData() const { return _modelData.get(); }
    KsmModelEnumCatalog* getModelEnumCatalog() const { return _modelEnumCatalog.get(); }
    KsmModelColorScale* getModelColorScale() const { return _modelColorScale.get(); }
    KsmModelGeosSet* getModelGeosSet() const { return _modelGeosSet.get(); }
    KsmModelNeighborhood* getModelNeighborhood() const { return _modelNeighborhood.get(); }
    KsmModelScene* getModelScene() const { return _modelScene.get(); }
    KsmModelCharts* getModelCharts() const { return _modelCharts.get(); }

private:
    KssProject(std::unique_ptr<KsbIDriverTaskFiche> driver, std::unique_ptr<KsbIDriverItem> items,
               const QString& filePath, const QString& name);

    static std::unique_ptr<KssProject> _opened(const std::shared_ptr<KsbSqliteFile>& file);

    QString _filePath;
    QString _name;
    std::unique_ptr<KsbIDriverTaskFiche> _driverTaskFiche;
    std::unique_ptr<KsbIDriverItem> _driverItem;
    std::unique_ptr<KsmModelEnumCatalog> _modelEnumCatalog;
    std::unique_ptr<KsmModelData> _modelData;
    std::unique_ptr<KsmModelColorScale> _modelColorScale;
    std::unique_ptr<KsmModelGeosSet> _modelGeosSet;
    std::unique_ptr<KsmModelNeighborhood> _modelNeighborhood;
    std::unique_ptr<KsmModelScene> _modelScene;
    std::unique_ptr<KsmModelCharts> _modelCharts;
};
