#include "KpnModifIndex.h"

#include <param/KpbAParameter.h>
#include <param/KpnModif.h>
#include <param/KpnModifIterator.h>

#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <algorithm>
#include <utility>

template class KuoAObservable<KpnModif>;
template class KuoLock<KpnModif>;
template class KuoLockObserver<KpnModif>;

KpbAParameter* ObservableTraits<KpnModif>::fromBase(const KuoAObservable<KpnModif>* base)
{
    return static_cast<KpbAParameter*>(const_cast<KuoAObservable<KpnModif>*>(base));
}

namespace {

// The room that the last large record of the thread has left to the next one: batches follow each other, and fresh
// memory is dear. Records may outlive it at the end of the thread.
class SpareRoom
{
public:
    using Entries = QVector<KpnModif::Entry>;

    static void take(Entries& entries)
    {
        if (!_isOver)
            entries.swap(_instance()._entries);
    }
    static void giveBack(Entries& entries)
    {
        if (_isOver || !entries.isDetached() || entries.capacity() > MaxEntries ||
            entries.capacity() <= _instance()._entries.capacity())
            return;
        entries.clear();
        entries.swap(_instance()._entries);
    }

private:
    // 8 MiB
    static constexpr int MaxEntries = (8 << 20) / int(sizeof(KpnModif::Entry));

    SpareRoom() = default;
    ~SpareRoom() { _isOver = true; }
    static SpareRoom& _instance()
    {
        static thread_local SpareRoom room;
        return room;
    }

    static thread_local bool _isOver;
    Entries _entries;
};

thread_local bool SpareRoom::_isOver = false;

} // namespace

/// The entries of a record that has, or had, more than one. Nothing is rechecked while nothing has died, and what a
/// merge has to drop is dropped when somebody looks, so that merging n records takes time in proportion to n.
class KpnModif::Many
{
public:
    explicit Many(const Entry& first) : _dropBy(KpnLife::deaths()), _droppedBy(_dropBy)
    {
        SpareRoom::take(_entries);
        if (_entries.capacity() == 0)
            _entries.reserve(InitialRoom);
        add(first);
    }
    ~Many() { SpareRoom::giveBack(_entries); }
    // The index of the copy is made when it is needed.
    Many(const Many& other)
        : _entries(other._entries),
          _dropBy(other._dropBy),
          _droppedBy(other._droppedBy),
          _settleAt(other._settleAt),
          _hasInvalid(other._hasInvalid),
          _sorted(other._sorted)
    {}
    Many& operator=(const Many&) = delete;

    // Drops what the merges so far have to drop.
    void settle()
    {
        if (_dropBy == _droppedBy)
            return;
        _droppedBy = _dropBy;
        _remove([&](const Entry& entry) { return entry.path.diedBy(_dropBy); });
    }

    const QVector<Entry>& entries()
    {
        settle();
        return _entries;
    }

    // To be called before a merge: every entry whose path is dead by now goes.
    void compress()
    {
        if (_hasInvalid) {
            _hasInvalid = false;
            _remove([](const Entry& entry) { return !entry.path.isValid(); });
        }
        _dropBy = KpnLife::deaths();
    }

    void add(const Entry& entry)
    {
        const bool valid = entry.path.isValid();
        if (!valid)
            settle(); // what is due to go is not to be taken for the dead entry that comes
        if (Entry* known = valid ? _find(entry.path) : _findByPath(entry.path)) {
            known->flags |= entry.flags;
            return;
        }
        if (_entries.size() >= _settleAt) {
            settle();
            _settleAt = std::max(SettleFrom, _entries.size() * 2);
        }
        _hasInvalid = _hasInvalid || !valid;
        _sorted = false;
        if (_entries.size() == _entries.capacity())
            _entries.reserve(_entries.size() * (_entries.size() < ManyEntries ? 8 : 2));
        _entries.append(entry);
        _index.add(_entries);
    }

    void append(KpbAParameter* parameter)
    {
        settle();
        for (Entry& entry : _entries)
            entry.path.append(parameter);
        _remove([](const Entry& entry) { return !entry.path.isValid(); });
        _hasInvalid = false;
        _dropBy = _droppedBy = KpnLife::deaths();
        _sorted = false;
        _index.clear();
    }

    // Into the order that the paths had when the last merge began: what dies afterwards keeps its place.
    void sort()
    {
        settle();
        if (std::exchange(_sorted, true))
            return;
        std::sort(_entries.begin(), _entries.end(),
                  [&](const Entry& a, const Entry& b) { return a.path.wasLess(b.path, _dropBy); });
        _index.clear();
    }

private:
    static constexpr int InitialRoom = 16;
    static constexpr int ManyEntries = 1024;
    static constexpr int SettleFrom = 64;

    template <class Gone>
    void _remove(Gone gone)
    {
        const auto end = std::remove_if(_entries.begin(), _entries.end(), gone);
        if (end == _entries.end())
            return;
        _entries.erase(end, _entries.end());
        _index.clear();
    }

    Entry* _find(const KpnPath& path)
    {
        const int at = _index.find(_entries, path);
        return at == _entries.size() ? nullptr : &_entries[at];
    }

    Entry* _findByPath(const KpnPath& path)
    {
        const auto found =
            std::find_if(_entries.begin(), _entries.end(), [&](const Entry& entry) { return entry.path == path; });
        return found == _entries.end() ? nullptr : &*found;
    }

    // Grows without being copied where the system can move its pages.
    QVector<Entry> _entries;
    KpnModifIndex _index;
    // Deaths up to which dead entries have to go, and have gone.
    quint64 _dropBy;
    quint64 _droppedBy;
    // The number of entries from which on the dead are not left to pile up until somebody looks.
    int _settleAt = SettleFrom;
    // An entry came in that was dead already.
    bool _hasInvalid = false;
    bool _sorted = false;
};

KpnModif::KpnModif(Flags flags, KpbAParameter* parameter)
{
    _single.path.append(parameter ? parameter->_getLife() : nullptr);
    _single.flags = flags;
}

KpnModif::KpnModif(Flags flags, const KpnPath& path)
{
    if (path.isValid())
        _insert(Entry{path, flags});
}

KpnModif::KpnModif(const KpnModif& other)
    : KuoAObservableModif(other),
      MbbIDebuggable(other),
      _single(other._single),
      _many(other._many)
{}

KpnModif::KpnModif(KpnModif&& other) noexcept
    : KuoAObservableModif(other),
      MbbIDebuggable(other),
      _single(std::move(other._single)),
      _many(std::move(other._many)),
      _map(std::move(other._map))
{}

KpnModif& KpnModif::operator=(const KpnModif& other)
{
    if (this != &other)
        *this = KpnModif(other);
    return *this;
}

KpnModif& KpnModif::operator=(KpnModif&& other) noexcept
{
    if (this != &other) {
        KuoAObservableModif::operator=(other);
        _single = std::move(other._single);
        _many = std::move(other._many);
        _map = std::move(other._map);
    }
    return *this;
}

KpnModif::Range KpnModif::_entries() const
{
    if (_many) {
        const QVector<Entry>& entries = _many->entries();
        return {entries.constData(), entries.constData() + entries.size()};
    }
    return {&_single, &_single + (_hasSingle() ? 1 : 0)};
}

KpnModif::Range KpnModif::_ordered() const
{
    if (_many)
        _many->sort();
    return _entries();
}

int KpnModif::getNumberOfModif() const
{
    const Range range = _entries();
    return int(range.end - range.begin);
}

KpnModif::Many& KpnModif::_detached()
{
    if (_many.use_count() > 1)
        _many = std::make_shared<Many>(*_many);
    return *_many;
}

void KpnModif::_insert(const Entry& entry)
{
    _changed();
    if (_many) {
        _detached().add(entry);
        return;
    }
    if (!_hasSingle()) {
        _single = entry;
        return;
    }
    if (_single.path == entry.path) {
        _single.flags |= entry.flags;
        return;
    }
    _many = std::make_shared<Many>(_single);
    _single = Entry{};
    _many->add(entry);
}

void KpnModif::_compress()
{
    if (_many) {
        _detached().compress();
    }
    else if (_hasSingle() && !_single.path.isValid()) {
        _single = Entry{};
    }
}

void KpnModif::_merge(const KpnModif& other)
{
    _changed();
    _compress();
    if (&other == this)
        return;
    if (_many && other._hasSingle()) {
        _many->add(other._single);
        return;
    }
    const Range range = other._entries();
    for (const Entry* entry = range.begin; entry != range.end; ++entry)
        _insert(*entry);
}

KpnModif::Stretch::Stretch(const KpnModif& modif, KpbAParameter* parameter) : _modif(modif), _sender(modif.getSender())
{
    _modif._single.path.append(parameter->_getLife());
}

KpnModif::Stretch::~Stretch()
{
    _modif._single.path.removeLast();
    _modif._map.reset();
    _modif.setObservable(_sender);
}

void KpnModif::append(KpbAParameter* parameter)
{
    _changed();
    if (_many) {
        _detached().append(parameter);
    }
    else if (_hasSingle()) {
        _single.path.append(parameter);
        _compress();
    }
}

namespace {

bool concernsOne(const KpnPath& path, KpnModif::Flags changed, const KpbAParameter* parameter, bool composite,
                 KpnModif::Flags flags)
{
    const bool asOrigin = !composite || flags.testFlag(Kp::NotifyChildren);
    if (asOrigin && (changed & flags) && path.getFirst() == parameter)
        return true;
    return composite && (changed & flags & ~KpnModif::Flags(Kp::NotifyChildren)) && path.contains(parameter);
}

} // namespace

bool KpnModif::concerns(const KpnPath& path, Flags changed, const KpbAParameter* parameter, Flags flags)
{
    return parameter && concernsOne(path, changed, parameter, parameter->hasChildren(), flags);
}

bool KpnModif::hasModif(const KpbAParameter* parameter, const Flags& flags) const
{
    if (!parameter)
        return false;
    const bool composite = parameter->hasChildren();
    const Range range = _entries();
    return std::any_of(range.begin, range.end, [&](const Entry& entry) {
        return concernsOne(entry.path, entry.flags, parameter, composite, flags);
    });
}

bool KpnModif::hasNotification(const Flags& flags) const
{
    const Range range = _entries();
    return std::any_of(range.begin, range.end, [&](const Entry& entry) { return entry.flags & flags; });
}

KpnModif::Entry* KpnModif::_firstWith(const KpbAParameter* parameter, Kp::NotificationFlag flag, bool anywhere)
{
    if (_many)
        _detached();
    const Range range = _ordered();
    const Entry* found = std::find_if(range.begin, range.end, [&](const Entry& entry) {
        return entry.flags.testFlag(flag) &&
               (anywhere ? entry.path.contains(parameter) : entry.path.getFirst() == parameter);
    });
    return found == range.end ? nullptr : const_cast<Entry*>(found);
}

void KpnModif::replaceNotification(const KpbAParameter* parameter, Kp::NotificationFlag oldFlag,
                                   Kp::NotificationFlag newFlag)
{
    if (!parameter)
        return;
    const bool composite = parameter->hasChildren();
    Entry* entry = _firstWith(parameter, oldFlag, composite && oldFlag != Kp::NotifyChildren);
    if (!entry)
        return;
    _changed();
    entry->flags.setFlag(oldFlag, false);
    entry->flags.setFlag(newFlag, true);
}

const QMap<KpnPath, KpnModif::Flags>& KpnModif::getModifs() const
{
    if (!_map) {
        // Paths that died together can compare equal; each keeps its entry.
        QMultiMap<KpnPath, Flags> map;
        forEach([&](const KpnPath& path, Flags flags) { map.insert(path, flags); });
        _map = std::make_unique<QMap<KpnPath, Flags>>(map);
    }
    return *_map;
}

QString KpnModif::debug(int) const
{
    QStringList lines;
    forEach([&](const KpnPath& path, Flags flags) {
        lines.append(path.toString() + QLatin1Char(':') + QString::number(int(flags)));
    });
    return lines.join(QLatin1Char('\n'));
}

KpnModifIterator::KpnModifIterator(const KpnModif& modif, Kp::NotificationFlags flags, Kp::IterateFlag iterate)
{
    QSet<const KpbAParameter*> given;
    modif.forEach([&](const KpnPath& path, Kp::NotificationFlags changed) {
        if (!(changed & flags) || !path.isValid())
            return;
        if (iterate == Kp::IterateOrigin) {
            _parameters.append(path.getFirst());
            return;
        }
        for (int i = 0; i < path.count(); ++i) {
            const KpbAParameter* parameter = path.at(i);
            const int known = given.size();
            given.insert(parameter);
            if (given.size() != known)
                _parameters.append(parameter);
        }
    });
}
