#pragma once

#include <QtCore/QString>

#include <param/KpExport.h>

namespace Kp {

/// The text of a failed internal check: the signature of the function, its source file and what went wrong.
KESTRIN_PARAM_EXPORT QString programmingFailureText(const QString& signature, const QString& file,
                                                    const QString& detail);

/// Throws an `MbeProgrammingError` with that text.
[[noreturn]] KESTRIN_PARAM_EXPORT void failProgramming(const QString& signature, const QString& file,
                                                       const QString& detail);

} // namespace Kp
