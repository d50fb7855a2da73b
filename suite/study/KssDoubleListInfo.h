#pragma once

#include <QtCore/QList>

#include <basic/MbuEUnitClass.h>
#include <study/StudyExport.h>

/// What the registry of double lists has under a name. A plain value; a default one is invalid and stands for a name
/// that the registry does not know: it is empty, of plain numbers.
class KESTRIN_STUDY_EXPORT KssDoubleListInfo
{
public:
    KssDoubleListInfo() = default;
    KssDoubleListInfo(const MbuEUnitClass& unitClass, const QList<double>& list)
        : _valid(true),
          _unitClass(unitClass),
          _list(list)
    {}

    bool isValid() const { return _valid; }
    const MbuEUnitClass& getUnitClass() const { return _unitClass; }
    /// In the reference unit of the class.
    const QList<double>& getList() const { return _list; }

private:
    bool _valid = false;
    MbuEUnitClass _unitClass;
    QList<double> _list;
};
