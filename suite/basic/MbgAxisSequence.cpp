#include <QtCore/QRegularExpression>

#include <Eigen/Core>

#include <basic/MbgAxisSequence.h>
#include <basic/MbgDegrees.h>

namespace {
using Matrix = Eigen::Matrix3d;

/// The turn by `degrees` about a coordinate axis.
Matrix turnAbout(int axis, double degrees)
{
    const double sine = MbgDegrees::sin(degrees);
    const double cosine = MbgDegrees::cos(degrees);
    const int next = (axis + 1) % 3;
    const int last = (axis + 2) % 3;
    Matrix matrix = Matrix::Identity();
    matrix(next, next) = matrix(last, last) = cosine;
    matrix(last, next) = sine;
    matrix(next, last) = -sine;
    return matrix;
}

Matrix toMatrix(const MbgAxisSequence::Axes& axes)
{
    Matrix matrix;
    for (int column = 0; column < 3; ++column)
        for (int row = 0; row < 3; ++row)
            matrix(row, column) = axes[std::size_t(column)][row];
    return matrix;
}

/// The turns by which rotations about axes i, j and l make up a matrix, read off the products of the elementary
/// rotations. The first turn comes from the image of axis
/// l, which the third leaves alone. The second and the third are read off what remains when the first is taken back, so
/// that their sum is right even where each of them hangs on the last digits.
class Decomposition
{
public:
    Decomposition(int i, int j, int l) : _i(i), _j(j), _l(l), _k(3 - i - j), _sign(j == (i + 1) % 3 ? 1 : -1) {}

    MbgAxisSequence::Angles turns(const Matrix& matrix) const
    {
        const double first = _first(matrix);
        const Matrix rest = turnAbout(_i, -first) * matrix;
        return _l == _i ? MbgAxisSequence::Angles{first, _angle(-rest(_k, _i), rest(_i, _i)),
                                                  _angle(-rest(_j, _k), rest(_j, _j))}
                        : MbgAxisSequence::Angles{first, _angle(rest(_i, _k), rest(_k, _k)),
                                                  _angle(rest(_j, _i), rest(_j, _j))};
    }

private:
    double _first(const Matrix& matrix) const
    {
        const double onJ = matrix(_j, _l);
        const double onK = matrix(_k, _l);
        if (std::hypot(onJ, onK) < MbgAxisSequence::Tolerance)
            return _angle(matrix(_k, _j), matrix(_j, _j));
        return _l == _i ? MbgDegrees::atan2(onJ, -_sign * onK) : _angle(-onJ, onK);
    }
    double _angle(double sine, double cosine) const { return MbgDegrees::atan2(_sign * sine, cosine); }

    int _i, _j, _l;
    int _k;    ///< the axis that is neither i nor j
    int _sign; ///< 1 where i, j, k run in the order of X, Y, Z, X; -1 otherwise
};
} // namespace

std::optional<MbgAxisSequence> MbgAxisSequence::fromText(const QString& text)
{
    static const QRegularExpression form("\\A(90|180|270)?([+-])([XYZ])(90|180|270)?([+-])([XYZ])(90|180|270)?([+-])"
                                         "([XYZ])\\z");
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    MbgAxisSequence sequence;
    int group = 0;
    for (Turn& turn : sequence._turns) {
        turn.offset = match.captured(++group).toInt();
        turn.sign = match.captured(++group) == QLatin1String("+") ? 1 : -1;
        turn.axis = match.captured(++group).at(0).unicode() - u'X';
    }
    const auto& [first, second, third] = sequence._turns;
    if (first.axis == second.axis || second.axis == third.axis)
        return std::nullopt;
    return sequence;
}

bool MbgAxisSequence::isZYX() const
{
    return _turns[0].axis == 2 && _turns[1].axis == 1 && _turns[2].axis == 0;
}

MbgAxisSequence::Angles MbgAxisSequence::turnsOf(const Angles& angles) const
{
    Angles turns;
    for (std::size_t i = 0; i < turns.size(); ++i)
        turns[i] = _turns[i].offset + _turns[i].sign * std::fmod(angles[i], 360.0);
    return turns;
}

MbgAxisSequence::Angles MbgAxisSequence::anglesOf(const Angles& turns) const
{
    Angles angles;
    for (std::size_t i = 0; i < angles.size(); ++i)
        angles[i] = MbgDegrees::centred(_turns[i].sign * (turns[i] - _turns[i].offset));
    return angles;
}

MbgAxisSequence::Axes MbgAxisSequence::toAxes(const Angles& angles) const
{
    const Angles turns = turnsOf(angles);
    const Matrix matrix =
        turnAbout(_turns[0].axis, turns[0]) * turnAbout(_turns[1].axis, turns[1]) * turnAbout(_turns[2].axis, turns[2]);
    Axes axes;
    for (int column = 0; column < 3; ++column)
        axes[std::size_t(column)] = {matrix(0, column), matrix(1, column), matrix(2, column)};
    return axes;
}

MbgAxisSequence::Angles MbgAxisSequence::toAngles(const Axes& axes) const
{
    return anglesOf(Decomposition(_turns[0].axis, _turns[1].axis, _turns[2].axis).turns(toMatrix(axes)));
}
