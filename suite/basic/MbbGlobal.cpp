#include <basic/MbbGlobal.h>

#include <cmath>

const QString MbbGlobal::STR_NA = QStringLiteral("N/A");

namespace {
template <class T>
bool take(T read, bool ok, T& value)
{
    if (ok)
        value = read;
    return ok;
}
} // namespace

bool MbbGlobal::convertString(const QString& text, int& value)
{
    bool ok = false;
    const int read = text.toInt(&ok, 10);
    return take(read, ok, value);
}

bool MbbGlobal::convertString(const QString& text, qint64& value)
{
    bool ok = false;
    const qint64 read = text.toLongLong(&ok, 10);
    return take(read, ok, value);
}

bool MbbGlobal::convertString(const QString& text, double& value)
{
    bool ok = false;
    const double read = text.toDouble(&ok);
    return take(read, ok && std::isfinite(read), value);
}
