#pragma once

#include <study/KsoANamedItem.h>
#include <study/KsoChartsIdentifier.h>

/// A chart file: folders of chart views.
class KESTRIN_STUDY_EXPORT KsoCharts : public KsoANamedItem<KsoChartsKind>
{
public:
    const KsoChartsInfo& getInfo() const { return getContent(); }

private:
    template <class>
    friend class KsmANamedModel;
    using KsoANamedItem::KsoANamedItem;
};
