#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KsoDataSubset.h>
#include <study/KssProject.h>

#include <algorithm>

namespace {

MbdVariableDetails detailsOf(const KsoADataItem* item)
{
    if (const auto* variable = dynamic_cast<const KsoAVariableItem*>(item))
        return variable->getDetails();
    if (const auto* macro = dynamic_cast<const KsoDataMacroVariable*>(item))
        return macro->getDetails();
    return MbdVariableDetails();
}

MbdEnumCatalog catalogOf(const KsoADataItem* item)
{
    const KsmModelEnumCatalog* catalogs = item->getModel()->getProject()->getModelEnumCatalog();
    const KsoEnumCatalog* catalog =
        catalogs ? catalogs->getItemFromId(detailsOf(item).getEnumDetails().getCatalogId()) : nullptr;
    return catalog ? catalog->getCatalog() : MbdEnumCatalog();
}

QString labelOf(const MbdEnumCatalog& catalog, short category)
{
    if (category == MbbGlobal::I16_FFFF)
        return QStringLiteral("undefined");
    const QString label = catalog.getDefinition(category).getLabel();
    return label.isEmpty() ? QString::number(category) : label;
}

QList<short> sorted(QList<short> categories)
{
    std::sort(categories.begin(), categories.end());
    categories.erase(std::unique(categories.begin(), categories.end()), categories.end());
    return categories;
}

} // namespace

void KsoDataSubset::complement()
{
    _complemented = !_complemented;
    _selectedSampleCount = 0;
}

void KsoDataSubset::setCounted(bool counted)
{
    _counted = counted;
    _selectedSampleCount = 0;
}

void KsoDataSubset::setIntervals(const MbiAIntervalIntDisjoint& intervals)
{
    _intervals = intervals;
    _selectedSampleCount = 0;
}

void KsoDataSubset::setCategories(const QList<short>& categories)
{
    _categories = categories;
    _selectedSampleCount = 0;
}

void KsoDataSubset::setSelectionVar(const KsoDataIdentifier& variable)
{
    _variable = variable;
    _selectedSampleCount = 0;
}

QString KsoDataSubset::toString(const KsoDataIdentifier& root) const
{
    QString text = _variable.toString(root);
    if (text.isEmpty())
        return text;
    if (isInverted())
        text.prepend(QStringLiteral("not "));
    const KsoADataItem* item = getSelectionVar();
    if (!item || detailsOf(item).getType() != MbdEVarType::ENUM)
        return text;
    const MbdEnumCatalog catalog = catalogOf(item);
    QStringList labels;
    for (const short category : _categories)
        labels.append(labelOf(catalog, category));
    return text + QStringLiteral(" (%1)").arg(labels.join(QStringLiteral(", ")));
}

bool KsoDataSubset::_isEqual(const KsoDataSubset& other) const
{
    return isInverted() == other.isInverted() && _intervals == other._intervals && _variable == other._variable &&
           sorted(_categories) == sorted(other._categories);
}
