#include <util/KuoAGuarded.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

class Target : public KuoAGuarded
{};

/// Notes its name in the log when its target dies, and then does what the test gave it to do.
class Guard : public KuoIGuard
{
public:
    Guard(std::string& log, char name) : _log(&log), _name(name) {}

    void guardedDestroyed() override
    {
        *_log += _name;
        if (action)
            action();
    }

    std::function<void()> action;

private:
    std::string* _log;
    char _name;
};

class KuoAGuardedTest : public testing::Test
{
protected:
    KuoAGuardedTest()
    {
        for (KuoIGuard* guard : {&a, &b, &c})
            target->addGuard(guard);
    }

    std::string log;
    Guard a{log, 'a'};
    Guard b{log, 'b'};
    Guard c{log, 'c'};
    std::unique_ptr<Target> target = std::make_unique<Target>();
};

} // namespace

TEST_F(KuoAGuardedTest, TellsEachGuardOfItsDeathInOrderOfArrival)
{
    target.reset();
    EXPECT_EQ(log, "abc");
}

TEST_F(KuoAGuardedTest, ForgetsRemovedGuards)
{
    for (const auto& [removed, rest] : {std::pair{&a, "bc"}, std::pair{&b, "ac"}, std::pair{&c, "ab"}}) {
        log.clear();
        auto fresh = std::make_unique<Target>();
        Guard* guards[] = {&a, &b, &c};
        for (Guard* guard : guards) {
            target->removeGuard(guard);
            fresh->addGuard(guard);
        }
        fresh->removeGuard(removed);
        fresh.reset();
        EXPECT_EQ(log, rest);
    }
}

TEST_F(KuoAGuardedTest, IgnoresNullAndAGuardThatIsAlreadyThere)
{
    target->addGuard(nullptr);
    target->removeGuard(nullptr);
    target->addGuard(&a);
    target.reset();
    EXPECT_EQ(log, "abc");
}

TEST_F(KuoAGuardedTest, IgnoresTheRemovalOfAGuardOfAnotherTarget)
{
    Target other;
    other.removeGuard(&b);
    target.reset();
    EXPECT_EQ(log, "abc");
}

TEST_F(KuoAGuardedTest, LetsAGuardRemoveTheNextOneDuringTheWalk)
{
    Target* dying = target.release();
    a.action = [this, dying] { dying->removeGuard(&b); };
    delete dying;
    EXPECT_EQ(log, "ac");
}

TEST_F(KuoAGuardedTest, LetsAGuardRemoveItselfAndFormerOnesDuringTheWalk)
{
    Target* dying = target.release();
    b.action = [this, dying] {
        dying->removeGuard(&b);
        dying->removeGuard(&a);
    };
    delete dying;
    EXPECT_EQ(log, "abc");
}

TEST_F(KuoAGuardedTest, LetsAGuardAddAnotherDuringTheWalk)
{
    Guard late(log, 'l');
    Target* dying = target.release();
    a.action = [&late, dying] { dying->addGuard(&late); };
    delete dying;
    EXPECT_EQ(log, "abcl");
}

TEST_F(KuoAGuardedTest, LetsAGuardDestroyAnotherDuringTheWalk)
{
    auto owned = std::make_unique<Guard>(log, 'o');
    target->addGuard(owned.get());
    a.action = [&owned] { owned.reset(); };
    target.reset();
    EXPECT_EQ(log, "abc");
}

TEST_F(KuoAGuardedTest, ForgetsAGuardThatDies)
{
    {
        Guard brief(log, 'x');
        target->addGuard(&brief);
    }
    target.reset();
    EXPECT_EQ(log, "abc");
}

TEST_F(KuoAGuardedTest, LetsAGuardMoveToAnotherTargetWhenItsOwnDied)
{
    auto second = std::make_unique<Target>();
    target.reset();
    second->addGuard(&a);
    second.reset();
    EXPECT_EQ(log, "abca");
}

TEST_F(KuoAGuardedTest, CopiesWithoutGuards)
{
    {
        const Target copy(*target);
        Target assigned;
        assigned = *target;
    }
    EXPECT_EQ(log, "");
    target.reset();
    EXPECT_EQ(log, "abc");
}

TEST_F(KuoAGuardedTest, KeepsItsOwnGuardsWhenItIsAssignedTo)
{
    *target = Target();
    EXPECT_EQ(log, "");
    target.reset();
    EXPECT_EQ(log, "abc");
}

TEST_F(KuoAGuardedTest, CopiesAGuardIntoNobodysList)
{
    {
        const Guard copy(a);
        Guard assigned(log, 'z');
        assigned = a;
    }
    target.reset();
    EXPECT_EQ(log, "abc");
}

TEST(KuoAGuarded, TakesConstantTimeToAddAndRemoveAGuard)
{
    constexpr int count = 200000;
    std::string log;
    Target target;
    std::vector<Guard> guards(count, Guard(log, 'g'));
    for (Guard& guard : guards)
        target.addGuard(&guard);
    for (int i = 0; i < count; i += 2)
        target.removeGuard(&guards[size_t(i)]);
    for (int i = count - 1; i > 0; i -= 2)
        target.removeGuard(&guards[size_t(i)]);
    EXPECT_EQ(log, "");
}
