#include <param/list/KplProjectList.h>

#include <study/KssProject.h>

template class KpcList<KpaProject>;
template class KplAAtomicList<KpaProject, QUrl, KpaProjectConfig>;

KplProjectList::KplProjectList(const QString& key) : KplAAtomicList(key) {}

KplProjectList::KplProjectList(const KplProjectList& other, const QString& newKey) : KplAAtomicList(other, newKey) {}

KplProjectList* KplProjectList::duplicate(const QString& newKey) const
{
    return new KplProjectList(*this, newKey);
}

KssProject* KplProjectList::getProject() const
{
    return _ofItem(0, [](const KpaProject& item) { return item.getProject(); });
}

QList<KssProject*> KplProjectList::getProjects() const
{
    return _ofItems([](const KpaProject& item) { return item.getProject(); });
}

void KplProjectList::setProjects(const QList<KssProject*>& projects)
{
    QList<QUrl> urls;
    for (const KssProject* project : projects)
        urls.append(project ? project->getUrl() : QUrl());
    setValues(urls);
}
