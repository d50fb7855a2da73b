#include <param/KpbStatus.h>

TEST(KpbStatus, KeepsRecordsInOrderOfArrival)
{
    KpbStatus status;
    status.addError(QStringLiteral("e"));
    status.addWarning(QStringLiteral("w"));
    status.addInfo(QStringLiteral("i"));
    status.addError(QStringLiteral("f"));
    ASSERT_EQ(status.count(), 4);
    EXPECT_EQ(int(status.at(0).state), 0);
    EXPECT_EQ(int(status.at(1).state), 1);
    EXPECT_EQ(int(status.at(2).state), 2);
    EXPECT_EQ(status.at(3).message, QStringLiteral("f"));
    EXPECT_EQ(status.getErrors(), QStringList({"e", "f"}));
    EXPECT_EQ(status.getWarnings(), QStringList("w"));
    EXPECT_EQ(status.getInfos(), QStringList("i"));
}

TEST(KpbStatus, AddsNothingForAnEmptyText)
{
    KpbStatus status;
    status.addError(QString());
    status.addWarning(QString());
    status.addInfo(QString());
    EXPECT_TRUE(status.isEmpty());
    EXPECT_EQ(status.count(), 0);
}

TEST(KpbStatus, SaysWhichLevelsItHas)
{
    KpbStatus status;
    EXPECT_FALSE(status.hasError() || status.hasWarning() || status.hasInfo());
    status.addWarning(QStringLiteral("w"));
    EXPECT_FALSE(status.hasError());
    EXPECT_TRUE(status.hasWarning());
    EXPECT_FALSE(status.hasInfo());
}

TEST(KpbStatus, ADefaultRecordIsAnErrorWithoutAText)
{
    const KpbStatus::State state;
    EXPECT_EQ(state.state, KpbStatus::State::Error);
    EXPECT_TRUE(state.message.isEmpty());
}

TEST(KpbStatus, AddsAllRecordsOfAnotherReportThoseWithoutATextIncluded)
{
    KpbStatus other;
    other.addWarning(QStringLiteral("w"));
    other.addInfo(QStringLiteral("i"));
    other[1].message.clear();
    KpbStatus status;
    status.addStates(other);
    EXPECT_EQ(status.count(), 2);
    status.addStates(other);
    EXPECT_EQ(status.count(), 4);
    EXPECT_EQ(status.getWarnings(), QStringList({"w", "w"}));
    EXPECT_EQ(status.getInfos(), QStringList({"", ""}));
}

TEST(KpbStatus, ACopyLeavesItsSourceAsItWas)
{
    KpbStatus status;
    status.addError(QStringLiteral("e"));
    KpbStatus copy(status);
    copy.addError(QStringLiteral("f"));
    copy[0].message = QStringLiteral("changed");
    EXPECT_EQ(status.count(), 1);
    EXPECT_EQ(status.at(0).message, QStringLiteral("e"));
    EXPECT_EQ(copy.getErrors(), QStringList({"changed", "f"}));
}

TEST(KpbStatus, ClearRemovesAllRecords)
{
    KpbStatus status;
    status.addInfo(QStringLiteral("i"));
    status.clear();
    EXPECT_TRUE(status.isEmpty());
}
