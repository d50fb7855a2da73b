#include <param/composite/KpcGroup.h>
#include <param/composite/KpcGroupValueDelegate.h>
#include <param/watcher/KpwAWatcher.h>

#include <basic/MbeTranslate.h>

template class KuoPointer<KpcGroup>;

namespace {

// The number that stands for a missing one.
constexpr int NoId = -999;

} // namespace

KpcGroup::KpcGroup(const QString& key, const KstITransactable& transactable)
    : KpcGroup(KpbEType::GROUP, key, transactable)
{}

KpcGroup::KpcGroup(const KpbEType& type, const QString& key, const KstITransactable& transactable)
    : KpcAComposite(type, key, transactable)
{}

KpcGroup::KpcGroup(const KpcGroup& other, const QString& newKey)
    : KpcAComposite(other, newKey),
      _valueDelegate(other._valueDelegate ? other._valueDelegate->duplicate() : nullptr),
      _registered(other._registered)
{
    for (const auto& [id, watcher] : other._watchers)
        _watchers.emplace(id, std::unique_ptr<KpwAWatcher>(watcher->duplicate(this)));
}

KpcGroup::~KpcGroup()
{
    for (auto& [id, watcher] : _watchers)
        watcher.reset();
}

KpcGroup* KpcGroup::duplicate(const QString& newKey) const
{
    return new KpcGroup(*this, newKey);
}

void KpcGroup::registerChild(int id, KpbAParameter* parameter)
{
    if (parameter && parameter->getParent()) {
        throw MbeProgrammingError(
            QStringLiteral("KpcGroup::registerChild: parameter candidate already has a parent\n(parameter=%1).\n"
                           "Use the method registerParam() instead.")
                .arg(parameter->getKey()));
    }
    const KuoPointer<KpbAParameter> self(this);
    const KuoPointer<KpbAParameter> child(parameter);
    appendChild(parameter);
    if (self)
        registerParam(id, child);
}

void KpcGroup::registerParam(int id, KpbAParameter* parameter)
{
    mbeTranslate(
        [&] {
            if (_registered.contains(id))
                throw MbeProgrammingError(QStringLiteral("Parameter ID %1 already registered.").arg(id));
            if (!parameter)
                throw MbeProgrammingError(QStringLiteral("Parameter is null."));
            if (!isAncestorOf(parameter)) {
                throw MbeProgrammingError(
                    QStringLiteral("Parameter ID '%1' is not a child of the group.").arg(parameter->getKey()));
            }
            _registered.insert(id, getRelatifPath(parameter));
        },
        [] { return QStringLiteral("Failed to register parameter"); });
}

void KpcGroup::unregisterParam(KpbAParameter* parameter)
{
    const KpbPath path = getRelatifPath(parameter);
    for (const int id : _registered.keys(path))
        _registered.remove(id);
}

KpbAParameter* KpcGroup::getRegistered(int id) const
{
    const auto found = _registered.constFind(id);
    return found == _registered.constEnd() ? nullptr : getParameterByRelativePath(*found);
}

bool KpcGroup::isRegistered(const KpbAParameter* parameter) const
{
    return _registered.key(getRelatifPath(parameter), NoId) != NoId;
}

void KpcGroup::registerWatcher(int id, KpwAWatcher* watcher)
{
    mbeTranslate(
        [&] {
            if (_watchers.count(id) != 0)
                throw MbeProgrammingError(QStringLiteral("Watcher ID %1 already registered.").arg(id));
            if (!watcher)
                throw MbeProgrammingError(QStringLiteral("Watcher is null."));
            watcher->setParentGroup(this);
            _watchers.emplace(id, watcher);
        },
        [] { return QStringLiteral("Failed to register watcher"); });
}

void KpcGroup::setValueDelegate(KpcGroupValueDelegate* delegate)
{
    if (delegate != _valueDelegate.get())
        _valueDelegate.reset(delegate);
}

QString KpcGroup::toString() const
{
    return _valueDelegate ? _valueDelegate->toString(this) : KpcAComposite::toString();
}
