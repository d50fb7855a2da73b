#pragma once

#include <study/KstATransactionWrapper.h>

#include <memory>

class KstTransactionDataR;

/// A read transaction: it gives the readers of the project of a context.
class KESTRIN_STUDY_EXPORT KstTransactionWrapperR final : public KstATransactionWrapper
{
public:
    explicit KstTransactionWrapperR(const KstITransactable& transactable);
    ~KstTransactionWrapperR() override;

    /// Never null, and owned by the transaction. Without a project it has no items to read.
    KstTransactionDataR* data() const { return _data.get(); }

private:
    void _finish() override;

    std::unique_ptr<KstTransactionDataR> _data;
};
