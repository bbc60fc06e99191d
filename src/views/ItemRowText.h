#pragma once

#include <QString>

// What a row shows of an item's text. A row lays out all it shows whenever
// it is built, so a pasted book would stall the list; a row therefore shows
// the text verbatim up to a bound, and beyond it the text's start with an
// ellipsis. The item keeps its whole text, and editing shows all of it.
namespace ItemRowText {

// Generous enough that a note of several paragraphs is never cut.
inline constexpr qsizetype maxCharacters = 1000; // user-perceived characters
inline constexpr qsizetype maxCodeUnits = 4000;  // UTF-16 units, for long emoji sequences
inline constexpr qsizetype maxLines = 30;

// `text` itself when within every bound; otherwise its longest start within
// them, cut between two characters (never inside a letter with its marks or
// an emoji sequence), with trailing white space dropped and "…" appended.
QString shown(const QString &text);

} // namespace ItemRowText
