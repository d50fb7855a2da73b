#pragma once

#include <QtCore/QList>
#include <QtCore/QVector>

#include <basic/MbbStringFormat.h>
#include <geos/MgmMatrix.h>
#include <util/KuConstraint.h>
#include <util/UtilExport.h>

/// A symmetric matrix, such as the sills of several variables, either as plain numbers or as constraints: then the
/// matrix as a whole is known, bounded or unknown, and each element may have bounds of its own. A plain, implicitly
/// shared value.
///
/// Lists by element run through the upper triangle row by row: (0,0), (0,1), ... (0,n-1), (1,1), and so on; the
/// undefined marker stands for a bound that is missing, and is stored for an infinity or a NaN. Elements are finite: a
/// NaN, an infinity and the undefined marker are stored as 0. A size outside 0 to `MaxSize`, a matrix that is not
/// square and an element outside are an `MbeProgrammingError` and leave the value as it was.
class KESTRIN_UTIL_EXPORT KuuMatrixSymmetrical
{
public:
    /// The largest number of rows. It keeps a size that was read from a damaged document from exhausting memory and
    /// time.
    static constexpr int MaxSize = 256;

    /// A matrix of zeros, in the mode of plain numbers.
    explicit KuuMatrixSymmetrical(int size = 1);

    int getSize() const { return _size; }
    /// The number of elements of the upper triangle, size * (size + 1) / 2.
    int getElementCount() const { return _elements.size(); }
    double getElementAt(int row, int column) const { return _elements.at(_index(row, column)); }
    /// Sets the element and its mirror image.
    void setElement(int row, int column, double value);

    /// All elements, as a symmetric matrix.
    MgmMatrix getMatrix() const;
    /// Takes over size and elements as plain numbers: the mode becomes `Values`, the behavior `Unknown`, no element has
    /// bounds. Of a matrix that is not symmetric the upper triangle is read.
    void setMatrix(const MgmMatrix& matrix);
    /// Takes over size and elements with their constraints; the mode becomes `Constraints`. The lists may be shorter
    /// than the number of elements; what they hold beyond it is dropped.
    void setMatrixWC(const MgmMatrix& matrix, const QList<double>& minimums, const QList<double>& maximums,
                     Ku::Constraint::Behavior behavior);

    Ku::Constraint::Mode getMode() const { return _mode; }
    /// Behavior and bounds stay, so that going to the plain numbers and back loses nothing.
    void setMode(Ku::Constraint::Mode mode) { _mode = mode; }
    Ku::Constraint::Behavior getBehavior() const { return _behavior; }
    void setBehavior(Ku::Constraint::Behavior behavior) { _behavior = behavior; }
    /// The elements' own bounds, one per element.
    const QList<double>& getMinimums() const { return _minimums; }
    const QList<double>& getMaximums() const { return _maximums; }

    /// Moves each element to the nearer bound where it lies outside of [minimum, maximum]; a missing bound does not
    /// limit, and where a minimum lies above its maximum the maximum counts. In the mode `Constraints` with the
    /// behavior `Bounded` an element's own bounds limit it first.
    ///
    /// With `positiveDefinite` the matrix becomes the nearest one within the bounds that is positive definite, as
    /// `MgmPositiveDefinite::nearest` tells it with its tolerance; null and other semi-definite matrices are left as
    /// they are. Applying the same bounds twice changes nothing more. The own bounds are kept as they are.
    void applyBounds(const QList<double>& minimums, const QList<double>& maximums, bool positiveDefinite);

    /// The matrix as text: the element of a matrix of one row, otherwise the rows in brackets,
    /// "[1.00 m², 0.50; 0.50, 2.00 s²]". `formats` and `powers` have one entry for all elements or one per row. An
    /// element between rows that differ in format or power, whose unit thus is mixed, and one without an entry is
    /// written by `defaultFormat` with power 1.
    ///
    /// In the mode `Constraints` it is "[unknown]" if unknown, and if bounded each element is its interval: "[0 10]",
    /// or "]-∞ 10]" where a bound is missing.
    QString toString(const QList<MbbStringFormat>& formats, const QList<int>& powers,
                     const MbbStringFormat& defaultFormat) const;

    friend bool operator==(const KuuMatrixSymmetrical& a, const KuuMatrixSymmetrical& b) { return a._isEqual(b); }
    friend bool operator!=(const KuuMatrixSymmetrical& a, const KuuMatrixSymmetrical& b) { return !a._isEqual(b); }

private:
    void _takeElements(const MgmMatrix& matrix);
    int _index(int row, int column) const;
    QString _elementText(int row, int column, const MbbStringFormat& format, int power) const;
    bool _isEqual(const KuuMatrixSymmetrical& other) const;

    int _size = 0;
    QVector<double> _elements;
    Ku::Constraint::Mode _mode = Ku::Constraint::Values;
    Ku::Constraint::Behavior _behavior = Ku::Constraint::Unknown;
    QList<double> _minimums;
    QList<double> _maximums;
};
