#pragma once

#include <QtCore/QRandomGenerator>
#include <QtCore/QSize>
#include <QtGui/QColor>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>

/// Colours and their samples, for user interfaces.
namespace Ku {

/// An opaque colour by chance, strong enough to be seen on white and on black. With `unlike`, the hue is at least a
/// sixth of the colour circle away from that colour.
inline QColor getRandomColor(const QColor* unlike = nullptr)
{
    QRandomGenerator* random = QRandomGenerator::global();
    const bool hasHue = unlike && unlike->hsvHue() >= 0;
    const int hue = hasHue ? (unlike->hsvHue() + random->bounded(60, 301)) % 360 : random->bounded(360);
    return QColor::fromHsv(hue, random->bounded(128, 256), random->bounded(160, 256));
}

/// A pixmap of that size filled with `color`, inside a black frame of `border` pixels. Null where the program has no
/// platform to make pixmaps with, and for an empty size.
inline QPixmap getPixmapFromColor(const QColor& color, const QSize& size, int border)
{
    if (size.isEmpty() || !qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return {};
    QPixmap pixmap(size);
    pixmap.fill(border > 0 ? QColor(Qt::black) : QColor(Qt::transparent));
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const int frame = qMax(border, 0);
    painter.fillRect(QRect(QPoint(), size).adjusted(frame, frame, -frame, -frame), color);
    return pixmap;
}

} // namespace Ku
