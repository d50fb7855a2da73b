#pragma once

#include "Plan.h"

#include <QtCore/QByteArray>

/// QXmlStreamWriter and QXmlStreamReader alone: there is no tree, only numbers to write and numbers that were read.
struct Stream
{
    static constexpr const char* name = "stream";

    /// The text that the library makes of a tree of this plan.
    static QByteArray save(const Plan& plan);
    /// The sum of the values in the text of a tree or a list.
    static double sum(const QByteArray& text);
};
