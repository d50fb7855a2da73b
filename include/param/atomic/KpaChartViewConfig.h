#pragma once

#include <param/atomic/KpaAChartPartConfig.h>

/// Which views of chart files a parameter admits.
class KESTRIN_PARAM_EXPORT KpaChartViewConfig : public KpaAChartPartConfig<KpaChartViewConfig>
{
public:
    static constexpr KsoChartsIdentifier::Level Level = KsoChartsIdentifier::View;

    /// Any view of the project.
    KpaChartViewConfig() : KpaAChartPartConfig(KsoChartsFilter::view(MbdEIo::INPUT)) {}

    const KpbEType& getType() const { return KpbEType::CHART_VIEW; }
    QString toString(const KsoChartsIdentifier& ident) const { return ident.getViewName(); }
    QString debug() const { return _debug("----- KpaChartViewConfig ---------"); }

    /// All fields.
    friend bool operator==(const KpaChartViewConfig& a, const KpaChartViewConfig& b) = default;
};
