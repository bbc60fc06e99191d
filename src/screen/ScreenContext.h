#pragma once

#include <QString>
#include <QUuid>
#include <optional>

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

    // Item ids cross to QML as their upper-case text and "" stands for no
    // item. The all-zero id is an id like any other: stored lists may hold it.
    static QString idText(const QUuid &id) { return id.toString(QUuid::WithoutBraces).toUpper(); }
    static QString idText(const std::optional<QUuid> &id) { return id ? idText(*id) : QString(); }
    // The id a text names, in either letter case and with or without
    // braces; none for anything else.
    static std::optional<QUuid> parseId(const QString &text)
    {
        const QUuid id = QUuid::fromString(text);
        if (!id.isNull())
            return id;
        static const QString zero = QUuid().toString(QUuid::WithoutBraces);
        if (text == zero || text == u'{' + zero + u'}')
            return id;
        return std::nullopt;
    }
};
