#include "../composite/CompositeTestTools.h"

#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcGroup.h>
#include <param/list/KplIntegerList.h>
#include <param/watcher/KpwTracer.h>

#include <support/RecordedMessages.h>

namespace {

/// A group with the integers A and B.
struct Traced
{
    KpcGroup group{"G", TestContext::instance()};
    KpaInteger* a = new KpaInteger("A");
    KpaInteger* b = new KpaInteger("B");

    Traced()
    {
        group.addChild(a);
        group.addChild(b);
    }
};

class OpenTracer : public KpwTracer
{
public:
    using KpwTracer::_trigger;
    using KpwTracer::KpwTracer;
};

const QString head = "<big><b>T</b></big> ----------------------<br/>";
const QString foot = "---------------------------------<br/>";

QString line(const QString& path, const QString& words)
{
    return "&nbsp;&nbsp;parameter '<nobr><tt>" + path + "</tt></nobr>' has been modified. [<small><b>" + words +
           " </small></b>]<br/>";
}

} // namespace

TEST(KpwTracer, SaysWhichRootItWatches)
{
    Traced traced;
    KpwTracer tracer("My <tracer>");
    const RecordedMessages messages;
    tracer.setRoot(&traced.group);
    EXPECT_EQ(messages.plainInformation, QStringList("My <tracer>: start watching root G"));
    EXPECT_TRUE(messages.richInformation.isEmpty());
}

TEST(KpwTracer, IgnoresANullRoot)
{
    KpwTracer tracer("T");
    const RecordedMessages messages;
    tracer.setRoot(nullptr);
    EXPECT_TRUE(messages.plainInformation.isEmpty());
}

TEST(KpwTracer, PrintsWhatChangedBelowItsRoot)
{
    Traced traced;
    KpwTracer tracer("T");
    const RecordedMessages messages;
    tracer.setRoot(&traced.group);
    traced.a->setValue(3);
    EXPECT_EQ(messages.richInformation, QStringList(head + line("G/A", " value") + foot));
    EXPECT_EQ(messages.plainInformation.size(), 1);
}

TEST(KpwTracer, NamesEachKindOfChange)
{
    struct Case
    {
        int flags;
        QString words;
    };
    const Case cases[] = {
        {1, " value"},
        {2, " configuration"},
        {4, " children"},
        {8, " item"},
        {3, " value configuration"},
        {13, " value children item"},
        {15, " value configuration children item"},
    };
    const RecordedMessages messages;
    for (const Case& each : cases) {
        Traced traced;
        KpwTracer tracer("T");
        tracer.setRoot(&traced.group);
        traced.group.notify(KpnModif(Kp::NotificationFlags(each.flags), &traced.group));
        EXPECT_EQ(messages.richInformation.last(), head + line("G", each.words) + foot) << each.flags;
    }
}

TEST(KpwTracer, PrintsARecordInOnePiece)
{
    Traced traced;
    KpwTracer tracer("T");
    const RecordedMessages messages;
    tracer.setRoot(&traced.group);
    KuoLock<KpnModif> lock(&traced.group);
    traced.a->setValue(3);
    traced.b->setLabel("changed");
    lock.commit();
    const QString ofA = line("G/A", " value");
    const QString ofB = line("G/B", " configuration");
    ASSERT_EQ(messages.richInformation.size(), 1);
    // The order of entries is that of addresses.
    const bool aFirst = std::less<const KpbAParameter*>()(traced.a, traced.b);
    EXPECT_EQ(messages.richInformation[0], head + (aFirst ? ofA + ofB : ofB + ofA) + foot);
}

TEST(KpwTracer, SaysTheAbsolutePathOfWhatChanged)
{
    Traced traced;
    auto* list = new KplIntegerList("LIST");
    traced.group.addChild(list);
    list->setItemCount(2);
    KpwTracer tracer("T");
    const RecordedMessages messages;
    tracer.setRoot(list);
    list->setValueAt(1, 7);
    list->appendItem();
    EXPECT_EQ(messages.richInformation, QStringList({head + line("G/LIST/ITEM_2", " value") + foot,
                                                     head + line("G/LIST", " value children item") + foot}));
}

TEST(KpwTracer, ShowsNamesAndKeysAsTheyAre)
{
    KpaInteger parameter("a<b&c");
    KpwTracer tracer("<T>");
    const RecordedMessages messages;
    tracer.setRoot(&parameter);
    parameter.setValue(3);
    EXPECT_EQ(messages.richInformation, QStringList("<big><b>&lt;T&gt;</b></big> ----------------------<br/>" +
                                                    line("a&lt;b&amp;c", " value") + foot));
}

TEST(KpwTracer, SaysSoIfARecordIsEmpty)
{
    OpenTracer tracer("T");
    const RecordedMessages messages;
    tracer._trigger(KpnModif());
    EXPECT_EQ(messages.richInformation, QStringList(head + ">>> KpwTracer::update: no modifs!" + foot));
}

TEST(KpwTracer, WatchesEveryRootThatItWasGiven)
{
    Traced traced;
    KpwTracer tracer;
    const RecordedMessages messages;
    tracer.setRoot(traced.a);
    tracer.setRoot(traced.b);
    EXPECT_EQ(messages.plainInformation, QStringList({": start watching root A", ": start watching root B"}));
    traced.a->setValue(3);
    traced.b->setValue(3);
    EXPECT_EQ(messages.richInformation.size(), 2);
}

TEST(KpwTracer, IsSilentWhileItIsLocked)
{
    Traced traced;
    KpwTracer tracer("T");
    const RecordedMessages messages;
    tracer.setRoot(&traced.group);
    tracer.lock(true);
    traced.a->setValue(3);
    tracer.lock(false);
    EXPECT_TRUE(messages.richInformation.isEmpty());
}

TEST(KpwTracer, OutlivesItsRoot)
{
    Traced traced;
    KpwTracer tracer("T");
    const RecordedMessages messages;
    tracer.setRoot(traced.a);
    tracer.setRoot(traced.b);
    traced.group.deleteParameter("A");
    traced.b->setValue(3);
    EXPECT_EQ(messages.richInformation, QStringList(head + line("G/B", " value") + foot));
}

TEST(KpwTracer, RefusesARootOutsideItsGroup)
{
    Traced traced;
    KpaInteger elsewhere("ELSEWHERE");
    auto* tracer = new KpwTracer("T");
    traced.group.registerWatcher(1, tracer);
    const RecordedMessages messages;
    EXPECT_TRUE(messageOf<MbeProgrammingError>([&] {
                    tracer->setRoot(&elsewhere);
                }).endsWith("\n\nparent group is not ancestor of added parameter."));
    elsewhere.setValue(3);
    EXPECT_TRUE(messages.plainInformation.isEmpty());
    EXPECT_TRUE(messages.richInformation.isEmpty());
}

TEST(KpwTracer, TracesTheGroupThatItWasCopiedToUnderTheSameName)
{
    Traced traced;
    auto* tracer = new KpwTracer("T");
    const RecordedMessages messages;
    tracer->setRoot(traced.a);
    traced.group.registerWatcher(1, tracer);
    const std::unique_ptr<KpcGroup> copy(traced.group.duplicate("H"));
    EXPECT_EQ(messages.plainInformation.size(), 1);
    dynamic_cast<KpaInteger&>(*copy->getChild("A")).setValue(3);
    EXPECT_EQ(messages.richInformation, QStringList(head + line("H/A", " value") + foot));
    traced.a->setValue(3);
    EXPECT_EQ(messages.richInformation.last(), head + line("G/A", " value") + foot);
    EXPECT_EQ(messages.richInformation.size(), 2);
}
