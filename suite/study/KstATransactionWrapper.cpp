#include <study/KstATransactionWrapper.h>

KstATransactionWrapper::~KstATransactionWrapper() = default;

void KstATransactionWrapper::finish()
{
    if (_finished)
        return;
    _finished = true;
    _finish();
}
