#pragma once

#include <param/composite/KpcChildren.h>
#include <param/composite/KpcNumberForwarder.h>
#include <util/KuConstraint.h>

/// What is known of a number that a calculation is to fit: the number itself, bounds for it, or nothing. It is made of
/// a value and two bounds, and decides from what is done to them which of the three cases holds: locking the value
/// makes it known, entering a bound makes it bounded, and taking back either leads to what is left. A number that is
/// known or unknown has no bounds.
///
/// As a plain number, which it is at first, it only has the value: the bounds are read-only and kept as they are,
/// and what is known does not change.
///
/// Only the parts are stored. Reading them is a change like any other: what is bounded comes back through its bounds,
/// and a lock does not come back.
class KESTRIN_PARAM_EXPORT KpcConstraintDouble : public KpcAComposite, public KpcNumberForwarder<KpcConstraintDouble>
{
public:
    KpcConstraintDouble(const QString& key, const KstITransactable& transactable);
    KpcConstraintDouble(const KpcConstraintDouble& other, const QString& newKey);
    KpcConstraintDouble* duplicate(const QString& newKey) const override;

    Ku::Constraint::Behavior getBehavior() const { return _behavior; }
    Ku::Constraint::Mode getMode() const { return _mode; }
    void setMode(Ku::Constraint::Mode mode);

    /// Owned by this composite.
    KpaDouble* getParameter(Ku::Constraint::Part part) const;
    double getValue(Ku::Constraint::Part part) const { return getParameter(part)->getValue(); }
    void setValue(Ku::Constraint::Part part, double value) { getParameter(part)->setValue(value); }
    double getValueFromUnit(Ku::Constraint::Part part, const MbuUnit& unit) const
    {
        return getParameter(part)->getValueFromUnit(unit);
    }
    void setValueWithUnit(Ku::Constraint::Part part, double value, const MbuUnit& unit)
    {
        getParameter(part)->setValueWithUnit(value, unit);
    }
    double getAutoValue(Ku::Constraint::Part part) const { return getParameter(part)->getAutoValue(); }
    double getAutoValueFromUnit(Ku::Constraint::Part part, const MbuUnit& unit) const
    {
        return getParameter(part)->getAutoValueFromUnit(unit);
    }
    void setAutoValue(Ku::Constraint::Part part, double value) { getParameter(part)->setAutoValue(value); }
    void setAutoValueWithUnit(Ku::Constraint::Part part, double value, const MbuUnit& unit)
    {
        getParameter(part)->setAutoValueWithUnit(value, unit);
    }
    void activateAutoValue(Ku::Constraint::Part part) { getParameter(part)->activateAutoValue(); }
    void activateAutoValue(Ku::Constraint::Part part, double value) { getParameter(part)->activateAutoValue(value); }
    void unsetAutoValue(Ku::Constraint::Part part) { getParameter(part)->unsetAutoValue(); }
    bool isAutomaticValueInitialized(Ku::Constraint::Part part) const
    {
        return getParameter(part)->isAutomaticValueInitialized();
    }
    using KpcAComposite::isAutomaticValueInitialized;
    bool isDefined(Ku::Constraint::Part part) const { return getParameter(part)->isDefined(); }
    QString toString(Ku::Constraint::Part part) const { return getParameter(part)->toString(); }

    /// The value, the bounds as an interval, or "[unknown]".
    QString toString() const override;
    void update(const KpnModif& modif) override;

private:
    friend class KpcNumberForwarder<KpcConstraintDouble>;

    void _declare(KpcChildren children);
    std::array<KpaDouble*, 3> _numbers() const { return {_value, _lower, _upper}; }
    bool _isBounded() const { return _lower->isDefined() || _upper->isDefined(); }
    void _update();
    void _clearBounds();
    void _react(const KpnModif& modif);
    QString _boundsText() const;

    KpcChild<KpaDouble> _value;
    KpcChild<KpaDouble> _lower;
    KpcChild<KpaDouble> _upper;
    Ku::Constraint::Behavior _behavior = Ku::Constraint::Unknown;
    Ku::Constraint::Mode _mode = Ku::Constraint::Values;
};
