#pragma once

#include <QtCore/QHash>
#include <QtCore/QMap>

#include <study/KsbIDriverItem.h>

#include <functional>
#include <vector>

/// The store of items of a project without a file: it lives as long as the driver.
class KESTRIN_STUDY_EXPORT KsbDriverItemMemory final : public KsbIDriverItem
{
public:
    QList<KsbItemRecord> list(const QString& model) const override;
    int insert(const QString& model, const KsbItemRecord& record) override;
    void update(const KsbItemRecord& record) override;
    void remove(const QList<int>& ids) override;
    std::optional<QByteArray> readContent(int id, int number) const override;
    void writeContent(int id, int number, const QByteArray& content) override;
    void inOneStep(const std::function<void()>& body) override;

private:
    struct Entry
    {
        QString model;
        KsbItemRecord record;
        QHash<int, QByteArray> contents;
    };

    Entry& _require(int id);
    void _whenUndone(std::function<void()> undo);

    QMap<int, Entry> _entries;
    int _lastId = 0;
    bool _inStep = false;
    std::vector<std::function<void()>> _undo;
};
