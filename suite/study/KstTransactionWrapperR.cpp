#include <study/KssProject.h>
#include <study/KstTransactionDataR.h>
#include <study/KstTransactionWrapperR.h>

KstTransactionWrapperR::KstTransactionWrapperR(const KstITransactable& transactable)
    : KstATransactionWrapper(transactable),
      _data(new KstTransactionDataR(getProject() ? getProject()->getModelData() : nullptr))
{}

KstTransactionWrapperR::~KstTransactionWrapperR() = default;

void KstTransactionWrapperR::_finish()
{
    _data->_finished = true;
}
