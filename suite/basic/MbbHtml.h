#pragma once

#include <QtCore/QString>

#include <basic/BasicExport.h>

/// Pieces of rich text for messages, of the subset of HTML that Qt shows. Whatever text is given is escaped, so that
/// names with "<" or "&" show as they are.
class KESTRIN_BASIC_EXPORT MbbHtml
{
public:
    /// What `format` does with a text; the values combine. Bits without a name change nothing.
    enum FormatOption
    {
        Bold = 1,
        Italic = 2,
        Underline = 4,
        Heading = 8, ///< bold and larger, for what opens a message
        Fixed = 16,  ///< all characters of one width, for keys and paths
        Small = 32,
        NoBreak = 256, ///< never broken into two lines
    };

    /// `count` non-breaking blanks, as the character U+00A0: they are blanks in rich text and in plain text alike.
    /// Empty for a count below 1.
    static QString emptyString(int count);
    /// `count` line breaks; empty for a count below 1.
    static QString emptyLine(int count);

    static QString bold(const QString& text);
    static QString italic(const QString& text);
    /// The name of an item within a sentence: bold.
    static QString displayName(const QString& name);
    /// `text` under a combination of `FormatOption`; without one, only escaped.
    static QString format(const QString& text, int options);
};
