#pragma once

#include <QtCore/QString>

#include <basic/MbbColor.h>
#include <basic/MbbGlobal.h>

/// One category of a catalog: the number that samples hold, a label and a colour. A plain value; a default one is that
/// of samples without a category, in opaque white.
class KESTRIN_BASIC_EXPORT MbdCategoryDefinition
{
public:
    MbdCategoryDefinition() = default;
    MbdCategoryDefinition(short value, const QString& label, const MbbColor& color)
        : _value(value),
          _label(label),
          _color(color)
    {}

    /// `MbbGlobal::I16_FFFF` for samples without a category.
    short getValue() const { return _value; }
    const QString& getLabel() const { return _label; }
    void setLabel(const QString& label) { _label = label; }
    const MbbColor& getColor() const { return _color; }
    void setColor(const MbbColor& color) { _color = color; }

    friend bool operator==(const MbdCategoryDefinition& a, const MbdCategoryDefinition& b) = default;

private:
    short _value = MbbGlobal::I16_FFFF;
    QString _label;
    MbbColor _color = MbbColor(0xFFFFFFFF);
};
