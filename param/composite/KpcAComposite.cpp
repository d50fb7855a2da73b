#include "KpcChildTable.h"

#include <param/KpbFailure.h>
#include <param/composite/KpcAComposite.h>

#include <basic/MbeTranslate.h>
#include <study/KstITransactable.h>

KpcAComposite::KpcAComposite(const KpbEType& type, const QString& key, const KstITransactable& transactable)
    : KpbAParameter(type, key),
      _transactable(&transactable),
      _children(std::make_unique<KpcChildTable>())
{}

KpcAComposite::KpcAComposite(const KpcAComposite& other, const QString& newKey, const KstITransactable& transactable)
    : KpbAParameter(other, newKey),
      KuoIObserver(),
      _transactable(&transactable),
      _children(std::make_unique<KpcChildTable>())
{}

KpcAComposite::KpcAComposite(const KpcAComposite& other, const QString& newKey)
    : KpcAComposite(other, newKey, *other._transactable)
{
    for (int i = 0; i < other._children->count(); ++i) {
        if (const KpbAParameter* child = other._children->at(i)) {
            std::unique_ptr<KpbAParameter> copy(child->duplicate(QString()));
            _plug(copy.get());
            copy.release();
        }
    }
}

KpcAComposite::~KpcAComposite()
{
    _clear();
}

bool KpcAComposite::hasChildren() const
{
    return _children->count() != 0;
}

int KpcAComposite::getChildCount() const
{
    return _children->count();
}

KpbAParameter* KpcAComposite::getChild(const QString& key) const
{
    return _children->find(key);
}

KpbAParameter* KpcAComposite::getChild(int index) const
{
    return _children->at(index);
}

bool KpcAComposite::existsKey(const QString& key) const
{
    return _children->find(key);
}

KssProject* KpcAComposite::_getProject() const
{
    return _transactable->getProject();
}

void KpcAComposite::update(const KpnModif& modif)
{
    if (_isUnheard()) {
        _skipNotification();
        return;
    }
    modif.withAppended(this, [&](const KpnModif& passedOn) { _pass(passedOn); });
}

void KpcAComposite::destroyed(const KuoAObservable<KpnModif>*)
{
    _children->compress();
}

void KpcAComposite::appendChild(KpbAParameter* child)
{
    mbeTranslate(
        [&] {
            _checkNewChild(child);
            _plug(child);
            _notify(Kp::NotifyChildren);
        },
        [&] { return QStringLiteral("KpcAComposite::appendChild() (parameter='%1':").arg(getKey()); });
}

void KpcAComposite::deleteChild(const QString& key)
{
    _checkKnownKey(key, "void __cdecl KpcAComposite::deleteChild(const class QString &)");
    const KuoPointer<KpbAParameter> self(this);
    delete _unplug(key);
    if (self)
        _notify(Kp::NotifyChildren);
}

KpbAParameter* KpcAComposite::takeChild(const QString& key)
{
    _checkKnownKey(key, "class KpbAParameter *__cdecl KpcAComposite::takeChild(const class QString &)");
    KpbAParameter* child = _unplug(key);
    _notify(Kp::NotifyChildren);
    return child;
}

void KpcAComposite::deleteAll()
{
    const KuoPointer<KpbAParameter> self(this);
    _clear();
    if (self)
        _notify(Kp::NotifyChildren);
}

void KpcAComposite::_checkNewChild(const KpbAParameter* child) const
{
    if (!child)
        throw MbeProgrammingError(QStringLiteral("child is NULL"));
    if (existsKey(child->getKey()))
        throw MbeProgrammingError(QStringLiteral("key '%2' already exists.").arg(child->getKey()));
}

void KpcAComposite::_checkKnownKey(const QString& key, const char* signature) const
{
    if (!existsKey(key)) {
        Kp::failProgramming(QString::fromLatin1(signature), QStringLiteral("composite\\KpcAComposite"),
                            QStringLiteral("Key '%1' doesn't exist in parameter '%2'.").arg(key, getKey()));
    }
}

void KpcAComposite::_plug(KpbAParameter* child)
{
    _children->append(child);
    child->setParent(this);
    child->addObserver(this);
}

KpbAParameter* KpcAComposite::_unplug(const QString& key)
{
    KpbAParameter* child = getChild(key);
    _children->remove(child);
    child->removeObserver(this);
    child->setParent(nullptr);
    return child;
}

// A dying child may make others die, leave or arrive, and may end this composite.
void KpcAComposite::_clear()
{
    const KuoPointer<KpbAParameter> self(this);
    for (auto children = _children->living(); !children.empty(); children = _children->living()) {
        for (const KuoPointer<KpbAParameter>& child : children) {
            if (!child || !_children->contains(child))
                continue;
            child->removeObserver(this);
            delete child.get();
            if (!self)
                return;
        }
    }
    _children->clear();
}
