#pragma once

#include <QtCore/QString>

#include <basic/BasicExport.h>
#include <basic/MbbColor.h>

/// One rule of a categorisation of samples: the name and the colour of the category, and the condition that samples
/// fulfil that belong to it. A plain value.
class KESTRIN_BASIC_EXPORT MbcCategoryRule
{
public:
    MbcCategoryRule() = default;
    MbcCategoryRule(const QString& name, const QString& cond, const MbbColor& color)
        : _name(name),
          _cond(cond),
          _color(color)
    {}

    const QString& getName() const { return _name; }
    void setName(const QString& name) { _name = name; }
    const QString& getCond() const { return _cond; }
    void setCond(const QString& cond) { _cond = cond; }
    const MbbColor& getColor() const { return _color; }
    void setColor(const MbbColor& color) { _color = color; }
    quint32 getRgba() const { return _color.getRgba(); }

    friend bool operator==(const MbcCategoryRule& a, const MbcCategoryRule& b) = default;

private:
    QString _name;
    QString _cond;
    MbbColor _color;
};
