#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// An item of a model as it is stored.
struct KsbItemRecord
{
    int id = 0;     ///< above 0, and never used again in its project
    int parent = 0; ///< the id of the item above it; 0 at the top
    int kind = 0;   ///< the model's own number of the kind of item
    QString name;
    QByteArray attributes; ///< everything else that is small: a JSON object
};
