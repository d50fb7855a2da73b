#include <param/KpbPath.h>
#include <param/KpnPath.h>
#include <param/KpnPathIterator.h>
#include <param/KuoPointer.h>
#include <support/TestParameters.h>

#include <QtCore/QDataStream>

namespace {

KpnPath pathOf(std::initializer_list<const KpbAParameter*> parameters)
{
    KpnPath path;
    for (const KpbAParameter* parameter : parameters)
        path.append(parameter);
    return path;
}

} // namespace

TEST(KpbPath, JoinsItsEntriesWithASlashOrTheGivenSeparator)
{
    KpbPath path;
    path << QStringLiteral("a") << QStringLiteral("..") << QStringLiteral("b");
    EXPECT_EQ(path.toString(), QStringLiteral("a/../b"));
    EXPECT_EQ(path.toString(QStringLiteral(" > ")), QStringLiteral("a > .. > b"));
    EXPECT_EQ(KpbPath().toString(), QString());
}

TEST(KpbPath, OfAKeyHasOneEntryAndTheDefaultNone)
{
    EXPECT_EQ(KpbPath(QStringLiteral("a/b")).size(), 1);
    EXPECT_TRUE(KpbPath().isEmpty());
    EXPECT_EQ(KpbPath::getUpString(), QStringLiteral(".."));
}

TEST(KpbPath, OrdersLexicographicallyWithAProperPrefixFirst)
{
    KpbPath a(QStringLiteral("a"));
    KpbPath ab(QStringLiteral("a"));
    ab << QStringLiteral("b");
    const KpbPath b(QStringLiteral("b"));
    EXPECT_TRUE(a < ab);
    EXPECT_TRUE(ab < b);
    EXPECT_FALSE(ab < a);
    EXPECT_FALSE(a < a);
    EXPECT_TRUE(a == KpbPath(QStringLiteral("a")));
    EXPECT_TRUE(a != ab);
}

TEST(KpbPath, GoesThroughADataStreamAsAStringList)
{
    KpbPath path(QStringLiteral("a"));
    path << QStringLiteral("b");
    QByteArray bytes;
    QDataStream writer(&bytes, QIODevice::WriteOnly);
    writer << path;
    QStringList list;
    QDataStream listReader(bytes);
    listReader >> list;
    EXPECT_EQ(list, QStringList({"a", "b"}));
    KpbPath read;
    QDataStream pathReader(bytes);
    pathReader >> read;
    EXPECT_EQ(read, path);
}

TEST(KuoPointer, BecomesNullWhenItsTargetDies)
{
    auto leaf = std::make_unique<TestLeaf>("a");
    KuoPointer<KpbAParameter> pointer(leaf.get());
    const KuoPointer<KpbAParameter> copy(pointer);
    KuoPointer<KpbAParameter> assigned;
    assigned = copy;
    EXPECT_EQ(pointer.get(), leaf.get());
    EXPECT_EQ(pointer->getKey(), QStringLiteral("a"));
    leaf.reset();
    EXPECT_EQ(pointer.get(), nullptr);
    EXPECT_EQ(copy.get(), nullptr);
    EXPECT_EQ(assigned.get(), nullptr);
}

TEST(KuoPointer, LeavesItsTargetWhenItEndsOrTurnsElsewhere)
{
    TestLeaf a("a");
    auto b = std::make_unique<TestLeaf>("b");
    KuoPointer<KpbAParameter> pointer(&a);
    {
        const KuoPointer<KpbAParameter> shortLived(&a);
    }
    pointer = b.get();
    EXPECT_EQ(pointer.get(), b.get());
    b.reset();
    EXPECT_EQ(pointer.get(), nullptr);
    pointer = nullptr;
}

TEST(KpnPath, IsInvalidWhileEmptyAndOnceAParameterIsDead)
{
    TestLeaf a("a");
    auto b = std::make_unique<TestLeaf>("b");
    EXPECT_TRUE(KpnPath().isEmpty());
    EXPECT_FALSE(KpnPath().isValid());
    const KpnPath path = pathOf({&a, b.get()});
    EXPECT_FALSE(path.isEmpty());
    EXPECT_TRUE(path.isValid());
    b.reset();
    EXPECT_FALSE(path.isValid());
    EXPECT_EQ(path.getFirst(), &a);
    EXPECT_EQ(path.getLast(), nullptr);
    EXPECT_FALSE(pathOf({&a, nullptr}).isValid());
}

TEST(KpnPath, GivesItsEndsAndWhatItContains)
{
    const TestLeaf a("a"), b("b"), c("c");
    const KpnPath path = pathOf({&a, &b});
    EXPECT_EQ(path.getFirst(), &a);
    EXPECT_EQ(path.getLast(), &b);
    EXPECT_TRUE(path.contains(&a));
    EXPECT_TRUE(path.contains(&b));
    EXPECT_FALSE(path.contains(&c));
    EXPECT_EQ(KpnPath().getFirst(), nullptr);
    EXPECT_EQ(KpnPath().getLast(), nullptr);
}

TEST(KpnPath, ReadsFromTheOutermostAncestorDownToTheOrigin)
{
    TestLeaf a("a");
    auto b = std::make_unique<TestLeaf>("b");
    const KpnPath path = pathOf({&a, b.get()});
    EXPECT_EQ(path.toString(), QStringLiteral("b/a"));
    b.reset();
    EXPECT_EQ(path.toString(), QStringLiteral("NULL/a"));
    EXPECT_EQ(KpnPath().toString(), QString());
}

TEST(KpnPath, IsEqualToAPathThroughTheSameParameters)
{
    const TestLeaf a("a"), b("b");
    EXPECT_TRUE(pathOf({&a, &b}) == pathOf({&a, &b}));
    EXPECT_TRUE(pathOf({&a, &b}) != pathOf({&a}));
    EXPECT_TRUE(pathOf({&a, &b}) != pathOf({&b, &a}));
    EXPECT_TRUE(KpnPath() == KpnPath());
}

TEST(KpnPath, OrdersByTheAddressesOfItsParametersAndThenByLength)
{
    const TestLeaf leaves[2] = {TestLeaf("a"), TestLeaf("b")};
    const TestLeaf &low = leaves[0], &high = leaves[1];
    EXPECT_TRUE(pathOf({&low, &high}) < pathOf({&high}));
    EXPECT_FALSE(pathOf({&high}) < pathOf({&low, &high}));
    EXPECT_TRUE(pathOf({&low}) < pathOf({&low, &low}));
    EXPECT_FALSE(pathOf({&low}) < pathOf({&low}));
    EXPECT_TRUE(KpnPath() < pathOf({&low}));
}

TEST(KpnPath, KeepsALongChainThroughCopiesAndMoves)
{
    std::vector<std::unique_ptr<TestLeaf>> leaves;
    KpnPath path;
    QStringList keys;
    for (int i = 0; i < 40; ++i) {
        leaves.push_back(std::make_unique<TestLeaf>(QString::number(i)));
        path.append(leaves.back().get());
        keys.prepend(QString::number(i));
    }
    KpnPath copy(path);
    KpnPath moved(std::move(copy));
    copy = moved;
    EXPECT_EQ(moved.toString(), keys.join('/'));
    EXPECT_EQ(copy, path);
    leaves.clear();
    EXPECT_FALSE(moved.isValid());
    path = KpnPath();
    EXPECT_TRUE(path.isEmpty());
}

TEST(KpnPathIterator, GivesTheParametersFromTheOriginOutward)
{
    TestLeaf a("a");
    auto b = std::make_unique<TestLeaf>("b");
    const TestLeaf c("c");
    const KpnPath path = pathOf({&a, b.get(), &c});
    b.reset();
    KpnPathIterator iterator(path);
    ASSERT_TRUE(iterator.hasNext());
    EXPECT_EQ(iterator.next(), &a);
    EXPECT_EQ(iterator.next(), nullptr);
    EXPECT_EQ(iterator.next(), &c);
    EXPECT_FALSE(iterator.hasNext());
    EXPECT_FALSE(KpnPathIterator(KpnPath()).hasNext());
}
