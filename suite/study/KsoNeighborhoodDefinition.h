#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

#include <basic/MbbOrderedMap.h>

/// What is stored of a search neighbourhood: the data that it is for, as the stored forms of identifiers. Empty ones
/// stand for what was not chosen.
struct KsoNeighborhoodDefinition
{
    using Ident = MbbOrderedMap<QString, QString>;

    Ident support;
    Ident codeVariable;
    QList<Ident> largeCutoffVariables;
    QList<Ident> smallCutoffVariables;

    friend bool operator==(const KsoNeighborhoodDefinition& a, const KsoNeighborhoodDefinition& b) = default;
};
