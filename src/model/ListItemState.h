#pragma once

#include <QString>
#include <optional>

// Whether an item is still to do or done; stored as "toDo" / "done".
enum class ListItemState { toDo, done };

// Exactly "toDo" or "done" (case-sensitive, untrimmed); anything else is no state.
std::optional<ListItemState> listItemStateFromRaw(const QString &raw);
QString rawValue(ListItemState state);
