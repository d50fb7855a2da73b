#include <study/KssProjectCollection.h>

const KsmModelConventionRot* KssProjectCollection::openedModelRotationConv()
{
    static const KsmModelConventionRot conventions;
    return &conventions;
}
