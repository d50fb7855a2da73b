#include <util/KuuCoordSystemCatalog.h>

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>
#include <QtCore/QObject>
#include <QtCore/QRegularExpression>

#include <basic/MbbDebug.h>
#include <basic/MbeError.h>

#include <proj.h>

#include <memory>

namespace {
struct ProjFree
{
    void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
    void operator()(PJ* object) const { proj_destroy(object); }
};
template <class T>
using ProjPointer = std::unique_ptr<T, ProjFree>;

/// A context that prints nothing and asks nobody over the network.
ProjPointer<PJ_CONTEXT> quietContext()
{
    ProjPointer<PJ_CONTEXT> context(proj_context_create());
    if (!context)
        throw MbeMemoryError(QObject::tr("There is no memory for coordinate systems."));
    proj_log_func(context.get(), nullptr, [](void*, int, const char*) {});
    proj_context_set_enable_network(context.get(), 0);
    return context;
}

/// The kind of coordinates in the plane: that of the horizontal part of a compound system, and that of the system below
/// a datum shift.
Ku::CoordSystemModes modeOf(PJ_CONTEXT* context, const PJ* system)
{
    switch (proj_get_type(system)) {
    case PJ_TYPE_GEOGRAPHIC_2D_CRS:
    case PJ_TYPE_GEOGRAPHIC_3D_CRS:
        return Ku::CoordSystemMode::Geographic;
    case PJ_TYPE_PROJECTED_CRS:
        return Ku::CoordSystemMode::Projected;
    case PJ_TYPE_ENGINEERING_CRS:
        return Ku::CoordSystemMode::Local;
    case PJ_TYPE_COMPOUND_CRS:
        return modeOf(context, ProjPointer<PJ>(proj_crs_get_sub_crs(context, system, 0)).get());
    case PJ_TYPE_BOUND_CRS:
        return modeOf(context, ProjPointer<PJ>(proj_get_source_crs(context, system)).get());
    default:
        return {};
    }
}

struct AuthorityCode
{
    QByteArray authority;
    QByteArray code;
};

/// An empty authority for a text of any other form than authority and code.
AuthorityCode parse(const QString& key)
{
    static const QRegularExpression form(
        QStringLiteral("\\A([A-Za-z][A-Za-z0-9_]{0,31}):([A-Za-z0-9][A-Za-z0-9_.-]{0,63})\\z"));
    if (key.size() > 100)
        return {};
    const QRegularExpressionMatch match = form.match(key);
    return {match.captured(1).toLatin1(), match.captured(2).toLatin1()};
}

/// PROJ's database, opened where it is asked for first. What was looked up is kept: a document may name the same system
/// many times.
class Database
{
public:
    KuuCoordSystem getCoordSystem(const QString& key)
    {
        const AuthorityCode wanted = parse(key);
        if (wanted.authority.isEmpty())
            return {};
        const QMutexLocker locker(&_mutex);
        const auto known = _known.constFind(key);
        if (known != _known.constEnd())
            return *known;
        if (!_open()) {
            _warnOnce();
            return {};
        }
        if (_known.size() >= MaxKnown)
            _known.clear();
        return *_known.insert(key, _read(wanted));
    }

    void require()
    {
        const QMutexLocker locker(&_mutex);
        if (!_open())
            throw MbeError(MbeError::Storage, _complaint());
    }

    void setPath(const QString& path)
    {
        const QMutexLocker locker(&_mutex);
        _path = path;
        _context.reset();
        _known.clear();
        _warned = false;
    }

private:
    static constexpr int MaxKnown = 1000;

    bool _open()
    {
        if (_context)
            return true;
        ProjPointer<PJ_CONTEXT> context = quietContext();
        if (!_path.isEmpty() &&
            !proj_context_set_database_path(context.get(), QFile::encodeName(_path).constData(), nullptr, nullptr))
            return false;
        // The only question that every database answers.
        if (!proj_context_get_database_metadata(context.get(), "DATABASE.LAYOUT.VERSION.MAJOR"))
            return false;
        _context = std::move(context);
        return true;
    }

    KuuCoordSystem _read(const AuthorityCode& wanted) const
    {
        PJ_CONTEXT* context = _context.get();
        const ProjPointer<PJ> system(proj_create_from_database(context, wanted.authority.constData(),
                                                               wanted.code.constData(), PJ_CATEGORY_CRS, 0, nullptr));
        const char* authority = system ? proj_get_id_auth_name(system.get(), 0) : nullptr;
        const char* code = system ? proj_get_id_code(system.get(), 0) : nullptr;
        if (!authority || !code)
            return {};
        const QString key = QString::fromUtf8(authority) + QLatin1Char(':') + QString::fromUtf8(code);
        return KuuCoordSystem(key, QString::fromUtf8(proj_get_name(system.get())), modeOf(context, system.get()));
    }

    QString _complaint() const
    {
        const QString place = _path.isEmpty()
                                  ? QObject::tr("PROJ does not find its database 'proj.db'; the environment variable "
                                                "PROJ_DATA names the folder that it lies in.")
                                  : QObject::tr("PROJ cannot read its database at '%1'.").arg(_path);
        return QObject::tr("Coordinate systems cannot be looked up: %1").arg(place);
    }

    void _warnOnce()
    {
        if (!_warned)
            MbbDebug::printWarning(_complaint());
        _warned = true;
    }

    QMutex _mutex;
    QString _path;
    ProjPointer<PJ_CONTEXT> _context;
    QHash<QString, KuuCoordSystem> _known;
    bool _warned = false;
};

Database& database()
{
    static Database instance;
    return instance;
}
} // namespace

const QString KuuCoordSystemCatalog::KEY_LOCAL = QStringLiteral("LOCAL");

KuuCoordSystem KuuCoordSystemCatalog::getCoordSystem(const QString& key)
{
    if (key == KEY_LOCAL)
        return KuuCoordSystem(KEY_LOCAL, QObject::tr("Local"), Ku::CoordSystemMode::Local);
    return database().getCoordSystem(key);
}

void KuuCoordSystemCatalog::requireDatabase()
{
    database().require();
}

void KuuCoordSystemCatalog::setDatabase(const QString& path)
{
    database().setPath(path);
}
