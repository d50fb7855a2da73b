#pragma once

#include <QtCore/QString>

/// The text of a condition: what is checked of it before Python sees it, and how a place in it is shown.
///
/// Python's parser calls itself once or more for each level of a text and is slow on some texts that never end, so a
/// text from a stranger is measured first. What passes holds only the characters of a condition, closes what it opens,
/// and nests in every way less than what the smallest stack of a thread bears.
class MgmConditionText
{
public:
    static constexpr int MaximumBrackets = 40; ///< open at once
    static constexpr int MaximumSigns = 16;    ///< "-", "+" and "not" in a row
    static constexpr int MaximumPowers = 32;
    static constexpr int MaximumChoices = 32; ///< "if"
    static constexpr int MaximumDigits = 40;  ///< characters of one number

    /// Throws `MbeUserError` for a text that must not go to Python.
    explicit MgmConditionText(const QString& text);

    /// The text without the blanks at its ends, as Python gets it.
    const QString& getText() const { return _text; }

    /// The position in the text of a column of a line, both as Python counts them: lines from 1, columns from 0, in
    /// bytes of UTF-8.
    int getPosition(int line, int utf8Column) const;
    /// The same for a column that is counted in characters, as that of a syntax error is, from 0.
    int getPositionOfCharacter(int line, int column) const;

    /// Throws `MbeUserError` with `reason`, the line of the position and a "^" below the position. The text is HTML.
    [[noreturn]] void refuse(int position, const QString& reason) const;

private:
    /// The position itself, or the one before it where it is between the two halves of a character.
    int _beforePair(int position) const;
    int _getLineStart(int line) const;
    int _getLineEnd(int start) const;

    QString _text;
};
