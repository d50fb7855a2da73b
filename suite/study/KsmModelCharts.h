#pragma once

#include <study/KsmANamedModel.h>
#include <study/KsmModifCharts.h>
#include <study/KsoCharts.h>

#include <utility>

extern template class KESTRIN_STUDY_EXPORT KsmANamedModel<KsoChartsKind>;

/// The chart files of a project. Names of folders and views are as those of items, and taken names and folders and
/// views that are not there are an `MbeUserError` each. Records name the chart file and the folder, and for
/// `KsmReason::Views` the view.
class KESTRIN_STUDY_EXPORT KsmModelCharts : public KsmANamedModel<KsoChartsKind>
{
public:
    /// Reads the items from `driver`. Stored items that are damaged are an `MbeError`.
    KsmModelCharts(KssProject* project, KsbIDriverItem* driver);
    ~KsmModelCharts() override;

    /// `KsmReason::Folders`
    void addFolder(KsoCharts* charts, const QString& folder);
    void renameFolder(KsoCharts* charts, const QString& folder, const QString& name);
    void removeFolder(KsoCharts* charts, const QString& folder);
    /// `KsmReason::Views`
    void addView(KsoCharts* charts, const QString& folder, const QString& view);
    void renameView(KsoCharts* charts, const QString& folder, const QString& view, const QString& name);
    void removeView(KsoCharts* charts, const QString& folder, const QString& view);

private:
    using Path = std::pair<QString, QString>;
    template <class Edit>
    void _editInfo(KsoCharts* charts, int reason, const QList<Path>& named, Edit edit);
};
