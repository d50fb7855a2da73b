#include <tree/RecordListener.h>

#include <tree/ParameterPath.h>

QString flagsText(Kp::NotificationFlags flags)
{
    QStringList names;
    if (flags.testFlag(Kp::NotifyValue))
        names.append(QStringLiteral("value"));
    if (flags.testFlag(Kp::NotifyConfig))
        names.append(QStringLiteral("config"));
    if (flags.testFlag(Kp::NotifyChildren))
        names.append(QStringLiteral("children"));
    if (flags.testFlag(Kp::NotifyItem))
        names.append(QStringLiteral("items"));
    return names.join(QStringLiteral(", "));
}

QVector<RecordEntry> entriesOf(const KpnModif& record, const KpbAParameter& root)
{
    QVector<RecordEntry> entries;
    record.forEach([&](const KpnPath& path, Kp::NotificationFlags flags) {
        if (!path.isValid())
            return;
        const QString below = pathBelow(root, *path.getFirst());
        entries.append({below.isEmpty() ? QStringLiteral(".") : below, flags});
    });
    std::sort(entries.begin(), entries.end(),
              [](const RecordEntry& a, const RecordEntry& b) { return a.path < b.path; });
    return entries;
}

QString recordText(const QVector<RecordEntry>& entries)
{
    QStringList texts;
    for (const RecordEntry& entry : entries)
        texts.append(entry.path + QLatin1Char(' ') + flagsText(entry.flags));
    return texts.join(QStringLiteral("; "));
}

RecordListener::RecordListener(const KpbAParameter& root, Function function)
    : _root(root),
      _function(std::move(function))
{
    _root.addObserver(this);
}

RecordListener::~RecordListener()
{
    _root.removeObserver(this);
}
