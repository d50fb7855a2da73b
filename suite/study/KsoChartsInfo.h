#pragma once

#include <QtCore/QString>
#include <QtCore/QUuid>
#include <QtCore/QVector>

#include <study/StudyExport.h>

class KsoChartsIdentifier;

/// What is in a chart file: folders, and views in them. Names of folders are distinct, and so are those of the views of
/// a folder. Folders and views keep their ids, which are above 0, distinct and not used again, when they are renamed.
/// An implicitly shared value. What cannot be done gives false and changes nothing.
class KESTRIN_STUDY_EXPORT KsoChartsInfo
{
public:
    struct View
    {
        QUuid id;
        QString name;

        friend bool operator==(const View& a, const View& b) = default;
    };
    struct Folder
    {
        QUuid id;
        QString name;
        QVector<View> views;

        friend bool operator==(const Folder& a, const Folder& b) = default;
    };

    /// In order of making.
    const QVector<Folder>& getFolders() const { return _folders; }
    /// Null if there is none. The pointers live until the record changes.
    const Folder* findFolder(const QString& folder) const;
    const View* findView(const QString& folder, const QString& view) const;

    bool addFolder(const QString& folder);
    bool renameFolder(const QString& folder, const QString& name);
    bool removeFolder(const QString& folder);
    bool addView(const QString& folder, const QString& view);
    bool renameView(const QString& folder, const QString& view, const QString& name);
    bool removeView(const QString& folder, const QString& view);
    /// Becomes what `folders` say; false if a name or an id is none or is there twice.
    bool restore(const QVector<Folder>& folders);

    /// `ident` under the names that its folder and its view have here now: those with the ids that it was made for, or
    /// else with its names, whose ids it then takes over. What is not here stays as it is.
    KsoChartsIdentifier updateViewRef(const KsoChartsIdentifier& ident) const;

    friend bool operator==(const KsoChartsInfo& a, const KsoChartsInfo& b) = default;

private:
    Folder* _find(const QString& folder);

    QVector<Folder> _folders;
};
