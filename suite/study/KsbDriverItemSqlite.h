#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

#include <study/KsbIDriverItem.h>
#include <study/KssOpenMode.h>

#include <functional>
#include <memory>
#include <optional>

class KsbSqliteConnection;
class KsbSqliteFile;

/// The store of items in a project file. What holds for the store of forms (`KsbDriverTaskFicheSqlite`) in the same
/// file holds here too: how changes last, who may use the file at once, and what fails. Stored values of a wrong kind
/// are an error when they are met.
///
/// Who changes a model works on what `list` gave: once another user of the file has changed a record of the model, each
/// change is refused until the model is listed again. So what is stored always fits together.
class KESTRIN_STUDY_EXPORT KsbDriverItemSqlite final : public KsbIDriverItem
{
public:
    /// Keeps the items in a file that is open already.
    explicit KsbDriverItemSqlite(std::shared_ptr<KsbSqliteFile> store);
    /// Opens a project file, which must exist.
    static std::unique_ptr<KsbDriverItemSqlite> open(const QString& filePath,
                                                     KssOpenMode mode = KssOpenMode::ReadWrite);
    KsbDriverItemSqlite(const KsbDriverItemSqlite&) = delete;
    KsbDriverItemSqlite& operator=(const KsbDriverItemSqlite&) = delete;
    ~KsbDriverItemSqlite() override;

    QList<KsbItemRecord> list(const QString& model) const override;
    int insert(const QString& model, const KsbItemRecord& record) override;
    void update(const KsbItemRecord& record) override;
    void remove(const QList<int>& ids) override;
    std::optional<QByteArray> readContent(int id, int number) const override;
    void writeContent(int id, int number, const QByteArray& content) override;
    void inOneStep(const std::function<void()>& body) override;

private:
    /// How often the records of each model have been changed; none where they never were.
    using States = QHash<QString, qint64>;

    static States _readStates(KsbSqliteConnection& connection);
    bool _isKnown(const QString& model) const;
    void _requireKnown(const QString& model) const;
    void _change(const std::function<void(KsbSqliteConnection&)>& body);
    void _changeModel(KsbSqliteConnection& connection, const QString& model) const;

    std::shared_ptr<KsbSqliteFile> _store;
    /// Those of the listed models that their users know.
    mutable States _known;
    /// Those in the file at the beginning of the running step.
    std::optional<States> _atBegin;
};
