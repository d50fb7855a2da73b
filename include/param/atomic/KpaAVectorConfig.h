#pragma once

#include <QtCore/QStringList>

#include <basic/MbbGlobal.h>
#include <basic/MbbOrderedMap.h>
#include <param/Kp.h>
#include <param/KpbEType.h>
#include <param/atomic/KpaConfigTools.h>

#include <algorithm>
#include <array>

/// What a parameter with up to three components admits: a configuration of numbers for each of them, how many of them
/// are live, what stands in the others, and how they follow the first. Setters give whether something changed.
///
/// An index of a component out of range reaches the nearest one.
template <class Vector, class Scalar, class ItemConfig>
class Q_DECL_EXPORT KpaAVectorConfig
{
public:
    static constexpr int ComponentCount = 3;

    /// All fields.
    friend bool operator==(const KpaAVectorConfig& a, const KpaAVectorConfig& b) = default;

    const KpbEType& getType() const { return _type; }
    Vector getInitialValue() const { return Vector(); }

    /// The number of live components.
    Kp::VectorDim getDimension() const { return _dimension; }
    /// What stands in the components beyond the dimension.
    Scalar getFillValue() const { return _fillValue; }
    Kp::VectorLink getLinkMode() const { return _linkMode; }
    ItemConfig& itemConfig(int i) { return _itemConfigs[_index(i)]; }
    const ItemConfig& itemConfig(int i) const { return _itemConfigs[_index(i)]; }
    QString& itemLabel(int i) { return _labels[_index(i)]; }
    const QString& itemLabel(int i) const { return _labels[_index(i)]; }

    bool setDimension(Kp::VectorDim dimension, Scalar fillValue);
    bool setLinkMode(Kp::VectorLink mode) { return KpaConfigTools::store(_linkMode, mode); }

    /// Each component within its own limits, the fill value of those beyond the dimension included. Links come last: a
    /// linked component takes what the first one has, even where that lies outside its own limits. What an undefined
    /// component falls back on is the initial value, never `previous`.
    Vector fix(const Vector& vector, const Vector& previous) const;
    Vector fix(const Vector& vector) const { return fix(vector, getInitialValue()); }
    /// The live components in brackets, one alone without; the text for a missing value unless all three are defined.
    QString toString(const Vector& vector) const;
    MbbOrderedMap<QString, QString> serializeValue(const Vector& vector) const;
    /// All three components, or `previous` whole where one is missing or is not defined.
    Vector unserializeValue(const MbbOrderedMap<QString, QString>& map, const Vector& previous) const;
    QString debug() const;

    /// `i`, or the nearest index of a component.
    static int nearestComponent(int i) { return std::clamp(i, 0, ComponentCount - 1); }

protected:
    explicit KpaAVectorConfig(const KpbEType& type) : _type(type) {}

private:
    static std::size_t _index(int i) { return std::size_t(nearestComponent(i)); }
    static QString _storedKey(int i) { return QStringLiteral("v%1").arg(i + 1); }
    static const char* _linkText(Kp::VectorLink mode);
    void _link(Vector& vector) const;
    QString _itemText(const Vector& vector, int i) const { return itemConfig(i).toString(vector[i]); }

    KpbEType _type;
    Scalar _fillValue = 0;
    Kp::VectorDim _dimension = Kp::VectorDim3;
    Kp::VectorLink _linkMode = Kp::NoLink;
    std::array<QString, ComponentCount> _labels;
    std::array<ItemConfig, ComponentCount> _itemConfigs;
};

template <class Vector, class Scalar, class ItemConfig>
bool KpaAVectorConfig<Vector, Scalar, ItemConfig>::setDimension(Kp::VectorDim dimension, Scalar fillValue)
{
    const bool dimensionChanged = KpaConfigTools::store(_dimension, dimension);
    const bool fillChanged = KpaConfigTools::store(_fillValue, fillValue);
    return dimensionChanged || fillChanged;
}

template <class Vector, class Scalar, class ItemConfig>
Vector KpaAVectorConfig<Vector, Scalar, ItemConfig>::fix(const Vector& vector, const Vector&) const
{
    const Vector initial = getInitialValue();
    Vector fixed = vector;
    for (int i = 0; i < ComponentCount; ++i) {
        const bool live = i == 0 || i < int(_dimension);
        fixed[i] = itemConfig(i).fix(live ? vector[i] : _fillValue, initial[i]);
    }
    _link(fixed);
    return fixed;
}

template <class Vector, class Scalar, class ItemConfig>
void KpaAVectorConfig<Vector, Scalar, ItemConfig>::_link(Vector& vector) const
{
    const bool all = _linkMode == Kp::LinkAll;
    if (_linkMode == Kp::LinkHorizontal || (all && _dimension >= Kp::VectorDim2))
        vector[1] = vector[0];
    if (all && _dimension >= Kp::VectorDim3)
        vector[2] = vector[0];
}

template <class Vector, class Scalar, class ItemConfig>
QString KpaAVectorConfig<Vector, Scalar, ItemConfig>::toString(const Vector& vector) const
{
    if (!vector.isDefined())
        return MbbGlobal::STR_NA;
    if (_dimension == Kp::VectorDim1)
        return _itemText(vector, 0);
    QStringList texts;
    for (int i = 0; i < std::min(int(_dimension), ComponentCount); ++i)
        texts.append(_itemText(vector, i));
    return QLatin1Char('[') + texts.join(QLatin1Char(',')) + QLatin1Char(']');
}

template <class Vector, class Scalar, class ItemConfig>
MbbOrderedMap<QString, QString> KpaAVectorConfig<Vector, Scalar, ItemConfig>::serializeValue(const Vector& vector) const
{
    MbbOrderedMap<QString, QString> map;
    for (int i = 0; i < ComponentCount; ++i) {
        const auto item = itemConfig(i).serializeValue(vector[i]);
        map.insert(_storedKey(i), item.value(KpaConfigTools::valueKey()));
    }
    return map;
}

template <class Vector, class Scalar, class ItemConfig>
Vector KpaAVectorConfig<Vector, Scalar, ItemConfig>::unserializeValue(const MbbOrderedMap<QString, QString>& map,
                                                                      const Vector& previous) const
{
    Vector read = previous;
    for (int i = 0; i < ComponentCount; ++i) {
        const QString* text = map.find(_storedKey(i));
        if (!text)
            return previous;
        read[i] = itemConfig(i).unserializeValue(KpaConfigTools::singleValue(*text), previous[i]);
    }
    return read.isDefined() ? read : previous;
}

template <class Vector, class Scalar, class ItemConfig>
const char* KpaAVectorConfig<Vector, Scalar, ItemConfig>::_linkText(Kp::VectorLink mode)
{
    switch (mode) {
    case Kp::LinkAll:
        return "LINK ALL";
    case Kp::LinkHorizontal:
        return "LINK HORIZONTAL";
    default:
        return "NO LINK";
    }
}

template <class Vector, class Scalar, class ItemConfig>
QString KpaAVectorConfig<Vector, Scalar, ItemConfig>::debug() const
{
    QString text;
    QTextStream stream(&text);
    stream.setRealNumberPrecision(10);
    stream << "----- KpaAVectorConfig ------\n"
           << " nb dimensions    = " << int(_dimension) << '\n'
           << " fill value       = " << _fillValue << '\n'
           << " link mode        = " << _linkText(_linkMode) << '\n';
    for (int i = 0; i < ComponentCount; ++i)
        stream << " label " << i + 1 << "          = " << itemLabel(i) << '\n';
    for (const ItemConfig& config : _itemConfigs)
        stream << config.debug();
    stream.flush();
    return text;
}
