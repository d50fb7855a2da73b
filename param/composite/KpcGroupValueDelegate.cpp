#include <param/composite/KpcGroupValueDelegate.h>

KpcGroupValueDelegate::~KpcGroupValueDelegate() = default;
