#pragma once

#include "DataForm.h"
#include "SurveyProject.h"

// What holds of a form whatever has happened to it and to its project. What does not fails the test.

/// Every dependent parameter of the dataset has the level and the identifier of its root.
void expectKnownRoots(const DataForm& form);
/// Selection, filter and categories count what the values of the project give.
void expectSameCounts(const DataForm& form, const SurveyProject& project);
/// Calls everything that reads the form alone, to no other end than that nothing dangles.
void readAll(const KpbAParameter& parameter);
void readAll(const DataForm& form);
/// Whether a form that reads what is stored of this one can become the same. It does not take over identifiers of what
/// does not exist. A rule may keep the statistics and the categories of a former variable, and a selection the
/// categories of a catalog that was removed, which are not stored.
bool isReproducible(const KpbAParameter& parameter);
/// What a fresh form stores once it has read `stored`.
QByteArray storedByAFreshForm(const QByteArray& stored, const KstITransactable& context);
