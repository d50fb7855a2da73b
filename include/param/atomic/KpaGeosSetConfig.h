#pragma once

#include <param/atomic/KpaAFilteredItemsConfig.h>
#include <study/KsmModelGeosSet.h>
#include <study/KsoGeosSetFilter.h>

/// Which of the geostatistical sets of the project a parameter admits.
class KESTRIN_PARAM_EXPORT KpaGeosSetConfig
    : public KpaAFilteredItemsConfig<KpaGeosSetConfig, KsoGeosSetKind, KsoGeosSetFilter>
{
public:
    static constexpr int ListReasons = KsmReason::ListMask;
    static constexpr int ItemReasons = KsoGeosSetKind::ContentReasons;
    static constexpr int NameReasons = KsmReason::Renamed;

    KpaGeosSetConfig() = default;

    const KpbEType& getType() const { return KpbEType::GEOS_SET_IDENT; }
    /// The form of older versions is read, too: an entry "url".
    Identifier unserializeValue(const MbbOrderedMap<QString, QString>& map, const Identifier& previous) const;
    QString debug() const { return _debug("----- KpaGeosSetConfig ---------"); }

    /// All fields.
    friend bool operator==(const KpaGeosSetConfig& a, const KpaGeosSetConfig& b) = default;
};
