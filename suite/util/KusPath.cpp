#include <util/KusPath.h>

#include <QtCore/QDir>
#include <QtCore/QMutex>
#include <QtCore/QMutexLocker>
#include <QtCore/QRegularExpression>

#include <util/KusFileUtils.h>

namespace {

const QLatin1String home("HOME");
const QLatin1Char mark('$');
const QLatin1Char slash('/');

struct Registry
{
    QMutex mutex;
    QMap<QString, QString> roots;
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

bool isName(const QString& text)
{
    static const QRegularExpression name(QStringLiteral("\\A[A-Za-z][A-Za-z0-9_]*\\z"));
    return name.match(text).hasMatch();
}

/// "NAME" for "$NAME" and "$NAME/..."; empty for a text that does not start with a token.
QString tokenName(const QString& text)
{
    const QString name = text.startsWith(mark) ? text.section(slash, 0, 0).mid(1) : QString();
    return isName(name) ? name : QString();
}

bool hasUnknownToken(const QString& text, const QMap<QString, QString>& roots)
{
    const QString name = tokenName(text);
    return !name.isEmpty() && !roots.contains(name);
}

bool isAtOrBelow(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(folder.endsWith(slash) ? folder : folder + slash);
}

/// The name of the longest root that `path` is at or below, or an empty text.
QString rootOf(const QString& path, const QMap<QString, QString>& roots)
{
    QString best;
    for (auto root = roots.cbegin(); root != roots.cend(); ++root)
        if (isAtOrBelow(path, *root) && (best.isEmpty() || root->size() > roots[best].size()))
            best = root.key();
    return best;
}

QString shortened(const QString& path, const QString& name, const QString& folder)
{
    const QString rest = path.mid(folder.size());
    const bool parted = rest.isEmpty() || rest.startsWith(slash);
    return mark + name + (parted ? QString() : QString(slash)) + rest;
}

} // namespace

KusPath::KusPath(Kind kind, const QString& text) : _kind(kind), _text(text) {}

QString KusPath::shortPath() const
{
    const auto roots = getRoots();
    if (hasUnknownToken(_text, roots))
        return _text;
    const QString path = KusFileUtils::cleanPath(_text);
    if (path.startsWith(QLatin1String("$$")) || roots.contains(tokenName(path)))
        return mark + path;
    const QString name = rootOf(path, roots);
    return name.isEmpty() ? path : shortened(path, name, roots[name]);
}

QString KusPath::absolutePath() const
{
    if (_text.startsWith(QLatin1String("$$")))
        return KusFileUtils::cleanPath(_text.mid(1));
    const QString name = tokenName(_text);
    if (name.isEmpty())
        return KusFileUtils::cleanPath(_text);
    const auto roots = getRoots();
    const auto root = roots.constFind(name);
    return root == roots.cend() ? _text : KusFileUtils::cleanPath(*root + slash + _text.mid(1 + name.size()));
}

bool KusPath::setRoot(const QString& name, const QString& directory)
{
    const QString folder = KusFileUtils::cleanPath(directory);
    if (!isName(name) || (!folder.isEmpty() && QDir::isRelativePath(folder)))
        return false;
    const QMutexLocker locker(&registry().mutex);
    if (folder.isEmpty())
        registry().roots.remove(name);
    else
        registry().roots[name] = folder;
    return true;
}

QMap<QString, QString> KusPath::getRoots()
{
    const QMutexLocker locker(&registry().mutex);
    auto roots = registry().roots;
    const QString folder = QDir::homePath();
    if (!roots.contains(home) && folder != QDir::rootPath())
        roots[home] = folder;
    return roots;
}
