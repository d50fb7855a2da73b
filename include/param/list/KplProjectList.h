#pragma once

#include <param/atomic/KpaProject.h>
#include <param/list/KplAAtomicList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaProject>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaProject, QUrl, KpaProjectConfig>;

/// A list of projects.
class KESTRIN_PARAM_EXPORT KplProjectList : public KplAAtomicList<KpaProject, QUrl, KpaProjectConfig>
{
public:
    explicit KplProjectList(const QString& key);
    KplProjectList(const KplProjectList& other, const QString& newKey);
    KplProjectList* duplicate(const QString& newKey) const override;

    /// The project of the first item; null if there is no item, or none of its URL is open.
    KssProject* getProject() const;
    /// The project of each item; null for those whose URL no open project has.
    QList<KssProject*> getProjects() const;
    /// The URLs of the projects become the values; that of null is empty.
    void setProjects(const QList<KssProject*>& projects);
};
