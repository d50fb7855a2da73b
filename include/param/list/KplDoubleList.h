#pragma once

#include <param/atomic/KpaDouble.h>
#include <param/list/KplAAtomicList.h>

extern template class KESTRIN_PARAM_EXPORT KpcList<KpaDouble>;
extern template class KESTRIN_PARAM_EXPORT KplAAtomicList<KpaDouble, double, KpaDoubleConfig>;

/// A list of numbers within limits, in the storage unit of their unit class. The setters of the configuration apply to
/// the prototype and to all items; the getters read the prototype.
class KESTRIN_PARAM_EXPORT KplDoubleList : public KplAAtomicList<KpaDouble, double, KpaDoubleConfig>
{
public:
    explicit KplDoubleList(const QString& key);
    KplDoubleList(const KplDoubleList& other, const QString& newKey);
    KplDoubleList* duplicate(const QString& newKey) const override;
    /// The numbers in the items' display formats, and the symbol of the unit behind them.
    QString toString() const override;

    const MbuEUnitClass& getUnitClass() const { return getItemPrototype()->getUnitClass(); }
    /// Whether the value is not the undefined marker; false for a rank out of range.
    bool isDefined(int rank) const;

    void setDetails(const MbdVariableDetails& details);
    void setMinimum(double minimum);
    void setMinimum(double minimum, const MbuUnit& unit);
    void setMaximum(double maximum);
    void setMaximum(double maximum, const MbuUnit& unit);
    void setRange(double a, double b);
    void setRange(double a, double b, const MbuUnit& unit);
    void setStep(double step);
    void setStep(double step, const MbuUnit& unit);
    void setUnitClass(const MbuEUnitClass& unitClass);
    void unsetMinimum();
    void unsetMaximum();
    void unsetStep();
};
