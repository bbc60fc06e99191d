#pragma once

#include "ListItem.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <utility>

class PreferencesStore;

// The one store of the app: the names of all lists and the items of each.
// List i is (listNames[i], items[i]); both always have the same length.
// Every operation takes the index of the list it works on and writes what it
// changed to the preferences store, in one transaction, before it returns.
class ListItems : public QObject
{
    Q_OBJECT
    Q_PROPERTY(ColorScheme appColorScheme READ appColorScheme WRITE setAppColorScheme NOTIFY appColorSchemeChanged)
    Q_PROPERTY(QList<ItemList> items READ items NOTIFY itemsChanged)
    Q_PROPERTY(QStringList listNames READ listNames NOTIFY listNamesChanged)
    Q_PROPERTY(int listCount READ listCount NOTIFY listNamesChanged)

public:
    enum ColorScheme { Light, Dark };
    Q_ENUM(ColorScheme)

    struct Positioned
    {
        qsizetype position;
        ListItem item;
    };
    struct Partition
    {
        QList<Positioned> pinned;
        QList<Positioned> unpinned;
    };

    static const QStringList &defaultListNames();

    // Loads from the given store, which must outlive this object.
    explicit ListItems(PreferencesStore &defaults, QObject *parent = nullptr);

    PreferencesStore &defaults() const { return *m_defaults; }
    ColorScheme appColorScheme() const { return m_appColorScheme; }
    void setAppColorScheme(ColorScheme scheme);
    const QList<ItemList> &items() const { return m_items; }
    const QStringList &listNames() const { return m_listNames; }
    int listCount() const { return int(m_listNames.size()); }

    // Read helpers for views.
    Q_INVOKABLE int itemCount(qint64 listIndex) const;
    Q_INVOKABLE QString listName(qint64 listIndex) const;
    // The item list at an index, or an empty list when out of range.
    ItemList itemsAt(qint64 listIndex) const;
    // Position of the first item with this id, or -1.
    qsizetype positionOf(qint64 listIndex, const QUuid &id) const;

    // Item operations. A list index outside the lists, and a delete or
    // insert position outside the list, is a silent no-op.
    void addItem(const ListItem &item, qint64 listIndex);
    void updateItemText(const QUuid &id, qint64 listIndex, const QString &text);
    void deleteItems(const QList<qsizetype> &positions, qint64 listIndex);
    void insertItem(const ListItem &item, qsizetype position, qint64 listIndex);
    void setState(ListItemState state, const QUuid &id, qint64 listIndex);
    void setAllStates(qint64 listIndex, ListItemState state);
    void setPinned(bool pinned, const QUuid &id, qint64 listIndex);
    void moveItems(const QList<qsizetype> &sources, qsizetype destination, qint64 listIndex);
    void sortItems(qint64 listIndex, bool ascending, bool byText);
    // Pinned items then unpinned ones, each in list order, with positions.
    Partition partition(qint64 listIndex) const;

    // List operations.
    void addList();
    void deleteList(qint64 listIndex);
    void renameList(qint64 listIndex, const QString &name);
    void moveList(qint64 from, qint64 to);
    // For undo: put a deleted list back, replace a list's whole content.
    bool restoreList(qint64 index, const QString &name, const ItemList &items);
    bool replaceList(qint64 listIndex, const ItemList &items);

    // A valid selected index for `count` lists: 0 when there are none.
    static qint64 clampSelection(qint64 index, qsizetype count);
    qint64 clampSelection(qint64 index) const { return clampSelection(index, m_listNames.size()); }

    void saveItems();
    void saveNames();

signals:
    void appColorSchemeChanged();
    void itemsChanged();
    void listNamesChanged();
    // Finer notice for views of one list: list `listIndex` changed its items.
    void listChanged(qint64 listIndex);
    // The set or order of lists changed (added, deleted, moved).
    void listsRearranged();

private:
    void load();
    bool validList(qint64 listIndex) const { return listIndex >= 0 && listIndex < m_listNames.size(); }
    // Marks one list's encoded JSON stale, saves and notifies.
    void commitList(qint64 listIndex);
    void commitLists();

    PreferencesStore *m_defaults;
    ColorScheme m_appColorScheme = Light;
    QList<ItemList> m_items;
    QStringList m_listNames;
    // Encoded JSON of each list (null when stale), so a save re-encodes
    // only what changed, and where each list stood at the last save (-1
    // when changed since), so the store rewrites only what changed.
    QByteArrayList m_encoded;
    QList<qsizetype> m_savedAt;
};
