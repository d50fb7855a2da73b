#include "ListTestTools.h"

#include <param/atomic/KpaInteger.h>
#include <param/composite/KpcGroupList.h>

namespace {

KpaInteger* size(const KpcGroupList& list, int rank)
{
    return dynamic_cast<KpaInteger*>(list.getItemAt(rank)->getChild("SIZE"));
}

std::unique_ptr<KpcGroupList> makeList(int items)
{
    auto list = std::make_unique<KpcGroupList>("LIST", TestContext::instance());
    list->getItemPrototype()->addChild(new KpaInteger("SIZE"));
    list->setItemLabel("Layer");
    list->setItemCount(items);
    return list;
}

} // namespace

TEST(KpcGroupList, IsAListOfGroupsThatLookLikeThePrototype)
{
    const auto list = makeList(2);
    EXPECT_TRUE(list->isA(KpbEType::LIST));
    EXPECT_TRUE(list->getItemType() == KpbEType::GROUP);
    EXPECT_EQ(list->getItemPrototype()->getKey(), "PROTOTYPE");
    EXPECT_EQ(itemLabels(*list), QStringList({"Layer #1", "Layer #2"}));
    ASSERT_NE(size(*list, 1), nullptr);
    EXPECT_NE(size(*list, 0), size(*list, 1));
}

TEST(KpcGroupList, PassesOnWhatHappensInAGroup)
{
    const auto list = makeList(2);
    RecordingObserver observer(*list);
    size(*list, 1)->setValue(4);
    ASSERT_EQ(observer.records.size(), 1);
    EXPECT_EQ(observer.records[0].debug(), "LIST/ITEM_2/SIZE:1");
}

TEST(KpcGroupList, TellsWhatHappensInThePrototypeAsItsConfiguration)
{
    const auto list = makeList(1);
    RecordingObserver observer(*list);
    list->getItemPrototype()->addChild(new KpaInteger("COUNT"));
    dynamic_cast<KpaInteger*>(list->getItemPrototype()->getChild("SIZE"))->setValue(1);
    ASSERT_EQ(observer.records.size(), 2);
    EXPECT_EQ(observer.records[0].debug(), "LIST:2");
    EXPECT_EQ(observer.records[1].debug(), "LIST:2");
}

TEST(KpcGroupList, CopiesItself)
{
    const auto list = makeList(2);
    size(*list, 1)->setValue(4);
    const std::unique_ptr<KpcGroupList> copy(list->duplicate("COPY"));
    EXPECT_EQ(copy->getKey(), "COPY");
    EXPECT_EQ(copy->getItemKeys(), itemKeys({1, 2}));
    EXPECT_EQ(size(*copy, 1)->getValue(), 4);
    copy->addItem();
    EXPECT_NE(size(*copy, 2), nullptr);
    EXPECT_EQ(list->getItemCount(), 2);
}

TEST(KpcGroupList, MakesANewPrototypeInItsContext)
{
    const auto list = makeList(0);
    delete list->getItemPrototype();
    EXPECT_FALSE(list->getItemPrototype()->hasChildren());
    EXPECT_EQ(list->addItem()->getKey(), "ITEM_1");
}
