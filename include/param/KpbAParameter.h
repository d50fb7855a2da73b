#pragma once

#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtXml/QDomDocument>

#include <basic/MbbIDebuggable.h>
#include <basic/MbbOrderedMap.h>
#include <observer/KuoAObservable.h>
#include <observer/KuoLock.h>
#include <param/KpbEType.h>
#include <param/KpbPath.h>
#include <param/KpnModif.h>
#include <param/KuoPointer.h>
#include <util/KuoAGuarded.h>

#include <utility>

class KpnLife;

/// Base of everything that stands in a parameter tree. It has the parameter's identity (kind, key, label), its place
/// (the parent, which owns it), its state flags and its entry points for notification.
///
/// A copy has no observers and no parent. Setters compare first and notify only what changed; they throw only what an
/// observer throws that is no `MbeError`. The flags enabled and read-only are information for callers and watchers: no
/// setter refuses a change because of them.
class KESTRIN_PARAM_EXPORT KpbAParameter : public KuoAObservable<KpnModif>, public KuoAGuarded, public MbbIDebuggable
{
public:
    using SerialForm = MbbOrderedMap<QString, QString>;

    KpbAParameter(const KpbEType& type, const QString& key);
    ~KpbAParameter() override;
    KpbAParameter(const KpbAParameter&) = delete;
    KpbAParameter& operator=(const KpbAParameter&) = delete;

    /// A copy under `newKey`, or under the same key where that is empty. The caller owns it.
    virtual KpbAParameter* duplicate(const QString& newKey) const = 0;

    virtual bool hasChildren() const = 0;
    virtual int getChildCount() const = 0;
    /// The child, still owned by this parameter, or null.
    virtual KpbAParameter* getChild(const QString& key) const = 0;
    virtual KpbAParameter* getChild(int index) const = 0;

    /// The version of the stored form that the class writes.
    virtual int getVersion() const;
    /// Brings a stored element of an older version up to `getVersion()`, in place. A class with a version above 1 has
    /// to override it: the default prints an error and changes nothing.
    virtual void convert(QDomElement& element, int fromVersion) const;

    /// The value as entries of name and text, without the children.
    virtual SerialForm serialize() const = 0;
    /// Takes over what `map` says. Missing entries and bad texts keep what was there, or give the undefined marker.
    virtual void unserialize(const SerialForm& map) = 0;
    virtual QString toString() const = 0;

private:
    /// Brings the value to the automatic value and notifies if that changes it.
    virtual void _setValueAuto();

public:
    /// For `depth` below 1 one line per parameter, indented by -`depth` and going on one deeper for the children; from
    /// 1 on everything that is known of the parameter and its children, with place and flags from 2 on.
    QString debug(int depth) const override;

    const QString& getKey() const { return _key; }
    const QString& getLabel() const { return _label; }
    const KpbEType& getType() const { return _type; }
    KpbAParameter* getParent() const { return _parent; }
    bool isA(const KpbEType& type) const { return type == _type; }

    bool getEnabledFlag() const { return _enabled; }
    bool getReadOnlyFlag() const { return _readOnly; }
    /// Whether this parameter and all its ancestors are enabled.
    bool isEnabled() const { return isEnabled(this); }
    bool isDisabled() const { return !isEnabled(this); }
    /// The same for a parameter that may be null: nothing is not disabled.
    static bool isEnabled(const KpbAParameter* parameter);
    static bool isDisabled(const KpbAParameter* parameter) { return !isEnabled(parameter); }
    /// Whether this parameter or one of its ancestors is read-only.
    bool isReadOnly() const;
    bool isAutomatic() const { return _automatic; }
    bool isAutomaticEnabled() const { return _automaticEnabled; }
    bool isAutomaticValueInitialized() const { return _automaticValueInitialized; }
    bool isValueLocked() const { return _valueLocked; }
    bool isLockValueEnabled() const { return _lockValueEnabled; }
    bool isVolatile() const { return _volatile; }
    bool isLoadLocked() const { return _loadLocked; }
    /// A parameter is no ancestor of itself.
    bool isAncestorOf(const KpbAParameter* parameter) const;

    /// The keys of the root and all ancestors down to this parameter's.
    KpbPath getAbsolutePath() const;
    /// The way from this parameter to `target`, which must be in the same tree. Null gives an empty path; this
    /// parameter itself gives its key alone, which is no way to go.
    KpbPath getRelatifPath(const KpbAParameter* target) const;
    /// The parameter that `path` leads to from here, or null.
    KpbAParameter* getParameterByRelativePath(const KpbPath& path) const;

    void setLabel(const QString& label);
    /// Notifies this parameter and all below it, whose effective state depends on the flag.
    void setEnabled(bool enabled);
    void setReadOnly(bool readOnly);
    /// For the composite that takes or gives up this parameter. Silent.
    void setParent(KpbAParameter* parent) { _parent = parent; }
    /// Switches the automatic mode; switched on, the value becomes the automatic value, where one is known.
    void setAutomatic(bool automatic);
    void setAutomaticEnabled(bool enabled);
    /// Brings the value to the automatic value, where one is known, and leaves the mode as it is.
    void resetToAutomaticValue();
    void setValueLocked(bool locked);
    void setLockValueEnabled(bool enabled);
    /// Offers the value lock if need be and sets it: up to two notifications.
    void activateValueLock(bool locked);
    /// A volatile parameter is not stored or loaded, and neither is what lies below it. Silent.
    void setVolatile(bool isVolatile) { _volatile = isVolatile; }

    /// From now on, reading a stored element only keeps it. Silent.
    void lockLoad() { _loadLocked = true; }
    void setSerializeData(QSharedPointer<QDomDocument> data) { _unserializeData = data; }
    QSharedPointer<QDomDocument> getUnserializeData() const { return _unserializeData; }
    /// Ends the load lock and hands out what was kept, which may be null.
    QSharedPointer<QDomDocument> takeUnserializeData();

protected:
    KpbAParameter(const KpbAParameter& other, const QString& newKey);

    void _notify(const Kp::NotificationFlags& flags);
    /// The same as a batch in which `_notify(flags)` is called; an observer may destroy this parameter.
    void _notifyBatch(const Kp::NotificationFlags& flags)
    {
        if (_isUnheard())
            _emptyBatch();
        else
            _sendBatch(flags);
    }
    /// Notifies this parameter and everything below it. Observers of this parameter get one record.
    void _deepNotify(const Kp::NotificationFlags& flags);
    /// Stores the automatic flag; gives whether it changed. Silent.
    bool _setAutoFlag(bool automatic) { return std::exchange(_automatic, automatic) != automatic; }
    void _setAutomaticValueInitialized(bool initialized) { _automaticValueInitialized = initialized; }
    void _trySetValueAuto();
    /// How often a label has been changed in the process: while it stays, all labels do.
    static quint64 _labelChanges();

private:
    friend class KpnModif;
    friend class KpnPath;

    KpnLife* _getLife() const { return _life ? _life : _makeLife(); }
    KpnLife* _makeLife() const;
    void _sendBatch(Kp::NotificationFlags flags);
    void _store(bool& flag, bool value, Kp::NotificationFlag notification);
    void _debugLine(QTextStream& stream, int depth) const;
    void _debugBlock(QTextStream& stream, int depth) const;

    KpbAParameter* _parent = nullptr;
    KpbEType _type;
    QString _label;
    QString _key;
    bool _readOnly = false;
    bool _enabled = true;
    bool _automatic = false;
    bool _automaticEnabled = false;
    bool _automaticValueInitialized = false;
    bool _valueLocked = false;
    bool _lockValueEnabled = false;
    bool _volatile = false;
    bool _loadLocked = false;
    QSharedPointer<QDomDocument> _unserializeData;
    mutable KpnLife* _life = nullptr;
};

extern template class KESTRIN_PARAM_EXPORT KuoPointer<KpbAParameter>;
