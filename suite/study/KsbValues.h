#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

#include <basic/MbdEVarType.h>

#include <vector>

/// The stored form of the values of a variable: numbers in the width of their type, lowest byte first, with the
/// undefined marker of that width (for bytes and booleans, of 16 bits and -1); texts as their length and their UTF-16
/// code units.
class KsbValues
{
public:
    /// A number that the type cannot hold is an `MbeUserError` that names its sample, counted from 1.
    static QByteArray encode(const MbdEVarType& type, const std::vector<double>& values);
    static QByteArray encode(const QStringList& texts);

    /// Bytes that are not those of `count` values are an `MbeError` of type `MbeError::Storage`.
    static std::vector<double> decode(const MbdEVarType& type, const QByteArray& bytes, int count);
    static QStringList decodeTexts(const QByteArray& bytes, int count);
};
