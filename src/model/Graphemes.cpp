#include "Graphemes.h"

#include <QTextBoundaryFinder>

namespace Graphemes {

qsizetype count(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype n = 0;
    while (finder.toNextBoundary() != -1)
        ++n;
    return n;
}

} // namespace Graphemes
