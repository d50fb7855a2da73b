#include <registry/ClassRegistry.h>
#include <study/KstATransactableDefault.h>

#include <QtCore/QVector>

#include <algorithm>

namespace {

class NoProject : public KstATransactableDefault
{};

/// The number of characters to put in, take out or replace to get from one text to the other.
int editDistance(const QString& from, const QString& to)
{
    QVector<int> row(to.size() + 1);
    for (int column = 0; column < row.size(); ++column)
        row[column] = column;
    for (int i = 0; i < from.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < to.size(); ++j) {
            const int replaced = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.last();
}

/// How far a class name is from what was typed. The prefix of the module may be missing.
int slipDistance(const QString& typed, const QString& name)
{
    const QString lower = name.toLower();
    return std::min(editDistance(typed, lower), editDistance(typed, lower.mid(3)));
}

} // namespace

std::unique_ptr<KpbAParameter> ClassRegistry::Row::make(const QString& key) const
{
    static const NoProject noProject;
    return makeIn(key, noProject);
}

const ClassRegistry::Row* ClassRegistry::find(const QString& name)
{
    const std::vector<Row>& rows = getRows();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.name == name; });
    return found == rows.end() ? nullptr : &*found;
}

QStringList ClassRegistry::getCloseNames(const QString& name)
{
    constexpr int longestName = 64;
    if (name.isEmpty() || name.size() > longestName)
        return {};
    const QString typed = name.toLower();
    const int farthest = std::max(1, name.size() / 3);
    std::vector<std::pair<int, QString>> near;
    for (const Row& row : getRows()) {
        const int distance = slipDistance(typed, row.name);
        if (distance <= farthest)
            near.emplace_back(distance, row.name);
    }
    std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QStringList names;
    for (std::size_t i = 0; i < near.size() && i < 3; ++i)
        names.append(near[i].second);
    return names;
}
