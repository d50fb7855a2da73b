#pragma once

#include <param/atomic/KpaAChartPartConfig.h>

/// Which folders of chart files a parameter admits.
class KESTRIN_PARAM_EXPORT KpaChartFolderConfig : public KpaAChartPartConfig<KpaChartFolderConfig>
{
public:
    static constexpr KsoChartsIdentifier::Level Level = KsoChartsIdentifier::Folder;

    /// Any folder of the project.
    KpaChartFolderConfig() : KpaAChartPartConfig(KsoChartsFilter::folder(MbdEIo::INPUT)) {}

    const KpbEType& getType() const { return KpbEType::CHART_FOLDER; }
    QString toString(const KsoChartsIdentifier& ident) const { return ident.getFolder(); }
    QString debug() const { return _debug("----- KpaChartFolderConfig ---------"); }

    /// All fields.
    friend bool operator==(const KpaChartFolderConfig& a, const KpaChartFolderConfig& b) = default;
};
