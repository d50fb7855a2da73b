#include <study/KsmModelGeosSet.h>

#include <study/KsbJson.h>

#include <QtCore/QJsonArray>

template class KsmANamedModel<KsoGeosSetKind>;

namespace {

const QString documentsKey = QStringLiteral("documents");
const QString nameKey = QStringLiteral("name");
const QString textKey = QStringLiteral("text");

} // namespace

KsoGeosSetIdentifier::KsoGeosSetIdentifier(KsmModelGeosSet* model, const QString& name)
    : KsoANamedIdentifierOf(model, name)
{}

QJsonObject KsoGeosSetKind::write(const Content& content)
{
    QJsonArray documents;
    for (const auto& document : content)
        documents.append(QJsonObject{{nameKey, document.key}, {textKey, document.value}});
    return {{documentsKey, documents}};
}

MbbOrderedMap<QString, QString> KsoGeosSetKind::read(const QJsonObject& json)
{
    MbbOrderedMap<QString, QString> documents;
    for (const QJsonObject& document : KsbJson::readObjects(json, documentsKey)) {
        const QString name = KsbJson::readText(document, nameKey);
        if (!document.contains(nameKey) || documents.contains(name))
            KsbJson::failDamaged(nameKey);
        documents.insert(name, KsbJson::readText(document, textKey));
    }
    return documents;
}

KsmModelGeosSet::KsmModelGeosSet(KssProject* project, KsbIDriverItem* driver) : KsmANamedModel(project, driver)
{
    _load();
}

KsmModelGeosSet::~KsmModelGeosSet() = default;

void KsmModelGeosSet::setDocument(KsoGeosSet* set, const QString& name, const QString& text)
{
    _requireOwn(set);
    auto documents = set->getContent();
    documents.insert(name, text);
    _edit(set, documents, KsmReason::Documents);
}

void KsmModelGeosSet::removeDocument(KsoGeosSet* set, const QString& name)
{
    _requireOwn(set);
    auto documents = set->getContent();
    documents.remove(name);
    _edit(set, documents, KsmReason::Documents);
}
