#include "ListNavigation.h"

#include "DisplayedItemsModel.h"
#include "SortAndUndo.h"
#include "model/Graphemes.h"
#include "model/ListItems.h"
#include "platform/Haptics.h"
#include "platform/preferences/PreferencesStore.h"

#include <QTimer>

namespace {

// Durations of the header row's scroll, in milliseconds.
constexpr int kHeaderScrollOnSelect = 200;
constexpr int kHeaderScrollDefault = 350;
constexpr int kHeaderScrollToNewList = 500;
constexpr int kHeaderScrollAfterChipTap = 500;
constexpr int kHeaderScrollAfterMove = 200;
// The capsule's journey to the new chip.
constexpr int kCapsuleAfterChipTap = 500;
constexpr int kCapsuleAfterMove = 300;
constexpr int kCapsuleDefault = 350;
// The list move animates first; the header follows a moment later.
constexpr int kHeaderScrollDelayAfterMove = 10;

} // namespace

ListNavigation::ListNavigation(const ScreenContext &context, SortAndUndo &undo, QObject *parent)
    : QObject(parent)
    , m_context(context)
    , m_undo(undo)
{
    m_selected = context.preferences.integer(PreferenceKeys::selectedListIndex)
                     .value_or(PreferenceKeys::defaultSelectedListIndex);
    context.displayed.setListIndex(m_selected);
    m_selectedEmpty = context.store.itemCount(m_selected) == 0;

    connect(&context.store, &ListItems::listNamesChanged, this, [this] {
        emit currentListNameChanged();
        emit selectionOrListsChanged();
    });
    connect(&context.store, &ListItems::listsRearranged, this, &ListNavigation::updateEmpty);
    connect(&context.store, &ListItems::listChanged, this, [this](qint64 listIndex) {
        if (listIndex == m_selected)
            updateEmpty();
    });
    connect(this, &ListNavigation::selectedListIndexChanged, this, &ListNavigation::updateEmpty);
    connect(&undo, &SortAndUndo::listRestored, this, [this](qint64 index) {
        selectClamped(index);
        emit scrollHeaderToSelected(kHeaderScrollDefault);
    });
}

void ListNavigation::updateEmpty()
{
    const bool empty = m_context.store.itemCount(m_selected) == 0;
    if (empty == m_selectedEmpty)
        return;
    m_selectedEmpty = empty;
    emit isSelectedListEmptyChanged();
}

void ListNavigation::setSelectedListIndex(qint64 index)
{
    if (index == m_selected)
        return;
    m_selected = index;
    m_context.preferences.setInteger(PreferenceKeys::selectedListIndex, index);
    m_context.displayed.setListIndex(index);
    emit selectedListIndexChanged();
    emit currentListNameChanged();
    emit selectionOrListsChanged();
    showDefaultScreenIfEmpty();
    emit scrollHeaderToSelected(kHeaderScrollOnSelect);
}

void ListNavigation::selectClamped(qint64 index)
{
    setSelectedListIndex(m_context.store.clampSelection(index));
}

void ListNavigation::setSelectionDuration(int durationMs)
{
    if (durationMs == m_selectionDuration)
        return;
    m_selectionDuration = durationMs;
    emit selectionDurationChanged();
}

void ListNavigation::selectPaced(qint64 index, int durationMs)
{
    setSelectionDuration(durationMs);
    setSelectedListIndex(index);
    setSelectionDuration(0);
}

bool ListNavigation::isValidSelection() const
{
    return m_selected >= 0 && m_selected < m_context.store.listCount();
}

QString ListNavigation::currentListName() const
{
    return m_context.store.listName(m_selected);
}

bool ListNavigation::canMoveListLeft() const
{
    return m_selected >= 1;
}

bool ListNavigation::canMoveListRight() const
{
    return m_selected < qint64(m_context.store.listCount()) - 1;
}

void ListNavigation::setShowDeletionConfirmation(bool show)
{
    if (show == m_showDeletionConfirmation)
        return;
    m_showDeletionConfirmation = show;
    emit showDeletionConfirmationChanged();
}

void ListNavigation::showDefaultScreenIfEmpty()
{
    if (isValidSelection() && m_context.store.itemCount(m_selected) == 0 && !m_showDefaultScreen) {
        m_showDefaultScreen = true;
        emit showdefaultScreenChanged();
    }
}

int ListNavigation::titlePointSize(const QString &title)
{
    const qsizetype n = Graphemes::count(title);
    if (n <= 11)
        return 21;
    if (n <= 14)
        return 20;
    return 18;
}

void ListNavigation::appear()
{
    selectClamped(m_selected);
    emit scrollHeaderToSelected(0);
}

void ListNavigation::moveListLeft()
{
    moveList(-1);
}

void ListNavigation::moveListRight()
{
    moveList(+1);
}

void ListNavigation::moveList(int step)
{
    const qint64 from = m_selected;
    const qint64 to = from + step;
    const qint64 count = m_context.store.listCount();
    if (from >= 0 && from < count && to >= 0 && to < count) {
        {
            DisplayedItemsModel::Hold held(m_context.displayed);
            // The lists and the selection are saved together.
            PreferencesStore::Transaction together(m_context.preferences);
            m_context.store.moveList(from, to);
            selectPaced(to, kCapsuleAfterMove);
            selectClamped(m_selected);
        }
        QTimer::singleShot(kHeaderScrollDelayAfterMove, this,
                           [this] { emit scrollHeaderToSelected(kHeaderScrollAfterMove); });
    }
    m_context.haptics.successNotification();
}

void ListNavigation::askToDeleteList()
{
    setShowDeletionConfirmation(true);
    m_context.haptics.successNotification();
}

void ListNavigation::deleteSelectedList()
{
    setShowDeletionConfirmation(false);
    // The last list stays, whatever is asked.
    if (m_context.store.listCount() < 2 || !isValidSelection())
        return;
    const qint64 index = m_selected;
    {
        DisplayedItemsModel::Hold held(m_context.displayed);
        // The lists and the selection are saved together.
        PreferencesStore::Transaction together(m_context.preferences);
        m_undo.record(UndoActions::DeleteList{index, m_context.store.listNames()[index], m_context.store.items()[index]});
        m_context.store.deleteList(index);
        selectClamped(m_selected);
    }
    emit scrollHeaderToSelected(kHeaderScrollDefault);
}

void ListNavigation::addList()
{
    {
        DisplayedItemsModel::Hold held(m_context.displayed);
        // The lists and the selection are saved together.
        PreferencesStore::Transaction together(m_context.preferences);
        m_context.store.addList();
        selectPaced(m_context.store.clampSelection(0), kCapsuleDefault);
    }
    emit scrollHeaderToSelected(kHeaderScrollToNewList);
    m_context.haptics.successNotification();
}

void ListNavigation::chooseList(qint64 index)
{
    m_context.haptics.lightImpact();
    selectPaced(index, kCapsuleAfterChipTap);
    emit listChosen();
    emit scrollHeaderToSelected(kHeaderScrollAfterChipTap);
}

void ListNavigation::renameSelectedList(const QString &name)
{
    if (isValidSelection())
        m_context.store.renameList(m_selected, name);
}

void ListNavigation::setTitleEditing(bool editing)
{
    if (editing == m_titleEdited)
        return;
    m_titleEdited = editing;
    emit titleEditedChanged();
}
