#include <basic/MbbAEnum.h>
#include <param/atomic/KpaEnum.h>
#include <support/RecordingObserver.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

const int value = Kp::NotifyValue;
const int config = Kp::NotifyConfig;

class Colour : public MbbAEnum
{
public:
    Colour(int number, const char* key, const QString& label) : MbbAEnum(label, number, key) {}
};

/// Keeps what goes to Qt's debug log while it lives.
class DebugLog
{
public:
    DebugLog() : _former(qInstallMessageHandler(&DebugLog::take)) { texts.clear(); }
    ~DebugLog() { qInstallMessageHandler(_former); }
    DebugLog(const DebugLog&) = delete;
    DebugLog& operator=(const DebugLog&) = delete;

    static inline QStringList texts;

private:
    static void take(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        if (type == QtDebugMsg)
            texts.append(text);
    }

    QtMessageHandler _former;
};

KpaItemDef disabled(KpaItemDef item)
{
    item.enabled = false;
    return item;
}

KpaItemDef alpha()
{
    return {0, "Alpha", "A"};
}

KpaItemDef beta()
{
    return {1, "Beta", "B"};
}

KpaItemDef gamma()
{
    return {2, "Gamma", "G"};
}

QList<KpaItemDef> letters()
{
    return {alpha(), beta(), gamma()};
}

std::unique_ptr<KpaEnum> enumOf(const QList<KpaItemDef>& items, int choice = 0)
{
    auto parameter = std::make_unique<KpaEnum>("LETTER");
    parameter->reset(items);
    parameter->setValue(choice);
    return parameter;
}

QPixmap filled(Qt::GlobalColor colour)
{
    QPixmap pixmap(4, 4);
    pixmap.fill(colour);
    return pixmap;
}

} // namespace

TEST(KpaItemDef, StartsWithoutTextAndEnabled)
{
    const KpaItemDef item;
    EXPECT_EQ(item.value, -1);
    EXPECT_EQ(item.label, "");
    EXPECT_EQ(item.key, "");
    EXPECT_TRUE(item.enabled);
    EXPECT_EQ(item.echoLabel, "");
    EXPECT_EQ(item.comment, "");
    EXPECT_TRUE(item.pixmap.isNull());
    EXPECT_FALSE(item.marked);
}

TEST(KpaItemDef, TakesItsLabelAsEchoLabel)
{
    const KpaItemDef item(3, "Label", "KEY");
    EXPECT_EQ(item.value, 3);
    EXPECT_EQ(item.label, "Label");
    EXPECT_EQ(item.key, "KEY");
    EXPECT_EQ(item.echoLabel, "Label");
    EXPECT_TRUE(item.enabled);
}

TEST(KpaItemDef, FallsBackToTheLabelForAnEmptyKey)
{
    EXPECT_EQ(KpaItemDef(3, "Label", "").key, "Label");
}

TEST(KpaItemDef, TakesValueLabelAndKeyOfAnEnumerator)
{
    const KpaItemDef item(Colour(7, "RED", "Red"));
    EXPECT_EQ(item, KpaItemDef(7, "Red", "RED"));
    EXPECT_EQ(KpaItemDef(Colour(7, "", "Red")), KpaItemDef(7, "Red", "Red"));
}

TEST(KpaItemDef, IsComparedByAllFields)
{
    const KpaItemDef item(3, "Label", "KEY");
    EXPECT_EQ(item, KpaItemDef(3, "Label", "KEY"));
    const QList<void (*)(KpaItemDef&)> changes{
        [](KpaItemDef& other) { other.value = 4; },
        [](KpaItemDef& other) { other.label = "other"; },
        [](KpaItemDef& other) { other.key = "other"; },
        [](KpaItemDef& other) { other.enabled = false; },
        [](KpaItemDef& other) { other.echoLabel = "other"; },
        [](KpaItemDef& other) { other.comment = "other"; },
        [](KpaItemDef& other) { other.pixmap = filled(Qt::red); },
        [](KpaItemDef& other) { other.marked = true; },
    };
    for (int i = 0; i < changes.size(); ++i) {
        KpaItemDef other = item;
        changes.at(i)(other);
        EXPECT_NE(item, other) << "field " << i;
    }
}

TEST(KpaItemDef, ComparesPixmapsByTheirImages)
{
    KpaItemDef item, same, other;
    item.pixmap = filled(Qt::red);
    same.pixmap = filled(Qt::red);
    other.pixmap = filled(Qt::blue);
    ASSERT_NE(item.pixmap.cacheKey(), same.pixmap.cacheKey());
    EXPECT_EQ(item, same);
    EXPECT_NE(item, other);
}

TEST(KpaEnumConfig, StartsEmpty)
{
    const KpaEnumConfig config;
    EXPECT_EQ(config.getType(), KpbEType::ENUM);
    EXPECT_TRUE(config.isEmpty());
    EXPECT_EQ(config.getItemCount(), 0);
    EXPECT_EQ(config.getSeparators(), QList<int>());
    EXPECT_EQ(config.getLoadedKey(), "");
    EXPECT_EQ(config.getInitialValue(), 0);
}

TEST(KpaEnumConfig, StartsAtTheFirstEnabledItem)
{
    EXPECT_EQ(KpaEnumConfig({disabled(alpha()), beta(), gamma()}).getInitialValue(), 1);
    EXPECT_EQ(KpaEnumConfig({disabled(beta())}).getInitialValue(), 0);
}

TEST(KpaEnumConfig, IsComparedByAllFields)
{
    const KpaEnumConfig config(letters());
    EXPECT_EQ(config, KpaEnumConfig(letters()));
    EXPECT_NE(config, KpaEnumConfig({alpha(), gamma(), beta()}));

    KpaEnumConfig separated = config;
    separated.setSeparators({1});
    EXPECT_NE(config, separated);

    KpaEnumConfig loaded;
    loaded.unserializeValue({{"value", "B"}}, 0);
    EXPECT_NE(loaded, KpaEnumConfig());

    KpaEnumConfig startsElsewhere({beta(), alpha()});
    startsElsewhere.removeItem(1);
    startsElsewhere.addItem(beta());
    EXPECT_NE(startsElsewhere, KpaEnumConfig({beta(), alpha()}));
}

TEST(KpaEnumConfig, FixesToAnEnabledItem)
{
    struct Case
    {
        QList<KpaItemDef> items;
        int value, previous, expected;
    };
    const QList<Case> cases{
        {letters(), 2, 1, 2},
        {letters(), 9, 1, 1},
        {letters(), 9, 8, 0},
        {{disabled(alpha()), beta(), gamma()}, 0, 2, 2},
        {{disabled(alpha()), beta(), gamma()}, 0, 0, 1},
        {{gamma(), beta()}, 9, 9, 2},
        {{disabled(alpha()), disabled(beta())}, 1, 0, 0},
        {{disabled(alpha())}, 0, 77, 77},
        {{}, 4, -1, -1},
    };
    for (const Case& test : cases)
        EXPECT_EQ(KpaEnumConfig(test.items).fix(test.value, test.previous), test.expected)
            << test.value << " with " << test.previous << " over " << test.items.size();
}

TEST(KpaEnumConfig, AddsOrReplacesAnItem)
{
    KpaEnumConfig config({alpha(), beta()});
    EXPECT_FALSE(config.addItem(alpha()));
    const KpaItemDef other(0, "Other", "O");
    EXPECT_TRUE(config.addItem(other));
    EXPECT_EQ(config.getItems().values(), (QList<KpaItemDef>{other, beta()}));
    EXPECT_TRUE(config.addItem(gamma()));
    EXPECT_EQ(config.getItems().values(), (QList<KpaItemDef>{other, beta(), gamma()}));
    EXPECT_EQ(config.getInitialValue(), 0);
}

TEST(KpaEnumConfig, StartsAtTheItemThatComesFirstIfItIsEnabled)
{
    KpaEnumConfig config;
    config.addItem(beta());
    EXPECT_EQ(config.getInitialValue(), 1);
    config.addItem(alpha());
    EXPECT_EQ(config.getInitialValue(), 1);

    KpaEnumConfig other;
    other.addItem(disabled(gamma()));
    EXPECT_EQ(other.getInitialValue(), 0);
    other.addItem(beta());
    EXPECT_EQ(other.getInitialValue(), 0);
}

TEST(KpaEnumConfig, ResetsTheInitialValueWithTheItems)
{
    KpaEnumConfig config(letters());
    EXPECT_FALSE(config.reset(letters()));
    EXPECT_TRUE(config.reset({gamma(), beta()}));
    EXPECT_EQ(config.getInitialValue(), 2);
    EXPECT_TRUE(config.reset({disabled(beta())}));
    EXPECT_EQ(config.getInitialValue(), 2);
    EXPECT_TRUE(config.reset({}));
    EXPECT_EQ(config.getInitialValue(), 0);
    EXPECT_FALSE(config.reset({}));
}

TEST(KpaEnumConfig, KeepsTheLastOfItemsWithTheSameValue)
{
    const KpaItemDef other(0, "Other", "O");
    KpaEnumConfig config({alpha(), beta(), other});
    EXPECT_EQ(config.getItems().values(), (QList<KpaItemDef>{other, beta()}));
    EXPECT_FALSE(config.reset({alpha(), beta(), other}));
}

TEST(KpaEnumConfig, RecomputesTheInitialValueWhenItsItemGoes)
{
    KpaEnumConfig config(letters());
    EXPECT_FALSE(config.removeItem(9));
    EXPECT_TRUE(config.removeItem(1));
    EXPECT_EQ(config.getInitialValue(), 0);
    EXPECT_TRUE(config.removeItem(0));
    EXPECT_EQ(config.getInitialValue(), 2);
    EXPECT_TRUE(config.removeItem(2));
    EXPECT_EQ(config.getInitialValue(), 0);

    KpaEnumConfig allDisabled({gamma(), disabled(beta())});
    allDisabled.removeItem(2);
    EXPECT_EQ(allDisabled.getInitialValue(), 2);
}

TEST(KpaEnumConfig, ClearsItemsAndInitialValueOnly)
{
    KpaEnumConfig config;
    config.unserializeValue({{"value", "B"}}, 0);
    EXPECT_FALSE(config.clear());
    config.addItem(gamma());
    config.setSeparators({1});
    EXPECT_TRUE(config.clear());
    EXPECT_TRUE(config.isEmpty());
    EXPECT_EQ(config.getInitialValue(), 0);
    EXPECT_EQ(config.getLoadedKey(), "B");
    EXPECT_EQ(config.getSeparators(), QList<int>{1});
    config.clearLoadedKey();
    EXPECT_EQ(config.getLoadedKey(), "");
}

TEST(KpaEnumConfig, TellsWhetherASetterChangedSomething)
{
    KpaEnumConfig config(letters());
    EXPECT_FALSE(config.setItemEnabled(9, false));
    EXPECT_FALSE(config.setItemEnabled(1, true));
    EXPECT_TRUE(config.setItemEnabled(1, false));
    EXPECT_FALSE(config.isItemEnabled(1));

    EXPECT_FALSE(config.setItemPixmap(9, filled(Qt::red)));
    EXPECT_FALSE(config.setItemPixmap(1, QPixmap()));
    EXPECT_TRUE(config.setItemPixmap(1, filled(Qt::red)));
    EXPECT_FALSE(config.setItemPixmap(1, filled(Qt::red)));
    EXPECT_TRUE(config.hasItemPixmap(1));
    EXPECT_FALSE(config.hasItemPixmap(0));
    EXPECT_EQ(config.getItemPixmap(1).toImage(), filled(Qt::red).toImage());
    EXPECT_TRUE(config.getItemPixmap(9).isNull());

    EXPECT_FALSE(config.setSeparators({}));
    EXPECT_TRUE(config.setSeparators({1, 2}));
    EXPECT_FALSE(config.setSeparators({1, 2}));
}

TEST(KpaEnumConfig, FindsKeysAndLabelsInOrderAndExactly)
{
    const KpaEnumConfig config({{5, "Same", "X"}, {4, "Same", "Y"}, {3, "Other", "X"}});
    int found = -7;
    EXPECT_TRUE(config.hasKey("X", &found));
    EXPECT_EQ(found, 5);
    EXPECT_TRUE(config.hasLabel("Same", &found));
    EXPECT_EQ(found, 5);
    EXPECT_TRUE(config.hasLabel("Other", &found));
    EXPECT_EQ(found, 3);
    EXPECT_FALSE(config.hasKey("x", &found));
    EXPECT_FALSE(config.hasLabel("same", &found));
    EXPECT_EQ(found, 3);
    EXPECT_TRUE(config.hasKey("Y"));
    EXPECT_TRUE(config.hasValue(4));
    EXPECT_FALSE(config.hasValue(6));
}

TEST(KpaEnumConfig, GivesKeyAndLabelOfAValue)
{
    const KpaEnumConfig config(letters());
    EXPECT_EQ(config.valueToKey(1), "B");
    EXPECT_EQ(config.valueToLabel(1), "Beta");
    EXPECT_EQ(config.valueToKey(9), "");
    EXPECT_EQ(config.valueToLabel(9), "");
    EXPECT_EQ(config.toString(1), "Beta");
    EXPECT_EQ(config.toString(9), "");
}

TEST(KpaEnumConfig, ReadsItsItemsLikeTheParameter)
{
    KpaEnumConfig config({alpha(), disabled(beta())});
    config.setItemPixmap(1, filled(Qt::red));
    EXPECT_EQ(config.getItemCount(), 2);
    EXPECT_EQ(config.getItemAt(1).value, 1);
    EXPECT_EQ(config.getItemFromValue(0), alpha());
    EXPECT_EQ(config.getKeyForItem(1), "B");
    EXPECT_EQ(config.getLabelForItem(1), "Beta");
    EXPECT_EQ(config.getKeyForItem(9), "");
    EXPECT_EQ(config.getLabelForItem(9), "");
    EXPECT_TRUE(config.hasPixmapForItem(1));
    EXPECT_FALSE(config.hasPixmapForItem(0));
    EXPECT_EQ(config.getPixmapForItem(1).toImage(), filled(Qt::red).toImage());
    EXPECT_TRUE(config.isItemEnabled(Colour(0, "", "")));
    EXPECT_FALSE(config.isItemEnabled(Colour(1, "", "")));
    EXPECT_TRUE(config.hasSameKeys(config));
    EXPECT_FALSE(config.hasSameKeys(KpaEnumConfig(letters())));
}

TEST(KpaEnumConfig, StoresTheKeyOfTheItem)
{
    const KpaEnumConfig config({{0, "Ordinary kriging", "Ordinary"}});
    EXPECT_EQ(config.serializeValue(0), (MbbOrderedMap<QString, QString>{{"value", "Ordinary"}}));
    EXPECT_EQ(config.serializeValue(1), (MbbOrderedMap<QString, QString>{{"value", ""}}));
}

TEST(KpaEnumConfig, ReadsAKeyOrElseALabel)
{
    const KpaEnumConfig config({alpha(), beta(), {2, "A", "Beta"}});
    const QList<QPair<QString, int>> cases{{"B", 1}, {"Alpha", 0}, {"A", 0}, {"Beta", 2}, {"b", 7}, {"", 7}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(config.unserializeValue({{"value", text}}, 7), expected) << text.toStdString();
    EXPECT_EQ(config.unserializeValue({}, 7), 7);
    EXPECT_EQ(config.unserializeValue({{"other", "B"}}, 7), 7);
    EXPECT_EQ(config.getLoadedKey(), "");
}

TEST(KpaEnumConfig, DecodesPercentEscapesOfTwoDigits)
{
    const KpaEnumConfig config({{1, "one", "A B"}, {2, "two", "caf\u00e9 x"}, {3, "three", "a%2Cb"}, {4, "4 %", "%4"}});
    const QList<QPair<QString, int>> cases{{"A%20B", 1}, {"caf%C3%A9%20x", 2}, {"a%2Cb", 3}, {"%4", 4},
                                           {"four", 9},  {"4%20%25", 4},       {"A B", 1}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(config.unserializeValue({{"value", text}}, 9), expected) << text.toStdString();
}

TEST(KpaEnumConfig, KeepsTheTextThatItReadsWhileItIsEmpty)
{
    const KpaEnumConfig config;
    EXPECT_EQ(config.unserializeValue({{"value", "A%20B"}}, 3), 3);
    EXPECT_EQ(config.getLoadedKey(), "A B");
    EXPECT_EQ(config.unserializeValue({{"value", "C"}}, 3), 3);
    EXPECT_EQ(config.getLoadedKey(), "C");
    EXPECT_EQ(config.unserializeValue({}, 3), 3);
    EXPECT_EQ(config.getLoadedKey(), "");
}

TEST(KpaEnumConfig, DebugsItsItems)
{
    KpaItemDef second = disabled(KpaItemDef(7, "Label", "KEY"));
    second.comment = " rarely used";
    second.pixmap = filled(Qt::red);
    EXPECT_EQ(KpaEnumConfig({alpha(), second}).debug(),
              "----- KpaEnumConfig ----------\n"
              " item #0          = [ 0  A  \"Alpha\" ]  enabled (null pixmap)\n"
              " item #1          = [ 7  KEY  \"Label\" ]  disabled rarely used (pixmap)\n");
}

TEST(KpaEnum, StartsWithoutItemsAtZero)
{
    const KpaEnum parameter("LETTER");
    EXPECT_EQ(parameter.getKey(), "LETTER");
    EXPECT_EQ(parameter.getType(), KpbEType::ENUM);
    EXPECT_TRUE(parameter.isEmpty());
    EXPECT_EQ(parameter.getItemCount(), 0);
    EXPECT_EQ(parameter.getValue(), 0);
    EXPECT_EQ(parameter.getItemKey(), "");
    EXPECT_EQ(parameter.getItemLabel(), "");
    EXPECT_EQ(parameter.toString(), "");
}

TEST(KpaEnum, ReadsItsItems)
{
    const auto parameter = enumOf({alpha(), disabled(beta()), gamma()}, 2);
    EXPECT_EQ(parameter->getItemCount(), 3);
    EXPECT_FALSE(parameter->isEmpty());
    EXPECT_EQ(parameter->getItemAt(1), disabled(beta()));
    EXPECT_EQ(parameter->getItemAt(-1), KpaItemDef());
    EXPECT_EQ(parameter->getItemAt(3), KpaItemDef());
    EXPECT_EQ(parameter->getItemFromValue(2), gamma());
    EXPECT_EQ(parameter->getItemFromValue(9), KpaItemDef());
    EXPECT_EQ(parameter->getItemKey(), "G");
    EXPECT_EQ(parameter->getItemLabel(), "Gamma");
    EXPECT_EQ(parameter->toString(), "Gamma");
    EXPECT_EQ(parameter->getKeyForItem(0), "A");
    EXPECT_EQ(parameter->getLabelForItem(0), "Alpha");
    EXPECT_TRUE(parameter->hasKey("B"));
    EXPECT_FALSE(parameter->hasKey("Beta"));
    EXPECT_TRUE(parameter->hasLabel("Beta"));
    EXPECT_FALSE(parameter->hasLabel("B"));
    EXPECT_TRUE(parameter->hasValue(1));
    EXPECT_FALSE(parameter->hasValue(3));
    EXPECT_TRUE(parameter->isItemEnabled(0));
    EXPECT_FALSE(parameter->isItemEnabled(1));
    EXPECT_FALSE(parameter->isItemEnabled(9));
    EXPECT_TRUE(parameter->isItemEnabled(Colour(2, "", "")));
}

TEST(KpaEnum, HasTheSameKeysAsAnotherWithTheSameRecordsInTheSameOrder)
{
    EXPECT_TRUE(enumOf(letters(), 0)->hasSameKeys(*enumOf(letters(), 2)));
    EXPECT_FALSE(enumOf(letters())->hasSameKeys(*enumOf({alpha(), beta()})));
    EXPECT_FALSE(enumOf(letters())->hasSameKeys(*enumOf({alpha(), gamma(), beta()})));
    EXPECT_FALSE(enumOf(letters())->hasSameKeys(*enumOf({alpha(), beta(), disabled(gamma())})));
}

TEST(KpaEnum, FindsItemsOfLongLists)
{
    QList<KpaItemDef> items;
    for (int i = 0; i < 1000; ++i)
        items.append({i * 3, QString::number(i), ""});
    const auto parameter = enumOf(items, 999 * 3);
    EXPECT_EQ(parameter->getItemLabel(), "999");
    parameter->removeItem(500 * 3);
    EXPECT_FALSE(parameter->hasValue(500 * 3));
    EXPECT_EQ(parameter->getItemLabel(), "999");
}

TEST(KpaEnum, TakesOverItsFirstItem)
{
    KpaEnum parameter("LETTER");
    const RecordingObserver observer(parameter);
    parameter.addItem(beta());
    EXPECT_EQ(parameter.getValue(), 1);
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
}

TEST(KpaEnum, AddsItemsWithOneNotification)
{
    const auto parameter = enumOf({alpha()});
    const RecordingObserver observer(*parameter);
    parameter->addItem(Colour(7, "RED", "Red"));
    EXPECT_EQ(observer.allFlags(), QList<int>{config});
    EXPECT_EQ(parameter->getItemFromValue(7), KpaItemDef(7, "Red", "RED"));
    parameter->addItem(alpha());
    EXPECT_EQ(observer.records.size(), 1);
    parameter->addItem(KpaItemDef(0, "Other", "O"));
    EXPECT_EQ(observer.allFlags(), (QList<int>{config, config}));
    EXPECT_EQ(parameter->getItemKey(), "O");
}

TEST(KpaEnum, LeavesAnItemAloneThatItIsAskedToAddOrRemove)
{
    const auto parameter = enumOf({alpha(), beta()});
    const RecordingObserver observer(*parameter);
    parameter->addOrRemoveItem(true, KpaItemDef(1, "Other", "O"));
    EXPECT_EQ(parameter->getItemFromValue(1), beta());
    parameter->addOrRemoveItem(false, gamma());
    EXPECT_TRUE(observer.records.isEmpty());

    parameter->addOrRemoveItem(true, gamma());
    EXPECT_TRUE(parameter->hasValue(2));
    parameter->addOrRemoveItem(false, KpaItemDef(2, "Other", "O"));
    EXPECT_FALSE(parameter->hasValue(2));
    EXPECT_EQ(observer.allFlags(), (QList<int>{config, config}));
}

TEST(KpaEnum, MovesToTheFirstItemWhenItsItemIsRemoved)
{
    const auto parameter = enumOf(letters(), 2);
    const RecordingObserver observer(*parameter);
    parameter->removeItem(2);
    EXPECT_EQ(parameter->getValue(), 0);
    parameter->removeItem("Alpha");
    EXPECT_EQ(parameter->getValue(), 1);
    parameter->removeItem(9);
    EXPECT_EQ(observer.allFlags(), (QList<int>{config | value, config | value}));
}

TEST(KpaEnum, MovesToTheFirstEnabledItemWhenItsItemIsDisabled)
{
    const auto parameter = enumOf(letters(), 2);
    const RecordingObserver observer(*parameter);
    parameter->setItemEnabled(2, false);
    EXPECT_EQ(parameter->getValue(), 0);
    parameter->setItemEnabled(Colour(0, "", ""), false);
    EXPECT_EQ(parameter->getValue(), 1);
    parameter->setItemEnabled(0, false);
    EXPECT_EQ(observer.allFlags(), (QList<int>{config | value, config | value}));
}

TEST(KpaEnum, CanKeepADisabledValueWhenNothingIsEnabled)
{
    const auto parameter = enumOf({alpha(), beta()}, 0);
    parameter->setItemEnabled(1, false);
    parameter->setItemEnabled(0, false);
    EXPECT_EQ(parameter->getValue(), 0);
    const RecordingObserver observer(*parameter);
    parameter->setValue(1);
    EXPECT_EQ(parameter->getValue(), 0);
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaEnum, SetsPixmapsByValueAndByLabel)
{
    const auto parameter = enumOf(letters());
    const RecordingObserver observer(*parameter);
    parameter->setItemPixmap(0, filled(Qt::red));
    parameter->setItemPixmap("Beta", filled(Qt::blue));
    EXPECT_EQ(observer.allFlags(), (QList<int>{config, config}));
    parameter->setItemPixmap("Beta", filled(Qt::blue));
    parameter->setItemPixmap("none", filled(Qt::blue));
    parameter->setItemPixmap(9, filled(Qt::blue));
    EXPECT_EQ(observer.records.size(), 2);
    EXPECT_TRUE(parameter->hasPixmapForItem(0));
    EXPECT_EQ(parameter->getPixmapForItem(1).toImage(), filled(Qt::blue).toImage());
    EXPECT_FALSE(parameter->hasPixmapForItem(2));
    EXPECT_FALSE(parameter->hasPixmapForItem(9));
}

TEST(KpaEnum, SetsSeparators)
{
    const auto parameter = enumOf(letters());
    const RecordingObserver observer(*parameter);
    parameter->setSeparators({1});
    parameter->setSeparators({1});
    EXPECT_EQ(parameter->getSeparators(), QList<int>{1});
    EXPECT_EQ(observer.allFlags(), QList<int>{config});
}

TEST(KpaEnum, ChoosesByKeyLabelAndEnumerator)
{
    const auto parameter = enumOf(letters());
    parameter->setItemFromKey("B");
    EXPECT_EQ(parameter->getValue(), 1);
    parameter->setItemFromLabel("Gamma");
    EXPECT_EQ(parameter->getValue(), 2);
    parameter->setEnum(Colour(0, "", ""));
    EXPECT_EQ(parameter->getValue(), 0);
}

TEST(KpaEnum, ChoosesTheAutomaticValueByKeyLabelAndEnumerator)
{
    const auto parameter = enumOf(letters());
    parameter->setAutoItemFromKey("B");
    EXPECT_EQ(parameter->getAutoValue(), 1);
    parameter->setAutoItemFromLabel("Gamma");
    EXPECT_EQ(parameter->getAutoValue(), 2);
    parameter->setAutoEnum(Colour(1, "", ""));
    EXPECT_EQ(parameter->getAutoValue(), 1);
    EXPECT_TRUE(parameter->isAutomaticValueInitialized());
    EXPECT_EQ(parameter->getValue(), 0);
}

TEST(KpaEnum, LogsATextThatIsNotFoundAndStays)
{
    const auto parameter = enumOf(letters(), 1);
    const RecordingObserver observer(*parameter);
    const DebugLog log;
    parameter->setItemFromKey("no \"K");
    parameter->setItemFromLabel("L");
    parameter->setAutoItemFromKey("AK");
    parameter->setAutoItemFromLabel("AL");
    parameter->removeItem(QString("RL"));
    EXPECT_EQ(DebugLog::texts, (QStringList{"KpaEnum::setItemFromKey: invalid key: \"no \"K\"",
                                            "KpaEnum::setItemFromLabel: invalid label: \"L\"",
                                            "KpaEnum::setAutoItemFromKey: invalid key: \"AK\"",
                                            "KpaEnum::setAutoItemFromLabel: invalid label: \"AL\"",
                                            "KpaEnum::removeItem: invalid label: \"RL\""}));
    EXPECT_EQ(parameter->getValue(), 1);
    EXPECT_FALSE(parameter->isAutomaticValueInitialized());
    EXPECT_EQ(parameter->getItemCount(), 3);
    EXPECT_TRUE(observer.records.isEmpty());
}

TEST(KpaEnum, SaysNothingOfAValueThatIsNoItem)
{
    const auto parameter = enumOf(letters(), 1);
    const RecordingObserver observer(*parameter);
    const DebugLog log;
    parameter->setEnum(Colour(9, "", ""));
    parameter->setItemPixmap("none", filled(Qt::red));
    EXPECT_EQ(parameter->getValue(), 1);
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
    EXPECT_TRUE(DebugLog::texts.isEmpty());
}

TEST(KpaEnum, StaysSilentWhenResetToTheSameList)
{
    const auto parameter = enumOf(letters(), 1);
    const RecordingObserver observer(*parameter);
    parameter->reset(letters());
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(parameter->getValue(), 1);
}

TEST(KpaEnum, FollowsItsItemAcrossARefill)
{
    const KpaItemDef gammaElsewhere(12, "Third", "G");
    const KpaItemDef otherKey(12, "Gamma", "X");
    const KpaItemDef first(5, "First", "F");
    struct Case
    {
        const char* name;
        QList<KpaItemDef> before;
        int choice;
        QString loaded;
        QList<KpaItemDef> after;
        int expected;
        int flags;
        QString stillLoaded;
    };
    const QList<Case> cases{
        {"first items", {}, 0, "", {first}, 5, config | value, ""},
        {"first items, the same value", {}, 0, "", letters(), 0, config | value, ""},
        {"first items, all disabled", {}, 0, "", {disabled(first)}, 0, config | value, ""},
        {"first items, loaded key there", {}, 0, "B", letters(), 1, config | value, ""},
        {"first items, loaded key at the present value", {}, 0, "A", letters(), 0, config | value, ""},
        {"first items, loaded key absent", {}, 0, "Z", letters(), 0, config | value, "Z"},
        {"first items, loaded label", {}, 0, "Beta", letters(), 0, config | value, "Beta"},
        {"first items, loaded key disabled", {}, 0, "B", {alpha(), disabled(beta())}, 0, config | value, "B"},
        {"key under the same number", letters(), 2, "", {first, gamma()}, 2, config, ""},
        {"key under another number", letters(), 2, "", {first, gammaElsewhere}, 12, config, ""},
        {"label only", letters(), 2, "", {first, otherKey}, 12, config, ""},
        {"key before label", letters(), 2, "", {first, otherKey, {13, "Third", "G"}}, 13, config, ""},
        {"key disabled, label there", letters(), 2, "", {disabled(gammaElsewhere), {13, "Gamma", "X"}}, 13, config, ""},
        {"key disabled, label absent", letters(), 2, "", {first, disabled(gammaElsewhere)}, 5, config | value, ""},
        {"label disabled", letters(), 2, "", {first, disabled(otherKey)}, 5, config | value, ""},
        {"neither key nor label", letters(), 2, "", {first, {2, "Other", "O"}}, 5, config | value, ""},
        {"fallback skips the disabled", letters(), 2, "", {disabled(first), {9, "Nine", "N"}}, 9, config | value, ""},
        {"nothing enabled any more", {beta(), alpha()}, 0, "", {disabled(first)}, 1, config | value, ""},
        {"no items any more", letters(), 2, "", {}, 0, config | value, ""},
        {"loaded key before the old one", letters(), 2, "F", {first, gamma()}, 5, config | value, ""},
        {"loaded key disabled", letters(), 2, "F", {disabled(first), gammaElsewhere}, 12, config, "F"},
        {"loaded key absent", letters(), 2, "Z", {first, otherKey}, 12, config, "Z"},
        {"loaded key absent, neither key nor label", letters(), 2, "Z", {first}, 5, config | value, "Z"},
        {"loaded key disabled, neither key nor label",
         letters(),
         2,
         "F",
         {disabled(first), {8, "H", ""}},
         8,
         config | value,
         "F"},
        {"loaded key, no items any more", letters(), 2, "F", {}, 0, config | value, "F"},
    };
    for (const Case& test : cases) {
        KpaEnum parameter("LETTER");
        parameter.unserialize({{"value", test.loaded}});
        for (const KpaItemDef& item : test.before)
            parameter.addItem(item);
        parameter.setValue(test.choice);
        const RecordingObserver observer(parameter);
        parameter.reset(test.after);
        EXPECT_EQ(parameter.getValue(), test.expected) << test.name;
        EXPECT_EQ(observer.allFlags(), QList<int>{test.flags}) << test.name;
        EXPECT_EQ(parameter.getConfig().getLoadedKey(), test.stillLoaded) << test.name;
    }
}

TEST(KpaEnum, TakesAnItemWithTheSameEmptyTextsForAValueThatWasNoItem)
{
    const QList<KpaItemDef> others{{7, "", ""}, {7, "", "K"}};
    for (const KpaItemDef& other : others) {
        KpaEnum parameter("LETTER");
        parameter.addItem(disabled(gamma()));
        ASSERT_FALSE(parameter.hasValue(parameter.getValue()));
        const RecordingObserver observer(parameter);
        parameter.reset({alpha(), other});
        EXPECT_EQ(parameter.getValue(), 7);
        EXPECT_EQ(observer.allFlags(), QList<int>{config});
    }
}

TEST(KpaEnum, DoesNotFollowEmptyTextsWhereThereWereNoItems)
{
    KpaEnum parameter("LETTER");
    const RecordingObserver observer(parameter);
    parameter.reset({alpha(), KpaItemDef(7, "", "")});
    EXPECT_EQ(parameter.getValue(), 0);
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
}

TEST(KpaEnum, KeepsOrDropsTheAutomaticValueAcrossARefill)
{
    struct Case
    {
        QList<KpaItemDef> after;
        bool kept;
    };
    for (const Case& test :
         {Case{{alpha(), beta()}, true}, Case{{alpha(), gamma()}, false}, Case{{alpha(), disabled(beta())}, false}})
    {
        const auto parameter = enumOf(letters(), 0);
        parameter->setAutoValue(1);
        const RecordingObserver observer(*parameter);
        parameter->reset(test.after);
        EXPECT_EQ(parameter->isAutomaticValueInitialized(), test.kept) << test.after.size();
        EXPECT_EQ(parameter->getAutoValue(), 1);
        EXPECT_EQ(observer.allFlags(), QList<int>{config});
    }
}

TEST(KpaEnum, StaysAutomaticAcrossARefill)
{
    const auto parameter = enumOf(letters(), 0);
    parameter->activateAutoValue(2);
    parameter->reset({alpha(), beta()});
    EXPECT_TRUE(parameter->isAutomatic());
    EXPECT_FALSE(parameter->isAutomaticValueInitialized());
    EXPECT_EQ(parameter->getValue(), 0);
}

TEST(KpaEnum, ClearsToMinusOneWithOneNotification)
{
    const auto parameter = enumOf(letters(), 1);
    const RecordingObserver observer(*parameter);
    parameter->clear();
    EXPECT_EQ(parameter->getValue(), -1);
    EXPECT_TRUE(parameter->isEmpty());
    EXPECT_EQ(parameter->getConfig().getInitialValue(), 0);
    EXPECT_EQ(observer.allFlags(), QList<int>{Kp::NotifyValue | Kp::NotifyConfig | Kp::NotifyItem});
}

TEST(KpaEnum, StaysAutomaticWhenCleared)
{
    const auto parameter = enumOf(letters());
    parameter->activateAutoValue(2);
    parameter->clear();
    EXPECT_EQ(parameter->getValue(), -1);
    EXPECT_TRUE(parameter->isAutomatic());
    EXPECT_TRUE(parameter->isAutomaticValueInitialized());
    EXPECT_EQ(parameter->getAutoValue(), 2);
}

TEST(KpaEnum, StoresNoKeyOnceCleared)
{
    const auto parameter = enumOf(letters());
    parameter->clear();
    EXPECT_EQ(parameter->serialize(), (MbbOrderedMap<QString, QString>{{"value", ""}}));
    EXPECT_EQ(parameter->toString(), "");
}

TEST(KpaEnum, ClearsSilentlyToMinusOneWithoutItems)
{
    KpaEnum parameter("LETTER");
    const RecordingObserver observer(parameter);
    parameter.clear();
    EXPECT_EQ(parameter.getValue(), -1);
    EXPECT_TRUE(observer.records.isEmpty());
    parameter.setValue(0);
    EXPECT_EQ(parameter.getValue(), -1);
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaEnum, KeepsTheLoadedKeyAndTheAutomaticValueWhenCleared)
{
    KpaEnum parameter("LETTER");
    parameter.unserialize({{"value", "B"}});
    parameter.addItem(gamma());
    parameter.setAutoValue(2);
    parameter.clear();
    EXPECT_EQ(parameter.getConfig().getLoadedKey(), "B");
    EXPECT_TRUE(parameter.isAutomaticValueInitialized());
    parameter.reset(letters());
    EXPECT_EQ(parameter.getValue(), 1);
}

TEST(KpaEnum, RestoresAStoredKeyOnceTheItemsCome)
{
    KpaEnum parameter("LETTER");
    RecordingObserver observer(parameter);
    parameter.unserialize({{"value", "G"}});
    EXPECT_TRUE(observer.records.isEmpty());
    EXPECT_EQ(parameter.getValue(), 0);
    parameter.reset(letters());
    EXPECT_EQ(parameter.getValue(), 2);
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
    parameter.setValue(0);
    parameter.reset({gamma(), alpha()});
    EXPECT_EQ(parameter.getValue(), 0);
}

TEST(KpaEnum, ForgetsAStoredKeyThatItsItemsDoNotHave)
{
    const auto parameter = enumOf(letters(), 1);
    const RecordingObserver observer(*parameter);
    parameter->unserialize({{"value", "Z"}});
    EXPECT_EQ(parameter->getValue(), 1);
    EXPECT_TRUE(observer.records.isEmpty());
    parameter->reset({alpha(), beta(), KpaItemDef(9, "Z", "Z")});
    EXPECT_EQ(parameter->getValue(), 1);
}

TEST(KpaEnum, RefusesAStoredItemThatIsDisabled)
{
    const auto parameter = enumOf({alpha(), disabled(beta())}, 0);
    const RecordingObserver observer(*parameter);
    parameter->unserialize({{"value", "B"}});
    EXPECT_EQ(parameter->getValue(), 0);
    EXPECT_EQ(observer.allFlags(), QList<int>{value});
}

TEST(KpaEnum, StoresAndRestoresItsKey)
{
    const auto parameter = enumOf(letters(), 1);
    const auto form = parameter->serialize();
    EXPECT_EQ(form, (MbbOrderedMap<QString, QString>{{"value", "B"}}));
    const auto other = enumOf(letters(), 0);
    other->unserialize(form);
    EXPECT_EQ(other->getValue(), 1);
}

TEST(KpaEnum, TakesOverAConfig)
{
    KpaEnum parameter("LETTER");
    const RecordingObserver observer(parameter);
    parameter.setConfig(KpaEnumConfig({beta(), gamma()}));
    EXPECT_EQ(parameter.getValue(), 1);
    parameter.setConfig(KpaEnumConfig({beta(), gamma()}));
    EXPECT_EQ(observer.allFlags(), QList<int>{config | value});
}

TEST(KpaEnum, DuplicatesWithItemsAndValue)
{
    const auto parameter = enumOf(letters(), 1);
    const std::unique_ptr<KpaEnum> copy(parameter->duplicate(""));
    EXPECT_EQ(copy->getKey(), "LETTER");
    EXPECT_EQ(copy->getValue(), 1);
    EXPECT_TRUE(copy->hasSameKeys(*parameter));
    copy->removeItem(0);
    EXPECT_TRUE(parameter->hasValue(0));
    EXPECT_EQ(std::unique_ptr<KpaEnum>(parameter->duplicate("NEW"))->getKey(), "NEW");
}
