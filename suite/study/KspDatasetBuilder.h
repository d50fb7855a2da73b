#pragma once

#include <QtCore/QList>

#include <basic/Mbd.h>
#include <study/StudyExport.h>

#include <utility>

class KsoAVariableItem;
class KsoDataSupport;
class KstTransactionWrapperR;
class MgdDataSetPoints;

/// Builds a set of points from variables of one support.
class KESTRIN_STUDY_EXPORT KspDatasetBuilder
{
public:
    /// The transaction belongs to the caller and outlives the builder.
    explicit KspDatasetBuilder(const KstTransactionWrapperR& transaction) : _transaction(transaction) {}

    /// The support that the variables must lie on.
    void setSupport(const KsoDataSupport* support) { _support = support; }
    /// Appends a variable that becomes a column of the role. A null one, or one of texts, is an `MbeProgrammingError`.
    void assignVariable(const KsoAVariableItem* variable, Mbd::Role role);
    /// Replaces what is in `dataset` by one column for each variable, in the order of their assignment; with
    /// `definedOnly`, without the samples where a variable is undefined. An `MbeProgrammingError` without a support or
    /// if a variable lies on another one; what reading throws passes, and `dataset` stays as it was.
    void buildDataset(MgdDataSetPoints& dataset, bool definedOnly) const;

private:
    const KstTransactionWrapperR& _transaction;
    const KsoDataSupport* _support = nullptr;
    QList<std::pair<const KsoAVariableItem*, Mbd::Role>> _variables;
};
