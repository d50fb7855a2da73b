#include <util/KugPalette.h>

#include <basic/MbeError.h>
#include <util/KugPaletteService.h>

#include <algorithm>
#include <cmath>

KugPalette::KugPalette() : KugPalette(KugPaletteService::getDefaultPalette()) {}

KugPalette::KugPalette(const QString& id, const QString& name, const QVector<QColor>& colors)
    : _id(id),
      _name(name),
      _colors(colors)
{
    if (colors.isEmpty())
        throw MbeProgrammingError(QStringLiteral("KugPalette: the palette '%1' has no colour.").arg(id));
}

QColor KugPalette::getColorAt(double place) const
{
    const int last = _colors.size() - 1;
    const double position = (place > 0.0 ? std::min(place, 1.0) : 0.0) * last;
    const int left = int(position);
    const QColor& a = _colors.at(left);
    const QColor& b = _colors.at(std::min(left + 1, last));
    const double part = position - left;
    const auto mixed = [part](int from, int to) { return int(std::lround(from + part * (to - from))); };
    return QColor(mixed(a.red(), b.red()), mixed(a.green(), b.green()), mixed(a.blue(), b.blue()),
                  mixed(a.alpha(), b.alpha()));
}
