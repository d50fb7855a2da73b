#include <param/Kp.h>
#include <param/KpbFailure.h>

#include <basic/MbeError.h>
#include <basic/MbgEDimension.h>

Kp::VectorDim Kp::getVectorDim(const MbgEDimension& dimension)
{
    switch (dimension.getValue()) {
    case 0:
        return VectorDim1;
    case 1:
        return VectorDim2;
    default:
        return VectorDim3;
    }
}

QString Kp::programmingFailureText(const QString& signature, const QString& file, const QString& detail)
{
    return QStringLiteral("'%1' in file '%2' failed:\n\n%3").arg(signature, file, detail);
}

void Kp::failProgramming(const QString& signature, const QString& file, const QString& detail)
{
    throw MbeProgrammingError(programmingFailureText(signature, file, detail), Qt::PlainText);
}
