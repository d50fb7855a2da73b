#include <param/KpbFailure.h>
#include <param/composite/KpcChildren.h>

namespace {

[[noreturn]] void fail(const QString& detail)
{
    Kp::failProgramming(QStringLiteral("void __cdecl KpcChildren::add(const class QString &)"),
                        QStringLiteral("composite\\KpcChildren"), detail);
}

} // namespace

KpcChildren::KpcChildren(KpcAComposite& composite, Mode mode)
    : _composite(composite),
      _mode(mode),
      _firstNew(composite.getChildCount())
{}

KpcChildren::~KpcChildren()
{
    if (_mode == Rebind)
        return;
    for (int i = _firstNew, count = _composite.getChildCount(); i < count; ++i) {
        if (const KpbAParameter* child = _composite.getChild(i))
            child->addObserver(&_composite);
    }
}

void KpcChildren::_append(std::unique_ptr<KpbAParameter> child, const QString& label)
{
    if (!label.isEmpty())
        child->setLabel(label);
    _composite.appendChild(child.get());
    child.release()->removeObserver(&_composite);
}

KpbAParameter* KpcChildren::_find(const QString& key) const
{
    KpbAParameter* child = _composite.getChild(key);
    if (!child) {
        fail(QStringLiteral("Key '%1' doesn't exist in parameter '%2'.").arg(key, _composite.getKey()));
    }
    return child;
}

void KpcChildren::_failType(const QString& key) const
{
    fail(QStringLiteral("Child '%1' of parameter '%2' is of another class.").arg(key, _composite.getKey()));
}
