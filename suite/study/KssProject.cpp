#include <study/KsbDriverTaskFicheSqlite.h>
#include <study/KssProject.h>

KssProject::KssProject() = default;

KssProject::KssProject(std::unique_ptr<KsbIDriverTaskFiche> driver) : KssProject(std::move(driver), QString()) {}

KssProject::KssProject(std::unique_ptr<KsbIDriverTaskFiche> driver, const QString& filePath)
    : _filePath(filePath),
      _driverTaskFiche(std::move(driver))
{}

KssProject::~KssProject() = default;

std::unique_ptr<KssProject> KssProject::create(const QString& filePath)
{
    auto driver = KsbDriverTaskFicheSqlite::create(filePath);
    const QString path = driver->getFilePath();
    return std::unique_ptr<KssProject>(new KssProject(std::move(driver), path));
}

std::unique_ptr<KssProject> KssProject::open(const QString& filePath, KssOpenMode mode)
{
    auto driver = KsbDriverTaskFicheSqlite::open(filePath, mode);
    const QString path = driver->getFilePath();
    return std::unique_ptr<KssProject>(new KssProject(std::move(driver), path));
}
