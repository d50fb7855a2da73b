#include <basic/MbgRotationConvention.h>

MbgRotationConvention::MbgRotationConvention(int id, const MbgRotationConventionDefinition& definition)
    : _id(id),
      _definition(definition)
{
    const auto sequence = MbgAxisSequence::fromText(definition.getString());
    _understood = sequence.has_value();
    if (sequence)
        _sequence = *sequence;
}
