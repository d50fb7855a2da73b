#include "CompositeTestTools.h"

#include <param/KpsSerializerTestTools.h>
#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaEnum.h>
#include <param/atomic/KpaFSDirectory.h>
#include <param/atomic/KpaFSFile.h>
#include <param/atomic/KpaInteger.h>
#include <param/atomic/KpaString.h>
#include <param/composite/KpcZvxConnection.h>
#include <support/BracketTranslator.h>
#include <util/KueZvxClient.h>

namespace {

using Mode = KpcZvxConnection::ExecutionMode;

/// Writes down what is asked of it.
class RecordingClient : public KueZvxClient
{
public:
    void launchZvx(const QString& path, const QString& dataPath) override
    {
        calls.append(QStringLiteral("launch '%1' '%2'").arg(path, dataPath));
    }
    void connectZvx(const QString& host, int port, const QString& dataPath) override
    {
        calls.append(QStringLiteral("connect '%1' %2 '%3'").arg(host).arg(port).arg(dataPath));
    }
    unsigned short getDefaultPort() const override { return 4711; }

    QStringList calls;
};

class BrokenClient : public KueZvxClient
{
public:
    void launchZvx(const QString&, const QString&) override { throw MbeError(77, "broken"); }
};

/// A connection and its parts.
struct Connection
{
    Connection() : Connection(new KpcZvxConnection("ZVX", TestContext::instance())) {}
    explicit Connection(KpcZvxConnection* owned) : zvx(owned) {}

    template <class T>
    T* child(const char* key) const
    {
        return dynamic_cast<T*>(zvx->getChild(QString::fromLatin1(key)));
    }
    /// Which of the children are enabled themselves, in order.
    QString enabled() const
    {
        QString flags;
        for (int i = 0; i < zvx->getChildCount(); ++i)
            flags += QLatin1Char(zvx->getChild(i)->getEnabledFlag() ? '1' : '0');
        return flags;
    }

    std::unique_ptr<KpcZvxConnection> zvx;
    KpaEnum* mode = child<KpaEnum>("EXECUTION_MODE");
    KpaBool* forcePath = child<KpaBool>("FORCE_PATH");
    KpaFSFile* path = child<KpaFSFile>("ZVX_SERVER_PATH");
    KpaString* host = child<KpaString>("HOST");
    KpaInteger* port = child<KpaInteger>("PORT");
    KpaFSDirectory* dataPath = child<KpaFSDirectory>("DATA_PATH");
    RecordingClient client;
};

} // namespace

TEST(KpcZvxConnection, IsOfItsKindAndVersion)
{
    const Connection connection;
    EXPECT_EQ(connection.zvx->getType(), KpbEType::ZVX);
    EXPECT_EQ(connection.zvx->getType().getValue(), 44);
    EXPECT_EQ(connection.zvx->getVersion(), 1);
    EXPECT_EQ(connection.zvx->getZvxClient(), nullptr);
}

TEST(KpcZvxConnection, HasItsChildrenInOrder)
{
    const Connection connection;
    EXPECT_EQ(childKeys(*connection.zvx),
              QStringList({"EXECUTION_MODE", "FORCE_PATH", "ZVX_SERVER_PATH", "HOST", "PORT", "DATA_PATH"}));
    ASSERT_TRUE(connection.mode && connection.forcePath && connection.path && connection.host && connection.port &&
                connection.dataPath);
    EXPECT_EQ(connection.mode->getLabel(), "ZVX execution mode");
    EXPECT_EQ(connection.forcePath->getLabel(), "Force server path");
    EXPECT_EQ(connection.path->getLabel(), "ZVXserver path");
    EXPECT_EQ(connection.host->getLabel(), "Host");
    EXPECT_EQ(connection.port->getLabel(), "Port");
    EXPECT_EQ(connection.dataPath->getLabel(), "Data path");
}

TEST(KpcZvxConnection, TranslatesItsLabels)
{
    const BracketTranslator translator;
    const Connection connection;
    for (int i = 0; i < connection.zvx->getChildCount(); ++i)
        EXPECT_TRUE(connection.zvx->getChild(i)->getLabel().startsWith('[')) << i;
}

TEST(KpcZvxConnection, OffersTheModes)
{
    const Connection connection;
    ASSERT_EQ(connection.mode->getItemCount(), 2);
    EXPECT_EQ(connection.mode->getItemAt(0).value, 0);
    EXPECT_EQ(connection.mode->getItemAt(0).key, "NEW_INSTANCE");
    EXPECT_EQ(connection.mode->getItemAt(0).label, "Run ZVXserver");
    EXPECT_EQ(connection.mode->getItemAt(1).value, 1);
    EXPECT_EQ(connection.mode->getItemAt(1).key, "EXISTING_INSTANCE");
    EXPECT_EQ(connection.mode->getItemAt(1).label, "Use existing ZVXserver instance");
}

TEST(KpcZvxConnection, KnowsItsModesByTheirNumbers)
{
    EXPECT_EQ(Mode::count(), 2);
    EXPECT_EQ(Mode(), Mode::NEW_INSTANCE);
    EXPECT_EQ(Mode::fromValue(1), Mode::EXISTING_INSTANCE);
    EXPECT_EQ(Mode::fromValue(1).toEnum(), Mode::EValue::EXISTING_INSTANCE);
    EXPECT_EQ(messageOf<MbeProgrammingError>([] { Mode::fromValue(2); }),
              "'const class KpcZvxConnection::ExecutionMode &__cdecl KpcZvxConnection::ExecutionMode::fromValue(int)' "
              "in file 'composite\\KpcZvxConnection' failed:\n\n2 is not valid");
}

TEST(KpcZvxConnection, IsAutomaticInAllChildren)
{
    const Connection connection;
    for (int i = 0; i < connection.zvx->getChildCount(); ++i) {
        EXPECT_TRUE(connection.zvx->getChild(i)->isAutomatic()) << i;
        EXPECT_TRUE(connection.zvx->getChild(i)->isAutomaticEnabled()) << i;
    }
    EXPECT_EQ(connection.mode->getAutoValue(), 0);
    EXPECT_FALSE(connection.forcePath->getAutoValue());
    EXPECT_EQ(connection.path->getAutoValue(), "");
    EXPECT_EQ(connection.host->getAutoValue(), "localhost");
    EXPECT_EQ(connection.dataPath->getAutoValue(), "");
    EXPECT_EQ(connection.mode->getValue(), 0);
    EXPECT_FALSE(connection.forcePath->getValue());
    EXPECT_EQ(connection.host->getValue(), "localhost");
}

TEST(KpcZvxConnection, WaitsForTheClientsPort)
{
    const Connection connection;
    EXPECT_FALSE(connection.port->isAutomaticValueInitialized());
    EXPECT_FALSE(connection.zvx->isAutomaticValueInitialized());
}

TEST(KpcZvxConnection, AnEditEndsTheAutomaticModeOfItsChild)
{
    const Connection connection;
    connection.host->setValue("server");
    EXPECT_FALSE(connection.host->isAutomatic());
    EXPECT_TRUE(connection.port->isAutomatic());
}

TEST(KpcZvxConnection, RunsNoEnablingDuringConstruction)
{
    EXPECT_EQ(Connection().enabled(), "111111");
}

TEST(KpcZvxConnection, EnablesWhatTheModeNeeds)
{
    const Connection connection;
    connection.forcePath->setValue(true);
    EXPECT_EQ(connection.enabled(), "111001");
    connection.forcePath->setValue(false);
    EXPECT_EQ(connection.enabled(), "110001");
    connection.mode->setEnum(Mode::EXISTING_INSTANCE);
    EXPECT_EQ(connection.enabled(), "100111");
    connection.forcePath->setValue(true);
    EXPECT_EQ(connection.enabled(), "100111");
    connection.mode->setEnum(Mode::NEW_INSTANCE);
    EXPECT_EQ(connection.enabled(), "111001");
}

TEST(KpcZvxConnection, EnablesNothingForOtherChanges)
{
    const Connection connection;
    connection.host->setValue("server");
    connection.port->setValue(5);
    connection.mode->setLabel("other");
    EXPECT_EQ(connection.enabled(), "111111");
}

TEST(KpcZvxConnection, TellsAnEditAndItsEnablingInOneRecord)
{
    const Connection connection;
    const RecordingObserver observer(*connection.zvx);
    connection.mode->setEnum(Mode::EXISTING_INSTANCE);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_TRUE(observer.records[0].hasModif(connection.mode, Kp::NotifyValue));
    EXPECT_TRUE(observer.records[0].hasModif(connection.path, Kp::NotifyConfig));
}

TEST(KpcZvxConnection, TakesThePortFromTheClient)
{
    Connection connection;
    connection.zvx->setZvxClient(&connection.client);
    EXPECT_EQ(connection.zvx->getZvxClient(), &connection.client);
    EXPECT_EQ(connection.port->getAutoValue(), 4711);
    EXPECT_EQ(connection.port->getValue(), 4711);
    EXPECT_TRUE(connection.zvx->isAutomaticValueInitialized());
}

TEST(KpcZvxConnection, HasThePort0WithoutAClient)
{
    Connection connection;
    connection.zvx->setZvxClient(&connection.client);
    connection.zvx->setZvxClient(nullptr);
    EXPECT_EQ(connection.zvx->getZvxClient(), nullptr);
    EXPECT_EQ(connection.port->getAutoValue(), 0);
    EXPECT_EQ(connection.port->getValue(), 0);
}

TEST(KpcZvxConnection, BringsEverythingToItsAutomaticValueForANewClient)
{
    Connection connection;
    connection.mode->setValue(1);
    connection.forcePath->setValue(true);
    connection.path->setValue("/opt/server");
    connection.host->setValue("server");
    connection.port->setValue(5);
    connection.dataPath->setValue("/data");
    connection.zvx->setZvxClient(&connection.client);
    EXPECT_EQ(connection.mode->getValue(), 0);
    EXPECT_FALSE(connection.forcePath->getValue());
    EXPECT_EQ(connection.path->getValue(), "");
    EXPECT_EQ(connection.host->getValue(), "localhost");
    EXPECT_EQ(connection.port->getValue(), 4711);
    EXPECT_EQ(connection.dataPath->getValue(), "");
    EXPECT_FALSE(connection.host->isAutomatic());
}

TEST(KpcZvxConnection, LeavesOtherChildrenOfTheGroupAsTheyAre)
{
    Connection connection;
    auto* other = new KpaString("OTHER");
    other->setAutoValue("automatic");
    connection.zvx->addChild(other);
    connection.zvx->setZvxClient(&connection.client);
    EXPECT_EQ(other->getValue(), "");
}

TEST(KpcZvxConnection, LaunchesTheAutomaticPathUnlessAPathIsForced)
{
    Connection connection;
    connection.path->setAutoValue("/usr/bin/automatic");
    connection.zvx->setZvxClient(&connection.client);
    connection.path->setValue("/home/by/hand");
    connection.dataPath->setValue("/data");
    connection.zvx->connectZvx();
    connection.forcePath->setValue(true);
    connection.zvx->connectZvx();
    EXPECT_EQ(connection.client.calls,
              QStringList({"launch '/usr/bin/automatic' '/data'", "launch '/home/by/hand' '/data'"}));
}

TEST(KpcZvxConnection, ConnectsToAServerThatRuns)
{
    Connection connection;
    connection.zvx->setZvxClient(&connection.client);
    connection.mode->setEnum(Mode::EXISTING_INSTANCE);
    connection.zvx->connectZvx();
    connection.host->setValue("server");
    connection.port->setValue(5);
    connection.dataPath->setValue("/data");
    connection.zvx->connectZvx();
    EXPECT_EQ(connection.client.calls, QStringList({"connect 'localhost' 4711 ''", "connect 'server' 5 '/data'"}));
}

TEST(KpcZvxConnection, PassesOnWhatTheClientThrows)
{
    BrokenClient broken;
    const Connection connection;
    connection.zvx->setZvxClient(&broken);
    EXPECT_EQ(messageOf<MbeError>([&] { connection.zvx->connectZvx(); }), "broken");
}

TEST(KpcZvxConnection, DoesNotConnectWithoutAClient)
{
    const Connection connection;
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { connection.zvx->connectZvx(); }),
              "'void __cdecl KpcZvxConnection::connectZvx(void)' in file 'composite\\KpcZvxConnection' failed:\n\n"
              "There is no ZVX client.");
}

TEST(KpcZvxConnection, TakesOverTheValuesOfAnother)
{
    const Connection other;
    other.mode->setValue(1);
    other.forcePath->setValue(true);
    other.path->setValue("/opt/server");
    other.host->setValue("server");
    other.port->setValue(5);
    other.dataPath->setValue("/data");
    const Connection connection;
    const RecordingObserver observer(*connection.zvx);
    connection.zvx->resetToValues(*other.zvx);
    EXPECT_EQ(connection.mode->getValue(), 1);
    EXPECT_TRUE(connection.forcePath->getValue());
    EXPECT_EQ(connection.path->getValue(), "/opt/server");
    EXPECT_EQ(connection.host->getValue(), "server");
    EXPECT_EQ(connection.port->getValue(), 5);
    EXPECT_EQ(connection.dataPath->getValue(), "/data");
    EXPECT_EQ(connection.enabled(), "100111");
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpcZvxConnection, ACopyHasTheClientAndChildrenOfItsOwn)
{
    Connection connection;
    connection.zvx->setZvxClient(&connection.client);
    connection.mode->setEnum(Mode::EXISTING_INSTANCE);
    const Connection copy(connection.zvx->duplicate("COPY"));
    EXPECT_EQ(copy.zvx->getKey(), "COPY");
    EXPECT_EQ(copy.zvx->getZvxClient(), &connection.client);
    EXPECT_EQ(copy.enabled(), "100111");
    copy.mode->setEnum(Mode::NEW_INSTANCE);
    EXPECT_EQ(copy.enabled(), "110001");
    EXPECT_EQ(connection.enabled(), "100111");
    copy.host->setValue("server");
    EXPECT_EQ(connection.host->getValue(), "localhost");
}

TEST(KpcZvxConnection, ShowsTheTextOfItsGroup)
{
    EXPECT_EQ(Connection().zvx->toString(), "");
}

TEST(KpcZvxConnection, StoresItsValuesAndWhichAreAutomatic)
{
    const Connection connection;
    connection.host->setValue("server");
    connection.mode->setEnum(Mode::EXISTING_INSTANCE);
    const QString stored = SerializerTest::writtenParam(*connection.zvx);
    const Connection reread;
    SerializerTest::read(*reread.zvx, stored);
    EXPECT_EQ(reread.host->getValue(), "server");
    EXPECT_FALSE(reread.host->isAutomatic());
    EXPECT_TRUE(reread.port->isAutomatic());
    EXPECT_EQ(reread.mode->getValue(), 1);
    EXPECT_EQ(reread.enabled(), "100111");
    EXPECT_EQ(SerializerTest::writtenParam(*reread.zvx), stored);
}
