#pragma once

#include <basic/MbbAEnumClass.h>
#include <study/StudyExport.h>

/// The levels of the data tree: the greater the value, the deeper the level. Macro variables stand beside variables. A
/// default one is a directory.
class KESTRIN_STUDY_EXPORT KsoEDataType : public MbbAEnumClass<KsoEDataType>
{
public:
    static const KsoEDataType DIRECTORY;      ///< value 0
    static const KsoEDataType FILE;           ///< value 1
    static const KsoEDataType SUPPORT;        ///< value 2
    static const KsoEDataType VARIABLE;       ///< value 3
    static const KsoEDataType MACRO_VARIABLE; ///< value 4

    KsoEDataType() : KsoEDataType(DIRECTORY) {}

    static QList<const KsoEDataType*> items();
    static constexpr const char* ClassName = "KsoEDataType";

private:
    using MbbAEnumClass::MbbAEnumClass;
};
