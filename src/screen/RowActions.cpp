#include "RowActions.h"

#include "DisplayedItemsModel.h"
#include "InputBar.h"
#include "ListNavigation.h"
#include "SortAndUndo.h"
#include "platform/Haptics.h"

#include <algorithm>

RowActions::RowActions(const ScreenContext &context, ListNavigation &lists, SortAndUndo &undo, InputBar &input,
                       QObject *parent)
    : QObject(parent)
    , m_context(context)
    , m_lists(lists)
    , m_undo(undo)
    , m_input(input)
{
}

std::optional<ListItems::Positioned> RowActions::find(const QString &itemId) const
{
    const std::optional<QUuid> id = ScreenContext::parseId(itemId);
    if (!id || !m_lists.isValidSelection())
        return std::nullopt;
    const qint64 list = m_lists.selectedListIndex();
    const qsizetype p = m_context.store.positionOf(list, *id);
    if (p < 0)
        return std::nullopt;
    return ListItems::Positioned{p, m_context.store.items()[list][p]};
}

QList<ListItems::Positioned> RowActions::displayOrder() const
{
    ListItems::Partition parts = m_context.store.partition(m_lists.selectedListIndex());
    parts.pinned.append(std::move(parts.unpinned));
    return std::move(parts.pinned);
}

double RowActions::rotationAngle(const QString &itemId) const
{
    const std::optional<QUuid> id = ScreenContext::parseId(itemId);
    return id ? m_context.displayed.rotationAngle(*id) : 0.0;
}

void RowActions::turnDoneMarker(const QString &itemId)
{
    const auto found = find(itemId);
    if (!found)
        return;
    const QUuid id = found->item.id;
    m_context.displayed.setRotationAngle(id, m_context.displayed.rotationAngle(id) + 180.0);
    if (found->item.isDone())
        m_context.haptics.lightImpact();
    else
        m_context.haptics.successNotification();
}

void RowActions::toggleState(const QString &itemId)
{
    const auto found = find(itemId);
    if (!found)
        return;
    m_context.store.setState(found->item.isDone() ? ListItemState::toDo : ListItemState::done, found->item.id,
                             m_lists.selectedListIndex());
}

void RowActions::edit(const QString &itemId)
{
    if (const auto found = find(itemId))
        m_input.startEditing(found->item);
}

void RowActions::togglePin(const QString &itemId)
{
    const auto found = find(itemId);
    if (!found)
        return;
    m_context.store.setPinned(!found->item.isPinned, found->item.id, m_lists.selectedListIndex());
    m_context.haptics.lightImpact();
}

void RowActions::deleteItem(const QString &itemId)
{
    const auto found = find(itemId);
    if (!found)
        return;
    const qint64 list = m_lists.selectedListIndex();
    m_undo.record(UndoActions::DeleteItem{list, found->position, found->item});
    m_context.store.deleteItems({found->position}, list);
    m_context.haptics.lightImpact();
}

void RowActions::deleteDisplayedRows(const QList<int> &offsets)
{
    QList<int> ascending = offsets;
    std::sort(ascending.begin(), ascending.end());
    ascending.erase(std::unique(ascending.begin(), ascending.end()), ascending.end());
    const qint64 list = m_lists.selectedListIndex();
    for (int offset : ascending) {
        // Each offset is read against the rows as they stand after the
        // deletions before it. One that has run past the end is skipped.
        const QList<ListItems::Positioned> rows = displayOrder();
        if (offset < 0 || offset >= rows.size() || !m_lists.isValidSelection())
            continue;
        const ListItem item = rows[offset].item;
        const qsizetype p = m_context.store.positionOf(list, item.id);
        if (p < 0)
            continue;
        m_undo.record(UndoActions::DeleteItem{list, p, item});
        m_context.store.deleteItems({p}, list);
    }
}

void RowActions::moveDisplayedRow(int from, int destination)
{
    // The displayed positions go to the store's move as they are, which
    // saves even when the row lands where it was. Pinned items come first
    // in both orders, so they agree unless an undo put an item back inside
    // the other block.
    m_context.store.moveItems({from}, destination, m_lists.selectedListIndex());
}

bool RowActions::moveRowBy(const QString &itemId, int by)
{
    const auto found = find(itemId);
    if (!found)
        return false;
    const QList<ListItems::Positioned> rows = displayOrder();
    const auto at = std::find_if(rows.begin(), rows.end(),
                                 [&](const ListItems::Positioned &row) { return row.position == found->position; });
    const qsizetype from = at - rows.begin();
    const qsizetype to = from + by;
    if (by == 0 || to < 0 || to >= rows.size())
        return false;
    // Dropped into the gap on the far side of the row it passes.
    moveDisplayedRow(int(from), int(by < 0 ? to : to + 1));
    return true;
}
