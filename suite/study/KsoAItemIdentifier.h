#pragma once

#include <QtCore/QString>

#include <basic/MbbOrderedMap.h>
#include <study/KsmAItemModel.h>
#include <util/KuoIGuard.h>

/// Base of the identifiers of project items: values that hold the model and the names of an item, whether or not there
/// is such an item. They survive the item, the model and the project; a model that dies leaves null.
class KESTRIN_STUDY_EXPORT KsoAItemIdentifier
{
public:
    virtual ~KsoAItemIdentifier();

    /// Whether it names nothing.
    virtual bool isNull() const = 0;
    /// The name of the item itself; empty for a null identifier.
    virtual QString getName() const = 0;
    /// The stored form. With `complete` false it is only the part that tells the item from its neighbours under the
    /// same parent.
    virtual MbbOrderedMap<QString, QString> toMap(bool complete) const = 0;
    /// Forgets what was looked up, so that the model is asked anew.
    virtual void clean() const {}

    KsmAItemModel* getModel() const { return _model.target; }
    /// The item that it names now; null if there is none.
    KsoAItem* getItem() const { return getModel() && !isNull() ? _findItem() : nullptr; }
    bool exists() const { return getItem() != nullptr; }
    /// The id of the item that it names now, -1 if there is none.
    int getId() const;

protected:
    explicit KsoAItemIdentifier(KsmAItemModel* model = nullptr) : _model(model) {}
    KsoAItemIdentifier(const KsoAItemIdentifier& other) : _model(other._model.target) {}
    KsoAItemIdentifier& operator=(const KsoAItemIdentifier& other)
    {
        _model.set(other._model.target);
        return *this;
    }

    /// Asked only with a model, of an identifier that is not null.
    virtual KsoAItem* _findItem() const = 0;

private:
    struct KESTRIN_STUDY_EXPORT Guard final : public KuoIGuard
    {
        explicit Guard(KsmAItemModel* model) { set(model); }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;
        ~Guard() override { set(nullptr); }
        void set(KsmAItemModel* model);
        void guardedDestroyed() override { target = nullptr; }

        KsmAItemModel* target = nullptr;
    };

    Guard _model;
};
