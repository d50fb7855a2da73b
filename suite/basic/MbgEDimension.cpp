#include <basic/MbgDimensionFlags.h>

#include <QtCore/QObject>

const MbgEDimension MbgEDimension::DIM_1D(QObject::tr("1D"), 0, "DIM_1D");
const MbgEDimension MbgEDimension::DIM_2D(QObject::tr("2D"), 1, "DIM_2D");
const MbgEDimension MbgEDimension::DIM_3D(QObject::tr("3D"), 2, "DIM_3D");

const MbgEDimension& MbgEDimension::fromNDim(int n)
{
    if (n < 1 || n > 3)
        throw MbeProgrammingError(QStringLiteral("MbgEDimension: %1 is no number of dimensions.").arg(n));
    return fromValue(n - 1);
}

QList<const MbgEDimension*> MbgEDimension::items()
{
    return {&DIM_1D, &DIM_2D, &DIM_3D};
}

// Beside the dimensions, which have to be made first.
const MbgDimensionFlags MbgDimensionFlags::ANY = MbgDimensionFlags::all();
const MbgDimensionFlags MbgDimensionFlags::ONLY_3D = {MbgEDimension::DIM_3D};
