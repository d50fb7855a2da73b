#pragma once

#include "Plan.h"

#include <QtCore/QByteArray>

/// Two texts in turn, so that each reading changes each value.
class Texts
{
public:
    Texts(const Plan& plan, QByteArray (*save)(const Plan&, double)) : _texts{save(plan, 0.0), save(plan, 1.0)} {}
    const QByteArray& next()
    {
        _last = 1 - _last;
        return _texts[_last];
    }

private:
    QByteArray _texts[2];
    int _last = 0;
};
