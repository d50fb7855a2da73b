#pragma once

#include <QtGui/QColor>

#include <util/KugEVolumeMarker.h>

/// How a point is drawn in a 3D scene. A plain value; a default one is a black sphere of size 1 and quality 0.5. The
/// size is in the scene's length unit, the quality runs from 0, the fewest facets, to 1; both are taken as they are
/// given. The opacity is the colour's alpha.
class KESTRIN_UTIL_EXPORT KugSymbol3D
{
public:
    const KugEVolumeMarker& getShape() const { return _shape; }
    void setShape(const KugEVolumeMarker& shape) { _shape = shape; }
    double getSize() const { return _size; }
    void setSize(double size) { _size = size; }
    double getQuality() const { return _quality; }
    void setQuality(double quality) { _quality = quality; }
    const QColor& getColor() const { return _color; }
    void setColor(const QColor& color) { _color = color; }

    friend bool operator==(const KugSymbol3D& a, const KugSymbol3D& b) = default;

private:
    KugEVolumeMarker _shape;
    double _size = 1.0;
    double _quality = 0.5;
    QColor _color = Qt::black;
};
