#include <gtest/gtest.h>

#include <basic/MbgRotationConventionCatalog.h>
#include <support/RecordedMessages.h>

#include <QtCore/QSet>
#include <QtCore/QVector>

#include <thread>
#include <vector>

namespace {
MbgRotationConventionDefinition system(const QString& string)
{
    return {MbgERotConv::SYSTEM, string};
}

MbgRotationConvention* temporary(const QString& string)
{
    return MbgRotationConventionCatalog::createTemporary(system(string));
}
} // namespace

TEST(MbgRotationConventionCatalog, HasBuiltInConventionsThatNeverChange)
{
    const struct
    {
        int id;
        const char* string;
        MbgERotConv type;
        const char* labels[3];
    } rows[] = {
        {0, "+Z+Y+X", MbgERotConv::SYSTEM, {"Az", "Ay", "Ax"}},
        {1, "90-Z+Y+X", MbgERotConv::DIRECTION, {"Azimuth", "Plunge", "Roll"}},
        {2, "+Z+X+Z", MbgERotConv::SYSTEM, {"Az1", "Ax", "Az2"}},
    };
    ASSERT_EQ(MbgRotationConventionCatalog::getBuiltIn().size(), 3);
    for (const auto& row : rows) {
        const MbgRotationConvention* convention = MbgRotationConventionCatalog::find(row.id);
        ASSERT_TRUE(convention);
        EXPECT_EQ(MbgRotationConventionCatalog::getBuiltIn().at(row.id), convention);
        EXPECT_EQ(convention->getId(), row.id);
        EXPECT_EQ(convention->getDefinitionString(), row.string);
        EXPECT_EQ(convention->getType(), row.type);
        EXPECT_TRUE(convention->isUnderstood());
        EXPECT_EQ(convention->getSequence(), MbgAxisSequence::fromText(row.string));
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(convention->getAngleLabel(i), row.labels[i]);
    }
}

TEST(MbgRotationConventionCatalog, HasTheFirstForTheDefault)
{
    EXPECT_EQ(MbgRotationConventionCatalog::getDefault(), MbgRotationConventionCatalog::find(0));
}

TEST(MbgRotationConventionCatalog, KnowsNoOtherId)
{
    for (const int id : {-1, 3, 999, 2147483647, -2147483647 - 1})
        EXPECT_EQ(MbgRotationConventionCatalog::find(id), nullptr) << id;
}

TEST(MbgRotationConventionCatalog, FindsATemporaryConventionByItsId)
{
    const RecordedMessages messages;
    MbgRotationConvention* made = temporary("-X+Y-Z");
    EXPECT_GE(made->getId(), 1000);
    EXPECT_EQ(MbgRotationConventionCatalog::find(made->getId()), made);
    EXPECT_EQ(made->getDefinitionString(), "-X+Y-Z");
    EXPECT_EQ(made->getType(), MbgERotConv::SYSTEM);
    EXPECT_EQ(made->getAngleLabel(0), "");
    EXPECT_EQ(made->getSequence(), MbgAxisSequence::fromText("-X+Y-Z"));
    EXPECT_EQ(messages.warnings, QStringList());
}

TEST(MbgRotationConventionCatalog, MakesOneTemporaryConventionOfEqualDefinitions)
{
    EXPECT_EQ(temporary("+Y+X+Z"), temporary("+Y+X+Z"));
    EXPECT_NE(temporary("+Y+X+Z"), temporary("+Y+X-Z"));
    const MbgRotationConventionDefinition direction(MbgERotConv::DIRECTION, "+Y+X+Z");
    EXPECT_NE(MbgRotationConventionCatalog::createTemporary(direction), temporary("+Y+X+Z"));
    const MbgRotationConventionDefinition labelled(MbgERotConv::SYSTEM, "+Y+X+Z", "A", "B", "C");
    EXPECT_NE(MbgRotationConventionCatalog::createTemporary(labelled), temporary("+Y+X+Z"));
}

TEST(MbgRotationConventionCatalog, NeverHandsOutABuiltInConventionForATemporaryOne)
{
    EXPECT_GE(temporary("+Z+Y+X")->getId(), 1000);
}

TEST(MbgRotationConventionCatalog, KeepsADefinitionThatItDoesNotUnderstandAndSaysSoOnce)
{
    RecordedMessages messages;
    const MbgRotationConvention* made = temporary("Z:left,X:right,Z:left");
    EXPECT_EQ(made->getDefinitionString(), "Z:left,X:right,Z:left");
    EXPECT_FALSE(made->isUnderstood());
    EXPECT_EQ(made->getSequence(), MbgAxisSequence());
    EXPECT_EQ(temporary("Z:left,X:right,Z:left"), made);
    EXPECT_EQ(messages.warnings, QStringList("The rotation convention \"Z:left,X:right,Z:left\" is not understood; its "
                                             "angles are read in the default convention."));
}

TEST(MbgRotationConventionCatalog, MakesOneConventionForAllThreads)
{
    const QString strings[] = {"+X+Z+Y", "-X+Z+Y", "+X-Z+Y", "+X+Z-Y"};
    std::vector<std::vector<MbgRotationConvention*>> found(4);
    std::vector<std::thread> threads;
    for (auto& mine : found) {
        threads.emplace_back([&] {
            for (int i = 0; i < 1000; ++i) {
                MbgRotationConvention* made = temporary(strings[i % 4]);
                mine.push_back(MbgRotationConventionCatalog::find(made->getId()));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& mine : found)
        EXPECT_EQ(mine, found.front());
    EXPECT_EQ((QSet<MbgRotationConvention*>(found[0].begin(), found[0].end()).size()), 4);
}

// The last of the file, for it uses up what the process has for conventions that are not understood.
TEST(MbgRotationConventionCatalogLimits, BoundsWhatHostileTextCanMakeItKeep)
{
    RecordedMessages messages;
    QSet<MbgRotationConvention*> kept;
    for (int i = 0; i < 5000; ++i)
        kept.insert(temporary(QStringLiteral("hostile %1").arg(i)));
    EXPECT_TRUE(kept.contains(MbgRotationConventionCatalog::getDefault()));
    EXPECT_LE(kept.size(), MbgRotationConventionCatalog::MaximumForeignCount + 1);
    EXPECT_EQ(temporary(QString(10000000, 'Z')), MbgRotationConventionCatalog::getDefault());
    EXPECT_EQ(messages.warnings.filter("Too many or too long").size(), 1);
    EXPECT_LE(messages.warnings.size(), MbgRotationConventionCatalog::MaximumForeignCount + 1);
    // What it understands it still makes.
    EXPECT_EQ(temporary("270-Y+X180-Y")->getDefinitionString(), "270-Y+X180-Y");
    EXPECT_NE(temporary("270-Y+X180-Y"), MbgRotationConventionCatalog::getDefault());
}
