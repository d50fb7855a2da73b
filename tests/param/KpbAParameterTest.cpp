#include <param/KpbAParameter.h>
#include <param/atomic/KpaInteger.h>
#include <support/RecordedMessages.h>
#include <support/RecordingObserver.h>
#include <support/TestParameters.h>

#include <basic/MbgEDimension.h>

TEST(KpbAParameter, StartsWithItsDocumentedState)
{
    const TestLeaf leaf("a");
    EXPECT_EQ(leaf.getKey(), QStringLiteral("a"));
    EXPECT_EQ(leaf.getLabel(), QStringLiteral("no label"));
    EXPECT_TRUE(leaf.isA(KpbEType::STRING));
    EXPECT_FALSE(leaf.isA(KpbEType::INTEGER));
    EXPECT_EQ(leaf.getParent(), nullptr);
    EXPECT_TRUE(leaf.getEnabledFlag());
    EXPECT_FALSE(leaf.getReadOnlyFlag());
    EXPECT_FALSE(leaf.isAutomatic());
    EXPECT_FALSE(leaf.isAutomaticEnabled());
    EXPECT_FALSE(leaf.isAutomaticValueInitialized());
    EXPECT_FALSE(leaf.isValueLocked());
    EXPECT_FALSE(leaf.isLockValueEnabled());
    EXPECT_FALSE(leaf.isVolatile());
    EXPECT_FALSE(leaf.isLoadLocked());
    EXPECT_TRUE(leaf.getUnserializeData().isNull());
    EXPECT_EQ(leaf.getVersion(), 1);
}

TEST(KpbAParameter, PrintsAnErrorForAConversionThatItsClassDoesNotHave)
{
    RecordedMessages messages;
    QDomDocument document;
    QDomElement element = document.createElement("param");
    element.setAttribute("key", "a");
    TestLeaf("a").convert(element, 0);
    EXPECT_EQ(messages.errors, QStringList("Parameter 'STRING' must implement convert() method."));
    EXPECT_EQ(element.attribute("key"), QStringLiteral("a"));
}

TEST(KpbAParameter, IsEnabledOnlyWithAllItsAncestors)
{
    TestLeaf leaf("a");
    TestBranch parent("p"), grandparent("g");
    parent.add(leaf);
    grandparent.add(parent);
    EXPECT_TRUE(leaf.isEnabled());
    grandparent.setEnabled(false);
    EXPECT_FALSE(leaf.isEnabled());
    EXPECT_TRUE(leaf.isDisabled());
    EXPECT_TRUE(leaf.getEnabledFlag());
}

TEST(KpbAParameter, IsEnabledAndIsDisabledAgreeForEveryChainOfFlags)
{
    TestLeaf leaf("a");
    TestBranch parent("p"), grandparent("g");
    parent.add(leaf);
    grandparent.add(parent);
    for (int flags = 0; flags < 8; ++flags) {
        leaf.setEnabled(flags & 1);
        parent.setEnabled(flags & 2);
        grandparent.setEnabled(flags & 4);
        EXPECT_EQ(leaf.isEnabled(), flags == 7);
        EXPECT_EQ(leaf.isDisabled(), flags != 7);
    }
    EXPECT_TRUE(KpbAParameter::isEnabled(nullptr));
    EXPECT_FALSE(KpbAParameter::isDisabled(nullptr));
}

TEST(KpbAParameter, IsReadOnlyWithAnyOfItsAncestors)
{
    TestLeaf leaf("a");
    TestBranch parent("p");
    parent.add(leaf);
    EXPECT_FALSE(leaf.isReadOnly());
    parent.setReadOnly(true);
    EXPECT_TRUE(leaf.isReadOnly());
    EXPECT_FALSE(leaf.getReadOnlyFlag());
}

TEST(KpbAParameter, IsAncestorOfWhatLiesBelowItAndNotOfItself)
{
    TestLeaf leaf("a");
    TestBranch parent("p"), grandparent("g");
    parent.add(leaf);
    grandparent.add(parent);
    EXPECT_TRUE(grandparent.isAncestorOf(&leaf));
    EXPECT_TRUE(parent.isAncestorOf(&leaf));
    EXPECT_FALSE(leaf.isAncestorOf(&parent));
    EXPECT_FALSE(leaf.isAncestorOf(&leaf));
    EXPECT_FALSE(leaf.isAncestorOf(nullptr));
}

TEST(KpbAParameter, GivesItsAbsolutePathFromTheRootDown)
{
    TestLeaf leaf("a");
    TestBranch parent("p"), grandparent("g");
    parent.add(leaf);
    grandparent.add(parent);
    EXPECT_EQ(leaf.getAbsolutePath(), QStringList({"g", "p", "a"}));
    EXPECT_EQ(grandparent.getAbsolutePath(), QStringList("g"));
}

TEST(KpbAParameter, FindsTheWayToOthersOfItsTree)
{
    TestLeaf a("a"), b("b"), c("c");
    TestBranch p("p"), q("q"), root("r");
    p.add(a);
    p.add(b);
    q.add(c);
    root.add(p);
    root.add(q);
    const struct
    {
        const KpbAParameter& from;
        KpbAParameter& to;
        QStringList path;
    } ways[] = {
        {a, b, {"..", "b"}},       {a, c, {"..", "..", "q", "c"}}, {root, c, {"q", "c"}},
        {a, p, {"..", "..", "p"}}, {a, root, {"..", ".."}},        {p, q, {"..", "q"}},
    };
    for (const auto& way : ways) {
        EXPECT_EQ(way.from.getRelatifPath(&way.to), way.path);
        EXPECT_EQ(way.from.getParameterByRelativePath(way.from.getRelatifPath(&way.to)), &way.to);
    }
}

TEST(KpbAParameter, TheWayToItselfIsItsKeyAndTheWayToNothingIsEmpty)
{
    const TestLeaf a("a");
    EXPECT_EQ(a.getRelatifPath(&a), QStringList("a"));
    EXPECT_TRUE(a.getRelatifPath(nullptr).isEmpty());
    EXPECT_EQ(a.getParameterByRelativePath(KpbPath("a")), nullptr);
}

TEST(KpbAParameter, TheWayIntoAnotherTreeEnds)
{
    const TestLeaf a("a"), b("b");
    EXPECT_EQ(a.getRelatifPath(&b), QStringList("b"));
}

TEST(KpbAParameter, FollowsARelativePathOrGivesNull)
{
    TestLeaf a("a");
    TestBranch p("p");
    p.add(a);
    EXPECT_EQ(p.getParameterByRelativePath(KpbPath()), &p);
    EXPECT_EQ(p.getParameterByRelativePath(KpbPath("..")), nullptr);
    EXPECT_EQ(p.getParameterByRelativePath(KpbPath("none")), nullptr);
    EXPECT_EQ(a.getParameterByRelativePath(KpbPath("..")), &p);
}

TEST(KpbAParameter, SetLabelNotifiesConfigOnlyWhenItChanges)
{
    TestLeaf a("a");
    const RecordingObserver observer(a);
    a.setLabel("no label");
    a.setLabel("new");
    a.setLabel("new");
    EXPECT_EQ(observer.allFlags(), QList<int>({2}));
    EXPECT_EQ(a.getLabel(), QStringLiteral("new"));
}

TEST(KpbAParameter, SwitchingEnabledOrReadOnlyNotifiesConfigOnlyWhenItChanges)
{
    TestLeaf a("a");
    const RecordingObserver observer(a);
    a.setEnabled(true);
    a.setReadOnly(false);
    EXPECT_TRUE(observer.records.isEmpty());
    a.setEnabled(false);
    a.setReadOnly(true);
    EXPECT_EQ(observer.allFlags(), QList<int>({2, 2}));
}

TEST(KpbAParameter, SwitchingEnabledTellsEverythingBelowAndTheParentsObserversOnce)
{
    KpaInteger a("a"), b("b");
    RelayingBranch inner("inner"), group("group");
    inner.plug(b);
    group.plug(a);
    group.plug(inner);
    const RecordingObserver atGroup(group), atA(a), atB(b);
    group.setEnabled(false);
    ASSERT_EQ(atGroup.records.size(), 1);
    EXPECT_EQ(atGroup.records[0].getNumberOfModif(), 4);
    EXPECT_EQ(atGroup.flagsOf(group), 2);
    EXPECT_EQ(atGroup.flagsOf(a), 2);
    EXPECT_EQ(atGroup.flagsOf(inner), 2);
    EXPECT_EQ(atGroup.flagsOf(b), 2);
    EXPECT_EQ(atA.allFlags(), QList<int>({2}));
    EXPECT_EQ(atB.allFlags(), QList<int>({2}));
    EXPECT_TRUE(a.getEnabledFlag());
}

TEST(KpbAParameter, SetParentAndSetVolatileAreSilent)
{
    TestLeaf a("a");
    TestBranch p("p");
    const RecordingObserver observer(a);
    a.setParent(&p);
    a.setVolatile(true);
    a.lockLoad();
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(a.getParent(), &p);
    EXPECT_TRUE(a.isVolatile());
    EXPECT_TRUE(a.isLoadLocked());
}

TEST(KpbAParameter, SetAutomaticWithoutAnAutomaticValueKeepsTheValueAndNotifiesConfig)
{
    KpaInteger a("a");
    a.setValue(4);
    const RecordingObserver observer(a);
    a.setAutomatic(true);
    a.setAutomatic(true);
    EXPECT_EQ(observer.allFlags(), QList<int>({2}));
    EXPECT_EQ(a.getValue(), 4);
}

TEST(KpbAParameter, SetAutomaticTakesTheAutomaticValueOverInOneRecord)
{
    KpaInteger a("a");
    a.setAutoValue(9);
    RecordingObserver observer(a);
    a.setAutomatic(true);
    EXPECT_EQ(observer.allFlags(), QList<int>({3}));
    EXPECT_EQ(a.getValue(), 9);
    a.setAutomatic(false);
    EXPECT_EQ(observer.allFlags(), QList<int>({3, 2}));
    EXPECT_EQ(a.getValue(), 9);
}

TEST(KpbAParameter, ObserversOfTheAutomaticValueSeeTheFlagSetAlready)
{
    class Looks : public KuoIObserver<KpnModif>
    {
    public:
        explicit Looks(const KpbAParameter& seen) : parameter(seen) {}
        void update(const KpnModif&) override { automatic = parameter.isAutomatic(); }
        const KpbAParameter& parameter;
        bool automatic = false;
    };
    KpaInteger a("a");
    a.setAutoValue(9);
    Looks looks(a);
    a.addObserver(&looks);
    a.setAutomatic(true);
    EXPECT_TRUE(looks.automatic);
    a.removeObserver(&looks);
}

TEST(KpbAParameter, ResetToAutomaticValueChangesTheValueAndLeavesTheMode)
{
    KpaInteger a("a");
    a.setAutoValue(9);
    const RecordingObserver observer(a);
    a.resetToAutomaticValue();
    EXPECT_EQ(a.getValue(), 9);
    EXPECT_FALSE(a.isAutomatic());
    EXPECT_EQ(observer.allFlags(), QList<int>({1}));
    a.resetToAutomaticValue();
    EXPECT_EQ(observer.records.size(), 1);
}

TEST(KpbAParameter, ResetWithoutAnAutomaticValueDoesNothing)
{
    KpaInteger a("a");
    a.setValue(3);
    const RecordingObserver observer(a);
    a.resetToAutomaticValue();
    EXPECT_EQ(a.getValue(), 3);
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpbAParameter, SwitchingAutomaticEnabledAndTheValueLockNotifies)
{
    TestLeaf a("a");
    const RecordingObserver observer(a);
    a.setAutomaticEnabled(true);
    a.setAutomaticEnabled(true);
    a.setValueLocked(true);
    a.setValueLocked(true);
    a.setLockValueEnabled(true);
    a.setLockValueEnabled(true);
    EXPECT_EQ(observer.allFlags(), QList<int>({2, 1, 2}));
    EXPECT_TRUE(a.isAutomaticEnabled());
    EXPECT_TRUE(a.isValueLocked());
    EXPECT_TRUE(a.isLockValueEnabled());
}

TEST(KpbAParameter, ActivateValueLockSendsConfigAndThenValue)
{
    TestLeaf a("a");
    const RecordingObserver observer(a);
    a.activateValueLock(true);
    EXPECT_EQ(observer.allFlags(), QList<int>({2, 1}));
    a.activateValueLock(true);
    a.activateValueLock(false);
    EXPECT_EQ(observer.allFlags(), QList<int>({2, 1, 1}));
    EXPECT_TRUE(a.isLockValueEnabled());
    EXPECT_FALSE(a.isValueLocked());
}

TEST(KpbAParameter, HandsOutWhatItKeptAndEndsTheLoadLock)
{
    TestLeaf a("a");
    a.lockLoad();
    const auto data = QSharedPointer<QDomDocument>::create("serialized_param");
    a.setSerializeData(data);
    EXPECT_EQ(a.getUnserializeData(), data);
    EXPECT_TRUE(a.isLoadLocked());
    EXPECT_EQ(a.takeUnserializeData(), data);
    EXPECT_FALSE(a.isLoadLocked());
    EXPECT_TRUE(a.getUnserializeData().isNull());
}

TEST(KpbAParameter, ACopyHasTheStateAndNeitherObserversNorParent)
{
    TestLeaf a("a");
    TestBranch p("p");
    p.add(a);
    a.setLabel("label");
    a.setEnabled(false);
    a.setReadOnly(true);
    a.setAutomatic(true);
    a.setAutomaticEnabled(true);
    a._setAutomaticValueInitialized(true);
    a.activateValueLock(true);
    a.setVolatile(true);
    a.lockLoad();
    a.setSerializeData(QSharedPointer<QDomDocument>::create());
    const RecordingObserver observer(a);
    const std::unique_ptr<TestLeaf> same(a.duplicate(QString()));
    const std::unique_ptr<TestLeaf> other(a.duplicate("b"));
    EXPECT_EQ(same->getKey(), QStringLiteral("a"));
    EXPECT_EQ(other->getKey(), QStringLiteral("b"));
    EXPECT_EQ(other->getLabel(), QStringLiteral("label"));
    EXPECT_EQ(other->getType(), KpbEType::STRING);
    EXPECT_EQ(other->getParent(), nullptr);
    EXPECT_FALSE(other->getEnabledFlag());
    EXPECT_TRUE(other->getReadOnlyFlag() && other->isAutomatic() && other->isAutomaticEnabled());
    EXPECT_TRUE(other->isAutomaticValueInitialized() && other->isValueLocked() && other->isLockValueEnabled());
    EXPECT_TRUE(other->isVolatile() && other->isLoadLocked());
    EXPECT_EQ(other->getUnserializeData(), a.getUnserializeData());
    other->setLabel("changed");
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpbAParameter, ACopyOfALockedParameterIsNotLocked)
{
    TestLeaf a("a");
    const RecordingObserver observer(a);
    KuoLock<KpnModif> lock(&a);
    a.setLabel("pending");
    const std::unique_ptr<TestLeaf> copy(a.duplicate("b"));
    EXPECT_FALSE(copy->isLocked());
    EXPECT_FALSE(copy->hasNotifications());
    lock.commit();
}

TEST(KpbAParameter, TellsItsObserversOfItsDeath)
{
    auto a = std::make_unique<TestLeaf>("a");
    const RecordingObserver observer(*a);
    a.reset();
    EXPECT_EQ(observer.deaths, 1);
}

TEST(KpbAParameter, TrySetValueAutoActsWhenTheAutomaticValueIsKnown)
{
    class Counts : public TestLeaf
    {
    public:
        using TestLeaf::TestLeaf;
        int calls = 0;

    private:
        void _setValueAuto() override { ++calls; }
    };
    Counts a("a");
    a._trySetValueAuto();
    EXPECT_EQ(a.calls, 0);
    a._setAutomaticValueInitialized(true);
    a._trySetValueAuto();
    EXPECT_EQ(a.calls, 1);
    EXPECT_TRUE(a._setAutoFlag(true));
    EXPECT_FALSE(a._setAutoFlag(true));
}

TEST(KpbAParameter, DebugBelowOneTellsOneLinePerParameter)
{
    TestLeaf a("a");
    TestBranch p("p");
    p.add(a);
    const QString blank = QChar(QChar::Nbsp);
    EXPECT_EQ(p.debug(0), QStringLiteral("p = text\n") + blank + QStringLiteral("a = text\n"));
    EXPECT_EQ(p.debug(-1), blank + QStringLiteral("p = text\n") + blank + blank + QStringLiteral("a = text\n"));
}

TEST(KpbAParameter, DebugOfOneTellsIdentityAndSerialForm)
{
    TestLeaf a("a");
    a.setLabel("The A");
    EXPECT_EQ(a.debug(1), QStringLiteral("----- KpbAParameter --------\n"
                                         " key              = a\n"
                                         " type             = STRING (String)\n"
                                         " label            = The A\n"
                                         "----- Concrete parameter --\n"
                                         " toString()       = text\n"
                                         " serialize():\n"
                                         "  - value = text\n"));
}

TEST(KpbAParameter, DebugShowsEachFlagInItsOwnLine)
{
    const struct
    {
        const char* line;
        std::function<void(TestLeaf&)> set;
    } flags[] = {
        {" readonly         = ", [](TestLeaf& a) { a.setReadOnly(true); }},
        {" automaticEnabled = ", [](TestLeaf& a) { a.setAutomaticEnabled(true); }},
        {" automaticInit'ed = ", [](TestLeaf& a) { a._setAutomaticValueInitialized(true); }},
        {" automatic        = ", [](TestLeaf& a) { a.setAutomatic(true); }},
        {" lockValueEnabled = ", [](TestLeaf& a) { a.setLockValueEnabled(true); }},
        {" valueIsLocked    = ", [](TestLeaf& a) { a.setValueLocked(true); }},
        {" volatile         = ", [](TestLeaf& a) { a.setVolatile(true); }},
    };
    for (const auto& flag : flags) {
        TestLeaf a("a");
        flag.set(a);
        EXPECT_EQ(a.debug(2).count(QStringLiteral("yes\n")), 2) << flag.line; // with enabled
        EXPECT_TRUE(a.debug(2).contains(QLatin1String(flag.line) + QStringLiteral("yes\n"))) << flag.line;
        const std::unique_ptr<TestLeaf> copy(a.duplicate(QString()));
        EXPECT_EQ(copy->debug(2), a.debug(2)) << flag.line;
    }
    EXPECT_TRUE(TestLeaf("a").debug(2).contains(QStringLiteral(" enabled          = yes\n")));
    EXPECT_TRUE(TestLeaf("a").debug(2).contains(QStringLiteral(" parent           = 0x0\n path             = a\n")));
}

TEST(KpbAParameter, ABatchThatAnExceptionLeavesKeepsTheStateAndLosesTheRecord)
{
    TestLeaf a("a");
    const RecordingObserver observer(a);
    try {
        KuoLock<KpnModif> lock(&a);
        a.setLabel("new");
        throw 1;
    }
    catch (int) {
    }
    EXPECT_EQ(a.getLabel(), QStringLiteral("new"));
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_FALSE(a.isLocked());
}

TEST(KpbAParameter, DebugOfTwoTellsPlaceAndFlagsAndTheChildren)
{
    TestLeaf a("a");
    TestBranch p("p");
    p.add(a);
    a.setReadOnly(true);
    a.setVolatile(true);
    const QString parent = QStringLiteral("0x") + QString::number(quintptr(static_cast<KpbAParameter*>(&p)), 16);
    const QString ofA = QStringLiteral("----- KpbAParameter --------\n"
                                       " key              = a\n"
                                       " type             = STRING (String)\n"
                                       " label            = no label\n"
                                       " parent           = %1\n"
                                       " path             = p/a\n"
                                       " readonly         = yes\n"
                                       " enabled          = yes\n"
                                       " automaticEnabled = no\n"
                                       " automaticInit'ed = no\n"
                                       " automatic        = no\n"
                                       " lockValueEnabled = no\n"
                                       " valueIsLocked    = no\n"
                                       " volatile         = yes\n"
                                       "----- Concrete parameter --\n"
                                       " toString()       = text\n"
                                       " serialize():\n"
                                       "  - value = text\n")
                            .arg(parent);
    EXPECT_EQ(a.debug(2), ofA);
    EXPECT_TRUE(p.debug(2).endsWith(QStringLiteral("----- Composite -----------\n children count   = 1\n") + ofA));
}

TEST(Kp, GetVectorDimOfADimension)
{
    EXPECT_EQ(Kp::getVectorDim(MbgEDimension::fromValue(0)), 1);
    EXPECT_EQ(Kp::getVectorDim(MbgEDimension::fromValue(1)), 2);
    EXPECT_EQ(Kp::getVectorDim(MbgEDimension::fromValue(2)), 3);
}

TEST(Kp, FlagsHaveTheirFixedValues)
{
    EXPECT_EQ(int(Kp::NotifyValue), 1);
    EXPECT_EQ(int(Kp::NotifyConfig), 2);
    EXPECT_EQ(int(Kp::NotifyChildren), 4);
    EXPECT_EQ(int(Kp::NotifyItem), 8);
    EXPECT_EQ(int(Kp::IterateOrigin), 0);
    EXPECT_EQ(int(Kp::IterateWholePath), 1);
}
