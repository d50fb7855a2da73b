#pragma once

#include <param/atomic/KpaAAtomic.h>
#include <param/atomic/KpaProjectConfig.h>

class KssProject;

extern template class KESTRIN_PARAM_EXPORT KpaAAtomic<QUrl, KpaProjectConfig>;

/// A project, by its URL. The project need not be open, and may die.
class KESTRIN_PARAM_EXPORT KpaProject : public KpaAAtomic<QUrl, KpaProjectConfig>
{
public:
    explicit KpaProject(const QString& key);
    KpaProject(const KpaProject& other, const QString& newKey);
    KpaProject* duplicate(const QString& newKey) const override;

    /// Null if no project of the URL is open.
    KssProject* getProject() const;
};
