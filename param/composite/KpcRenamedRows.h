#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

#include <set>
#include <vector>

/// The rows of a table that rename a category, with the names that the categories get in the end: one that is renamed
/// to the old name of a row above it gets the name which that row gets, and follows where rows in between lead from
/// there.
///
/// Looking at a row takes time in proportion to the number of the renames that it follows, and not of the rows.
class KpcRenamedRows
{
public:
    /// Takes what the row at `rank` says, and gives the name that its category gets in the end. A row with an empty
    /// `name` renames nothing.
    QString look(int rank, const QString& name, const QString& target);
    /// The first row below `rank` that leads to the name which the row `renaming` renames, and has to be looked at
    /// again therefore; -1 if there is none.
    int findFollower(int renaming, int rank) const;

private:
    struct Row
    {
        int name = -1;
        int target = -1;
    };
    struct Name
    {
        QString text;
        // The ranks of the rows that rename it, and of those that lead to it.
        std::set<int> renamedBy;
        std::set<int> targetOf;
    };

    int _find(const QString& text);
    int _follow(int target, int rank) const;
    void _keep(int rank, const Row& row);

    std::vector<Row> _rows;
    std::vector<Name> _names;
    QHash<QString, int> _places;
};
