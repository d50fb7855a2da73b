#pragma once

#include <param/KpExport.h>
#include <param/KpbEType.h>
#include <param/KuoPointer.h>
#include <param/atomic/KpaConfigTools.h>
#include <param/atomic/KpaProjectModel.h>
#include <study/Ks.h>

/// What the configurations share that admit named items of a model of the project: the list of the items that are
/// admitted at present. The model is not owned and may die. Setters give whether something changed.
///
/// `Config`, the derived class, gives `ListReasons`, the reasons of a modification that can change the list, and
/// `_findItems()`, which makes the list; `Kind` names the classes of the kind of item.
template <class Config, class Kind>
class Q_DECL_EXPORT KpaAItemsConfig
{
public:
    using Identifier = typename Kind::Identifier;
    using Model = typename Kind::Model;
    using Modif = typename Kind::Modif;

    Identifier getInitialValue() const { return {}; }

    /// Null without a project, and once the model has died.
    Model* getModel() const { return _model; }
    /// The items that are admitted at present: those of the user, then the built-in ones.
    const QList<Identifier>& getIdentifiers() const { return _items; }

    /// `ident` under the names that the item has now which it was made for.
    Identifier present(const Identifier& ident) const { return ident.present(); }

    /// Takes over the model of `project`, which may be null.
    bool updateProject(KssProject* project)
    {
        Model* model = project ? (project->*KpaProjectModel<Modif>::get)() : nullptr;
        if (model == _model)
            return false;
        _model = model;
        _derived()._follow();
        _updateList();
        return true;
    }
    /// Forgets the model; gives whether that changed the list.
    bool modelDestroyed()
    {
        _model = nullptr;
        return _modelChanged();
    }
    bool modelModified(const Modif& modif) { return modif.hasModif(Config::ListReasons) && _modelChanged(); }

    MbbOrderedMap<QString, QString> serializeValue(const Identifier& ident) const { return ident.toMap(true); }
    /// An empty form is null; one without a name gives `previous`.
    Identifier unserializeValue(const MbbOrderedMap<QString, QString>& map, const Identifier& previous) const
    {
        if (map.isEmpty())
            return {};
        return map.contains(Ks::KEY_NAME) ? Identifier::fromMap(map, _model) : previous;
    }

    /// All fields.
    friend bool operator==(const KpaAItemsConfig& a, const KpaAItemsConfig& b) = default;

protected:
    KpaAItemsConfig() = default;

    /// What a configuration with a root replaces: brings it into the present state of the model. Gives whether that
    /// changed it.
    bool _follow() { return false; }
    /// Refills the list; gives whether that changed it.
    bool _updateList() { return KpaConfigTools::store(_items, _model ? _derived()._findItems() : QList<Identifier>()); }
    /// Refills the list after a change of what it depends on.
    bool _listChanged()
    {
        _updateList();
        return true;
    }
    QString _debug(const char* header) const
    {
        QString text;
        QTextStream(&text) << header << '\n'
                           << " model            = " << KpaConfigTools::yesNo(_model) << '\n'
                           << " items            = " << _items.count() << '\n';
        return text;
    }

private:
    bool _modelChanged()
    {
        const bool followed = _derived()._follow();
        return _updateList() || followed;
    }
    Config& _derived() { return static_cast<Config&>(*this); }

    KuoPointer<Model> _model;
    QList<Identifier> _items;
};
