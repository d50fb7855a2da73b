#include <study/KssProject.h>
#include <study/KssProjectCollection.h>

#include <QtCore/QList>
#include <QtCore/QMutex>

namespace {

struct Projects
{
    QMutex mutex;
    QList<KssProject*> list; ///< in order of making
};

// Never destroyed, so that a project may outlast every other static object.
Projects& projects()
{
    static auto* const all = new Projects;
    return *all;
}

} // namespace

const KsmModelConventionRot* KssProjectCollection::openedModelRotationConv()
{
    static const KsmModelConventionRot conventions;
    return &conventions;
}

KssProject* KssProjectCollection::projectFromUrl(const QUrl& url)
{
    if (url.isEmpty())
        return nullptr;
    const QMutexLocker locker(&projects().mutex);
    for (KssProject* project : projects().list) {
        if (project->getUrl() == url)
            return project;
    }
    return nullptr;
}

void KssProjectCollection::_add(KssProject* project)
{
    const QMutexLocker locker(&projects().mutex);
    projects().list.append(project);
}

void KssProjectCollection::_remove(KssProject* project)
{
    const QMutexLocker locker(&projects().mutex);
    projects().list.removeOne(project);
}
