#pragma once

#include <QtCore/QMap>
#include <QtCore/QStringList>
#include <QtXml/QDomElement>

#include <param/KpbAParameter.h>

#include <memory>

class KpcChildTable;
class KssProject;
class KstITransactable;

/// Base of every parameter that holds other parameters. It owns its children, keeps their keys unique, hears their
/// notifications and passes them up the tree, and carries the transaction context through which the subtree reaches its
/// project. It has no value of its own.
///
/// A child belongs to one composite at a time. One that is destroyed elsewhere leaves silently. A copy has copies of
/// the children, under their own keys and in their order. The transaction context is the caller's and outlives the
/// tree.
///
/// A class that overrides `update` reacts first and calls `KpcAComposite::update` last.
class KESTRIN_PARAM_EXPORT KpcAComposite : public KpbAParameter, public KuoIObserver<KpnModif>
{
public:
    ~KpcAComposite() override;

    bool hasChildren() const override;
    int getChildCount() const override;
    KpbAParameter* getChild(const QString& key) const override;
    KpbAParameter* getChild(int index) const override;

    SerialForm serialize() const override { return {}; }
    void unserialize(const SerialForm&) override {}
    QString toString() const override { return {}; }

    void update(const KpnModif& modif) override;
    void destroyed(const KuoAObservable<KpnModif>* observable) override;

protected:
    KpcAComposite(const KpbEType& type, const QString& key, const KstITransactable& transactable);
    KpcAComposite(const KpcAComposite& other, const QString& newKey);

    /// Takes ownership of `child`. A null child and a key that a living child has fail with an `MbeError`, and leave
    /// the child with the caller.
    void appendChild(KpbAParameter* child);
    /// An unknown key is a programming failure, here and in `takeChild`.
    void deleteChild(const QString& key);
    /// Hands the child to the caller.
    KpbAParameter* takeChild(const QString& key);
    /// Destroys all children, in one notification.
    void deleteAll();
    bool existsKey(const QString& key) const;

    const KstITransactable& _getTransactable() const { return *_transactable; }
    /// Not owned; null where the transaction context has none.
    KssProject* _getProject() const;

    // Steps that the conversions of stored elements are made of. They work on "param" elements and their "key".

    /// The element that the keys in `path` lead to from `root`, null if a step is missing.
    static QDomElement _convertXmlGetParam(QDomElement root, const QStringList& path);
    /// A new last child of `parent`, without content.
    static QDomElement _convertXmlCreateNewParam(QDomElement parent, const QString& key);
    /// Renames direct children of `root`, from the old to the new key, in map order. Missing ones are passed over.
    static void _convertXmlChangeKeys(QDomElement root, const QMap<QString, QString>& keys);
    /// Moves the element `key`, at any depth below `oldParent`, to the end of `newParent`, under `newKey` unless that
    /// is empty.
    static void _convertXmlChangeParent(QDomElement oldParent, const QString& key, QDomElement newParent,
                                        const QString& newKey);
    /// Replaces the value of `param` by the one that `values` has for it.
    static void _convertXmlUpdateEnumValue(QDomElement param, const QMap<QString, QString>& values);
    /// The same for each of the values between "|".
    static void _convertXmlUpdateFlagsValue(QDomElement param, const QMap<QString, QString>& values);

private:
    friend class KpcChildren;

    KpcAComposite(const KpcAComposite& other, const QString& newKey, const KstITransactable& transactable);

    void _checkNewChild(const KpbAParameter* child) const;
    void _checkKnownKey(const QString& key, const char* signature) const;
    void _plug(KpbAParameter* child);
    KpbAParameter* _unplug(const QString& key);
    void _clear();

    const KstITransactable* _transactable;
    std::unique_ptr<KpcChildTable> _children;
};
