#pragma once

#include <QtGui/QColor>

#include <util/KugEMarker.h>

/// How a point is drawn on a map or a chart. A plain value; a default one is a black circle of size 8 without a border.
/// Opacities are the colours' alpha. The size is in points, and taken as it is given.
class KESTRIN_UTIL_EXPORT KugSymbol
{
public:
    const KugEMarker& getShape() const { return _shape; }
    void setShape(const KugEMarker& shape) { _shape = shape; }
    int getSize() const { return _size; }
    void setSize(int size) { _size = size; }
    const QColor& getColor() const { return _color; }
    void setColor(const QColor& color) { _color = color; }

    bool isBorderDrawn() const { return _drawBorder; }
    void setDrawBorder(bool draw) { _drawBorder = draw; }
    const QColor& getBorderColor() const { return _borderColor; }
    void setBorderColor(const QColor& color) { _borderColor = color; }

    friend bool operator==(const KugSymbol& a, const KugSymbol& b) = default;

private:
    KugEMarker _shape;
    int _size = 8;
    QColor _color = Qt::black;
    bool _drawBorder = false;
    QColor _borderColor = Qt::black;
};
