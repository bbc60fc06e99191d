#include "ItemRowText.h"

#include <QTextBoundaryFinder>

namespace ItemRowText {

namespace {

// Code units looked at past the bound, so that a character ending there is
// known to end there.
constexpr qsizetype lookAhead = 64;

// Where the text's first maxLines lines end.
qsizetype endOfLines(const QString &text)
{
    qsizetype at = -1;
    for (qsizetype line = 0; line < maxLines; ++line) {
        at = text.indexOf(QLatin1Char('\n'), at + 1);
        if (at < 0)
            return text.size();
    }
    return at;
}

} // namespace

QString shown(const QString &text)
{
    // Every character takes at least one code unit.
    if (text.size() <= maxCharacters && text.count(QLatin1Char('\n')) < maxLines)
        return text;
    const qsizetype limit = std::min(endOfLines(text), maxCodeUnits);
    // Only a prefix is examined: a megabyte costs no more than a page.
    const QString head = text.left(limit + lookAhead);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, head);
    qsizetype characters = 0;
    qsizetype cut = 0;
    for (qsizetype at = finder.toNextBoundary(); at != -1 && at <= limit; at = finder.toNextBoundary()) {
        if (++characters > maxCharacters)
            break;
        cut = at;
    }
    if (cut == text.size())
        return text;
    // One character longer than the bound (a letter under a pile of marks)
    // is cut inside rather than not shown at all.
    QString result = text.left(cut > 0 ? cut : limit);
    while (!result.isEmpty() && result.back().isSpace())
        result.chop(1);
    result += QChar(0x2026);
    return result;
}

} // namespace ItemRowText
