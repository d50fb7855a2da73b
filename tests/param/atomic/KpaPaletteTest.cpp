#include <param/atomic/KpaPalette.h>
#include <support/GarbageTexts.h>
#include <support/ObservedAtomic.h>
#include <util/KugPaletteService.h>

#include <memory>

#include <gtest/gtest.h>

static_assert(KpaAtomicConfig<KpaPaletteConfig, KugPalette>);

namespace {
using Flags = QList<int>;
using Map = KpbAParameter::SerialForm;

KugPalette grey()
{
    return KugPaletteService::getPalette("GREY");
}

/// A palette that the service does not know.
KugPalette foreign()
{
    return KugPalette("MINE", "My palette", {Qt::red, Qt::green});
}
} // namespace

TEST(KpaPalette, IsOfTheKindPalette)
{
    EXPECT_EQ(KpaPalette("KEY").getType(), KpbEType::PALETTE);
    EXPECT_EQ(KpaPaletteConfig().getType(), KpbEType::PALETTE);
}

TEST(KpaPalette, HasTheDefaultPaletteWhenFresh)
{
    const KpaPalette palette("KEY");
    EXPECT_EQ(palette.getValue(), KugPalette());
    EXPECT_EQ(palette.getAutoValue(), KugPalette());
    EXPECT_EQ(KpaPaletteConfig().getInitialValue(), KugPalette());
    EXPECT_EQ(palette.getPaletteId(), KugPalette().getId());
}

TEST(KpaPalette, SendsNothingForAnotherConfig)
{
    ObservedAtomic<KpaPalette> observed;
    EXPECT_EQ(observed.flagsOf([](KpaPalette& palette) { palette.setConfig(KpaPaletteConfig()); }), Flags());
    EXPECT_TRUE(KpaPaletteConfig() == KpaPaletteConfig());
    EXPECT_FALSE(KpaPaletteConfig() != KpaPaletteConfig());
}

TEST(KpaPalette, AdmitsEveryPalette)
{
    EXPECT_EQ(KpaPaletteConfig().fix(foreign(), grey()), foreign());
    ObservedAtomic<KpaPalette> observed;
    const auto set = [](KpaPalette& palette) { palette.setValue(foreign()); };
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyValue});
    EXPECT_EQ(observed.flagsOf(set), Flags());
    EXPECT_EQ(observed.atomic.getPaletteId(), "MINE");
}

TEST(KpaPalette, SetsAPaletteByItsId)
{
    ObservedAtomic<KpaPalette> observed;
    const auto set = [](KpaPalette& palette) { palette.setPaletteId("GREY"); };
    EXPECT_EQ(observed.flagsOf(set), Flags{Kp::NotifyValue});
    EXPECT_EQ(observed.atomic.getValue(), grey());
    EXPECT_EQ(observed.atomic.getPaletteId(), "GREY");
    EXPECT_EQ(observed.flagsOf(set), Flags());
}

TEST(KpaPalette, SetsWhatTheServiceGivesForAnUnknownId)
{
    KpaPalette palette("KEY");
    palette.setPaletteId("GREY");
    palette.setPaletteId("NO_SUCH_PALETTE");
    EXPECT_EQ(palette.getValue(), KugPaletteService::getPalette("NO_SUCH_PALETTE"));
    EXPECT_EQ(palette.getValue(), KugPaletteService::getDefaultPalette());
}

TEST(KpaPalette, ShowsItsName)
{
    KpaPalette palette("KEY");
    palette.setValue(foreign());
    EXPECT_EQ(palette.toString(), "My palette");
}

TEST(KpaPalette, StoresItsId)
{
    KpaPalette palette("KEY");
    palette.setPaletteId("GREY");
    EXPECT_EQ(palette.serialize(), Map({{"id", "GREY"}}));
    KpaPalette other("OTHER");
    other.unserialize(palette.serialize());
    EXPECT_EQ(other.getValue(), grey());
}

TEST(KpaPalette, KeepsItsPaletteWhereTheStoredOneIsUnknownOrMissing)
{
    ObservedAtomic<KpaPalette> observed;
    observed.atomic.setPaletteId("GREY");
    observed.takeFlags();
    observed.atomic.unserialize({});
    observed.atomic.unserialize({{"value", "HEAT"}});
    observed.atomic.unserialize({{"id", "MINE"}});
    observed.atomic.unserialize({{"id", "heat"}});
    for (const QString& garbage : garbageTexts())
        observed.atomic.unserialize({{"id", garbage}});
    EXPECT_EQ(observed.atomic.getValue(), grey());
    EXPECT_EQ(observed.takeFlags(), Flags());
}

TEST(KpaPalette, DebugsItsConfigAsAHeaderAlone)
{
    EXPECT_EQ(KpaPaletteConfig().debug(), "----- KpaPaletteConfig --------\n");
    EXPECT_TRUE(KpaPalette("KEY").debug(1).endsWith("----- KpaPaletteConfig --------\n"));
}

TEST(KpaPalette, DuplicatesItsValueWithoutItsObservers)
{
    ObservedAtomic<KpaPalette> observed;
    observed.atomic.setPaletteId("GREY");
    const std::unique_ptr<KpaPalette> sameKey(observed.atomic.duplicate(""));
    const std::unique_ptr<KpaPalette> copy(observed.atomic.duplicate("COPY"));
    observed.takeFlags();
    EXPECT_EQ(sameKey->getKey(), "KEY");
    EXPECT_EQ(copy->getKey(), "COPY");
    copy->setPaletteId("HEAT");
    EXPECT_EQ(observed.atomic.getValue(), grey());
    EXPECT_EQ(observed.takeFlags(), Flags());
}
