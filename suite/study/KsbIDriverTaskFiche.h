#pragma once

#include <QtCore/QMap>
#include <QtCore/QStringList>

#include <study/StudyExport.h>

class QDomDocument;

/// The store of task forms: one XML document for each pair of an identifier (the task) and a fiche key (the values that
/// the form was saved for). Any text is an identifier or a key, the empty one included. An operation that fails throws
/// an `MbeError` and leaves what is stored as it was.
class KESTRIN_STUDY_EXPORT KsbIDriverTaskFiche
{
public:
    virtual ~KsbIDriverTaskFiche();

    /// One pair of identifier and fiche key for each stored form, by identifier, then key. An identifier with several
    /// forms stands there several times, so walk the map with its iterators.
    virtual QMap<QString, QString> listAll() const = 0;
    /// The fiche keys of `id`, in order.
    virtual QStringList listKeys(const QString& id) const = 0;
    virtual bool exists(const QString& id, const QString& key) const = 0;
    /// Sets `document` to the stored form, or to null if there is none or it cannot be read.
    virtual void read(const QString& id, const QString& key, QDomDocument& document) const = 0;
    /// Stores `document`, in place of the form that stands under `id` and `key`. A document without a root is stored
    /// too; a null document is no form, and nothing is stored or replaced.
    virtual void write(const QString& id, const QString& key, const QDomDocument& document) = 0;
    /// Moves the form under `oldKey` to `newKey`. Nothing happens if there is none, or if both keys are the same.
    virtual void rename(const QString& id, const QString& oldKey, const QString& newKey) = 0;

protected:
    KsbIDriverTaskFiche() = default;
    KsbIDriverTaskFiche(const KsbIDriverTaskFiche&) = default;
    KsbIDriverTaskFiche& operator=(const KsbIDriverTaskFiche&) = default;
};
