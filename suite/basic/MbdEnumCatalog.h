#pragma once

#include <QtCore/QMap>
#include <QtCore/QStringList>

#include <basic/MbdCategoryDefinition.h>

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

    /// The category of the value; that of samples without a category where there is none.
    MbdCategoryDefinition getDefinition(short value) const
    {
        const auto found = _categories.constFind(value);
        return found == _categories.constEnd() ? getUndefinedCategory()
                                               : MbdCategoryDefinition(value, found->label, found->color);
    }
    /// That of samples without a category: without a label, in the colour for them.
    MbdCategoryDefinition getUndefinedCategory() const
    {
        return MbdCategoryDefinition(MbbGlobal::I16_FFFF, QString(), _undefColor);
    }
    /// Sets `names` to the labels of the categories, ascending by value; with `withUndefined`, the label of samples
    /// without a category stands before them.
    void getNamesList(QStringList& names, bool withUndefined) const
    {
        names.clear();
        if (withUndefined)
            names.append(getUndefinedCategory().getLabel());
        for (const Category& category : _categories)
            names.append(category.label);
    }

    friend bool operator==(const MbdEnumCatalog& a, const MbdEnumCatalog& b) = default;

private:
    QString _id;
    QString _name;
    MbbColor _undefColor = MbbColor(0xFFFFFFFF);
    QMap<int, Category> _categories;
};
