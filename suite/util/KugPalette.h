#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QColor>

#include <util/UtilExport.h>

/// Colours for a range of numbers: an identifier that is stored, a name for people, and the colours at equal distances
/// from the lowest number to the highest. A plain value; `KugPaletteService` gives the known ones.
class KESTRIN_UTIL_EXPORT KugPalette
{
public:
    /// The default palette.
    KugPalette();
    /// `colors` has at least one colour; none is an `MbeProgrammingError`.
    KugPalette(const QString& id, const QString& name, const QVector<QColor>& colors);

    const QString& getId() const { return _id; }
    const QString& getName() const { return _name; }
    const QVector<QColor>& getColors() const { return _colors; }
    /// The colour at a place between 0, the first colour, and 1, the last: mixed of its two neighbours. A place outside
    /// counts as the nearer end, a NaN as 0.
    QColor getColorAt(double place) const;

    friend bool operator==(const KugPalette& a, const KugPalette& b) = default;

private:
    QString _id;
    QString _name;
    QVector<QColor> _colors;
};
