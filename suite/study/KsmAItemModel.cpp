#include <basic/MbeError.h>
#include <study/KsmAItemModel.h>

KsmAItemModel::~KsmAItemModel() = default;

void KsmAItemModel::_failUnknown(int id)
{
    throw MbeUserError(QStringLiteral("The project has no item of the id %1.").arg(id));
}
