#pragma once

#include <study/KstITransactable.h>

/// Base of the transactions on the project of a context, from construction until it is finished or destroyed.
class KESTRIN_STUDY_EXPORT KstATransactionWrapper
{
public:
    KstATransactionWrapper(const KstATransactionWrapper&) = delete;
    KstATransactionWrapper& operator=(const KstATransactionWrapper&) = delete;
    virtual ~KstATransactionWrapper();

    /// The project of the context when the transaction began; null if there was none.
    KssProject* getProject() const { return _project; }
    bool isFinished() const { return _finished; }
    /// Ends the transaction; nothing happens the second time.
    void finish();

protected:
    explicit KstATransactionWrapper(const KstITransactable& transactable) : _project(transactable.getProject()) {}

private:
    virtual void _finish() = 0;

    KssProject* _project;
    bool _finished = false;
};
