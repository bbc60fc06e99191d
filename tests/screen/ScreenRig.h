#pragma once

#include "CountingReviewOpener.h"
#include "MarkedItems.h"
#include "RecordingHaptics.h"
#include "RecordingShareSheet.h"
#include "appearance/Appearance.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "screen/DisplayedItemsModel.h"
#include "screen/InputBar.h"
#include "screen/ListNavigation.h"
#include "screen/RowActions.h"
#include "screen/ScreenState.h"
#include "screen/SortAndUndo.h"

#include <memory>

namespace {

QString idText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

// A screen over an in-memory store, already appeared, with empty logs.
struct Screen
{
    explicit Screen(const QStringList &names = {"Home", "Work", "Trip"}, const QVariant &storedIndex = {},
                    const QString &scheme = {})
    {
        prefs.setStringList(PreferenceKeys::listNames, names);
        if (storedIndex.isValid())
            prefs.setRawForTest(PreferenceKeys::selectedListIndex, storedIndex);
        if (!scheme.isEmpty())
            prefs.setString(PreferenceKeys::appColorScheme, scheme);
        state = std::make_unique<ScreenState>(prefs, haptics, ScreenState::Services{appearance, sheet, opener});
        state->appear();
        haptics.clear();
        prefs.resetWriteLog();
    }

    ListItems &store() { return *state->store(); }
    ListNavigation &lists() { return *state->lists(); }
    InputBar &input() { return *state->inputBar(); }
    SortAndUndo &history() { return *state->sortAndUndo(); }
    RowActions &rows() { return *state->rows(); }
    ItemList items() { return store().itemsAt(lists().selectedListIndex()); }
    qint64 storedIndex() const { return prefs.integer(PreferenceKeys::selectedListIndex).value_or(-999); }

    // Replaces the selected list with marked texts; returns the new items' ids.
    QStringList seed(const QStringList &texts)
    {
        const ItemList list = markedItems(texts);
        QStringList ids;
        for (const ListItem &item : list)
            ids << idText(item.id);
        store().replaceList(lists().selectedListIndex(), list);
        prefs.resetWriteLog();
        return ids;
    }
    // Adds through the input bar; returns the new item's id.
    QString add(const QString &text)
    {
        input().setNewItem(text);
        input().addOrUpdate();
        haptics.clear();
        return input().lastItemId();
    }
    // The selected list, marked, in stored order and as the rows show it.
    QStringList stored() { return markedTexts(items()); }
    QStringList shown()
    {
        ItemList rows;
        for (int row = 0; const ListItem *item = state->displayedItems()->itemAt(row); ++row)
            rows << *item;
        return markedTexts(rows);
    }

    MemoryPreferencesStore prefs;
    RecordingHaptics haptics;
    Appearance appearance{prefs};
    RecordingShareSheet sheet;
    CountingReviewOpener opener;
    std::unique_ptr<ScreenState> state;
};

} // namespace
