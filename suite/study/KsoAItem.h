#pragma once

#include <QtCore/QString>

#include <study/StudyExport.h>

/// Base of the items of a project. An item belongs to its model, which alone makes, changes and destroys it.
class KESTRIN_STUDY_EXPORT KsoAItem
{
public:
    KsoAItem(const KsoAItem&) = delete;
    KsoAItem& operator=(const KsoAItem&) = delete;
    virtual ~KsoAItem();

    /// Names the item in its project for good: it outlasts renaming and is never used again. Built-in items have
    /// negative ones, below -1.
    int getId() const { return _id; }
    const QString& getName() const { return _name; }

protected:
    KsoAItem(int id, const QString& name) : _id(id), _name(name) {}
    void _setName(const QString& name) { _name = name; }

private:
    int _id;
    QString _name;
};
