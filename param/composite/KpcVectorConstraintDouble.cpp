#include <param/composite/KpcVectorConstraintDouble.h>

#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <algorithm>

using Ku::Constraint::Mode;
using Ku::Vector::Component;
using Ku::Vector::ComponentLink;
using Ku::Vector::Dimension;

namespace {

/// Takes over the lock and the parts. Observers may destroy both composites, at one time, as they have one owner.
void copyState(const KpcConstraintDouble& from, KpcConstraintDouble& to)
{
    const KuoPointer<KpbAParameter> alive(&to);
    to.getParameter(Ku::Constraint::Value)->setValueLocked(from.getParameter(Ku::Constraint::Value)->isValueLocked());
    for (const auto part : {Ku::Constraint::Value, Ku::Constraint::LowerBound, Ku::Constraint::UpperBound}) {
        if (alive)
            to.setValue(part, from.getValue(part));
    }
}

} // namespace

KpcVectorConstraintDouble::KpcVectorConstraintDouble(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::VECTOR_CONSTRAINT_DOUBLE, key, transactable)
{
    _declare({*this, KpcChildren::Create});
}

KpcVectorConstraintDouble::KpcVectorConstraintDouble(const KpcVectorConstraintDouble& other, const QString& newKey)
    : KpcAComposite(other, newKey),
      KpcNumberForwarder(),
      _dimension(other._dimension),
      _link(other._link),
      _labels(other._labels)
{
    _declare({*this, KpcChildren::Rebind});
}

KpcVectorConstraintDouble* KpcVectorConstraintDouble::duplicate(const QString& newKey) const
{
    return new KpcVectorConstraintDouble(*this, newKey);
}

void KpcVectorConstraintDouble::_declare(KpcChildren children)
{
    // clang-format off
    children.add(_first,  "COMPONENT_1", QObject::tr("Component #1"), _getTransactable());
    children.add(_second, "COMPONENT_2", QObject::tr("Component #2"), _getTransactable());
    children.add(_third,  "COMPONENT_3", QObject::tr("Component #3"), _getTransactable());
    // clang-format on
}

KpcConstraintDouble* KpcVectorConstraintDouble::getParameter(Component component) const
{
    return _numbers()[std::size_t(std::clamp<int>(component, 0, ComponentCount - 1))];
}

MbgVector3D KpcVectorConstraintDouble::getValues() const
{
    const auto value = [](const KpcConstraintDouble& component) { return component.getValue(Ku::Constraint::Value); };
    return {value(*_first), value(*_second), value(*_third)};
}

void KpcVectorConstraintDouble::setValue(double value)
{
    setValues({value, value, value});
}

void KpcVectorConstraintDouble::setValues(const MbgVector3D& values)
{
    int i = 0;
    _each([&](KpcConstraintDouble& component) { component.setValue(Ku::Constraint::Value, values[i++]); });
}

bool KpcVectorConstraintDouble::areAllValuesEqual() const
{
    const auto components = _numbers();
    return std::all_of(components.begin() + 1, components.begin() + _countInUse(), [&](const auto* component) {
        return component->getValue(Ku::Constraint::Value) == _first->getValue(Ku::Constraint::Value);
    });
}

int KpcVectorConstraintDouble::_countInUse() const
{
    return std::clamp<int>(_dimension, 1, ComponentCount);
}

bool KpcVectorConstraintDouble::_followsFirst(int component) const
{
    return (component == Ku::Vector::Second && _link != Ku::Vector::NoLink) ||
           (component == Ku::Vector::Third && _link == Ku::Vector::AllFollowFirst);
}

bool KpcVectorConstraintDouble::isFullyLocked() const
{
    if (getMode() != Mode::Constraints)
        return false;
    const auto components = _numbers();
    for (int i = 0; i < _countInUse(); ++i) {
        if (!_followsFirst(i) && components[std::size_t(i)]->getBehavior() != Ku::Constraint::Known)
            return false;
    }
    return true;
}

// The first comes last: its lock goes on or off with the mode, and those that follow it must be in the new mode to take
// that as it is meant.
void KpcVectorConstraintDouble::setMode(Mode mode)
{
    if (mode == getMode())
        return;
    const KuoPointer<KpbAParameter> self(this);
    _setModeFromTheLast(mode);
    if (self)
        _notify(Kp::NotifyValue);
}

void KpcVectorConstraintDouble::_setModeFromTheLast(Mode mode)
{
    KuoLock<KpnModif> lock(this);
    const auto components = _numbers();
    for (auto each = components.rbegin(); lock.isAlive() && each != components.rend(); ++each)
        (*each)->setMode(mode);
    lock.commit();
}

void KpcVectorConstraintDouble::setDimension(Dimension dimension, double)
{
    if (dimension == _dimension)
        return;
    _dimension = dimension;
    _notify(Kp::NotifyConfig);
}

void KpcVectorConstraintDouble::setComponentLink(ComponentLink link)
{
    if (link == _link)
        return;
    const KuoPointer<KpbAParameter> self(this);
    _link = link;
    _updateLinkedComponents();
    if (self)
        _notify(Kp::NotifyConfig);
}

const QString& KpcVectorConstraintDouble::getComponentLabel(Component component) const
{
    return _labels[std::size_t(std::clamp<int>(component, 0, ComponentCount - 1))];
}

void KpcVectorConstraintDouble::setComponentLabels(const QString& a, const QString& b, const QString& c)
{
    const std::array<QString, ComponentCount> labels = {a, b, c};
    if (labels == _labels)
        return;
    _labels = labels;
    _notify(Kp::NotifyConfig);
}

void KpcVectorConstraintDouble::_updateLinkedComponents()
{
    KuoLock<KpnModif> lock(this);
    for (int i = 1; lock.isAlive() && i < ComponentCount; ++i) {
        if (_followsFirst(i))
            copyState(*_first, *_numbers()[std::size_t(i)]);
    }
    lock.commit();
}

void KpcVectorConstraintDouble::update(const KpnModif& modif)
{
    const KuoPointer<KpbAParameter> self(this);
    if (_link != Ku::Vector::NoLink && modif.hasModif(_first, Kp::NotifyValue | Kp::NotifyItem))
        _updateLinkedComponents();
    if (self)
        KpcAComposite::update(modif);
}

QString KpcVectorConstraintDouble::_componentText(const KpcConstraintDouble& component) const
{
    return getMode() == Mode::Values ? component.toString(Ku::Constraint::Value) : component.toString();
}

QString KpcVectorConstraintDouble::toString() const
{
    if (_countInUse() == 1)
        return _componentText(*_first);
    QStringList texts;
    for (int i = 0; i < _countInUse(); ++i)
        texts.append(_componentText(*_numbers()[std::size_t(i)]));
    return QLatin1Char('[') + texts.join(QLatin1Char(',')) + QLatin1Char(']');
}
