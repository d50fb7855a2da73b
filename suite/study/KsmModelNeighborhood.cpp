#include <study/KsmModelNeighborhood.h>

#include <study/KsbJson.h>
#include <study/KssProject.h>

#include <QtCore/QJsonArray>

template class KsmANamedModel<KsoNeighborhoodKind>;

namespace {

using Ident = KsoNeighborhoodDefinition::Ident;

const QString supportKey = QStringLiteral("support");
const QString codeVariableKey = QStringLiteral("codeVariable");
const QString largeCutoffsKey = QStringLiteral("largeCutoffVariables");
const QString smallCutoffsKey = QStringLiteral("smallCutoffVariables");

QJsonObject toObject(const Ident& ident)
{
    QJsonObject object;
    for (const auto& entry : ident)
        object.insert(entry.key, entry.value);
    return object;
}

Ident toIdent(const QJsonObject& object)
{
    Ident ident;
    for (const QString& key : {Ks::KEY_PATH, Ks::KEY_FILE, Ks::KEY_SUPPORT, Ks::KEY_NAME, Ks::KEY_MACRO}) {
        if (object.contains(key))
            ident.insert(key, KsbJson::readText(object, key));
    }
    return ident;
}

QJsonArray toArray(const QList<Ident>& idents)
{
    QJsonArray array;
    for (const Ident& ident : idents)
        array.append(toObject(ident));
    return array;
}

QList<Ident> toIdents(const QList<QJsonObject>& objects)
{
    QList<Ident> idents;
    for (const QJsonObject& object : objects)
        idents.append(toIdent(object));
    return idents;
}

} // namespace

KsoNeighborhoodIdentifier::KsoNeighborhoodIdentifier(KsmModelNeighborhood* model, const QString& name)
    : KsoANamedIdentifierOf(model, name)
{}

QJsonObject KsoNeighborhoodKind::write(const Content& content)
{
    return {{supportKey, toObject(content.support)},
            {codeVariableKey, toObject(content.codeVariable)},
            {largeCutoffsKey, toArray(content.largeCutoffVariables)},
            {smallCutoffsKey, toArray(content.smallCutoffVariables)}};
}

KsoNeighborhoodDefinition KsoNeighborhoodKind::read(const QJsonObject& json)
{
    return {toIdent(KsbJson::readObject(json, supportKey)), toIdent(KsbJson::readObject(json, codeVariableKey)),
            toIdents(KsbJson::readObjects(json, largeCutoffsKey)),
            toIdents(KsbJson::readObjects(json, smallCutoffsKey))};
}

KsoDataIdentifier KsoNeighborhood::_ident(const KsoNeighborhoodDefinition::Ident& map) const
{
    return map.isEmpty() ? KsoDataIdentifier()
                         : KsoDataIdentifier::fromMap(map, getModel()->getProject()->getModelData());
}

QList<KsoDataIdentifier> KsoNeighborhood::_idents(const QList<KsoNeighborhoodDefinition::Ident>& maps) const
{
    QList<KsoDataIdentifier> idents;
    for (const auto& map : maps)
        idents.append(_ident(map));
    return idents;
}

KsmModelNeighborhood::KsmModelNeighborhood(KssProject* project, KsbIDriverItem* driver)
    : KsmANamedModel(project, driver)
{
    _load();
}

KsmModelNeighborhood::~KsmModelNeighborhood() = default;

void KsmModelNeighborhood::setDefinition(KsoNeighborhood* neighborhood, const KsoNeighborhoodDefinition& definition)
{
    _edit(neighborhood, definition, KsmReason::Definition);
}
