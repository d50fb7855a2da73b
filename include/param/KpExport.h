#pragma once

#include <QtCore/QtGlobal>

#if defined(KESTRIN_PARAM_LIBRARY)
#define KESTRIN_PARAM_EXPORT Q_DECL_EXPORT
#else
#define KESTRIN_PARAM_EXPORT Q_DECL_IMPORT
#endif
