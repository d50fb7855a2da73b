#include "AtomicListTestTools.h"

#include <basic/MbuUnitService.h>
#include <param/list/KplUnitList.h>

TEST(KplUnitList, IsAListOfUnits)
{
    KplUnitList list("LIST");
    list.getItemPrototype()->setUnitClass(MbuEUnitClass::LENGTH);
    const MbuUnit metre = MbuUnitService::getUnit("m");
    const MbuUnit foot = MbuUnitService::getUnit("ft");
    EXPECT_TRUE(list.getItemType() == KpbEType::UNIT);
    list.setValues({metre, foot, metre});
    EXPECT_EQ(list.getValues(), QList<MbuUnit>({metre, foot, metre}));
    list.setUnique(true);
    EXPECT_EQ(list.getValues(), QList<MbuUnit>({metre, foot}));
    EXPECT_EQ(list.getValueAt(-1), MbuUnit());
    const std::unique_ptr<KplUnitList> copy(list.duplicate("COPY"));
    EXPECT_EQ(copy->getValues(), QList<MbuUnit>({metre, foot}));
}
