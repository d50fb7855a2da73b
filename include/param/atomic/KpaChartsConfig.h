#pragma once

#include <param/atomic/KpaAItemsConfig.h>
#include <study/KsmModelCharts.h>

/// Which chart files a parameter admits: all of the project and, if it is so told, any name.
class KESTRIN_PARAM_EXPORT KpaChartsConfig : public KpaAItemsConfig<KpaChartsConfig, KsoChartsKind>
{
public:
    static constexpr int ListReasons = KsmReason::ListMask | KsmReason::Folders | KsmReason::Views;
    static constexpr int ItemReasons = KsmReason::Folders | KsmReason::Views;
    static constexpr int NameReasons = KsmReason::Renamed;

    KpaChartsConfig() = default;

    const KpbEType& getType() const { return KpbEType::CHARTS_IDENT; }

    bool isNewItemAccepted() const { return _newItemAccepted; }
    bool acceptNewItem(bool accepted) { return KpaConfigTools::store(_newItemAccepted, accepted); }

    /// Null stands, and so do the chart files of the list, under the names that they have at present. Where new items
    /// are accepted, everything stands. Anything else gives way to `previous`.
    KsoChartsIdentifier fix(const KsoChartsIdentifier& value, const KsoChartsIdentifier& previous) const;
    QString toString(const KsoChartsIdentifier& ident) const { return ident.getName(); }
    QString debug() const;

    /// All fields.
    friend bool operator==(const KpaChartsConfig& a, const KpaChartsConfig& b) = default;

private:
    friend KpaAItemsConfig;
    QList<KsoChartsIdentifier> _findItems() const;

    bool _newItemAccepted = false;
};
