#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

#include <study/StudyExport.h>

class KsoAVariableItem;
class KsoDataIdentifier;
class KsoDataSupport;

/// What sample filters and categories need of the variables that they name.
class KESTRIN_STUDY_EXPORT KsbFilteredVariable
{
public:
    /// The variable; an `MbeUserError`, which begins with `user`, if it does not exist, is none with one value for each
    /// sample, or lies on another support.
    static const KsoAVariableItem& find(const KsoDataIdentifier& variable, const KsoDataSupport& support,
                                        const QString& user);
    /// The labels of the categories of the variable, by the number that samples hold. What the model of catalogs throws
    /// passes.
    static QHash<short, QString> labelsOf(const KsoAVariableItem& variable);
};
