#include "TextWrapping.h"

bool TextWrapping::needsWrapAnywhere(const QString &text)
{
    if (text.size() <= maxUnbrokenRun)
        return false;
    qsizetype run = 0;
    for (const QChar c : text) {
        if (c.isSpace())
            run = 0;
        else if (++run > maxUnbrokenRun)
            return true;
    }
    return false;
}
