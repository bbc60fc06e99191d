#include "ListItemState.h"

std::optional<ListItemState> listItemStateFromRaw(const QString &raw)
{
    if (raw == u"toDo")
        return ListItemState::toDo;
    if (raw == u"done")
        return ListItemState::done;
    return std::nullopt;
}

QString rawValue(ListItemState state)
{
    return state == ListItemState::done ? QStringLiteral("done") : QStringLiteral("toDo");
}
