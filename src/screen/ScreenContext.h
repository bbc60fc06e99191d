#pragma once

#include <QString>
#include <QUuid>

class DisplayedItemsModel;
class Haptics;
class ListItems;
class PreferencesStore;

// What the parts of the screen share: the preferences, the store, the rows
// it shows and the touch feedback. Each outlives the parts.
struct ScreenContext
{
    PreferencesStore &preferences;
    ListItems &store;
    DisplayedItemsModel &displayed;
    Haptics &haptics;

    // Item ids cross to QML as their upper-case text; a null id as "".
    static QString idText(const QUuid &id)
    {
        return id.isNull() ? QString() : id.toString(QUuid::WithoutBraces).toUpper();
    }
};
