#include <basic/MbeError.h>
#include <study/KsbDriverItemMemory.h>

#include <utility>

QList<KsbItemRecord> KsbDriverItemMemory::list(const QString& model) const
{
    QList<KsbItemRecord> records;
    for (const Entry& entry : _entries) {
        if (entry.model == model)
            records.append(entry.record);
    }
    return records;
}

KsbDriverItemMemory::Entry& KsbDriverItemMemory::_require(int id)
{
    const auto found = _entries.find(id);
    if (found == _entries.end())
        throw MbeError(MbeError::Storage, QStringLiteral("The store has no item of the id %1.").arg(id));
    return *found;
}

void KsbDriverItemMemory::_whenUndone(std::function<void()> undo)
{
    if (_inStep)
        _undo.push_back(std::move(undo));
}

int KsbDriverItemMemory::insert(const QString& model, const KsbItemRecord& record)
{
    Entry entry{model, record, {}};
    const int id = ++_lastId;
    entry.record.id = id;
    _entries.insert(id, entry);
    _whenUndone([this, id] { _entries.remove(id); });
    return id;
}

void KsbDriverItemMemory::update(const KsbItemRecord& record)
{
    Entry& entry = _require(record.id);
    const KsbItemRecord former = entry.record;
    entry.record = record;
    entry.record.kind = former.kind;
    _whenUndone([this, former] { _entries[former.id].record = former; });
}

void KsbDriverItemMemory::remove(const QList<int>& ids)
{
    for (const int id : ids) {
        const auto found = _entries.find(id);
        if (found == _entries.end())
            continue;
        const Entry former = *found;
        _entries.erase(found);
        _whenUndone([this, former] { _entries.insert(former.record.id, former); });
    }
}

std::optional<QByteArray> KsbDriverItemMemory::readContent(int id, int number) const
{
    const auto found = _entries.find(id);
    if (found == _entries.end())
        return std::nullopt;
    const auto content = found->contents.find(number);
    return content == found->contents.end() ? std::nullopt : std::optional<QByteArray>(*content);
}

void KsbDriverItemMemory::writeContent(int id, int number, const QByteArray& content)
{
    Entry& entry = _require(id);
    const QHash<int, QByteArray> former = entry.contents;
    entry.contents.insert(number, content);
    _whenUndone([this, id, former] { _entries[id].contents = former; });
}

void KsbDriverItemMemory::inOneStep(const std::function<void()>& body)
{
    if (_inStep) {
        body();
        return;
    }
    _inStep = true;
    try {
        body();
    }
    catch (...) {
        for (auto undo = _undo.rbegin(); undo != _undo.rend(); ++undo)
            (*undo)();
        _undo.clear();
        _inStep = false;
        throw;
    }
    _undo.clear();
    _inStep = false;
}
