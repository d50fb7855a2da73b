#pragma once

#include <basic/MbgAxisSequence.h>
#include <basic/MbgRotationConventionDefinition.h>

/// How the three angles of a rotation are to be read. Conventions are made by `MbgRotationConventionCatalog`, are known
/// by an id, never change and live as long as the process.
///
/// A definition string that is no `MbgAxisSequence` is kept, so that it can be stored again, but it is not understood:
/// the angles are then read as in the default convention.
class KESTRIN_BASIC_EXPORT MbgRotationConvention
{
public:
    MbgRotationConvention(const MbgRotationConvention&) = delete;
    MbgRotationConvention& operator=(const MbgRotationConvention&) = delete;

    int getId() const { return _id; }
    const QString& getDefinitionString() const { return _definition.getString(); }
    const MbgERotConv& getType() const { return _definition.getType(); }
    /// The label of the first, second or third angle; `i` is 0, 1 or 2. It may be empty.
    const QString& getAngleLabel(int i) const { return _definition.getLabel(i); }

    const MbgRotationConventionDefinition& getDefinition() const { return _definition; }
    bool isUnderstood() const { return _understood; }
    /// That of the default convention where the definition string is not understood.
    const MbgAxisSequence& getSequence() const { return _sequence; }

private:
    friend class MbgRotationConventionCatalog;
    MbgRotationConvention(int id, const MbgRotationConventionDefinition& definition);

    int _id;
    MbgRotationConventionDefinition _definition;
    bool _understood;
    MbgAxisSequence _sequence;
};
