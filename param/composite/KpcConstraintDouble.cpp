#include <param/composite/KpcConstraintDouble.h>

#include <QtCore/QObject>

using Ku::Constraint::Behavior;
using Ku::Constraint::Mode;
using Ku::Constraint::Part;

namespace {

constexpr Kp::NotificationFlags valueFlags = Kp::NotifyValue | Kp::NotifyItem;

QString infinity()
{
    return QString(QChar(0x221E));
}

} // namespace

KpcConstraintDouble::KpcConstraintDouble(const QString& key, const KstITransactable& transactable)
    : KpcAComposite(KpbEType::CONSTRAINT_DOUBLE, key, transactable)
{
    _declare({*this, KpcChildren::Create});
    _update();
}

KpcConstraintDouble::KpcConstraintDouble(const KpcConstraintDouble& other, const QString& newKey)
    : KpcAComposite(other, newKey),
      KpcNumberForwarder(),
      _behavior(other._behavior),
      _mode(other._mode)
{
    _declare({*this, KpcChildren::Rebind});
    _update();
}

KpcConstraintDouble* KpcConstraintDouble::duplicate(const QString& newKey) const
{
    return new KpcConstraintDouble(*this, newKey);
}

void KpcConstraintDouble::_declare(KpcChildren children)
{
    const auto undefinedAs = [](const QString& text) {
        return [text](KpaDouble& bound) {
            bound.setUndefineEnabled(true);
            bound.setUndefString(text);
        };
    };
    // clang-format off
    children.add(_value, "VALUE",       QObject::tr("Value"      ));
    children.add(_lower, "LOWER_BOUND", QObject::tr("Lower bound")).with(undefinedAs(QObject::tr("Min.")));
    children.add(_upper, "UPPER_BOUND", QObject::tr("Upper bound")).with(undefinedAs(QObject::tr("Max.")));
    // clang-format on
}

KpaDouble* KpcConstraintDouble::getParameter(Part part) const
{
    switch (part) {
    case Part::LowerBound:
        return _lower;
    case Part::UpperBound:
        return _upper;
    default:
        return _value;
    }
}

// A plain number can have lost its bounds unheard.
void KpcConstraintDouble::setMode(Mode mode)
{
    if (mode == _mode)
        return;
    const KuoPointer<KpbAParameter> self(this);
    _mode = mode;
    if (_mode == Mode::Constraints && _behavior == Behavior::Bounded && !_isBounded())
        _behavior = Behavior::Unknown;
    _update();
    if (self)
        _notify(Kp::NotifyValue);
}

// Observers of the parts may destroy this composite at each step.
void KpcConstraintDouble::_update()
{
    const KuoPointer<KpbAParameter> self(this);
    _value->setLockValueEnabled(_mode == Mode::Constraints);
    if (self)
        _value->setValueLocked(_mode == Mode::Constraints && _behavior == Behavior::Known);
    for (const auto bound : {&KpcConstraintDouble::_lower, &KpcConstraintDouble::_upper}) {
        if (self)
            (this->*bound)->setReadOnly(_mode == Mode::Values);
    }
    if (self && _mode == Mode::Constraints && _behavior != Behavior::Bounded)
        _clearBounds();
}

void KpcConstraintDouble::_clearBounds()
{
    const KuoPointer<KpbAParameter> self(this);
    const KuoLockObserver<KpnModif> deafToLower(this, _lower);
    const KuoLockObserver<KpnModif> deafToUpper(this, _upper);
    _lower->setValue(MbbGlobal::D_FFFF);
    if (self)
        _upper->setValue(MbbGlobal::D_FFFF);
}

void KpcConstraintDouble::update(const KpnModif& modif)
{
    const KuoPointer<KpbAParameter> self(this);
    if (_mode == Mode::Constraints)
        _react(modif);
    if (self)
        KpcAComposite::update(modif);
}

void KpcConstraintDouble::_react(const KpnModif& modif)
{
    const KuoLockObserver<KpnModif> deafToValue(this, _value);
    if (modif.hasModif(_value, valueFlags)) {
        if (_value->isValueLocked()) {
            _behavior = Behavior::Known;
            _update();
            return;
        }
        if (_behavior != Behavior::Known)
            return;
    }
    else if (!modif.hasModif(_lower, valueFlags) && !modif.hasModif(_upper, valueFlags)) {
        return;
    }
    const Behavior behavior = _isBounded() ? Behavior::Bounded : Behavior::Unknown;
    if (behavior == _behavior)
        return;
    _behavior = behavior;
    _update();
}

QString KpcConstraintDouble::toString() const
{
    const bool isConstraint = _mode == Mode::Constraints;
    if (_mode == Mode::Values || (isConstraint && _behavior == Behavior::Known))
        return _value->toString();
    if (isConstraint && _behavior == Behavior::Unknown)
        return QStringLiteral("[unknown]");
    return isConstraint && _behavior == Behavior::Bounded ? _boundsText() : QString();
}

QString KpcConstraintDouble::_boundsText() const
{
    const QString lower =
        _lower->isDefined() ? QLatin1Char('[') + _lower->toString() : QLatin1String("]-") + infinity();
    const QString upper =
        _upper->isDefined() ? _upper->toString() + QLatin1Char(']') : QLatin1Char('+') + infinity() + QLatin1Char('[');
    return lower + QLatin1Char(' ') + upper;
}
