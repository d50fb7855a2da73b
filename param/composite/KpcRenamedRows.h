#pragma once

#include "KpcCategoryRenames.h"

#include <optional>
#include <set>
#include <utility>

/// The rows of a table that rename a category, as they were last seen, with the names that the categories get in the
/// end. Seen so, no row renames to a name that a row above it renames.
///
/// It is brought up to date row by row, from the first to the last, or for a row that has changed: in nearly constant
/// time where the others need not be looked at again.
class KpcRenamedRows
{
public:
    /// A row without a `name` renames nothing.
    struct Rename
    {
        QString name;
        QString target;
    };

    /// No row has been seen.
    void clear();
    /// Takes what the row at `rank` says now, and gives the name that the category gets in the end. Nothing is taken
    /// where all rows have to be looked at from the first on, behind a `clear()`.
    std::optional<QString> look(int rank, const Rename& rename);

private:
    using Places = std::set<std::pair<QString, int>>;

    QString _lookAtLast(int rank, const Rename& rename);
    bool _isAlone(int rank, const Rename& rename) const;
    void _keep(int rank, const Rename& rename);

    std::vector<Rename> _rows;
    // The ranks of those that rename, by the old and by the new name.
    Places _names;
    Places _targets;
    // Of the rows above the last one that renames, unless one of them has changed since.
    KpcCategoryRenames _above;
    Rename _last;
    int _lastRank = -1;
    bool _knowsAbove = false;
    bool _knowsRows = false;
};
