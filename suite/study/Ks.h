#pragma once

#include <QtCore/QString>

#include <basic/MbbOrderedMap.h>
#include <study/StudyExport.h>

/// The keys under which identifiers of project items are stored as maps of texts.
class KESTRIN_STUDY_EXPORT Ks
{
public:
    static const QString KEY_PATH;    ///< "path": the names of the directories, joined by "/"; empty for the root
    static const QString KEY_FILE;    ///< "file"
    static const QString KEY_SUPPORT; ///< "support"
    static const QString KEY_NAME;    ///< "name": the own name of a variable, or of an item that is no data item
    static const QString KEY_MACRO;   ///< "macro": the own name of a macro variable

    /// The entries of `map` under the keys above, in their order.
    static MbbOrderedMap<QString, QString> removeInvalidKeys(const MbbOrderedMap<QString, QString>& map);
    /// What is wrong with `name` as the name of a project item; empty if nothing is. A name has 1 to 255 characters and
    /// neither "/" nor characters that no XML text can hold.
    static QString describeInvalidName(const QString& name);
};
