#pragma once

#include <QtCore/QList>

#include <basic/MbgRotationConvention.h>

/// The known rotation conventions, one set for the whole process: built-in ones, whose ids are stored and never change,
/// and temporary ones, made from definitions that were read and whose ids hold for this process only. All operations
/// may be called from several threads.
///
/// | id | definition | type | angles |
/// |---|---|---|---|
/// | 0 | "+Z+Y+X" | SYSTEM | "Az", "Ay", "Ax": the default; counterclockwise about the three axes |
/// | 1 | "90-Z+Y+X" | DIRECTION | "Azimuth", "Plunge", "Roll" of the U axis, Y being north |
/// | 2 | "+Z+X+Z" | SYSTEM | "Az1", "Ax", "Az2": Euler's angles |
class KESTRIN_BASIC_EXPORT MbgRotationConventionCatalog
{
public:
    /// How many temporary conventions there may be that are not understood, and how long their definition strings.
    static constexpr int MaximumForeignCount = 256;
    static constexpr int MaximumForeignLength = 256;

    static MbgRotationConvention* getDefault();
    /// The built-in conventions, ascending by id.
    static const QList<MbgRotationConvention*>& getBuiltIn();
    /// The convention of the id; null if there is none.
    static MbgRotationConvention* find(int id);
    /// The temporary convention of the definition, made at the first call: equal definitions give one convention. A
    /// string that is not understood prints a warning when its convention is made. One that is too long, or one too
    /// many, gives the default convention; the first of them prints a warning.
    static MbgRotationConvention* createTemporary(const MbgRotationConventionDefinition& definition);
};
