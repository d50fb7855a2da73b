#pragma once

#include <basic/MbbAEnumClass.h>
#include <study/StudyExport.h>

/// The parts of the registry of double lists. A default one is CUTOFFS.
class KESTRIN_STUDY_EXPORT KssEDoubleListType : public MbbAEnumClass<KssEDoubleListType>
{
public:
    static const KssEDoubleListType CUTOFFS;   ///< value 0
    static const KssEDoubleListType ISOLINES;  ///< value 1
    static const KssEDoubleListType QUANTILES; ///< value 2

    KssEDoubleListType() : KssEDoubleListType(CUTOFFS) {}

    static QList<const KssEDoubleListType*> items();
    static constexpr const char* ClassName = "KssEDoubleListType";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
