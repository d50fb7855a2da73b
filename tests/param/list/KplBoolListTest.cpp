#include "AtomicListTestTools.h"

#include <param/list/KplBoolList.h>

TEST(KplBoolList, IsAListOfBooleans)
{
    expectAListOfValues<KplBoolList, bool>(KpbEType::BOOL, true, false);
}
