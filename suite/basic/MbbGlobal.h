#pragma once

#include <QtCore/QString>
#include <QtCore/QtGlobal>

#include <basic/BasicExport.h>

#include <limits>

/// The reserved values that stand for "undefined", and conversions of text to numbers.
class KESTRIN_BASIC_EXPORT MbbGlobal
{
public:
    static constexpr qint16 I16_FFFF = std::numeric_limits<qint16>::min();
    static constexpr qint32 I32_FFFF = std::numeric_limits<qint32>::min();
    static constexpr qint64 I64_FFFF = std::numeric_limits<qint64>::min();
    static constexpr quint64 UI64_FFFF = std::numeric_limits<quint64>::max();
    static constexpr double D_FFFF = std::numeric_limits<double>::max();
    static constexpr float F_FFFF = std::numeric_limits<float>::max();

    /// The text for a value that is missing: "N/A".
    static const QString STR_NA;

    /// Reads a number in the C locale. Blanks around it are allowed; an empty text, other characters, a number out of
    /// the type's range and, for doubles, an infinity or a NaN give false and leave `value` as it was.
    static bool convertString(const QString& text, int& value);
    static bool convertString(const QString& text, qint64& value);
    static bool convertString(const QString& text, double& value);
};
