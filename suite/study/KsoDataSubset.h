#pragma once

#include <QtCore/QList>

#include <basic/MbiAIntervalIntDisjoint.h>
#include <study/KsoDataIdentifier.h>

/// A subset of the samples of a support: those that a selection variable selects, or their complement. A boolean
/// variable selects the samples where it is true; a variable of categories, or a macro variable of them, those whose
/// category is one of `getCategories`. A macro variable selects what at least one of its realisations selects. A plain
/// value.
///
/// Subsets are equal that tell the same samples: the order of the categories, and what was counted, make no difference.
class KESTRIN_STUDY_EXPORT KsoDataSubset
{
public:
    explicit KsoDataSubset(bool inverted = false) : _inverted(inverted) {}

    /// Whether the subset is the complement of what is selected.
    bool isInverted() const { return _inverted != _complemented; }
    /// Turns the subset into its complement.
    void complement();
    /// Whether `KstTransactionDataR::prepareSubset` counts the selected samples, for which it reads the variable.
    /// Initially false.
    bool isCounted() const { return _counted; }
    void setCounted(bool counted);

    /// The samples, counted from 0, that can be selected; all of them while the set is empty.
    const MbiAIntervalIntDisjoint& getIntervals() const { return _intervals; }
    void setIntervals(const MbiAIntervalIntDisjoint& intervals);

    /// The values of the selected categories; `MbbGlobal::I16_FFFF` stands for samples without a category.
    const QList<short>& getCategories() const { return _categories; }
    void setCategories(const QList<short>& categories);

    void setSelectionVar(const KsoDataIdentifier& variable);
    const KsoDataIdentifier& getSelectionIdent() const { return _variable; }
    /// The selection variable, owned by its model; null if none is named or it does not exist.
    KsoADataItem* getSelectionVar() const { return _variable.getDataItem(); }

    /// Whether it restricts anything: there is a selection variable or an interval. A subset that is not defined has
    /// all samples.
    bool isDefined() const { return getSelectionVar() || !_intervals.isEmpty(); }

    /// What `KstTransactionDataR::prepareSubset` counted; 0 before, and after each change.
    int getSelectedSampleCount() const { return _selectedSampleCount; }
    void setSelectedSampleCount(int count) { _selectedSampleCount = count; }

    /// The text of the variable below `root` and the labels of the categories in parentheses, after "not " if inverted;
    /// empty without a variable.
    QString toString(const KsoDataIdentifier& root) const;

    friend bool operator==(const KsoDataSubset& a, const KsoDataSubset& b) { return a._isEqual(b); }
    friend bool operator!=(const KsoDataSubset& a, const KsoDataSubset& b) { return !a._isEqual(b); }

private:
    bool _isEqual(const KsoDataSubset& other) const;

    bool _inverted;
    bool _complemented = false;
    bool _counted = false;
    MbiAIntervalIntDisjoint _intervals;
    QList<short> _categories;
    KsoDataIdentifier _variable;
    int _selectedSampleCount = 0;
};
