#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <document/ElementPlace.h>
#include <param/KpbAParameter.h>

class KpcAbstractList;

/// Something in a document that a tree of parameters did not take over as it stands.
struct Finding
{
    enum Kind
    {
        Unknown,  ///< nothing reads it
        Refused,  ///< the parameter could not use it
        Repaired, ///< the parameter made something else of it
        TooNew,   ///< it is of a version that the class does not know
        Ignored,  ///< the parameter is not stored
        Repeated, ///< a later element of the same key takes its place
    };

    Kind kind;
    QString path; ///< of the element, by the keys below the root; "." for the root
    ElementPlace place;
    QString text;

    /// "unknown", "refused", "repaired", "too new", "ignored" or "repeated".
    QString getKindName() const;
    /// The finding behind file and place, in a line.
    QString toString(const QString& file) const;
    QJsonObject toJson() const;
};

/// Compares a document that has been read with the tree that has read it.
class FormFindings
{
public:
    /// `element` is the root as the reading has left it, converted where it was older; `former` the tree as it was
    /// before the reading.
    FormFindings(const QDomElement& element, const KpbAParameter& root, const KpbAParameter& former);

    const QVector<Finding>& getFindings() const { return _findings; }
    /// The paths of parameters that the document does not have and that kept their state, without those below them.
    const QStringList& getAbsent() const { return _absent; }

private:
    /// A parameter, what it was before the reading, and the keys that lead to it.
    struct Place
    {
        const KpbAParameter& parameter;
        const KpbAParameter& former;
        QString path;

        QString below(const QString& key) const;
    };

    void _collect(const QDomElement& element, const Place& place);
    void _compare(const QDomElement& element, const Place& place);
    bool _isRead(const QDomElement& element, const Place& place);
    void _checkAttributes(const QDomElement& element, const Place& place);
    void _checkEntries(const QDomElement& element, const Place& place);
    void _checkValue(const QDomElement& element, const Place& place);
    void _collectChildren(const QDomElement& element, const Place& place);
    void _collectChild(const QDomElement& element, const Place& place);
    void _collectItems(const QDomElement& element, const Place& place);
    void _collectItemsByKey(const QDomElement& element, const Place& place, const KpcAbstractList& list);
    void _collectItemsByPosition(const QDomElement& element, const Place& place, const KpcAbstractList& list);
    void _collectItem(const QDomElement& element, const Place& place, const KpbAParameter* item);
    void _collectAbsent(const QDomElement& element, const Place& place);
    void _add(Finding::Kind kind, const QDomElement& element, const QString& path, const QString& text);

    QVector<Finding> _findings;
    QStringList _absent;
};
