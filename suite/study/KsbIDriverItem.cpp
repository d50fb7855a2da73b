#include <study/KsbIDriverItem.h>

KsbIDriverItem::~KsbIDriverItem() = default;
