#pragma once

#include <study/KsoAItem.h>
#include <util/KuoAGuarded.h>

class KssProject;

/// Base of the models of a project: each owns the items of one kind, and is owned by its project. Derived models have
/// `KuoAObservable` before this base, so that identifiers forget the model before its observers are told of its death.
class KESTRIN_STUDY_EXPORT KsmAItemModel : public KuoAGuarded
{
public:
    KsmAItemModel(const KsmAItemModel&) = delete;
    KsmAItemModel& operator=(const KsmAItemModel&) = delete;
    ~KsmAItemModel() override;

    /// Never null: the project outlives its models.
    KssProject* getProject() const { return _project; }
    /// Null if there is no item of the id. Derived models give their own class.
    virtual KsoAItem* getItemFromId(int id) const = 0;

protected:
    explicit KsmAItemModel(KssProject* project) : _project(project) {}

    /// `item`, or an `MbeUserError` that tells that the project has no item of the id.
    template <class Item>
    static Item* _valid(Item* item, int id)
    {
        if (!item)
            _failUnknown(id);
        return item;
    }

private:
    [[noreturn]] static void _failUnknown(int id);

    KssProject* _project;
};
