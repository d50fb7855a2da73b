#include <param/KpbAParameter.h>
#include <param/KpnLife.h>

#include <basic/MbbDebug.h>
#include <basic/MbbHtml.h>

#include <QtCore/QTextStream>

#include <algorithm>
#include <atomic>
#include <utility>

template class KuoPointer<KpbAParameter>;

namespace {

const QString& defaultLabel()
{
    static const QString label = QStringLiteral("no label");
    return label;
}

QString yesNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

std::atomic<quint64> labelChanges{0};

} // namespace

KpbAParameter::KpbAParameter(const KpbEType& type, const QString& key) : _type(type), _label(defaultLabel()), _key(key)
{}

KpbAParameter::KpbAParameter(const KpbAParameter& other, const QString& newKey)
    : KuoAObservable(),
      KuoAGuarded(),
      MbbIDebuggable(),
      _type(other._type),
      _label(other._label),
      _key(newKey.isEmpty() ? other._key : newKey),
      _readOnly(other._readOnly),
      _enabled(other._enabled),
      _automatic(other._automatic),
      _automaticEnabled(other._automaticEnabled),
      _automaticValueInitialized(other._automaticValueInitialized),
      _valueLocked(other._valueLocked),
      _lockValueEnabled(other._lockValueEnabled),
      _volatile(other._volatile),
      _loadLocked(other._loadLocked),
      _unserializeData(other._unserializeData)
{}

KpbAParameter::~KpbAParameter()
{
    if (_life)
        _life->release();
}

KpnLife* KpbAParameter::_makeLife() const
{
    _life = new KpnLife(const_cast<KpbAParameter*>(this));
    _life->retain();
    addGuard(_life);
    return _life;
}

int KpbAParameter::getVersion() const
{
    return 1;
}

void KpbAParameter::convert(QDomElement&, int) const
{
    MbbDebug::printError(QStringLiteral("Parameter '%1' must implement convert() method.").arg(_type.getKey()),
                         Qt::PlainText);
}

void KpbAParameter::_setValueAuto() {}

bool KpbAParameter::isEnabled(const KpbAParameter* parameter)
{
    for (; parameter; parameter = parameter->_parent) {
        if (!parameter->_enabled)
            return false;
    }
    return true;
}

bool KpbAParameter::isReadOnly() const
{
    for (const KpbAParameter* parameter = this; parameter; parameter = parameter->_parent) {
        if (parameter->_readOnly)
            return true;
    }
    return false;
}

bool KpbAParameter::isAncestorOf(const KpbAParameter* parameter) const
{
    if (!parameter)
        return false;
    for (const KpbAParameter* ancestor = parameter->_parent; ancestor; ancestor = ancestor->_parent) {
        if (ancestor == this)
            return true;
    }
    return false;
}

KpbPath KpbAParameter::getAbsolutePath() const
{
    KpbPath path;
    for (const KpbAParameter* parameter = this; parameter; parameter = parameter->_parent)
        path.prepend(parameter->_key);
    return path;
}

KpbPath KpbAParameter::getRelatifPath(const KpbAParameter* target) const
{
    if (!target)
        return {};
    if (target == this)
        return KpbPath(_key);

    KpbPath path;
    const KpbAParameter* start = this;
    for (; !start->isAncestorOf(target) && start->_parent; start = start->_parent)
        path.append(KpbPath::getUpString());
    const int ups = path.size();
    for (const KpbAParameter* step = target; step && step != start; step = step->_parent)
        path.insert(ups, step->_key);
    return path;
}

KpbAParameter* KpbAParameter::getParameterByRelativePath(const KpbPath& path) const
{
    auto* parameter = const_cast<KpbAParameter*>(this);
    for (const QString& entry : path) {
        parameter = entry == KpbPath::getUpString() ? parameter->_parent : parameter->getChild(entry);
        if (!parameter)
            return nullptr;
    }
    return parameter;
}

void KpbAParameter::_store(bool& flag, bool value, Kp::NotificationFlag notification)
{
    if (std::exchange(flag, value) != value)
        _notify(notification);
}

void KpbAParameter::setLabel(const QString& label)
{
    if (_label == label)
        return;
    _label = label;
    labelChanges.fetch_add(1, std::memory_order_relaxed);
    _notify(Kp::NotifyConfig);
}

quint64 KpbAParameter::_labelChanges()
{
    return labelChanges.load(std::memory_order_relaxed);
}

void KpbAParameter::setEnabled(bool enabled)
{
    if (std::exchange(_enabled, enabled) != enabled)
        _deepNotify(Kp::NotifyConfig);
}

void KpbAParameter::setReadOnly(bool readOnly)
{
    if (std::exchange(_readOnly, readOnly) != readOnly)
        _deepNotify(Kp::NotifyConfig);
}

void KpbAParameter::setAutomatic(bool automatic)
{
    if (!_setAutoFlag(automatic))
        return;
    KuoLock<KpnModif> lock(this);
    if (_automatic)
        _trySetValueAuto();
    if (lock.isAlive())
        _notify(Kp::NotifyConfig);
    lock.commit();
}

void KpbAParameter::setAutomaticEnabled(bool enabled)
{
    _store(_automaticEnabled, enabled, Kp::NotifyConfig);
}

void KpbAParameter::resetToAutomaticValue()
{
    KuoLock<KpnModif> lock(this);
    _trySetValueAuto();
    lock.commit();
}

void KpbAParameter::setValueLocked(bool locked)
{
    _store(_valueLocked, locked, Kp::NotifyValue);
}

void KpbAParameter::setLockValueEnabled(bool enabled)
{
    _store(_lockValueEnabled, enabled, Kp::NotifyConfig);
}

void KpbAParameter::activateValueLock(bool locked)
{
    const KuoPointer<KpbAParameter> self(this);
    setLockValueEnabled(true);
    if (self)
        setValueLocked(locked);
}

QSharedPointer<QDomDocument> KpbAParameter::takeUnserializeData()
{
    _loadLocked = false;
    return std::exchange(_unserializeData, QSharedPointer<QDomDocument>());
}

void KpbAParameter::_notify(const Kp::NotificationFlags& flags)
{
    if (_isUnheard())
        _skipNotification();
    else
        notify(KpnModif(flags, this));
}

void KpbAParameter::_sendBatch(Kp::NotificationFlags flags)
{
    KuoAObservable::_notifyBatch(KpnModif(flags, this));
}

void KpbAParameter::_deepNotify(const Kp::NotificationFlags& flags)
{
    if (getChildCount() == 0) {
        _notifyBatch(flags);
        return;
    }
    KuoLock<KpnModif> lock(this);
    _notify(flags);
    // Each child sends on its own, and an observer may remove children or destroy the tree.
    for (int i = 0, count = getChildCount(); lock.isAlive() && i < std::min(count, getChildCount()); ++i) {
        if (KpbAParameter* child = getChild(i))
            child->_deepNotify(flags);
    }
    lock.commit();
}

void KpbAParameter::_trySetValueAuto()
{
    if (_automaticValueInitialized)
        _setValueAuto();
}

QString KpbAParameter::debug(int depth) const
{
    QString text;
    QTextStream stream(&text);
    if (depth < 1)
        _debugLine(stream, depth);
    else
        _debugBlock(stream, depth);
    stream.flush();
    return text;
}

void KpbAParameter::_debugLine(QTextStream& stream, int depth) const
{
    stream << MbbHtml::emptyString(1).repeated(-depth) << _key << " = " << toString() << '\n';
    for (int i = 0, count = getChildCount(); i < count; ++i) {
        if (const KpbAParameter* child = getChild(i))
            stream << child->debug(depth - 1);
    }
}

void KpbAParameter::_debugBlock(QTextStream& stream, int depth) const
{
    stream << "----- KpbAParameter --------\n"
           << " key              = " << _key << '\n'
           << " type             = " << _type.getKey() << " (" << _type.getLabel() << ")\n"
           << " label            = " << _label << '\n';
    if (depth >= 2) {
        stream << " parent           = " << static_cast<const void*>(_parent) << '\n'
               << " path             = " << getAbsolutePath().toString() << '\n'
               << " readonly         = " << yesNo(_readOnly) << '\n'
               << " enabled          = " << yesNo(_enabled) << '\n'
               << " automaticEnabled = " << yesNo(_automaticEnabled) << '\n'
               << " automaticInit'ed = " << yesNo(_automaticValueInitialized) << '\n'
               << " automatic        = " << yesNo(_automatic) << '\n'
               << " lockValueEnabled = " << yesNo(_lockValueEnabled) << '\n'
               << " valueIsLocked    = " << yesNo(_valueLocked) << '\n'
               << " volatile         = " << yesNo(_volatile) << '\n';
    }
    stream << "----- Concrete parameter --\n"
           << " toString()       = " << toString() << '\n'
           << " serialize():\n";
    for (const auto& entry : serialize())
        stream << "  - " << entry.key << " = " << entry.value << '\n';
    if (!hasChildren())
        return;
    stream << "----- Composite -----------\n"
           << " children count   = " << getChildCount() << '\n';
    for (int i = 0, count = getChildCount(); i < count; ++i) {
        if (const KpbAParameter* child = getChild(i))
            stream << child->debug(depth);
    }
}
