#pragma once

#include <param/composite/KpcGroup.h>

/// A group that is the stored form of a task, which it names.
class KESTRIN_PARAM_EXPORT KpcFiche : public KpcGroup
{
public:
    KpcFiche(const QString& key, const QString& taskId, const KstITransactable& transactable);
    KpcFiche(const KpcFiche& other, const QString& newKey);
    KpcFiche* duplicate(const QString& newKey) const override;

    const QString& getTaskID() const { return _taskId; }
    /// The task's identifier.
    QString toString() const override { return _taskId; }

private:
    QString _taskId;
};
