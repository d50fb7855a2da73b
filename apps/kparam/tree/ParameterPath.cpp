#include <tree/ParameterPath.h>

QString pathBelow(const KpbAParameter& root, const KpbAParameter& parameter)
{
    return &root == &parameter ? QString() : root.getRelatifPath(&parameter).toString();
}
