#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <study/StudyExport.h>

class KsbIDriverItem;

/// The stored form of the items of one model of named items: one record each, with a JSON object of the applications
/// and the content. It does not own the driver. Errors are those of the driver; a stored item that is damaged is an
/// `MbeError` of type `MbeError::Storage` that names it.
class KESTRIN_STUDY_EXPORT KsmNamedStore
{
public:
    struct Record
    {
        int id = 0;
        QString name;
        QStringList applicationFlags;
        QJsonObject content;
    };

    KsmNamedStore(KsbIDriverItem* driver, const QString& model) : _driver(driver), _model(model) {}

    /// Ascending by id.
    QList<Record> list() const;
    /// Gives the id of the new record.
    int insert(const Record& record);
    void update(const Record& record);
    void remove(int id);

    /// Names the item in messages.
    QString describe(int id, const QString& name) const;

private:
    KsbIDriverItem* _driver;
    QString _model;
};
