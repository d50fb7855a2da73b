#pragma once

#include <QtCore/QString>

/// A fiche key for people: "METHOD=NEAREST, NAME=Run 1" instead of the encoded values. A text of another shape is given
/// as it stands.
QString readableKey(const QString& ficheKey);
