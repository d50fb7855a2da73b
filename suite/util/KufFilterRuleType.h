#pragma once

#include <basic/MbbAEnumClass.h>
#include <util/UtilExport.h>

/// What kind of variable a rule of a sample filter is about. A default one is NUMERIC.
class KESTRIN_UTIL_EXPORT KufFilterRuleType : public MbbAEnumClass<KufFilterRuleType>
{
public:
    static const KufFilterRuleType SELECTION; ///< value 0; a boolean
    static const KufFilterRuleType NUMERIC;   ///< value 1
    static const KufFilterRuleType ALPHA;     ///< value 2; a text
    static const KufFilterRuleType ENUM;      ///< value 3; a category

    KufFilterRuleType() : KufFilterRuleType(NUMERIC) {}

    static QList<const KufFilterRuleType*> items();
    static constexpr const char* ClassName = "KufFilterRuleType";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
