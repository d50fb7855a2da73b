#pragma once

#include <param/KpbAParameter.h>

#include <functional>

/// One entry of a modification record as it reached the root.
struct RecordEntry
{
    QString path;
    Kp::NotificationFlags flags;
};

/// "value", "config", "children" and "items", joined by a comma.
QString flagsText(Kp::NotificationFlags flags);

/// The entries of a record in the order of their paths; "." is the root.
QVector<RecordEntry> entriesOf(const KpnModif& record, const KpbAParameter& root);

/// One line: the entries as "PATH flags", joined by "; ".
QString recordText(const QVector<RecordEntry>& entries);

/// Observes a root and hands each record that reaches it to a function. The root must outlive it.
class RecordListener : public KuoIObserver<KpnModif>
{
public:
    using Function = std::function<void(const QVector<RecordEntry>&)>;

    RecordListener(const KpbAParameter& root, Function function);
    ~RecordListener() override;
    RecordListener(const RecordListener&) = delete;
    RecordListener& operator=(const RecordListener&) = delete;

    void update(const KpnModif& record) override { _function(entriesOf(record, _root)); }

private:
    const KpbAParameter& _root;
    Function _function;
};
