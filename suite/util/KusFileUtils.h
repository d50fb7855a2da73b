#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <util/UtilExport.h>

/// The rules that the text of a path must keep. None of them changes the disk; they read it only to tell an existing
/// folder. Each `fix...` is idempotent: what it gave stands when it is fixed again with the same previous text.
class KESTRIN_UTIL_EXPORT KusFileUtils
{
public:
    /// The path with forward slashes in place of the system's separators, without repeated slashes, "." and resolvable
    /// ".." parts, and without a slash at its end unless it is the root. An empty text stays empty, a relative one
    /// relative.
    static QString cleanPath(const QString& path);

    /// `value` cleaned; an empty text stands. With `mustExist`, a path that names no existing folder gives `previous`
    /// (cleaned, and not checked itself).
    static QString fixDirectoryPath(const QString& value, const QString& previous, bool mustExist);

    /// `value` cleaned; an empty text stands. The file need not exist, but a path that names an existing folder is not
    /// taken. Unless `anyFileAllowed`, or there are no patterns, the file name must match one of `filterPatterns`
    /// (wildcards, letter case ignored); when saving (`openMode` false), a name that does not match gets the extension
    /// of the first pattern of the form "*.extension". What is not taken gives `previous` under the same rules; if that
    /// is not acceptable either, it stands as it is, cleaned.
    static QString fixFilePath(const QString& value, const QString& previous, bool anyFileAllowed,
                               const QStringList& filterPatterns, bool openMode);
};
