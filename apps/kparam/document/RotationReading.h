#pragma once

#include <document/ValueReading.h>
#include <param/atomic/KpaRotation.h>

// Rotations have been stored in several forms, and each class of them reads also the forms of plain ones.

/// What `isEntryRead` tells of a rotation.
bool isRotationEntryRead(const KpaRotation& rotation, const KpbAParameter::SerialForm& stored, const QString& name);

/// What `judgeReading` tells of a rotation, for entries that it would not write as they stand.
ValueReading judgeRotation(const KpaRotation& rotation, const KpbAParameter::SerialForm& stored,
                           const KpaRotation& former);
