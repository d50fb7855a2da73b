#pragma once

#include <param/atomic/KpaAChartPartConfig.h>
#include <param/atomic/KpaAFilteredItemsAtomic.h>

/// What the atomics share whose value is a folder or a view of a chart file.
template <class Config>
class Q_DECL_EXPORT KpaAChartPart
    : public KpaAFilteredItemsAtomic<KpaAAppliAtomic<KsoChartsIdentifier, Config, KsmModifCharts>>
{
public:
    using Base = KpaAFilteredItemsAtomic<KpaAAppliAtomic<KsoChartsIdentifier, Config, KsmModifCharts>>;

    const KsoChartsIdentifier& getRootIdent() const { return this->_config.getRootIdent(); }
    bool isRelative() const { return this->_config.isRelative(); }
    bool isCustomTableUsed() const { return this->_config.isCustomTableUsed(); }
    const KsoChartsInfo& getCustomTable() const { return this->_config.getCustomTable(); }

    /// The value follows the root: it keeps its place below it.
    void setRootIdent(const KsoChartsIdentifier& ident)
    {
        if (!this->_config.setRootIdent(ident))
            return;
        const KsoChartsIdentifier former = this->_value;
        this->_value = this->_value.changeRoot(getRootIdent());
        this->_lookUp();
        KuoLock<KpnModif> lock(this);
        this->_configChanged();
        if (this->_value != former)
            this->_notify(Kp::NotifyValue);
        lock.commit();
    }
    void setRelative(bool relative) { this->_configChangedIf(this->_config.setRelative(relative)); }
    void useCustomTable(bool used) { _tableChangedIf(this->_config.useCustomTable(used)); }
    void setCustomTable(const KsoChartsInfo& table) { _tableChangedIf(this->_config.setCustomTable(table)); }

    /// The custom table if it is used; otherwise that of the chart file of the value, or of the root where there is no
    /// value. Empty if there is no such chart file.
    KsoChartsInfo getTable() const
    {
        if (isCustomTableUsed())
            return getCustomTable();
        const KsoChartsIdentifier& ident = this->_value.isNull() ? getRootIdent() : this->_value;
        const KsoCharts* item = ident.getChartsItem();
        return item ? item->getInfo() : KsoChartsInfo();
    }
    QString getFolder() const { return this->_value.getFolder(); }

protected:
    KpaAChartPart(const QString& key, const KstITransactable& transactable) : Base(key, Config(), transactable) {}
    KpaAChartPart(const KpaAChartPart& other, const QString& newKey) : Base(other, newKey) {}

private:
    void _tableChangedIf(bool changed)
    {
        if (!changed)
            return;
        this->_lookUp();
        this->_configChanged();
    }
};
