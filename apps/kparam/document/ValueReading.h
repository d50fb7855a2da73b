#pragma once

#include <QtCore/QStringList>

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

/// The entries by which the item of a project can be named that a parameter of this kind holds, whether or not it holds
/// one; empty for other kinds.
QStringList getItemEntries(const KpbAParameter& parameter);

/// Whether `parameter`, which has the entries `now`, takes notice of the entry `name` where it reads all of `stored`.
bool isEntryRead(const KpbAParameter& parameter, const KpbAParameter::SerialForm& now,
                 const KpbAParameter::SerialForm& stored, const QString& name);

/// Compares what was stored with what `parameter` has now; `former` is a copy of what it was before.
ValueReading judgeReading(const KpbAParameter& parameter, const KpbAParameter::SerialForm& stored,
                          const KpbAParameter& former);

/// The same for the entry `name` alone: others may have changed with it.
ValueReading judgeEntry(const KpbAParameter& parameter, const KpbAParameter::SerialForm& stored, const QString& name,
                        const KpbAParameter& former);
