#include <study/Ks.h>
#include <study/KsmModelData.h>
#include <study/KsmModelGeosSet.h>
#include <study/KssProject.h>
#include <study/KssUrlHelper.h>

namespace {

const QString dataKind = QStringLiteral("data");
const QString gsetKind = QStringLiteral("gset");

QUrl urlOf(const KssProject* project)
{
    return project ? project->getUrl() : QUrl();
}

const KssProject* projectOf(const KsmAItemModel* model)
{
    return model ? model->getProject() : nullptr;
}

QUrl identToUrl(const KsoAItemIdentifier& ident, const QString& kind)
{
    return ident.isNull() ? QUrl() : KssUrlHelper::toUrl(ident.toMap(true), kind, projectOf(ident.getModel()));
}

} // namespace

QUrl KssUrlHelper::dataIdentToUrl(const KsoDataIdentifier& ident)
{
    return identToUrl(ident, dataKind);
}

KsoDataIdentifier KssUrlHelper::urlToDataIdent(const QUrl& url, KsmModelData* model)
{
    return KsoDataIdentifier::fromMap(toMap(url, dataKind, projectOf(model)), model);
}

QUrl KssUrlHelper::gsetIdentToUrl(const KsoGeosSetIdentifier& ident)
{
    return identToUrl(ident, gsetKind);
}

KsoGeosSetIdentifier KssUrlHelper::urlToGsetIdent(const QUrl& url, KsmModelGeosSet* model)
{
    return KsoGeosSetIdentifier::fromMap(toMap(url, gsetKind, projectOf(model)), model);
}

QUrl KssUrlHelper::toUrl(const MbbOrderedMap<QString, QString>& map, const QString& kind, const KssProject* project)
{
    QByteArrayList query;
    for (const auto& entry : map)
        query.append(QUrl::toPercentEncoding(entry.key) + '=' + QUrl::toPercentEncoding(entry.value));
    return QUrl::fromEncoded(urlOf(project).toEncoded() + '?' + query.join('&') + '#' + QUrl::toPercentEncoding(kind));
}

MbbOrderedMap<QString, QString> KssUrlHelper::toMap(const QUrl& url, const QString& kind, const KssProject* project)
{
    MbbOrderedMap<QString, QString> map;
    const QUrl base = url.adjusted(QUrl::RemoveQuery | QUrl::RemoveFragment);
    if (!url.isValid() || url.fragment() != kind || (!base.isEmpty() && base != urlOf(project)))
        return map;
    for (const QByteArray& entry : url.query(QUrl::FullyEncoded).toLatin1().split('&')) {
        const int sign = entry.indexOf('=');
        if (sign > 0)
            map.insert(QUrl::fromPercentEncoding(entry.left(sign)), QUrl::fromPercentEncoding(entry.mid(sign + 1)));
    }
    return Ks::removeInvalidKeys(map);
}
