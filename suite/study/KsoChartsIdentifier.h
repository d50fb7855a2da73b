#pragma once

#include <QtCore/QUuid>

#include <study/KsoANamedIdentifierOf.h>
#include <study/KsoChartsKind.h>

/// Names a chart file of a project, a folder in it, or a view in a folder.
class KESTRIN_STUDY_EXPORT KsoChartsIdentifier : public KsoANamedIdentifierOf<KsoChartsKind>
{
public:
    static const QString KEY_FOLDER; ///< "folder"
    static const QString KEY_VIEW;   ///< "view"

    enum Level
    {
        Charts = 0,
        Folder = 1,
        View = 2,
    };

    /// The null identifier.
    KsoChartsIdentifier() = default;
    /// Null for an empty name. The model may be null, or lack what is named. A view without a folder is left out.
    KsoChartsIdentifier(KsmModelCharts* model, const QString& name, const QString& folder = QString(),
                        const QString& view = QString());
    /// Of a folder or view that `info` has, whatever the chart file holds.
    KsoChartsIdentifier(KsmModelCharts* model, const QString& name, const KsoChartsInfo& info, const QString& folder,
                        const QString& view = QString());
    /// Of a folder, or a view in it, that is known.
    KsoChartsIdentifier(KsmModelCharts* model, const QString& name, const KsoChartsInfo::Folder& folder,
                        const KsoChartsInfo::View& view = KsoChartsInfo::View());
    /// What `toMap(true)` gave. A map without the name of a chart file gives null.
    static KsoChartsIdentifier fromMap(const MbbOrderedMap<QString, QString>& map, KsmModelCharts* model);
    /// What `toViewPath()` gave; null for a text that is no path.
    static KsoChartsIdentifier fromViewPath(const QString& path, KsmModelCharts* model);

    /// The names of chart file, folder and view, joined by "/".
    QString toViewPath() const { return toString(); }
    MbbOrderedMap<QString, QString> toMap(bool complete) const override;

    /// `Charts` for null.
    Level getLevel() const { return !_view.isEmpty() ? View : !_folder.isEmpty() ? Folder : Charts; }
    const QString& getFolder() const { return _folder; }
    const QString& getViewName() const { return _view; }
    /// The chart file that it names or lies in; null if there is none, even if there is no such folder or view in it.
    KsoCharts* getChartsItem() const;
    /// Null for a chart file.
    KsoChartsIdentifier getParent() const;
    /// Whether `other` lies below it. False if one of them is null.
    bool isAncestorOf(const KsoChartsIdentifier& other) const;
    /// The same place below `root`: the names that `root` gives replace those of this identifier. What is not deeper
    /// than `root` becomes `root` if it is of its level, and stays otherwise; so does everything under a null root, and
    /// null itself.
    KsoChartsIdentifier changeRoot(const KsoChartsIdentifier& root) const;
    /// The identifier under the names that chart file, folder and view have now that it was made for.
    KsoChartsIdentifier present() const;
    /// The same, with the names that folder and view have in `info`, whatever the chart file holds.
    KsoChartsIdentifier present(const KsoChartsInfo& info) const;

    /// The ids of folder and view when the identifier was made; null for those that were not there.
    const QUuid& getFolderId() const { return _folderId; }
    const QUuid& getViewId() const { return _viewId; }

protected:
    KsoAItem* _findItem() const override;
    QStringList _names() const override;

private:
    void _lookUp(const KsoChartsInfo& info);

    QString _folder;
    QString _view;
    QUuid _folderId;
    QUuid _viewId;
};
