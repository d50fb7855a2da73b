#pragma once

#include "DataForm.h"
#include "SurveyProject.h"

#include <optional>

/// What selection, filter and categories of a form must count, found sample by sample from the values of the project
/// and the parameters, without the classes that they hand their records to. Nothing where there is nothing to count:
/// no variable, or one that is gone.
class PlainCounts
{
public:
    PlainCounts(const DataForm& form, const SurveyProject& project) : _form(form), _project(project) {}

    std::optional<int> selected() const;
    /// Also nothing where the combination is none of `combinations()`, or names a rule that is not there.
    std::optional<int> kept() const;
    /// One number for each rule. Conditions must be some of `conditions()`.
    std::optional<QList<int>> categorised() const;

    static QStringList combinations();
    static QStringList conditions();

private:
    const DataForm& _form;
    const SurveyProject& _project;
};

/// The same by the classes of the library and its siblings.
class EngineCounts
{
public:
    EngineCounts(const DataForm& form, const KstITransactable& context) : _form(form), _context(context) {}

    std::optional<int> selected() const;
    /// Nothing where there is no filter to be made, or it cannot be evaluated.
    std::optional<int> kept() const;
    std::optional<QList<int>> categorised() const;

private:
    const KsoDataSupport* _support() const { return _form.dataset->getSupport(); }

    const DataForm& _form;
    const KstITransactable& _context;
};
