#include <study/KsmModelEnumCatalog.h>

#include <study/KsbColorJson.h>
#include <study/KsbJson.h>

#include <QtCore/QJsonArray>
#include <QtCore/QSet>

#include <limits>

template class KsmANamedModel<KsoEnumCatalogKind>;

namespace {

const QString categoriesKey = QStringLiteral("categories");
const QString valueKey = QStringLiteral("value");
const QString labelKey = QStringLiteral("label");
const QString colorKey = QStringLiteral("color");
const QString undefColorKey = QStringLiteral("undefColor");

void requireNew(const QJsonObject& json, int value, const QString& label, const MbdEnumCatalog& former,
                QSet<QString>& labels)
{
    if (!json.contains(valueKey) || former.getCategories().contains(value))
        KsbJson::failDamaged(valueKey);
    if (label.isEmpty())
        throw MbeError(MbeError::Storage, QStringLiteral("A category has no label."));
    if (labels.contains(label))
        throw MbeError(MbeError::Storage, QStringLiteral("Two categories have the label '%1'.").arg(label));
    labels.insert(label);
}

} // namespace

KsoEnumCatalogIdentifier::KsoEnumCatalogIdentifier(KsmModelEnumCatalog* model, const QString& name)
    : KsoANamedIdentifierOf(model, name)
{}

QJsonObject KsoEnumCatalogKind::write(const Content& content)
{
    QJsonArray categories;
    const auto& stored = content.getCategories();
    for (auto it = stored.constBegin(); it != stored.constEnd(); ++it) {
        categories.append(
            QJsonObject{{valueKey, it.key()}, {labelKey, it->label}, {colorKey, KsbColorJson::toText(it->color)}});
    }
    return {{categoriesKey, categories}, {undefColorKey, KsbColorJson::toText(content.getUndefColor())}};
}

MbdEnumCatalog KsoEnumCatalogKind::read(const QJsonObject& json)
{
    MbdEnumCatalog catalog;
    catalog.setUndefColor(KsbColorJson::read(json, undefColorKey, catalog.getUndefColor()));
    QSet<QString> labels;
    for (const QJsonObject& category : KsbJson::readObjects(json, categoriesKey)) {
        const int value =
            KsbJson::readInt(category, valueKey, MbbGlobal::I16_FFFF + 1, std::numeric_limits<qint16>::max(), 0);
        const QString label = KsbJson::readText(category, labelKey);
        requireNew(category, value, label, catalog, labels);
        catalog.setCategory(value, label, KsbColorJson::read(category, colorKey, MbbColor()));
    }
    return catalog;
}

MbdEnumCatalog KsoEnumCatalog::getCatalog() const
{
    MbdEnumCatalog catalog = getContent();
    catalog.setId(QString::number(getId()));
    catalog.setName(getName());
    return catalog;
}

KsmModelEnumCatalog::KsmModelEnumCatalog(KssProject* project, KsbIDriverItem* driver) : KsmANamedModel(project, driver)
{
    _load();
}

KsmModelEnumCatalog::~KsmModelEnumCatalog() = default;

void KsmModelEnumCatalog::addCategory(KsoEnumCatalog* catalog, const MbdCategoryDefinition& category)
{
    _requireOwn(catalog);
    MbdEnumCatalog content = catalog->getContent();
    if (content.getCategories().contains(category.getValue()))
        throw MbeUserError(
            QStringLiteral("The catalog has a category of the value %1 already.").arg(category.getValue()));
    content.setCategory(category.getValue(), category.getLabel(), category.getColor());
    _edit(catalog, content, KsmReason::CategoryAdded);
}

template <class Edit>
void KsmModelEnumCatalog::_editCategory(KsoEnumCatalog* catalog, short value, int reason, Edit edit)
{
    _requireOwn(catalog);
    MbdEnumCatalog content = catalog->getContent();
    if (!content.getCategories().contains(value))
        throw MbeUserError(QStringLiteral("The catalog has no category of the value %1.").arg(value));
    edit(content, content.getCategories().value(value));
    _edit(catalog, content, reason);
}

void KsmModelEnumCatalog::setCategoryLabel(KsoEnumCatalog* catalog, short value, const QString& label)
{
    _editCategory(catalog, value, KsmReason::CategoryRenamed,
                  [&](MbdEnumCatalog& content, const MbdEnumCatalog::Category& category) {
                      content.setCategory(value, label, category.color);
                  });
}

void KsmModelEnumCatalog::setCategoryColor(KsoEnumCatalog* catalog, short value, const MbbColor& color)
{
    _editCategory(catalog, value, KsmReason::CategoryColor,
                  [&](MbdEnumCatalog& content, const MbdEnumCatalog::Category& category) {
                      content.setCategory(value, category.label, color);
                  });
}

void KsmModelEnumCatalog::removeCategory(KsoEnumCatalog* catalog, short value)
{
    _editCategory(catalog, value, KsmReason::CategoryRemoved,
                  [&](MbdEnumCatalog& content, const MbdEnumCatalog::Category&) { content.removeCategory(value); });
}

void KsmModelEnumCatalog::setUndefColor(KsoEnumCatalog* catalog, const MbbColor& color)
{
    _requireOwn(catalog);
    MbdEnumCatalog content = catalog->getContent();
    content.setUndefColor(color);
    _edit(catalog, content, KsmReason::UndefinedColor);
}
