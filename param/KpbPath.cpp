#include <param/KpbPath.h>

const QString& KpbPath::getUpString()
{
    static const QString up = QStringLiteral("..");
    return up;
}

QString KpbPath::toString(const QString& separator) const
{
    return join(separator.isEmpty() ? QStringLiteral("/") : separator);
}

QDataStream& operator<<(QDataStream& stream, const KpbPath& path)
{
    return stream << static_cast<const QStringList&>(path);
}

QDataStream& operator>>(QDataStream& stream, KpbPath& path)
{
    return stream >> static_cast<QStringList&>(path);
}
