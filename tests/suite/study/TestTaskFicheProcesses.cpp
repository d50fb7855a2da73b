#include "StudyTest.h"
#include "WrittenForm.h"

#include <QtCore/QProcess>
#include <QtCore/QThread>

#include <map>
#include <random>

namespace {

class TaskFicheProcesses : public StudyTest
{
protected:
    void SetUp() override { Driver::create(path); }
};

/// The numbers that a `study_writer` has printed; a last line without its end does not count.
QList<int> acknowledged(QProcess& writer)
{
    QList<QByteArray> lines = writer.readAllStandardOutput().split('\n');
    lines.removeLast();
    QList<int> numbers;
    for (const QByteArray& line : lines)
        numbers.append(line.toInt());
    return numbers;
}

TEST_F(TaskFicheProcesses, TwoProcessesWriteToOneFile)
{
    QProcess writer;
    writer.start(STUDY_WRITER, {"write", path, "0", "60"});
    const auto driver = Driver::open(path);
    for (int number = 0; number < 60; ++number) {
        driver->write("mine", written_form::key(number), written_form::document(number));
        ASSERT_EQ(storedText(*driver, "mine", written_form::key(number)), written_form::text(number));
    }
    ASSERT_TRUE(writer.waitForFinished());

    EXPECT_EQ(writer.exitCode(), 0) << writer.readAllStandardError().constData();
    EXPECT_EQ(acknowledged(writer).size(), 60);
    for (int number = 60 - written_form::slotCount; number < 60; ++number) {
        EXPECT_EQ(storedText(*driver, "mine", written_form::key(number)), written_form::text(number));
        EXPECT_EQ(storedText(*driver, written_form::id(), written_form::key(number)), written_form::text(number));
    }
}

/// What each key holds at least, given the numbers that were acknowledged.
class ExpectedForms
{
public:
    void add(const QList<int>& numbers)
    {
        for (const int number : numbers)
            _latest[written_form::key(number)] = number;
    }

    /// The store holds, for every key, the form that was acknowledged last, or `next`, which was being written when the
    /// process died. Gives whether it holds `next`.
    bool check(const Driver& driver, int next)
    {
        QStringList keys = driver.listKeys(written_form::id());
        bool hasNext = false;
        for (const QString& key : keys) {
            const QString text = storedText(driver, written_form::id(), key);
            if (key == written_form::key(next) && text == written_form::text(next))
                hasNext = true;
            else if (_latest.count(key) == 0)
                ADD_FAILURE() << "nothing was acknowledged for " << key.toStdString();
            else
                EXPECT_EQ(text, written_form::text(_latest.at(key)));
        }
        for (const auto& [key, number] : _latest)
            EXPECT_TRUE(keys.contains(key)) << key.toStdString();
        return hasNext;
    }

private:
    std::map<QString, int> _latest;
};

TEST_F(TaskFicheProcesses, KeepEveryAcknowledgedFormWholeWhenTheyAreKilled)
{
    std::mt19937 random(20);
    std::uniform_int_distribution<unsigned long> moment(0, 60);
    ExpectedForms expected;
    int next = 1;
    int fruitful = 0;
    for (int round = 0; round < 45; ++round) {
        QProcess writer;
        writer.start(STUDY_WRITER, {"write", path, QString::number(next), "0"});
        ASSERT_TRUE(writer.waitForStarted());
        if (round % 2 == 1) {
            ASSERT_TRUE(writer.waitForReadyRead()) << writer.readAllStandardError().constData();
        }
        QThread::msleep(moment(random));
        writer.kill();
        ASSERT_TRUE(writer.waitForFinished());
        ASSERT_EQ(writer.exitStatus(), QProcess::CrashExit) << writer.readAllStandardError().constData();

        const QList<int> numbers = acknowledged(writer);
        expected.add(numbers);
        next += numbers.size();
        fruitful += numbers.isEmpty() ? 0 : 1;
        const auto driver = Driver::open(path);
        if (expected.check(*driver, next))
            expected.add({next++});
        ASSERT_FALSE(HasFailure()) << "in round " << round;
    }
    EXPECT_GE(fruitful, 22);
    DirectConnection direct(path);
    EXPECT_EQ(direct.run("PRAGMA integrity_check"), QVariant("ok"));
}

} // namespace
