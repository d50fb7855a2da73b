#include "CompositeTestTools.h"

#include <param/atomic/KpaBool.h>
#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcChildren.h>
#include <param/composite/KpcGroup.h>

#include <support/RecordingObserver.h>

namespace {

class Example : public KpcAComposite
{
public:
    explicit Example(const QString& key) : KpcAComposite(KpbEType::GROUP, key, TestContext::instance())
    {
        _declare({*this, KpcChildren::Create});
    }
    Example(const Example& other, const QString& newKey) : KpcAComposite(other, newKey)
    {
        _declare({*this, KpcChildren::Rebind});
    }
    Example* duplicate(const QString& newKey) const override { return new Example(*this, newKey); }

    void update(const KpnModif& modif) override
    {
        ++updates;
        allBound = allBound && count && plane && angle;
        KpcAComposite::update(modif);
    }
    using KpcAComposite::deleteChild;

    KpcChild<KpaInteger> count;
    KpcChild<KpcGroup> plane;
    KpcChild<KpaInteger> angle;
    KpcChild<KpaBool> last;
    int updates = 0;
    int withCalls = 0;
    bool allBound = true;

private:
    void _declare(KpcChildren c)
    {
        // clang-format off
        c.add(count, "COUNT", "Count").minimum(1).maximum(100).step(2).value(32).readOnly(true).isVolatile(true);
        c.add(plane, "PLANE", "Plane", _getTransactable()).enabled(false);
        KpcChildren p = c.in(*plane);
        p.add(angle, "ANGLE", QString()).range(0, 90).automatic(30).with([this](KpaInteger&) { ++withCalls; });
        c.add(last,  "LAST",  "Last").autoValue(false).value(false);
        // clang-format on
    }
};

template <class T>
class Single : public KpcAComposite
{
public:
    Single(const KpcAComposite& other, const QString& key) : KpcAComposite(other, QString())
    {
        KpcChildren c(*this, KpcChildren::Rebind);
        c.add(child, key, "Label");
    }
    Single* duplicate(const QString&) const override { return new Single(*this, child->getKey()); }

    KpcChild<T> child;
};

class Twice : public TestComposite
{
public:
    Twice() : TestComposite("T")
    {
        KpcChildren c(*this, KpcChildren::Create);
        c.add(first, "A", "First");
        c.add(second, "A", "Second");
    }

    KpcChild<KpaInteger> first;
    KpcChild<KpaInteger> second;
};

template <class T>
concept HasMinimum = requires(KpcChildRow<T>& row)
{
    row.minimum(1);
};

} // namespace

TEST(KpcChildren, CreatesOneChildPerRow)
{
    const Example example("E");
    EXPECT_EQ(childKeys(example), QStringList({"COUNT", "PLANE", "LAST"}));
    EXPECT_EQ(childKeys(*example.plane), QStringList("ANGLE"));
    EXPECT_EQ(example.getChild("COUNT"), example.count.get());
    EXPECT_EQ(example.plane->getChild("ANGLE"), example.angle);
    EXPECT_EQ(example.count->getParent(), &example);
}

TEST(KpcChildren, ConfiguresANewChildAsItsRowSays)
{
    const Example example("E");
    EXPECT_EQ(example.count->getLabel(), "Count");
    EXPECT_EQ(example.count->getMinimum(), 1);
    EXPECT_EQ(example.count->getMaximum(), 100);
    EXPECT_EQ(example.count->getStep(), 2);
    EXPECT_EQ(example.count->getValue(), 32);
    EXPECT_TRUE(example.count->getReadOnlyFlag());
    EXPECT_TRUE(example.count->isVolatile());
    EXPECT_FALSE(example.plane->getEnabledFlag());
    EXPECT_EQ(example.angle->getMaximum(), 90);
    EXPECT_TRUE(example.angle->isAutomatic());
    EXPECT_EQ(example.angle->getValue(), 30);
    EXPECT_FALSE((*example.last).getValue());
    EXPECT_FALSE(example.last->getAutoValue());
    EXPECT_EQ(example.withCalls, 1);
}

TEST(KpcChildren, LeavesTheLabelOfTheChildWhereTheRowHasNone)
{
    EXPECT_EQ(Example("E").angle->getLabel(), "no label");
}

TEST(KpcChildren, HearsItsChildrenOnlyOnceTheTableIsComplete)
{
    Example example("E");
    EXPECT_TRUE(example.allBound);
    example.updates = 0;
    RecordingObserver observer(example);
    example.angle->setValue(4);
    EXPECT_EQ(example.updates, 1);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].getModifs().firstKey().toString(), "E/PLANE/ANGLE");
}

TEST(KpcChildren, BindsTheHandlesOfACopyToItsOwnChildren)
{
    const Example example("E");
    const std::unique_ptr<Example> copy(example.duplicate("F"));
    EXPECT_EQ(copy->getChild("COUNT"), copy->count.get());
    EXPECT_NE(copy->count.get(), example.count.get());
    EXPECT_EQ(copy->plane->getChild("ANGLE"), copy->angle.get());
    EXPECT_EQ(childKeys(*copy), QStringList({"COUNT", "PLANE", "LAST"}));
}

TEST(KpcChildren, LeavesTheStateOfCopiedChildrenAsItIs)
{
    Example example("E");
    example.count->setValue(7);
    example.count->setLabel("Other");
    example.last->setValue(true);
    example.plane->setEnabled(true);
    const std::unique_ptr<Example> copy(example.duplicate("F"));
    EXPECT_EQ(copy->count->getValue(), 7);
    EXPECT_EQ(copy->count->getLabel(), "Other");
    EXPECT_TRUE(copy->last->getValue());
    EXPECT_TRUE(copy->plane->getEnabledFlag());
    EXPECT_EQ(copy->withCalls, 0);
    EXPECT_EQ(copy->updates, 0);
}

TEST(KpcChildren, HearsTheChildrenOfACopyOnce)
{
    const Example example("E");
    const std::unique_ptr<Example> copy(example.duplicate("F"));
    copy->count->setValue(9);
    EXPECT_EQ(copy->updates, 1);
}

TEST(KpcChildren, FailsToRebindAMissingChild)
{
    Example example("E");
    example.deleteChild("LAST");
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { example.duplicate("F"); }),
              "'void __cdecl KpcChildren::add(const class QString &)' in file 'composite\\KpcChildren' failed:\n\n"
              "Key 'LAST' doesn't exist in parameter 'F'.");
}

TEST(KpcChildren, FailsToRebindAChildOfAnotherClass)
{
    const Example example("E");
    EXPECT_EQ(messageOf<MbeProgrammingError>([&] { Single<KpaBool>(example, "COUNT"); }),
              "'void __cdecl KpcChildren::add(const class QString &)' in file 'composite\\KpcChildren' failed:\n\n"
              "Child 'COUNT' of parameter 'E' is of another class.");
}

TEST(KpcChildren, FailsToCreateAKeyTwice)
{
    EXPECT_EQ(messageOf<MbeError>([] { Twice twice; }),
              "KpcAComposite::appendChild() (parameter='T':\nkey 'A' already exists.");
}

TEST(KpcChildren, OffersOnlySettersThatTheChildHas)
{
    EXPECT_TRUE(HasMinimum<KpaInteger>);
    EXPECT_FALSE(HasMinimum<KpaBool>);
    EXPECT_FALSE(HasMinimum<KpcGroup>);
    EXPECT_FALSE(std::is_copy_constructible_v<KpcChild<KpaInteger>>);
    EXPECT_FALSE(std::is_copy_assignable_v<KpcChild<KpaInteger>>);
}
