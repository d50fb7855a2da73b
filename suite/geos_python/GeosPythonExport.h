#pragma once

#include <QtCore/QtGlobal>

#if defined(KESTRIN_GEOS_PYTHON_LIBRARY)
#define KESTRIN_GEOS_PYTHON_EXPORT Q_DECL_EXPORT
#else
#define KESTRIN_GEOS_PYTHON_EXPORT Q_DECL_IMPORT
#endif
