#include <param/atomic/KpaCoordSystem.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>
#include <support/RecordedMessages.h>
#include <util/KuuCoordSystemCatalog.h>

#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaCoordSystemConfig, KuuCoordSystem>);

namespace {
using Flags = QList<int>;
using Mode = Ku::CoordSystemMode;
using Modes = Ku::CoordSystemModes;

KuuCoordSystem ofKind(Modes modes)
{
    return KuuCoordSystem("A:1", "name", modes);
}

KuuCoordSystem previous()
{
    return KuuCoordSystem("A:2", "previous", Mode::Local);
}

KpaCoordSystemConfig filtered(Modes filter)
{
    KpaCoordSystemConfig config;
    config.setFilter(filter);
    return config;
}

struct OtherDatabase
{
    explicit OtherDatabase(const QString& path) { KuuCoordSystemCatalog::setDatabase(path); }
    ~OtherDatabase() { KuuCoordSystemCatalog::setDatabase(QString()); }
};
} // namespace

TEST(KpaCoordSystem, IsOfTheKindCoordSystem)
{
    EXPECT_EQ(KpaCoordSystem("KEY").getType(), KpbEType::COORD_SYSTEM);
    EXPECT_EQ(KpaCoordSystemConfig().getType(), KpbEType::COORD_SYSTEM);
}

TEST(KpaCoordSystem, IsNoneWhenFreshAndAdmitsAllKinds)
{
    const KpaCoordSystem system("KEY");
    EXPECT_EQ(system.getValue(), KuuCoordSystem());
    EXPECT_EQ(system.getAutoValue(), KuuCoordSystem());
    EXPECT_FALSE(KpaCoordSystemConfig().getInitialValue().isValid());
    EXPECT_EQ(int(system.getFilter()), 7);
}

TEST(KpaCoordSystem, TellsOfAChangedFilterAndOfNoOther)
{
    ObservedAtomic<KpaCoordSystem> observed;
    const auto set = [](KpaCoordSystem& system) { system.setFilter(Mode::Local); };
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyConfig});
    EXPECT_EQ(observed.atomic.getFilter(), Modes(Mode::Local));
    EXPECT_EQ(observed.flagsOf(set), Flags());
    EXPECT_TRUE(filtered(Mode::Local) == filtered(Mode::Local));
    EXPECT_TRUE(filtered(Mode::Local) != KpaCoordSystemConfig());
}

TEST(KpaCoordSystem, AdmitsSystemsWhoseKindsTheFilterHas)
{
    struct Row
    {
        Modes filter;
        Modes mode;
        bool admitted;
    };
    const Modes none;
    const Modes geographicLocal = Modes(Mode::Geographic) | Mode::Local;
    const Row rows[] = {
        {Ku::AllCoordSystemModes, Mode::Geographic, true},
        {Ku::AllCoordSystemModes, Mode::Local, true},
        {Ku::AllCoordSystemModes, Mode::Projected, true},
        {Ku::AllCoordSystemModes, geographicLocal, true},
        {Ku::AllCoordSystemModes, none, false},
        {geographicLocal, Mode::Geographic, true},
        {geographicLocal, Mode::Local, true},
        {geographicLocal, geographicLocal, true},
        {geographicLocal, Mode::Projected, false},
        {geographicLocal, Ku::AllCoordSystemModes, false},
        {Mode::Local, geographicLocal, false},
        {none, none, true},
        {none, Mode::Local, false},
    };
    for (const Row& row : rows) {
        const KuuCoordSystem system = ofKind(row.mode);
        EXPECT_EQ(filtered(row.filter).fix(system, previous()), row.admitted ? system : previous())
            << int(row.filter) << ' ' << int(row.mode);
    }
}

TEST(KpaCoordSystem, AdmitsNoSystemWhateverTheFilter)
{
    for (const Modes filter : {Modes(), Modes(Mode::Local), Ku::AllCoordSystemModes})
        EXPECT_EQ(filtered(filter).fix(KuuCoordSystem(), previous()), KuuCoordSystem());
    // Without a key it is none, whatever its kind.
    const KuuCoordSystem nameless(QString(), "name", Mode::Projected);
    EXPECT_EQ(filtered(Mode::Local).fix(nameless, previous()), nameless);
}

TEST(KpaCoordSystem, FallsBackToNoneWhereANewFilterRefusesIt)
{
    ObservedAtomic<KpaCoordSystem> observed;
    observed.atomic.setValue(ofKind(Mode::Projected));
    EXPECT_EQ(observed.flagsOf([](KpaCoordSystem& system) { system.setFilter(Mode::Local); }),
              Flags{Kp::NotifyConfig | Kp::NotifyValue});
    EXPECT_FALSE(observed.atomic.getValue().isValid());
    EXPECT_EQ(observed.flagsOf([](KpaCoordSystem& system) { system.setValue(ofKind(Mode::Projected)); }),
              Flags{Kp::NotifyValue});
    EXPECT_FALSE(observed.atomic.getValue().isValid());
}

TEST(KpaCoordSystem, ShowsAndStoresItsKey)
{
    KpaCoordSystem system("KEY");
    EXPECT_EQ(system.toString(), "");
    EXPECT_EQ(system.serialize(), storedValue(""));
    system.setValue(ofKind(Mode::Local));
    EXPECT_EQ(system.toString(), "A:1");
    EXPECT_EQ(system.serialize(), storedValue("A:1"));
}

TEST(KpaCoordSystem, ReadsKnownSystems)
{
    KpaCoordSystem system("KEY");
    system.unserialize(storedValue("EPSG:2154"));
    EXPECT_EQ(system.getValue(), KuuCoordSystemCatalog::getCoordSystem("EPSG:2154"));
    EXPECT_EQ(system.getValue().getKey(), "EPSG:2154");
    EXPECT_TRUE(system.getValue().isProjected());
    EXPECT_EQ(system.serialize(), storedValue("EPSG:2154"));
    system.unserialize(storedValue("LOCAL"));
    EXPECT_TRUE(system.getValue().isLocal());
}

TEST(KpaCoordSystem, KeepsItsSystemWhereTheStoredOneIsRefused)
{
    KpaCoordSystem system("KEY");
    system.setFilter(Mode::Geographic);
    system.unserialize(storedValue("EPSG:4326"));
    system.unserialize(storedValue("EPSG:2154"));
    EXPECT_EQ(system.getValue().getKey(), "EPSG:4326");
}

TEST(KpaCoordSystem, KeepsItsSystemWhereTheStoredOneIsUnknownOrMissing)
{
    ObservedAtomic<KpaCoordSystem> observed;
    observed.atomic.setValue(previous());
    observed.takeFlags();
    observed.atomic.unserialize({});
    observed.atomic.unserialize({{"key", "LOCAL"}});
    observed.atomic.unserialize(storedValue("A:1"));
    observed.atomic.unserialize(storedValue("EPSG:999999999"));
    for (const QString& garbage : garbageTexts())
        observed.atomic.unserialize(storedValue(garbage));
    EXPECT_EQ(observed.atomic.getValue(), previous());
    EXPECT_EQ(observed.takeFlags(), Flags());
}

TEST(KpaCoordSystem, KeepsItsSystemWithoutADatabase)
{
    RecordedMessages messages;
    const OtherDatabase none("/no/such/proj.db");
    KpaCoordSystem system("KEY");
    system.setValue(previous());
    system.unserialize(storedValue("EPSG:2154"));
    EXPECT_EQ(system.getValue(), previous());
    EXPECT_EQ(messages.warnings.size(), 1);
    system.unserialize(storedValue("LOCAL"));
    EXPECT_EQ(system.getValue().getKey(), "LOCAL");
}

TEST(KpaCoordSystem, DebugsItsFilter)
{
    EXPECT_EQ(KpaCoordSystemConfig().debug(), "----- KpaCoordSystemConfig --------\n"
                                              " Geographic       = yes\n"
                                              " Local            = yes\n"
                                              " Projected        = yes\n");
    EXPECT_EQ(filtered(Mode::Local).debug(), "----- KpaCoordSystemConfig --------\n"
                                             " Geographic       = no\n"
                                             " Local            = yes\n"
                                             " Projected        = no\n");
}

TEST(KpaCoordSystem, DuplicatesValueAndConfigWithoutItsObservers)
{
    ObservedAtomic<KpaCoordSystem> observed;
    observed.atomic.setValue(previous());
    observed.atomic.setFilter(Mode::Local);
    const std::unique_ptr<KpaCoordSystem> sameKey(observed.atomic.duplicate(""));
    const std::unique_ptr<KpaCoordSystem> copy(observed.atomic.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getValue(), previous());
    EXPECT_EQ(copy->getFilter(), Modes(Mode::Local));
    copy->setValue(KuuCoordSystem());
    EXPECT_EQ(observed.atomic.getValue(), previous());
    EXPECT_EQ(observed.takeFlags(), Flags());
}
