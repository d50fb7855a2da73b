#pragma once

#include <QtCore/QtGlobal>

#if defined(KESTRIN_UTIL_LIBRARY)
#define KESTRIN_UTIL_EXPORT Q_DECL_EXPORT
#else
#define KESTRIN_UTIL_EXPORT Q_DECL_IMPORT
#endif
