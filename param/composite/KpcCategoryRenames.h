#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

#include <vector>

/// The names that renamed categories get in the end, as the renames come in one after the other: of a category that is
/// renamed onto one which is renamed later, the later name. Each operation takes constant time, or nearly so.
class KpcCategoryRenames
{
public:
    /// The name that a category gets which is to be renamed to `target`.
    QString follow(const QString& target) const;
    /// Names that lead to `name` lead to `target` from now on; so does `name`, whatever it led to before.
    void add(const QString& name, const QString& target);
    void clear();

private:
    // Names that lead to the same target. One that has been united with another stands for nothing of its own.
    struct Group
    {
        QString target;
        int unitedWith;
    };

    int _find(int group) const;
    int _groupWith(const QString& target);
    void _redirect(const QString& from, const QString& to);

    mutable std::vector<Group> _groups;
    QHash<QString, int> _groupOfName;
    QHash<QString, int> _groupOfTarget;
};
