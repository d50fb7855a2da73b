#include <basic/MbeTranslate.h>
#include <study/KsbDriverItemMemory.h>
#include <study/KsbDriverItemSqlite.h>
#include <study/KsbDriverTaskFicheSqlite.h>
#include <study/KsbSqliteFile.h>
#include <study/KsmModelCharts.h>
#include <study/KsmModelColorScale.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KsmModelGeosSet.h>
#include <study/KsmModelNeighborhood.h>
#include <study/KsmModelScene.h>
#include <study/KssProject.h>
#include <study/KssProjectCollection.h>

#include <QtCore/QFileInfo>

KssProject::KssProject(const QString& name)
    : KssProject(nullptr, std::make_unique<KsbDriverItemMemory>(), QString(), name)
{}

KssProject::KssProject(std::unique_ptr<KsbIDriverTaskFiche> driver)
    : KssProject(std::move(driver), std::make_unique<KsbDriverItemMemory>(), QString(), QString())
{}

KssProject::KssProject(std::unique_ptr<KsbIDriverItem> items)
    : KssProject(nullptr, std::move(items), QString(), QString())
{}

KssProject::KssProject(std::unique_ptr<KsbIDriverTaskFiche> driver, std::unique_ptr<KsbIDriverItem> items,
                       const QString& filePath, const QString& name)
    : _filePath(filePath),
      _name(name),
      _driverTaskFiche(std::move(driver)),
      _driverItem(std::move(items)),
      _modelEnumCatalog(std::make_unique<KsmModelEnumCatalog>(this, _driverItem.get())),
      _modelData(std::make_unique<KsmModelData>(this, _driverItem.get())),
      _modelColorScale(std::make_unique<KsmModelColorScale>(this, _driverItem.get())),
      _modelGeosSet(std::make_unique<KsmModelGeosSet>(this, _driverItem.get())),
      _modelNeighborhood(std::make_unique<KsmModelNeighborhood>(this, _driverItem.get())),
      _modelScene(std::make_unique<KsmModelScene>(this, _driverItem.get())),
      _modelCharts(std::make_unique<KsmModelCharts>(this, _driverItem.get()))
{
    KssProjectCollection::_add(this);
}

KssProject::~KssProject()
{
    KssProjectCollection::_remove(this);
    // An observer that is told of the death of a model finds none here any more.
    const auto destroy = [](auto&... models) { (models.reset(), ...); };
    destroy(_modelCharts, _modelScene, _modelNeighborhood, _modelGeosSet, _modelColorScale, _modelData,
            _modelEnumCatalog);
}

std::unique_ptr<KssProject> KssProject::create(const QString& filePath)
{
    return _opened(KsbSqliteFile::create(filePath));
}

std::unique_ptr<KssProject> KssProject::open(const QString& filePath, KssOpenMode mode)
{
    return _opened(KsbSqliteFile::open(filePath, mode));
}

std::unique_ptr<KssProject> KssProject::_opened(const std::shared_ptr<KsbSqliteFile>& file)
{
    const QString path = file->getPath();
    return mbeTranslate(
        [&] {
            return std::unique_ptr<KssProject>(new KssProject(std::make_unique<KsbDriverTaskFicheSqlite>(file),
                                                              std::make_unique<KsbDriverItemSqlite>(file), path,
                                                              QFileInfo(path).completeBaseName()));
        },
        [&] { return KsbSqliteFile::failure(path, QStringLiteral("Its items cannot be read.")); });
}

QUrl KssProject::getUrl() const
{
    if (!_filePath.isEmpty())
        return QUrl::fromLocalFile(_filePath);
    return _name.isEmpty() ? QUrl() : QUrl::fromEncoded("study:" + QUrl::toPercentEncoding(_name));
}
