#pragma once

#include <study/KsmANamedModif.h>
#include <study/KsoChartsIdentifier.h>

/// What changed of the chart files of a project.
class KESTRIN_STUDY_EXPORT KsmModifCharts : public KsmANamedModif<KsoChartsKind>
{
public:
    using KsmANamedModif::hasModif;
    /// Whether one of `reasons` concerns `ident`. What happens to a chart file as a whole concerns all that is in it,
    /// and `KsmReason::Folders` of a folder concerns its views.
    bool hasModif(const KsoChartsIdentifier& ident, int reasons) const;
};
