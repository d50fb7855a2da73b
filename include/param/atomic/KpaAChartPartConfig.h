#pragma once

#include <param/atomic/KpaAItemsConfig.h>
#include <study/KsmModelCharts.h>
#include <study/KsoChartsFilter.h>

/// What the configurations share that admit folders or views of chart files: those below a root, or of all chart files
/// where there is none, that meet a filter. A custom table can stand for what the chart file of the root holds; its
/// folders and views are all admitted. The root is above what is chosen and in the model of the project, or null; it
/// follows what is renamed.
/// Setters give whether something changed.
///
/// `Config`, the derived class, gives `Level`, the level of what is chosen.
template <class Config>
class Q_DECL_EXPORT KpaAChartPartConfig : public KpaAItemsConfig<Config, KsoChartsKind>
{
public:
    using Base = KpaAItemsConfig<Config, KsoChartsKind>;
    using Filter = KsoChartsFilter;

    static constexpr int ListReasons = KsmReason::ListMask | KsmReason::Folders | KsmReason::Views;
    static constexpr int ItemReasons = KsmReason::Views;
    static constexpr int NameReasons = KsmReason::Renamed | KsmReason::Folders;

    const KsoChartsIdentifier& getRootIdent() const { return _root; }
    const KsoChartsFilter& getFilter() const { return _filter; }
    /// Whether stored forms leave out the name of the chart file.
    bool isRelative() const { return _relative; }
    bool isCustomTableUsed() const { return _customTableUsed; }
    const KsoChartsInfo& getCustomTable() const { return _customTable; }

    /// A root that is too deep gives way to what it lies in, one of another model to none.
    bool setRootIdent(const KsoChartsIdentifier& ident)
    {
        return KpaConfigTools::store(_root, _fixRoot(ident)) && this->_listChanged();
    }
    bool setFilter(const KsoChartsFilter& filter)
    {
        return KpaConfigTools::store(_filter, filter) && this->_listChanged();
    }
    bool setRelative(bool relative) { return KpaConfigTools::store(_relative, relative); }
    bool useCustomTable(bool used) { return KpaConfigTools::store(_customTableUsed, used) && this->_listChanged(); }
    bool setCustomTable(const KsoChartsInfo& table)
    {
        return KpaConfigTools::store(_customTable, table) && this->_listChanged();
    }

    /// Null stands, and so does what the list has or the filter accepts, under the names that it has at present.
    /// Anything else gives way to `previous`.
    KsoChartsIdentifier fix(const KsoChartsIdentifier& value, const KsoChartsIdentifier& previous) const
    {
        if (value.isNull())
            return value;
        KsoChartsIdentifier named = present(value);
        return this->getIdentifiers().contains(named) || _filter.check(named) ? named : previous;
    }
    /// `ident` under the names that the chart file has now, and folder and view in the table of this configuration.
    KsoChartsIdentifier present(const KsoChartsIdentifier& ident) const
    {
        return _customTableUsed ? ident.present(_customTable) : ident.present();
    }
    MbbOrderedMap<QString, QString> serializeValue(const KsoChartsIdentifier& ident) const
    {
        MbbOrderedMap<QString, QString> map = ident.toMap(true);
        if (_relative)
            map.remove(Ks::KEY_NAME);
        return map;
    }
    /// The form of a relative parameter with a root is read below the root, whatever chart file it names.
    KsoChartsIdentifier unserializeValue(MbbOrderedMap<QString, QString> map, const KsoChartsIdentifier&) const
    {
        if (map.isEmpty())
            return {};
        if (_relative && !_root.isNull())
            map.insert(Ks::KEY_NAME, _root.getName());
        return KsoChartsIdentifier::fromMap(map, this->getModel());
    }

    /// All fields.
    friend bool operator==(const KpaAChartPartConfig& a, const KpaAChartPartConfig& b) = default;

protected:
    explicit KpaAChartPartConfig(const KsoChartsFilter& filter) : _filter(filter) {}

    QString _debug(const char* header) const
    {
        QString text = Base::_debug(header);
        QTextStream(&text) << " root             = " << _root.toString() << '\n'
                           << " relative         = " << KpaConfigTools::yesNo(_relative) << '\n'
                           << " custom table     = " << KpaConfigTools::yesNo(_customTableUsed) << '\n';
        return text;
    }

private:
    friend Base;

    KsoChartsIdentifier _fixRoot(KsoChartsIdentifier ident) const
    {
        if (!this->getModel() || ident.getModel() != this->getModel())
            return {};
        while (ident.getLevel() >= Config::Level)
            ident = ident.getParent();
        return ident;
    }
    bool _follow() { return KpaConfigTools::store(_root, _fixRoot(_root.present())); }
    QList<KsoChartsIdentifier> _findItems() const
    {
        QList<KsoChartsIdentifier> found;
        if (_customTableUsed) {
            if (!_root.isNull())
                _append(found, _root.getName(), _customTable);
            return found;
        }
        if (_filter.getLevel() != Config::Level)
            return found;
        for (const KsoCharts* item : this->getModel()->getUserItems() + this->getModel()->getBuiltInItems()) {
            if ((_root.isNull() || _root.getName() == item->getName()) && _filter.check(item))
                _append(found, item->getName(), item->getInfo());
        }
        return found;
    }
    void _append(QList<KsoChartsIdentifier>& found, const QString& name, const KsoChartsInfo& info) const
    {
        const auto append = [&](const auto&... place) {
            const KsoChartsIdentifier ident(this->getModel(), name, place...);
            if (_root.isNull() || _root.isAncestorOf(ident))
                found.append(ident);
        };
        for (const KsoChartsInfo::Folder& folder : info.getFolders()) {
            if constexpr (Config::Level == KsoChartsIdentifier::Folder) {
                append(folder);
            }
            else {
                for (const KsoChartsInfo::View& view : folder.views)
                    append(folder, view);
            }
        }
    }

    KsoChartsIdentifier _root;
    KsoChartsFilter _filter;
    bool _relative = false;
    KsoChartsInfo _customTable;
    bool _customTableUsed = false;
};
