#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>

#include <util/UtilExport.h>

/// The path of a file or folder, in the two forms that it takes: in full, and short for storing.
///
/// The short form of a path at or below a named root starts with the root's token: with the root PROJECTS at
/// "/srv/projects" the path "/srv/projects/data/a.csv" is stored as "$PROJECTS/data/a.csv", and means the same file on
/// a machine that has its projects elsewhere. The longest root wins. Other paths, relative ones included, are stored as
/// they are. A path that really starts with "$$", or with the token of a root that exists, gets one more "$" in front,
/// which reading takes off. A token of a root that is not known is nobody's: a text that starts with it passes both
/// ways unchanged, so that it survives a program that does not have that root.
///
/// For every path p and a fixed set of roots, reading the short form of p gives p, cleaned as by
/// KusFileUtils::cleanPath.
class KESTRIN_UTIL_EXPORT KusPath
{
public:
    enum Kind
    {
        File = 0,
        Directory = 1
    };

    /// Both kinds follow the same rules; the kind tells a reader what the path is meant to name.
    KusPath(Kind kind, const QString& text);

    Kind getKind() const { return _kind; }
    /// The short form of the path that the text is. Empty for an empty text.
    QString shortPath() const;
    /// The path in full of the short form that the text is. Empty for an empty text.
    QString absolutePath() const;

    /// Names the folder `directory`, for the whole process. A name is a letter and then letters, digits and
    /// underscores, all of ASCII; the folder is an absolute path and need not exist. An empty folder takes the name
    /// away; HOME then goes back to the user's home folder. False, and nothing changes, if the name or the folder is
    /// not acceptable.
    static bool setRoot(const QString& name, const QString& directory);
    /// The folders by name. HOME is there from the start, unless the user's home is the root of the file system.
    static QMap<QString, QString> getRoots();

private:
    Kind _kind;
    QString _text;
};
