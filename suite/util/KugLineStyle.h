#pragma once

#include <QtGui/QColor>

#include <util/KugEPen.h>

/// How a line is drawn. A plain value; a default one is a solid black line of width 1 without a border. Widths are in
/// points, and taken as they are given.
class KESTRIN_UTIL_EXPORT KugLineStyle
{
public:
    const KugEPen& getPen() const { return _pen; }
    void setPen(const KugEPen& pen) { _pen = pen; }
    const QColor& getColor() const { return _color; }
    void setColor(const QColor& color) { _color = color; }
    double getWidth() const { return _width; }
    void setWidth(double width) { _width = width; }

    /// Whether a second line, wider than the line by twice the border's width, shows behind it.
    bool hasBorder() const { return _border; }
    void setBorder(bool border) { _border = border; }
    const QColor& getBorderColor() const { return _borderColor; }
    void setBorderColor(const QColor& color) { _borderColor = color; }
    double getBorderWidth() const { return _borderWidth; }
    void setBorderWidth(double width) { _borderWidth = width; }

    friend bool operator==(const KugLineStyle& a, const KugLineStyle& b) = default;

private:
    KugEPen _pen;
    QColor _color = Qt::black;
    double _width = 1.0;
    bool _border = false;
    QColor _borderColor = Qt::black;
    double _borderWidth = 1.0;
};
