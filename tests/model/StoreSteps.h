#pragma once

#include "model/ListItems.h"
#include "model/UndoStack.h"
#include "platform/preferences/PreferencesStore.h"

#include <algorithm>
#include <functional>

// One step against the store, the way the screen drives it, chosen by four
// numbers. Lists and positions are sometimes out of range on purpose.
struct StoreStep
{
    int kind;
    int a;
    int b;
    int c;
};

// Applies `s`. New items take their ids from `newId`. Deletions, sorts and
// resets are recorded on `undo` as the screen records them; one kind undoes
// when `allowUndo`.
inline void applyStep(ListItems &store, PreferencesStore &prefs, UndoStack &undo, const StoreStep &s,
                      bool allowUndo, const std::function<QUuid()> &newId)
{
    using namespace UndoActions;
    const qint64 n = store.listCount();
    const qint64 list = n ? (s.a % (n + 2)) - 1 : s.a % 3 - 1;
    const ItemList current = store.itemsAt(list);
    const qsizetype at = current.isEmpty() ? 0 : s.b % current.size();
    const QUuid id = current.isEmpty() ? newId() : current[at].id;
    switch (s.kind % 15) {
    case 0:
    case 1: store.addItem(ListItem{newId(), QString::number(s.c), ListItemState::toDo, false}, list); break;
    case 2: store.updateItemText(id, list, QString::number(s.c)); break;
    case 3:
        if (!current.isEmpty()) {
            undo.push(DeleteItem{list, at, current[at]});
            store.deleteItems({at}, list);
        }
        break;
    case 4: store.setState(s.c % 2 ? ListItemState::done : ListItemState::toDo, id, list); break;
    case 5: store.setPinned(s.c % 2, id, list); break;
    case 6: store.moveItems({at}, s.c % (current.size() + 2), list); break;
    case 7:
        if (list >= 0 && list < n) {
            undo.push(SortList{list, current});
            store.sortItems(list, s.b % 2, s.c % 2);
        }
        break;
    case 8:
        store.setAllStates(list, ListItemState::toDo);
        undo.push(MarkAll{list, current});
        break;
    case 9: store.addList(); break;
    case 10:
        if (n >= 2 && list >= 0 && list < n) {
            undo.push(DeleteList{list, store.listNames()[list], current});
            store.deleteList(list);
        }
        break;
    case 11: store.renameList(list, QString::number(s.c)); break;
    case 12: store.moveList(list, list + (s.b % 2 ? 1 : -1)); break;
    case 13:
        if (allowUndo)
            undo.undo(store);
        break;
    default: {
        // A list operation and the selection it leaves, in one transaction.
        PreferencesStore::Transaction transaction(prefs);
        if (s.b % 2)
            store.addList();
        else
            store.moveList(list, list + 1);
        prefs.setInteger(PreferenceKeys::selectedListIndex, store.clampSelection(s.b % 2 ? 0 : list + 1));
    }
    }
}
