#pragma once

#include <QtCore/QMap>
#include <QtCore/QString>

#include <basic/MbbColor.h>

/// The categories that a variable may have, such as rock types: each a number that samples hold, with a label and a
/// colour. A plain, implicitly shared value; a default one has no categories, no name, and opaque white for samples
/// without a category.
class KESTRIN_BASIC_EXPORT MbdEnumCatalog
{
public:
    struct Category
    {
        QString label;
        MbbColor color;

        friend bool operator==(const Category& a, const Category& b) = default;
    };

    MbdEnumCatalog() = default;
    MbdEnumCatalog(const QString& id, const QString& name) : _id(id), _name(name) {}

    const QString& getId() const { return _id; }
    void setId(const QString& id) { _id = id; }
    const QString& getName() const { return _name; }
    void setName(const QString& name) { _name = name; }
    /// The colour of samples without a category.
    const MbbColor& getUndefColor() const { return _undefColor; }
    void setUndefColor(const MbbColor& color) { _undefColor = color; }

    /// The categories by value, ascending.
    const QMap<int, Category>& getCategories() const { return _categories; }
    /// Adds the category of the value, or replaces it.
    void setCategory(int value, const QString& label, const MbbColor& color)
    {
        _categories.insert(value, Category{label, color});
    }
    void removeCategory(int value) { _categories.remove(value); }
    void clearCategories() { _categories.clear(); }

    friend bool operator==(const MbdEnumCatalog& a, const MbdEnumCatalog& b) = default;

private:
    QString _id;
    QString _name;
    MbbColor _undefColor = MbbColor(0xFFFFFFFF);
    QMap<int, Category> _categories;
};
