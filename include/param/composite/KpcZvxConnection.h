#pragma once

#include <param/KpbAEnumeration.h>
#include <param/composite/KpcChildren.h>
#include <param/composite/KpcGroup.h>

class KpaBool;
class KpaEnum;
class KpaFSDirectory;
class KpaFSFile;
class KpaInteger;
class KpaString;
class KueZvxClient;

/// How the data server, the program ZVXserver, is to be reached: by starting one, or by connecting to one that runs.
///
/// Everything is automatic until it is edited. What is automatic stands from the beginning, but for the port, which
/// comes from the client. The client is the caller's and outlives the connection and its copies.
class KESTRIN_PARAM_EXPORT KpcZvxConnection : public KpcGroup
{
public:
    class ExecutionMode;

    KpcZvxConnection(const QString& key, const KstITransactable& transactable);
    /// The copy has the same client.
    KpcZvxConnection(const KpcZvxConnection& other, const QString& newKey);
    KpcZvxConnection* duplicate(const QString& newKey) const override;

    /// Null until there is one.
    KueZvxClient* getZvxClient() const { return _client; }
    /// Takes the port from the client, 0 from null, and brings everything to its automatic value.
    void setZvxClient(KueZvxClient* client);
    /// Starts the server or connects to it, as the values say; what the client throws passes. Without a client this is
    /// a programming failure.
    void connectZvx();
    /// Takes over the values of `other`.
    void resetToValues(const KpcZvxConnection& other);

    void update(const KpnModif& modif) override;

private:
    void _setValueAuto() override;
    void _createParams(KpcChildren children);
    void _initParams();
    void _enableChildren();

    KpcChild<KpaEnum> _executionMode;
    KpcChild<KpaBool> _forcePath;
    KpcChild<KpaFSFile> _serverPath;
    KpcChild<KpaString> _host;
    KpcChild<KpaInteger> _port;
    KpcChild<KpaFSDirectory> _dataPath;
    KueZvxClient* _client = nullptr;
    bool _creating = false;
};

// clang-format off
/// The ways to reach the server: key, value, label. The values never change.
#define KPC_ZVX_EXECUTION_MODE_ROWS(ROW) \
    ROW(NEW_INSTANCE,      0, "Run ZVXserver")                   \
    ROW(EXISTING_INSTANCE, 1, "Use existing ZVXserver instance")
// clang-format on

template <>
QMap<int, KpcZvxConnection::ExecutionMode*> KpbAEnumeration<KpcZvxConnection::ExecutionMode>::_map;

/// Whether a server is started, or one is used that runs. A default-built mode is `NEW_INSTANCE`.
class KESTRIN_PARAM_EXPORT KpcZvxConnection::ExecutionMode : public KpbAEnumeration<KpcZvxConnection::ExecutionMode>
{
public:
#define KPC_ZVX_EXECUTION_MODE_ENUMERATOR(key, value, label) key = value,
    enum class EValue
    {
        KPC_ZVX_EXECUTION_MODE_ROWS(KPC_ZVX_EXECUTION_MODE_ENUMERATOR)
    };
#undef KPC_ZVX_EXECUTION_MODE_ENUMERATOR

    ExecutionMode();

    EValue toEnum() const
    {
        return EValue(getValue());
    }

#define KPC_ZVX_EXECUTION_MODE_CONSTANT(key, value, label) static const ExecutionMode key;
    KPC_ZVX_EXECUTION_MODE_ROWS(KPC_ZVX_EXECUTION_MODE_CONSTANT)
#undef KPC_ZVX_EXECUTION_MODE_CONSTANT

private:
    friend class KpbAEnumeration<ExecutionMode>;

    ExecutionMode(const QString& label, int value, const char* key);

    static constexpr const char* _className = "KpcZvxConnection::ExecutionMode";
    static constexpr const char* _file = "composite\\KpcZvxConnection";
    static const ExecutionMode* _default;
};
