#pragma once

#include <QtCore/QString>

/// Texts of any origin made fit for a terminal or a table: what would move the cursor, switch colours or the direction
/// of writing, or start a new line is shown as an escape, such as \n or \u{1b}.
namespace SafeText {

/// For a place within a line.
QString inLine(const QString& text);
/// The same between single quotes, for messages.
QString quoted(const QString& text);
/// For a message that may have several lines: all but the first are indented, so that none passes for a message.
QString inMessage(const QString& text);
/// For a cell of a Markdown table.
QString inMarkdown(const QString& text);

} // namespace SafeText
