#pragma once

#include <QtCore/QStringList>

#include <study/StudyExport.h>

#include <vector>

class KsmModelData;
class KsoADataItem;
class KsoAVariableItem;
class KsoDataMacroVariable;
class KsoDataSubset;
class KsoDataSupport;

/// Reads the values of the data tree in a transaction. It belongs to its wrapper; once that is finished, every
/// operation is an `MbeProgrammingError`. So is an item that is null or of another project. What cannot be read is an
/// `MbeError`.
class KESTRIN_STUDY_EXPORT KstTransactionDataR
{
public:
    KstTransactionDataR(const KstTransactionDataR&) = delete;
    KstTransactionDataR& operator=(const KstTransactionDataR&) = delete;

    /// One number for each sample: numbers, 0 and 1 for booleans, values of categories. `MbbGlobal::D_FFFF` is
    /// undefined. A variable of texts is an `MbeError`.
    void readValues(const KsoAVariableItem* variable, std::vector<double>& values) const;
    /// The same of a realisation of a macro variable, counted from 0.
    void readValues(const KsoDataMacroVariable* variable, int realisation, std::vector<double>& values) const;
    /// One text for each sample of a variable of texts.
    void readTexts(const KsoAVariableItem* variable, QStringList& texts) const;
    /// One value of a category for each sample of a variable of categories; `MbbGlobal::I16_FFFF` is none.
    void readCodes(const KsoAVariableItem* variable, std::vector<short>& codes) const;

    /// Whether each sample of `support` is in the subset. A sample whose value is undefined is not selected, unless it
    /// is asked for as a category. A selection variable that lies on another support, or that is neither boolean nor of
    /// categories, selects nothing.
    std::vector<bool> readSubset(const KsoDataSubset& subset, const KsoDataSupport* support) const;
    /// Counts the samples of the subset, if it is to be counted, and keeps the number in it. Without a support there
    /// are no samples.
    void prepareSubset(KsoDataSubset& subset, const KsoDataSupport* support) const;

private:
    friend class KstTransactionWrapperR;
    explicit KstTransactionDataR(const KsmModelData* model) : _model(model) {}

    const KsmModelData& _openModel(const KsoADataItem* item) const;
    std::vector<bool> _selected(const KsoDataSubset& subset, const KsoDataSupport* support) const;

    const KsmModelData* _model;
    bool _finished = false;
};
