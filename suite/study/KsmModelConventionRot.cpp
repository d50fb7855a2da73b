#include <study/KsmModelConventionRot.h>

MbgRotationConvention* KsmModelConventionRot::getConvention(int id, bool create) const
{
    MbgRotationConvention* known = MbgRotationConventionCatalog::find(id);
    return known || !create ? known : getDefault();
}
