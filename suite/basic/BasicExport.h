#pragma once

#include <QtCore/QtGlobal>

#if defined(KESTRIN_BASIC_LIBRARY)
#define KESTRIN_BASIC_EXPORT Q_DECL_EXPORT
#else
#define KESTRIN_BASIC_EXPORT Q_DECL_IMPORT
#endif
