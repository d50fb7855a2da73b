#pragma once

#include <QtCore/QUrl>

#include <basic/MbbOrderedMap.h>
#include <study/KsoDataIdentifier.h>
#include <study/KsoGeosSetIdentifier.h>

class KssProject;

/// Identifiers of project items as URLs: the URL of the project, the kind of item as the fragment, and the stored form
/// of the identifier as the query. The URL of an item of a project without one has no more than query and fragment;
/// such a URL is read in every project.
class KESTRIN_STUDY_EXPORT KssUrlHelper
{
public:
    /// Empty for a null identifier.
    static QUrl dataIdentToUrl(const KsoDataIdentifier& ident);
    /// Null if the URL is not that of a data item, or is one of another project.
    static KsoDataIdentifier urlToDataIdent(const QUrl& url, KsmModelData* model);
    /// The same of a geostatistical set.
    static QUrl gsetIdentToUrl(const KsoGeosSetIdentifier& ident);
    static KsoGeosSetIdentifier urlToGsetIdent(const QUrl& url, KsmModelGeosSet* model);

    /// The URL of an item of `kind`; `project` may be null.
    static QUrl toUrl(const MbbOrderedMap<QString, QString>& map, const QString& kind, const KssProject* project);
    /// The stored form in a URL that `toUrl` made for this kind and project; empty for any other.
    static MbbOrderedMap<QString, QString> toMap(const QUrl& url, const QString& kind, const KssProject* project);
};
