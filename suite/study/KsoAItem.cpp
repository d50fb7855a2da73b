#include <study/KsoAItem.h>

KsoAItem::~KsoAItem() = default;
