#include <util/KusFileUtils.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <optional>

namespace {

bool isFolder(const QString& path)
{
    return QFileInfo(path).isDir();
}

/// A pattern that is no wildcard expression matches nothing.
bool matchesPattern(const QString& name, const QString& pattern)
{
    const QRegularExpression expression(QRegularExpression::wildcardToRegularExpression(pattern),
                                        QRegularExpression::CaseInsensitiveOption);
    return expression.isValid() && expression.match(name).hasMatch();
}

bool matches(const QString& path, const QStringList& patterns)
{
    const QString name = path.section(QLatin1Char('/'), -1);
    return std::any_of(patterns.cbegin(), patterns.cend(),
                       [&name](const QString& pattern) { return matchesPattern(name, pattern); });
}

/// ".csv" for the pattern "*.csv"; empty for a pattern of another form.
QString extensionOf(const QString& pattern)
{
    const QString extension = pattern.mid(1);
    const bool plain = extension.size() > 1 && !extension.contains(QLatin1Char('*')) &&
                       !extension.contains(QLatin1Char('?')) && !extension.contains(QLatin1Char('['));
    return pattern.startsWith(QLatin1String("*.")) && plain ? extension : QString();
}

QString firstExtension(const QStringList& patterns)
{
    for (const QString& pattern : patterns) {
        const QString extension = extensionOf(pattern);
        if (!extension.isEmpty())
            return extension;
    }
    return {};
}

/// The cleaned path as a file that the rules accept, or nothing.
std::optional<QString> acceptedFile(const QString& path, const QStringList& patterns, bool openMode)
{
    if (path.isEmpty())
        return path;
    if (isFolder(path))
        return std::nullopt;
    if (patterns.isEmpty() || matches(path, patterns))
        return path;
    const QString extended = path + firstExtension(patterns);
    if (openMode || !matches(extended, patterns) || isFolder(extended))
        return std::nullopt;
    return extended;
}

} // namespace

QString KusFileUtils::cleanPath(const QString& path)
{
    return QDir::cleanPath(QDir::fromNativeSeparators(path));
}

QString KusFileUtils::fixDirectoryPath(const QString& value, const QString& previous, bool mustExist)
{
    const QString path = cleanPath(value);
    return path.isEmpty() || !mustExist || isFolder(path) ? path : cleanPath(previous);
}

QString KusFileUtils::fixFilePath(const QString& value, const QString& previous, bool anyFileAllowed,
                                  const QStringList& filterPatterns, bool openMode)
{
    const QStringList patterns = anyFileAllowed ? QStringList() : filterPatterns;
    const QString former = cleanPath(previous);
    if (const auto path = acceptedFile(cleanPath(value), patterns, openMode))
        return *path;
    return acceptedFile(former, patterns, openMode).value_or(former);
}
