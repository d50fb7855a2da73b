#pragma once

#include <QtCore/QList>

#include <study/KsbItemRecord.h>
#include <study/StudyExport.h>

#include <functional>
#include <optional>

/// The store of the items of all models of a project: a record for each item, and beside it any number of contents
/// (large bytes, such as the values of a variable) which are read only when they are asked for. Models are told apart
/// by their names. An operation that fails throws an `MbeError` and leaves what is stored as it was.
class KESTRIN_STUDY_EXPORT KsbIDriverItem
{
public:
    virtual ~KsbIDriverItem();

    /// The records of the model, ascending by id. Records are given as they are stored: the model judges them.
    virtual QList<KsbItemRecord> list(const QString& model) const = 0;
    /// Stores a new record and gives its id; that of `record` does not count.
    virtual int insert(const QString& model, const KsbItemRecord& record) = 0;
    /// Stores everything of `record` but its kind; an unknown id is an error.
    virtual void update(const KsbItemRecord& record) = 0;
    /// Removes the records and their contents; unknown ids are passed over.
    virtual void remove(const QList<int>& ids) = 0;

    /// None if there is no content of the number.
    virtual std::optional<QByteArray> readContent(int id, int number) const = 0;
    /// Stores the content in place of the one of the number; the record must exist.
    virtual void writeContent(int id, int number, const QByteArray& content) = 0;

    /// Runs `body`: all that it stores through this driver, or, if it throws, nothing of it stays. May be nested: the
    /// outermost one counts.
    virtual void inOneStep(const std::function<void()>& body) = 0;

protected:
    KsbIDriverItem() = default;
    KsbIDriverItem(const KsbIDriverItem&) = default;
    KsbIDriverItem& operator=(const KsbIDriverItem&) = default;
};
