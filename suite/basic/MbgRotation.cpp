#include <basic/MbgRotation.h>
#include <basic/MbgRotationConventionCatalog.h>
#include <basic/MbgRotationConventionDefault.h>

#include <algorithm>

namespace {
MbgRotationConvention* orDefault(MbgRotationConvention* convention)
{
    return convention ? convention : MbgRotationConventionCatalog::getDefault();
}

MbgAngle degrees(double value)
{
    return {value, MbgEAngleUnit::DEGREE};
}

MbgAngle radians(double value)
{
    return {value, MbgEAngleUnit::RADIAN};
}

std::array<MbgAngle, 3> degrees(const MbgAxisSequence::Angles& values)
{
    return {degrees(values[0]), degrees(values[1]), degrees(values[2])};
}

bool areSame(const MbgVector3D& a, const MbgVector3D& b)
{
    return (a - b).getLength() < MbgAxisSequence::Tolerance;
}
} // namespace

MbgRotation::MbgRotation() : _convention(orDefault(nullptr)) {}

MbgRotation::MbgRotation(const MbgAngle& angle1, const MbgAngle& angle2, const MbgAngle& angle3)
    : _angles{angle1, angle2, angle3},
      _convention(orDefault(nullptr))
{}

MbgRotation::MbgRotation(double radian1, double radian2, double radian3, int conventionId)
    : _angles{radians(radian1), radians(radian2), radians(radian3)},
      _convention(orDefault(MbgRotationConventionCatalog::find(conventionId)))
{}

MbgRotation MbgRotation::fromAxes(const MbgAxisSequence::Axes& axes)
{
    MbgRotation rotation;
    rotation._angles = degrees(rotation._convention->getSequence().toAngles(axes));
    return rotation;
}

void MbgRotation::setAngles(const MbgAngle& angle1, const MbgAngle& angle2, const MbgAngle& angle3)
{
    _angles = {angle1, angle2, angle3};
}

bool MbgRotation::isDefined() const
{
    return std::all_of(_angles.begin(), _angles.end(), [](const MbgAngle& angle) { return angle.isDefined(); });
}

int MbgRotation::getConventionId() const
{
    return _convention->getId();
}

void MbgRotation::setConvention(int id, bool convertAngles)
{
    setConvention(MbgRotationConventionCatalog::find(id), convertAngles);
}

void MbgRotation::setConvention(MbgRotationConvention* convention, bool convertAngles)
{
    MbgRotationConvention* wanted = orDefault(convention);
    if (convertAngles && isDefined() && wanted->getSequence() != _convention->getSequence())
        _angles = degrees(wanted->getSequence().toAngles(getAxes()));
    _convention = wanted;
}

MbgAxisSequence::Angles MbgRotation::_turningDegrees() const
{
    MbgAxisSequence::Angles values;
    std::transform(_angles.begin(), _angles.end(), values.begin(),
                   [](const MbgAngle& angle) { return angle.isDefined() ? angle.getDegreeValue() : 0; });
    return values;
}

MbgAxisSequence::Axes MbgRotation::getAxes() const
{
    return _convention->getSequence().toAxes(_turningDegrees());
}

MbgVector3D MbgRotation::worldToLocal(const MbgVector3D& vector) const
{
    const auto [u, v, w] = getAxes();
    return {u.dot(vector), v.dot(vector), w.dot(vector)};
}

MbgVector3D MbgRotation::localToWorld(const MbgVector3D& vector) const
{
    const auto [u, v, w] = getAxes();
    return u * vector.x() + v * vector.y() + w * vector.z();
}

bool MbgRotation::isIdentity() const
{
    return isAroundZOnly() && areSame(getAxisX(), {1, 0, 0});
}

bool MbgRotation::isAroundZOnly() const
{
    return isDefined() && areSame(getAxisZ(), {0, 0, 1});
}

QString MbgRotation::getUDirectionName() const
{
    MbgAngle azimuth;
    MbgAngle plunge;
    MbgRotationConventionDefault::rotationToDirection3d(*this, MbgEAxisType::AXIS_U, azimuth, plunge);
    return MbgRotationConventionDefault::directionToString(azimuth, plunge, plunge == MbgAngle(), false);
}
