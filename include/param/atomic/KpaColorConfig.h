#pragma once

#include <QtGui/QColor>

#include <basic/MbbOrderedMap.h>
#include <param/KpExport.h>
#include <param/KpbEType.h>

/// What a colour parameter admits: every colour, or only opaque ones.
class KESTRIN_PARAM_EXPORT KpaColorConfig
{
public:
    friend bool operator==(const KpaColorConfig& a, const KpaColorConfig& b) = default;

    const KpbEType& getType() const { return KpbEType::COLOR; }
    QColor getInitialValue() const { return Qt::black; }

    bool isAlphaEnabled() const { return _alphaEnabled; }
    /// Whether colours may be transparent. Gives whether something changed.
    bool setAlphaEnabled(bool enabled);

    /// The colour, made opaque where transparent ones are not admitted.
    QColor fix(const QColor& value, const QColor& previous) const;
    /// Such as "#ff8000", and the opacity in percent behind it unless it is full.
    QString toString(const QColor& value) const;
    MbbOrderedMap<QString, QString> serializeValue(const QColor& value) const;
    /// Components that are missing or are no numbers are those of `previous`, an opacity is full; numbers out of range
    /// are moved to the nearer end. The result is a colour in red, green and blue.
    QColor unserializeValue(const MbbOrderedMap<QString, QString>& map, const QColor& previous) const;
    QString debug() const;

private:
    bool _alphaEnabled = true;
};
