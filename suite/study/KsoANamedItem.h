#pragma once

#include <QtCore/QStringList>

#include <study/KsoAItem.h>

/// An item that is found by its name, with a content of its kind. It lives until it is removed from its model, or the
/// model dies.
template <class Kind>
class Q_DECL_EXPORT KsoANamedItem : public KsoAItem
{
public:
    using Identifier = typename Kind::Identifier;
    using Model = typename Kind::Model;
    using Content = typename Kind::Content;

    Model* getModel() const { return _model; }
    Identifier getIdentifier() const { return Identifier(_model, getName()); }
    /// Built-in items are the same in all projects, are not stored and cannot be changed.
    bool isBuiltIn() const { return getId() < -1; }
    /// The applications that the item is for; all if there is none.
    const QStringList& getApplicationFlags() const { return _applicationFlags; }
    const Content& getContent() const { return _content; }

protected:
    KsoANamedItem(Model* model, int id, const QString& name, const Content& content)
        : KsoAItem(id, name),
          _model(model),
          _content(content)
    {}

private:
    template <class>
    friend class KsmANamedModel;

    Model* _model;
    QStringList _applicationFlags;
    Content _content;
};
