#pragma once

#include <QtCore/QtGlobal>

#if defined(KESTRIN_STUDY_LIBRARY)
#define KESTRIN_STUDY_EXPORT Q_DECL_EXPORT
#else
#define KESTRIN_STUDY_EXPORT Q_DECL_IMPORT
#endif
