#pragma once

#include <study/KsoANamedFilterOf.h>
#include <study/KsoCharts.h>

/// What a parameter accepts of the chart files: those, or folders or views in them, in chart files that meet the other
/// conditions.
class KESTRIN_STUDY_EXPORT KsoChartsFilter : public KsoANamedFilterOf<KsoChartsFilter, KsoChartsKind>
{
public:
    using Level = KsoChartsIdentifier::Level;

    KsoChartsFilter() = default;
    explicit KsoChartsFilter(const MbdEIo& io) : KsoANamedFilterOf(io) {}
    static KsoChartsFilter folder(const MbdEIo& io) { return KsoChartsFilter(io, Level::Folder); }
    static KsoChartsFilter view(const MbdEIo& io) { return KsoChartsFilter(io, Level::View); }

    Level getLevel() const { return _level; }

    using KsoANamedFilterOf::check;
    /// A name of the level without an item is accepted where new items are, unless its chart file is there and does not
    /// meet the conditions.
    bool check(const KsoChartsIdentifier& ident) const;

private:
    friend KsoANamedFilterOf<KsoChartsFilter, KsoChartsKind>;
    KsoChartsFilter(const MbdEIo& io, Level level) : KsoANamedFilterOf(io), _level(level) {}
    bool _hasSameConditions(const KsoChartsFilter& other) const { return _level == other._level; }

    Level _level = Level::Charts;
};
