#pragma once

#include <QtCore/QString>

#include <util/UtilExport.h>

#include <vector>

class KufISampleFilter;

/// Parses the combination of a sample filter once and evaluates it for any number of samples.
///
///     expression := term { "or" term }
///     term       := factor { "and" factor }
///     factor     := "not" factor | "(" expression ")" | "R" number
///
/// Letters count alike in either case. Blanks may stand anywhere between words, and need to between two words that
/// would run into one. A rule that the filter does not have is an error. Neither parsing nor evaluation goes deeper
/// into the stack for deeper nesting, and both take a time in proportion to the length of the text.
class KESTRIN_UTIL_EXPORT KufSampleFilterASTVisitor
{
public:
    /// Texts that are longer are refused.
    static constexpr int MaximumLength = 1 << 20;

    /// The filter is only read here. A null one is as one without rules and combination.
    explicit KufSampleFilterASTVisitor(const KufISampleFilter* filter);

    bool isValid() const { return _errorPosition < 0; }
    /// What is wrong and where; empty for a valid combination.
    const QString& getErrorMessage() const { return _errorMessage; }
    /// The index of the character at which the error was found; the length of the text where something is missing at
    /// the end, and -1 for a valid combination.
    int getErrorPosition() const { return _errorPosition; }

    /// The combination for a sample that fulfils these rules, by index; a rule beyond the list is not fulfilled. An
    /// `MbeProgrammingError` for a combination that is not valid. Not to be called from two threads at once.
    bool evaluate(const std::vector<bool>& rules) const;

private:
    class Parser;

    void _fail(int position, const QString& message);

    // The combination in postfix order: indices of rules from 0, and operators below.
    std::vector<int> _program;
    mutable std::vector<bool> _stack;
    QString _errorMessage;
    int _errorPosition = -1;
};
