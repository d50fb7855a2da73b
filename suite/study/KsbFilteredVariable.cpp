#include <study/KsbFilteredVariable.h>

#include <QtCore/QObject>

#include <basic/MbeError.h>
#include <study/KsmModelData.h>
#include <study/KsmModelEnumCatalog.h>
#include <study/KssProject.h>

const KsoAVariableItem& KsbFilteredVariable::find(const KsoDataIdentifier& variable, const KsoDataSupport& support,
                                                  const QString& user)
{
    if (!variable.exists())
        throw MbeUserError(QObject::tr("%1: the variable '%2' does not exist.").arg(user, variable.getName()));
    const KsoAVariableItem* item = variable.getAVariableItem();
    if (!item)
        throw MbeUserError(
            QObject::tr("%1: '%2' does not have one value for each sample.").arg(user, variable.getName()));
    if (item->getSupport() != &support)
        throw MbeUserError(QObject::tr("%1: the variable '%2' does not lie on the support '%3'.")
                               .arg(user, variable.getName(), support.getName()));
    return *item;
}

QHash<short, QString> KsbFilteredVariable::labelsOf(const KsoAVariableItem& variable)
{
    const KssProject* project = variable.getModel()->getProject();
    const int catalogId = variable.getDetails().getEnumDetails().getCatalogId();
    const MbdEnumCatalog catalog = project->getModelEnumCatalog()->getValidItemFromId(catalogId)->getCatalog();
    QHash<short, QString> labels;
    for (auto category = catalog.getCategories().begin(); category != catalog.getCategories().end(); ++category)
        labels.insert(short(category.key()), category->label);
    return labels;
}
