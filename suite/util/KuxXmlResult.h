#pragma once

#include <QtCore/QString>

/// How the reading of a document ended.
struct KuxXmlResult
{
    bool ok = true;
    /// What is wrong, in English and without the place; empty if nothing is.
    QString message;
    /// Where reading stopped, both counted from 1, the column in characters; 0 if nothing is wrong.
    qint64 line = 0;
    qint64 column = 0;
};
