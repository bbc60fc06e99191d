#pragma once

#include <QString>

// Counting text as a reader does: a letter with its combining marks, a
// flag or an emoji sequence is one character.
namespace Graphemes {
qsizetype count(const QString &text);
}
