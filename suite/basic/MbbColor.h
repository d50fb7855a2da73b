#pragma once

#include <QtCore/QtGlobal>

#include <basic/BasicExport.h>

/// A colour as one word: opacity, red, green and blue, eight bits each from the highest down, 0xAARRGGBB. A default one
/// is opaque black.
class KESTRIN_BASIC_EXPORT MbbColor
{
public:
    MbbColor() = default;
    explicit MbbColor(quint32 rgba) : _rgba(rgba) {}

    quint32 getRgba() const { return _rgba; }
    void setRgba(quint32 rgba) { _rgba = rgba; }

    friend bool operator==(const MbbColor& a, const MbbColor& b) = default;

private:
    quint32 _rgba = 0xFF000000;
};
