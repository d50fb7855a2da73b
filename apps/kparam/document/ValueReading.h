#pragma once

#include <param/KpbAParameter.h>

/// What became of the entries of a stored element.
enum class ValueReading
{
    Same,      ///< they would be written as they stand
    Respelled, ///< they mean the same and would be written in other words
    Repaired,  ///< the parameter holds something else that was made of them
    Refused,   ///< the parameter could not use them
};

/// The entries of a "param" element as a parameter gets to see them.
KpbAParameter::SerialForm entriesOf(const QDomElement& element);

/// Compares what was stored with what `parameter`, which had the entries `before`, has now.
ValueReading judgeReading(const KpbAParameter& parameter, const KpbAParameter::SerialForm& stored,
                          const KpbAParameter::SerialForm& before);
