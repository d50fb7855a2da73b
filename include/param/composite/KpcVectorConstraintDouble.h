#pragma once

#include <basic/MbgVector3D.h>
#include <param/composite/KpcConstraintDouble.h>
#include <util/KuVector.h>

#include <array>

/// What is known of a vector of up to three numbers, component by component. Components may follow the first, with all
/// that is known of it; one that does can still be changed on its own, until the first changes again.
class KESTRIN_PARAM_EXPORT KpcVectorConstraintDouble : public KpcAComposite,
                                                       public KpcNumberForwarder<KpcVectorConstraintDouble>
{
public:
    KpcVectorConstraintDouble(const QString& key, const KstITransactable& transactable);
    KpcVectorConstraintDouble(const KpcVectorConstraintDouble& other, const QString& newKey);
    KpcVectorConstraintDouble* duplicate(const QString& newKey) const override;

    /// Owned by this composite.
    KpcConstraintDouble* getParameter(Ku::Vector::Component component) const;
    KpaDouble* getParameter(Ku::Vector::Component component, Ku::Constraint::Part part) const
    {
        return getParameter(component)->getParameter(part);
    }

    MbgVector3D getValues() const;
    /// The value of all components.
    void setValue(double value);
    /// Sets the components one after the other, also those that follow the first.
    void setValues(const MbgVector3D& values);
    /// Whether the components in use have one value.
    bool areAllValuesEqual() const;

    Ku::Constraint::Behavior getBehavior(Ku::Vector::Component component) const
    {
        return getParameter(component)->getBehavior();
    }
    /// Whether all components in use are known, those that follow the first not counted.
    bool isFullyLocked() const;
    Ku::Constraint::Mode getMode() const { return _first->getMode(); }
    void setMode(Ku::Constraint::Mode mode);

    Ku::Vector::Dimension getDimension() const { return _dimension; }
    /// The components out of use keep what they hold, whatever `fillValue` is.
    void setDimension(Ku::Vector::Dimension dimension, double fillValue);
    Ku::Vector::ComponentLink getComponentLink() const { return _link; }
    void setComponentLink(Ku::Vector::ComponentLink link);
    /// A text for the user interface, apart from the label of the component itself.
    const QString& getComponentLabel(Ku::Vector::Component component) const;
    void setComponentLabels(const QString& a, const QString& b, const QString& c);

    QString toString() const override;
    void update(const KpnModif& modif) override;

private:
    friend class KpcNumberForwarder<KpcVectorConstraintDouble>;

    static constexpr int ComponentCount = 3;

    void _declare(KpcChildren children);
    std::array<KpcConstraintDouble*, ComponentCount> _numbers() const { return {_first, _second, _third}; }
    int _countInUse() const;
    bool _followsFirst(int component) const;
    void _setModeFromTheLast(Ku::Constraint::Mode mode);
    void _updateLinkedComponents();
    QString _componentText(const KpcConstraintDouble& component) const;

    KpcChild<KpcConstraintDouble> _first;
    KpcChild<KpcConstraintDouble> _second;
    KpcChild<KpcConstraintDouble> _third;
    Ku::Vector::Dimension _dimension = Ku::Vector::Dimension3;
    Ku::Vector::ComponentLink _link = Ku::Vector::NoLink;
    std::array<QString, ComponentCount> _labels;
};
