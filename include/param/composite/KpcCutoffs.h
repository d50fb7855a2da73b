#pragma once

#include <param/composite/KpcChildren.h>
#include <param/list/KplDoubleList.h>

#include <study/KssEDoubleListType.h>

class KpaString;

/// Cutoff values, in the units of a variable: typed in, automatic, or a list of the registry of double lists that is
/// followed by its name. To the outside it is one value with one stored form; its children, the values and the name,
/// are volatile, and a change of either is told as one of the cutoffs.
///
/// What is stored of a list with a name is the name and the values as they were last typed in or read; the name leads.
class KESTRIN_PARAM_EXPORT KpcCutoffs : public KpcAComposite
{
public:
    KpcCutoffs(const QString& key, const KstITransactable& transactable);
    KpcCutoffs(const KpcCutoffs& other, const QString& newKey);
    KpcCutoffs* duplicate(const QString& newKey) const override;

    int getVersion() const override { return 2; }
    void convert(QDomElement& element, int fromVersion) const override;
    SerialForm serialize() const override;
    void unserialize(const SerialForm& map) override;
    /// The values in the display format, and the symbol of the unit behind them.
    QString toString() const override;
    void update(const KpnModif& modif) override;

    /// Of a list with a name, what the registry has now within the bounds. Where the registry has no such list, or one
    /// of another unit class, the values that were last typed in or read.
    QList<double> getValues() const;
    /// Gives up the name.
    void setValues(const QList<double>& values);
    QList<double> getAutoValues() const { return _list->getAutoValues(); }
    /// Stores the values for the automatic mode; automatic cutoffs take them over at once.
    void setAutoValues(const QList<double>& values);
    /// Forgets the automatic values. Values and mode stay.
    void unsetAutoValues();

    // Of the values that were typed in or read.
    double getValueAt(int rank) const { return _list->getValueAt(rank); }
    int getItemCount() const { return _list->getItemCount(); }
    void removeItemAt(int rank) { _list->removeItemAt(rank); }
    void clear() { _list->clear(); }

    /// The name of the list in the registry; empty if the values are typed in.
    QString getIdent() const;
    void setIdent(const QString& name);
    /// The part of the registry that names are looked up in.
    const KssEDoubleListType& getListType() const { return _listType; }
    void setListType(const KssEDoubleListType& type);

    KpaDouble* getItemPrototype() const { return _list->getItemPrototype(); }
    void setItemLabel(const QString& label) { _list->setItemLabel(label); }
    void setDetails(const MbdVariableDetails& details);
    void setUnitClass(const MbuEUnitClass& unitClass);
    void setMinimum(double minimum) { _list->setMinimum(minimum); }
    void setMinimum(double minimum, const MbuUnit& unit) { _list->setMinimum(minimum, unit); }
    void setMaximum(double maximum) { _list->setMaximum(maximum); }
    void setMaximum(double maximum, const MbuUnit& unit) { _list->setMaximum(maximum, unit); }
    void setRange(double a, double b) { _list->setRange(a, b); }
    void setRange(double a, double b, const MbuUnit& unit) { _list->setRange(a, b, unit); }
    void setStep(double step) { _list->setStep(step); }
    void setStep(double step, const MbuUnit& unit) { _list->setStep(step, unit); }
    void unsetMinimum() { _list->unsetMinimum(); }
    void unsetMaximum() { _list->unsetMaximum(); }
    void unsetStep() { _list->unsetStep(); }

private:
    void _declare(KpcChildren children);
    void _setValueAuto() override;
    void _invalidateAutomatic();
    /// Runs `change()`, which does not end the automatic mode.
    template <class Change>
    void _asAutomatic(const KuoLock<KpnModif>& lock, Change change);
    static void _convertToVersion2(QDomElement element);

    KpcChild<KplDoubleList> _list;
    KpcChild<KpaString> _ident;
    KssEDoubleListType _listType;
    // The cutoffs are applying or receiving automatic values.
    bool _settingAuto = false;
};
