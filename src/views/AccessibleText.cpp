#include "AccessibleText.h"

QString AccessibleText::rowState(bool isDone, bool isPinned)
{
    QString state = isDone ? QStringLiteral("done") : QStringLiteral("to do");
    if (isPinned)
        state += QStringLiteral(", pinned");
    return state;
}

QString AccessibleText::pinAction(bool isPinned)
{
    return isPinned ? QStringLiteral("Unpin") : QStringLiteral("Pin");
}

QString AccessibleText::listName(const QString &name)
{
    return name.trimmed().isEmpty() ? QStringLiteral("Unnamed List") : name;
}
