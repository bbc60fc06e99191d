#pragma once

#include "ListItem.h"

#include <QString>
#include <variant>

// One undoable change, holding the state from before it.
namespace UndoActions {
struct DeleteItem
{
    qint64 listIndex;
    qsizetype index;
    ListItem item;
    bool operator==(const DeleteItem &) const = default;
};
struct DeleteList
{
    qint64 index;
    QString listName;
    ItemList items;
    bool operator==(const DeleteList &) const = default;
};
struct SortList
{
    qint64 listIndex;
    ItemList oldState;
    bool operator==(const SortList &) const = default;
};
struct MarkAll
{
    qint64 listIndex;
    ItemList oldState;
    bool operator==(const MarkAll &) const = default;
};
} // namespace UndoActions

using UndoAction = std::variant<UndoActions::DeleteItem, UndoActions::DeleteList, UndoActions::SortList,
                                UndoActions::MarkAll>;
