#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcZvxConnection.h>
#include <util/KueZvxClient.h>

#include <QtCore/QObject>

template <>
QMap<int, KpcZvxConnection::ExecutionMode*> KpbAEnumeration<KpcZvxConnection::ExecutionMode>::_map{};

const KpcZvxConnection::ExecutionMode* KpcZvxConnection::ExecutionMode::_default =
    &KpcZvxConnection::ExecutionMode::NEW_INSTANCE;

KpcZvxConnection::ExecutionMode::ExecutionMode() : ExecutionMode(*_default) {}

KpcZvxConnection::ExecutionMode::ExecutionMode(const QString& label, int value, const char* key)
    : KpbAEnumeration(label, value, key)
{}

#define KPC_ZVX_EXECUTION_MODE_DEFINITION(key, value, label)                                                           \
    const KpcZvxConnection::ExecutionMode KpcZvxConnection::ExecutionMode::key(QObject::tr(label), value, #key);
KPC_ZVX_EXECUTION_MODE_ROWS(KPC_ZVX_EXECUTION_MODE_DEFINITION)
#undef KPC_ZVX_EXECUTION_MODE_DEFINITION

namespace {

QString defaultHost()
{
    return QStringLiteral("localhost");
}

QList<KpaItemDef> executionModes()
{
    QList<KpaItemDef> items;
    for (auto each = KpcZvxConnection::ExecutionMode::createIterator(); each.hasNext();)
        items.append(each.next());
    return items;
}

} // namespace

KpcZvxConnection::KpcZvxConnection(const QString& key, const KstITransactable& transactable)
    : KpcGroup(KpbEType::ZVX, key, transactable),
      _creating(true)
{
    _createParams({*this, KpcChildren::Create});
    _initParams();
    _creating = false;
}

KpcZvxConnection::KpcZvxConnection(const KpcZvxConnection& other, const QString& newKey)
    : KpcGroup(other, newKey),
      _client(other._client)
{
    _createParams({*this, KpcChildren::Rebind});
}

KpcZvxConnection* KpcZvxConnection::duplicate(const QString& newKey) const
{
    return new KpcZvxConnection(*this, newKey);
}

void KpcZvxConnection::_createParams(KpcChildren children)
{
    // clang-format off
    children.add(_executionMode, "EXECUTION_MODE",  QObject::tr("ZVX execution mode"));
    children.add(_forcePath,     "FORCE_PATH",      QObject::tr("Force server path" ));
    children.add(_serverPath,    "ZVX_SERVER_PATH", QObject::tr("ZVXserver path"    ));
    children.add(_host,          "HOST",            QObject::tr("Host"              ));
    children.add(_port,          "PORT",            QObject::tr("Port"              ));
    children.add(_dataPath,      "DATA_PATH",       QObject::tr("Data path"         ));
    // clang-format on
}

void KpcZvxConnection::_initParams()
{
    const bool hadNoModes = _executionMode->isEmpty();
    _executionMode->reset(executionModes());
    if (hadNoModes)
        _executionMode->setEnum(ExecutionMode());
    _executionMode->activateAutoValue(ExecutionMode::NEW_INSTANCE.getValue());
    _forcePath->activateAutoValue(false);
    _serverPath->activateAutoValue(QString());
    _host->activateAutoValue(defaultHost());
    _port->activateAutoValue();
    _dataPath->activateAutoValue(QString());
}

void KpcZvxConnection::setZvxClient(KueZvxClient* client)
{
    const KuoPointer<KpcGroup> self(this);
    _client = client;
    _port->setAutoValue(client ? client->getDefaultPort() : 0);
    if (!self)
        return;
    _setAutomaticValueInitialized(true);
    resetToAutomaticValue();
}

// Observers of the children may destroy the connection, here and in all that follows.
void KpcZvxConnection::_setValueAuto()
{
    const KuoPointer<KpcGroup> self(this);
    const std::initializer_list<KpbAParameter*> children = {_executionMode, _forcePath, _serverPath,
                                                            _host,          _port,      _dataPath};
    for (KpbAParameter* child : children) {
        if (self)
            child->resetToAutomaticValue();
    }
}

void KpcZvxConnection::connectZvx()
{
    if (!_client) {
        Kp::failProgramming(QStringLiteral("void __cdecl KpcZvxConnection::connectZvx(void)"),
                            QStringLiteral("composite\\KpcZvxConnection"), QStringLiteral("There is no ZVX client."));
    }
    if (_executionMode->getValue() == ExecutionMode::NEW_INSTANCE.getValue()) {
        const QString path = _forcePath->getValue() ? _serverPath->getValue() : _serverPath->getAutoValue();
        _client->launchZvx(path, _dataPath->getValue());
    }
    else if (_executionMode->getValue() == ExecutionMode::EXISTING_INSTANCE.getValue()) {
        _client->connectZvx(_host->getValue(), _port->getValue(), _dataPath->getValue());
    }
}

void KpcZvxConnection::resetToValues(const KpcZvxConnection& other)
{
    KuoLock<KpnModif> lock(this);
    const auto takeOver = [&lock](auto& child, const auto& from) {
        if (lock.isAlive())
            child->setValue(from->getValue());
    };
    takeOver(_executionMode, other._executionMode);
    takeOver(_forcePath, other._forcePath);
    takeOver(_serverPath, other._serverPath);
    takeOver(_host, other._host);
    takeOver(_port, other._port);
    takeOver(_dataPath, other._dataPath);
    lock.commit();
}

void KpcZvxConnection::update(const KpnModif& modif)
{
    if (_creating)
        return;
    KuoLock<KpnModif> lock(this);
    const auto flags = Kp::NotifyValue | Kp::NotifyItem;
    if (modif.hasModif(_executionMode, flags) || modif.hasModif(_forcePath, flags))
        _enableChildren();
    if (lock.isAlive())
        KpcGroup::update(modif);
    lock.commit();
}

void KpcZvxConnection::_enableChildren()
{
    const bool isExisting = _executionMode->getValue() == ExecutionMode::EXISTING_INSTANCE.getValue();
    const bool isNew = _executionMode->getValue() == ExecutionMode::NEW_INSTANCE.getValue();
    const bool isPathForced = isNew && _forcePath->getValue();
    const KuoPointer<KpcGroup> self(this);
    const auto enable = [&self](auto& child, bool enabled) {
        if (self)
            child->setEnabled(enabled);
    };
    enable(_forcePath, isNew);
    enable(_serverPath, isPathForced);
    enable(_host, isExisting);
    enable(_port, isExisting);
}
