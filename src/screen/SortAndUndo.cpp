#include "SortAndUndo.h"

#include "DisplayedItemsModel.h"
#include "model/ListItems.h"
#include "platform/Haptics.h"
#include "platform/preferences/PreferencesStore.h"

SortAndUndo::SortAndUndo(const ScreenContext &context, SelectedList selectedList, QObject *parent)
    : QObject(parent)
    , m_context(context)
    , m_selectedList(std::move(selectedList))
{
}

void SortAndUndo::record(UndoAction action)
{
    m_undo.push(std::move(action));
    emit undoStackChanged();
}

void SortAndUndo::sortByStatus()
{
    sort(false);
}

void SortAndUndo::sortByText()
{
    sort(true);
}

void SortAndUndo::sort(bool byText)
{
    const qint64 list = m_selectedList();
    if (list < 0 || list >= m_context.store.listCount())
        return;
    const ItemList before = m_context.store.items()[list];
    m_context.store.sortItems(list, m_ascending, byText);
    // One direction for both sorts: a text sort after a status sort runs the other way.
    m_ascending = !m_ascending;
    emit isAscendingChanged();
    m_context.haptics.lightImpact();
    record(UndoActions::SortList{list, before});
}

void SortAndUndo::markAllToDo()
{
    const qint64 list = m_selectedList();
    const ItemList before = m_context.store.itemsAt(list);
    m_markingAll = true;
    emit markingAllChanged();
    m_context.store.setAllStates(list, ListItemState::toDo);
    m_markingAll = false;
    emit markingAllChanged();
    m_context.haptics.lightImpact();
    // Pushed whatever the selection, with an empty copy for no list.
    record(UndoActions::MarkAll{list, before});
}

void SortAndUndo::undo()
{
    m_context.haptics.lightImpact();
    if (m_undo.isEmpty())
        return;
    {
        DisplayedItemsModel::Hold held(m_context.displayed);
        // The lists and the selection are saved together.
        PreferencesStore::Transaction together(m_context.preferences);
        const UndoStack::Outcome outcome = m_undo.undo(m_context.store);
        if (outcome.selectList)
            emit listRestored(*outcome.selectList);
    }
    emit undoStackChanged();
}
