#include <geos/MgmPositiveDefinite.h>

#include <basic/MbeError.h>

#include <Eigen/Cholesky>
#include <Eigen/Eigenvalues>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {
using Matrix = Eigen::MatrixXd;

/// Matrices between two others, element by element.
struct Box
{
    Matrix lower;
    Matrix upper;

    Matrix nearest(const Matrix& matrix) const { return matrix.cwiseMax(lower).cwiseMin(upper); }
};

/// Limits that leave room for positive definite matrices.
struct Room
{
    Box box;
    Matrix inside;         ///< a positive definite matrix of the box
    bool extended = false; ///< the limits asked for left no room
};

Matrix toEigen(const MgmMatrix& matrix)
{
    const int size = matrix.getNRows();
    if (matrix.getNColumns() != size)
        throw MbeProgrammingError(QStringLiteral("MgmPositiveDefinite: a matrix of %1 by %2 elements is not square.")
                                      .arg(size)
                                      .arg(matrix.getNColumns()));
    Matrix result(size, size);
    for (int row = 0; row < size; ++row) {
        for (int column = row; column < size; ++column)
            result(row, column) = result(column, row) = matrix.getElement(row, column);
    }
    return result;
}

MgmMatrix fromEigen(const Matrix& matrix)
{
    const int size = int(matrix.rows());
    MgmMatrix result(size, size, MgmMatrix::Symmetric);
    for (int row = 0; row < size; ++row) {
        for (int column = row; column < size; ++column)
            result.setElement(row, column, matrix(row, column));
    }
    return result;
}

Box toBox(const MgmMatrixBounds& bounds, int size)
{
    if (bounds.getSize() != size)
        throw MbeProgrammingError(QStringLiteral("MgmPositiveDefinite: bounds of %1 rows do not fit a matrix of %2.")
                                      .arg(bounds.getSize())
                                      .arg(size));
    Box box{Matrix(size, size), Matrix(size, size)};
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column) {
            box.lower(row, column) = bounds.getLower(row, column);
            box.upper(row, column) = bounds.getUpper(row, column);
        }
    }
    return box;
}

/// The power of two, as an exponent, that brings all finite elements to a size below 1: scaling by it rounds nothing.
int exponentOf(const Matrix& matrix)
{
    double largest = 0.0;
    for (const double element : matrix.reshaped()) {
        if (std::isfinite(element))
            largest = std::max(largest, std::abs(element));
    }
    int exponent = 0;
    std::frexp(largest, &exponent);
    return exponent;
}

Matrix scaled(const Matrix& matrix, int exponent)
{
    return matrix.unaryExpr([exponent](double element) { return std::ldexp(element, exponent); });
}

Box scaled(const Box& box, int exponent)
{
    return {scaled(box.lower, exponent), scaled(box.upper, exponent)};
}

bool isDefinite(const Matrix& matrix)
{
    if (!matrix.allFinite())
        return false;
    Matrix unit = scaled(matrix, -exponentOf(matrix));
    const double largest = unit.size() ? unit.cwiseAbs().maxCoeff() : 0.0;
    if (largest == 0.0)
        return true;
    unit.diagonal().array() += MgmPositiveDefinite::Tolerance * largest;
    return Eigen::LLT<Matrix>(unit).info() == Eigen::Success;
}

/// The nearest matrix without negative eigenvalues.
Matrix withoutNegative(const Matrix& matrix)
{
    const Eigen::SelfAdjointEigenSolver<Matrix> solver(matrix);
    if (solver.info() != Eigen::Success)
        return matrix;
    const Matrix& vectors = solver.eigenvectors();
    const Matrix result = vectors * solver.eigenvalues().cwiseMax(0.0).asDiagonal() * vectors.transpose();
    return 0.5 * (result + result.transpose());
}

int iterationsFor(Eigen::Index size, int most)
{
    constexpr double work = 2e7;
    const double affordable = work / std::pow(double(size), 3);
    return int(std::clamp<double>(affordable, MgmPositiveDefinite::MinIterations, most));
}

/// Looks for a positive definite matrix of the box, not the nearest; gives the last one tried where it finds none.
/// Projects on the two sets in turn, each time from a point ahead on the way of the last step: Y. Nesterov's
/// accelerated gradient method on the squared distance from the cone, with the restarts of B. O'Donoghue and E. Candes,
/// "Adaptive restart for accelerated gradient schemes", Foundations of Computational Mathematics 15 (2015). Where
/// bounds leave little room, it needs the root of the iterations that projections alone take.
Matrix searched(Matrix matrix, const Box& box)
{
    constexpr double still = 1e-15;
    Matrix last = matrix;
    double pace = 1.0;
    double step = 1.0;
    for (int left = iterationsFor(matrix.rows(), MgmPositiveDefinite::MaxSearchIterations);
         left > 0 && step > still && !isDefinite(matrix); --left)
    {
        const double faster = 0.5 * (1.0 + std::sqrt(1.0 + 4.0 * pace * pace));
        const Matrix ahead = matrix + (pace - 1.0) / faster * (matrix - last);
        last = std::exchange(matrix, box.nearest(withoutNegative(ahead)));
        const bool turnedBack = (ahead - matrix).cwiseProduct(matrix - last).sum() > 0.0;
        pace = turnedBack ? 1.0 : faster;
        step = (matrix - last).cwiseAbs().maxCoeff();
    }
    return matrix;
}

/// Dykstra's algorithm: the matrix of the box that is nearest to `matrix` among the positive definite ones, nearly.
Matrix dykstra(const Matrix& matrix, const Box& box)
{
    constexpr double still = 1e-14;
    Matrix x = matrix;
    Matrix coneCorrection = Matrix::Zero(x.rows(), x.cols());
    Matrix boxCorrection = coneCorrection;
    for (int left = iterationsFor(x.rows(), MgmPositiveDefinite::MaxIterations); left > 0; --left) {
        const Matrix y = withoutNegative(x + coneCorrection);
        coneCorrection += x - y;
        const Matrix next = box.nearest(y + boxCorrection);
        boxCorrection += y - next;
        const bool done = std::max((next - x).cwiseAbs().maxCoeff(), (next - y).cwiseAbs().maxCoeff()) <= still;
        x = next;
        if (done)
            break;
    }
    return x;
}

/// The matrix nearest to `from` on the way to `inside` that is positive definite and in the box, as `inside` is.
Matrix movedInside(const Matrix& from, const Matrix& inside, const Box& box)
{
    Matrix found = inside;
    double refused = 0.0;
    double accepted = 1.0;
    for (int i = 0; i < 60; ++i) {
        const double middle = 0.5 * (refused + accepted);
        const Matrix tried = box.nearest(from + middle * (inside - from));
        const bool fits = isDefinite(tried);
        (fits ? accepted : refused) = middle;
        if (fits)
            found = tried;
    }
    return found;
}

/// Takes away of the box what no positive definite matrix has: |a(i,j)| is at most the root of a(i,i) a(j,j). Limits
/// that have nothing in common with it shrink to the nearest number; gives whether there are such.
bool cutToCone(Box& box)
{
    bool conflict = false;
    const auto cut = [&box, &conflict](Eigen::Index i, Eigen::Index j, double lowest, double highest) {
        double& lower = box.lower(i, j);
        double& upper = box.upper(i, j);
        conflict = conflict || lower > highest || upper < lowest;
        lower = box.lower(j, i) = std::clamp(lower, lowest, highest);
        upper = box.upper(j, i) = std::clamp(upper, lowest, highest);
    };
    const Eigen::Index size = box.lower.rows();
    for (Eigen::Index i = 0; i < size; ++i)
        cut(i, i, 0.0, std::numeric_limits<double>::infinity());
    for (Eigen::Index i = 0; i < size; ++i) {
        for (Eigen::Index j = i + 1; j < size; ++j) {
            const double a = box.upper(i, i);
            const double b = box.upper(j, j);
            const double largest = a == 0.0 || b == 0.0 ? 0.0 : std::sqrt(a) * std::sqrt(b);
            cut(i, j, -largest, largest);
        }
    }
    return conflict;
}

/// The matrix of the box that is most likely to be positive definite: large on the diagonal, small beside it.
Matrix mostDiagonal(const Box& box)
{
    Matrix result = box.nearest(Matrix::Zero(box.lower.rows(), box.lower.cols()));
    const Eigen::VectorXd sums = result.cwiseAbs().rowwise().sum();
    for (Eigen::Index i = 0; i < result.rows(); ++i) {
        const double upper = box.upper(i, i);
        result(i, i) = std::isfinite(upper) ? upper : std::max(result(i, i), 1000.0 * sums(i));
    }
    return result;
}

/// Extends the box to `matrix` with the elements beside its diagonal made smaller, as little as is needed.
Matrix extended(Box& box, const Matrix& matrix)
{
    constexpr double margin = 1e-9; // for rounding not to lead out again
    const Box everything{matrix.cwiseMin(0.0), matrix.cwiseMax(0.0)};
    const Matrix diagonal = matrix.diagonal().asDiagonal();
    Matrix inside = movedInside(matrix, diagonal, everything);
    inside += margin * (diagonal - inside);
    box.lower = box.lower.cwiseMin(inside);
    box.upper = box.upper.cwiseMax(inside);
    return inside;
}

/// Depends on the box alone, so that every matrix with the same bounds meets the same limits.
Room roomWithin(const Box& box)
{
    const int exponent = std::max(exponentOf(box.lower), exponentOf(box.upper));
    Room room{scaled(box, -exponent), {}};
    room.extended = cutToCone(room.box);
    room.inside = mostDiagonal(room.box);
    if (!isDefinite(room.inside)) {
        Matrix found = searched(room.inside, room.box);
        found.diagonal() = found.diagonal().cwiseMax(room.inside.diagonal());
        const bool fits = isDefinite(found);
        room.extended = room.extended || !fits;
        room.inside = fits ? found : extended(room.box, found);
    }
    return {scaled(room.box, exponent), scaled(room.inside, exponent), room.extended};
}

/// The nearest positive definite matrix of the room to one that is not. One that is so far off that doubles of its size
/// cannot tell the limits from zero is moved to them first.
Matrix nearestInRoom(const Matrix& given, const Room& room)
{
    constexpr int distant = 60; // powers of two
    const Matrix reachable = room.box.nearest(given);
    const Matrix& matrix = exponentOf(given) - exponentOf(reachable) > distant ? reachable : given;
    const int exponent = exponentOf(matrix);
    const Box box = scaled(room.box, -exponent);
    Matrix inside = scaled(room.inside, -exponent);
    for (Eigen::Index i = 0; i < inside.rows(); ++i)
        inside(i, i) = std::min(std::max(inside(i, i), 1.0), box.upper(i, i));

    const Matrix found = searched(dykstra(scaled(matrix, -exponent), box), box);
    return scaled(isDefinite(found) ? found : movedInside(found, inside, box), exponent);
}
} // namespace

bool MgmPositiveDefinite::isPositiveDefinite(const MgmMatrix& matrix)
{
    return isDefinite(toEigen(matrix));
}

MgmMatrix MgmPositiveDefinite::nearest(const MgmMatrix& matrix, const MgmMatrixBounds& bounds)
{
    const Matrix given = toEigen(matrix);
    const Box asked = toBox(bounds, matrix.getNRows());
    Matrix result = asked.nearest(given);
    if (isDefinite(result))
        return fromEigen(result);

    const Room room = roomWithin(asked);
    if (room.extended)
        result = room.box.nearest(given);
    if (!isDefinite(result))
        result = nearestInRoom(result, room);
    // What is left of a conflict may be no more than rounding.
    const Matrix within = asked.nearest(result);
    return fromEigen(isDefinite(within) ? within : result);
}
