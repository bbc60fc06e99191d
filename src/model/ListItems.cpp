#include "ListItems.h"

#include "ItemsCodec.h"
#include "platform/preferences/PreferencesStore.h"

#include <QCollator>
#include <QCollatorSortKey>
#include <QLocale>
#include <algorithm>
#include <cstdio>
#include <numeric>

const QStringList &ListItems::defaultListNames()
{
    static const QStringList names = {
        QStringLiteral("To Do List\u2714"),
        QStringLiteral("Groceries"),
        QStringLiteral("Work Tasks\U0001F4C8"),
        QStringLiteral("Movies!"),
        QStringLiteral("Reading List\U0001F4DA"),
        QStringLiteral("Home Projects"),
        QStringLiteral("Camping List\U0001F525"),
        QStringLiteral("Appointments"),
        QStringLiteral("Gift Ideas\U0001F381"),
        QStringLiteral("Maintenance"),
        QStringLiteral("Vacation Ideas\u2708\uFE0F"),
        QStringLiteral("Wish List"),
    };
    return names;
}

ListItems::ListItems(PreferencesStore &defaults, QObject *parent)
    : QObject(parent)
    , m_defaults(&defaults)
    , m_items(defaultListNames().size())
    , m_listNames(defaultListNames())
{
    load();
}

void ListItems::load()
{
    // Names first: they are authoritative for how many lists exist.
    if (auto names = m_defaults->stringList(PreferenceKeys::listNames)) {
        m_listNames = *names;
    } else {
        // A value there that is not a list of names is kept aside before
        // the defaults replace it.
        if (m_defaults->contains(PreferenceKeys::listNames))
            m_defaults->keepCopy(PreferenceKeys::listNames);
        m_defaults->setStringList(PreferenceKeys::listNames, m_listNames);
    }

    m_items = QList<ItemList>(m_listNames.size());
    if (auto data = m_defaults->data(PreferenceKeys::items)) {
        auto decoded = ItemsCodec::decode(*data);
        if (auto *lists = std::get_if<QList<ItemList>>(&decoded)) {
            m_items = std::move(*lists);
        } else {
            // The one diagnostic of the app. The next save replaces the
            // stored bytes, so a copy of them is kept first.
            const QByteArray line = "Error decoding items: " + std::get<QString>(decoded).toUtf8() + '\n';
            std::fwrite(line.constData(), 1, size_t(line.size()), stdout);
            std::fflush(stdout);
            m_defaults->keepCopy(PreferenceKeys::items);
        }
    }

    // Reconcile: the names decide how many lists there are. Lists beyond the
    // names go at the next save, so the stored document is kept first.
    while (m_items.size() < m_listNames.size())
        m_items.append(ItemList());
    if (m_items.size() > m_listNames.size()) {
        m_defaults->keepCopy(PreferenceKeys::items);
        m_items.resize(m_listNames.size());
    }

    // List i was element i of what was read; the first save checks that
    // against the stored bytes and writes only the lists that differ.
    m_encoded = QByteArrayList(m_items.size());
    m_savedAt = QList<qsizetype>(m_items.size());
    std::iota(m_savedAt.begin(), m_savedAt.end(), 0);
}

void ListItems::setAppColorScheme(ColorScheme scheme)
{
    if (m_appColorScheme == scheme)
        return;
    m_appColorScheme = scheme;
    emit appColorSchemeChanged();
}

int ListItems::itemCount(qint64 listIndex) const
{
    return listIndex >= 0 && listIndex < m_items.size() ? int(m_items[listIndex].size()) : 0;
}

QString ListItems::listName(qint64 listIndex) const
{
    return validList(listIndex) ? m_listNames[listIndex] : QString();
}

ItemList ListItems::itemsAt(qint64 listIndex) const
{
    return listIndex >= 0 && listIndex < m_items.size() ? m_items[listIndex] : ItemList();
}

qsizetype ListItems::positionOf(qint64 listIndex, const QUuid &id) const
{
    if (listIndex < 0 || listIndex >= m_items.size())
        return -1;
    const ItemList &list = m_items[listIndex];
    for (qsizetype i = 0; i < list.size(); ++i) {
        if (list[i].id == id)
            return i;
    }
    return -1;
}

// ---- saving -------------------------------------------------------------

void ListItems::saveItems()
{
    if (m_encoded.size() != m_items.size()) {
        m_encoded = QByteArrayList(m_items.size());
        m_savedAt = QList<qsizetype>(m_items.size(), -1);
    }
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        if (m_encoded[i].isNull())
            m_encoded[i] = ItemsCodec::encodeList(m_items[i]);
    }
    // Read back whole, the value is the document ItemsCodec::encode makes.
    m_defaults->setJsonArray(PreferenceKeys::items, m_encoded, m_savedAt);
    std::iota(m_savedAt.begin(), m_savedAt.end(), 0);
}

void ListItems::saveNames()
{
    m_defaults->setStringList(PreferenceKeys::listNames, m_listNames);
}

void ListItems::commitList(qint64 listIndex)
{
    if (listIndex >= 0 && listIndex < m_encoded.size()) {
        m_encoded[listIndex] = QByteArray();
        m_savedAt[listIndex] = -1;
    }
    saveItems();
    emit listChanged(listIndex);
    emit itemsChanged();
}

void ListItems::commitLists()
{
    // Names and items land together, or neither does.
    PreferencesStore::Transaction transaction(*m_defaults);
    saveNames();
    saveItems();
    transaction.commit();
    emit listNamesChanged();
    emit listsRearranged();
    emit itemsChanged();
}

// ---- item operations ----------------------------------------------------

void ListItems::addItem(const ListItem &item, qint64 listIndex)
{
    if (!validList(listIndex))
        return;
    m_items[listIndex].append(item);
    commitList(listIndex);
}

void ListItems::updateItemText(const QUuid &id, qint64 listIndex, const QString &text)
{
    if (!validList(listIndex))
        return;
    const qsizetype p = positionOf(listIndex, id);
    if (p < 0)
        return;
    m_items[listIndex][p].text = text;
    commitList(listIndex);
}

void ListItems::deleteItems(const QList<qsizetype> &positions, qint64 listIndex)
{
    if (!validList(listIndex))
        return;
    ItemList &list = m_items[listIndex];
    QList<qsizetype> sorted = positions;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    // A position outside the list makes the whole call a no-op, in every
    // build: half a deletion would leave the undo entries pointing wrong.
    if (!sorted.isEmpty() && (sorted.first() < 0 || sorted.last() >= list.size()))
        return;
    for (auto it = sorted.crbegin(); it != sorted.crend(); ++it)
        list.removeAt(*it);
    commitList(listIndex);
}

void ListItems::insertItem(const ListItem &item, qsizetype position, qint64 listIndex)
{
    if (!validList(listIndex))
        return;
    ItemList &list = m_items[listIndex];
    // Outside 0...length: a no-op, like a bad list index.
    if (position < 0 || position > list.size())
        return;
    list.insert(position, item);
    commitList(listIndex);
}

void ListItems::setState(ListItemState state, const QUuid &id, qint64 listIndex)
{
    if (!validList(listIndex))
        return;
    const qsizetype p = positionOf(listIndex, id);
    if (p < 0)
        return;
    m_items[listIndex][p].state = state;
    commitList(listIndex);
}

void ListItems::setAllStates(qint64 listIndex, ListItemState state)
{
    if (!validList(listIndex))
        return;
    for (ListItem &item : m_items[listIndex])
        item.state = state;
    commitList(listIndex);
}

void ListItems::setPinned(bool pinned, const QUuid &id, qint64 listIndex)
{
    if (!validList(listIndex))
        return;
    const qsizetype p = positionOf(listIndex, id);
    if (p < 0)
        return;
    ItemList &list = m_items[listIndex];
    ListItem item = list.takeAt(p);
    item.isPinned = pinned;
    qsizetype at;
    if (pinned) {
        // Right after the last pinned item: the new last of the pinned block.
        at = 0;
        for (qsizetype i = list.size() - 1; i >= 0; --i) {
            if (list[i].isPinned) {
                at = i + 1;
                break;
            }
        }
    } else {
        // At the head of the unpinned block, or at the end if there is none.
        at = list.size();
        for (qsizetype i = 0; i < list.size(); ++i) {
            if (!list[i].isPinned) {
                at = i;
                break;
            }
        }
    }
    list.insert(at, item);
    commitList(listIndex);
}

void ListItems::moveItems(const QList<qsizetype> &sources, qsizetype destination, qint64 listIndex)
{
    if (sources.isEmpty())
        return;
    const qsizetype source = *std::min_element(sources.begin(), sources.end());
    if (!validList(listIndex))
        return;
    ItemList &list = m_items[listIndex];
    if (source < 0 || source >= list.size())
        return;
    ListItem item = list.takeAt(source);
    const auto pinnedCount = std::count_if(list.cbegin(), list.cend(), [](const ListItem &i) { return i.isPinned; });
    qsizetype to = source < destination ? destination - 1 : destination;
    to = std::clamp<qsizetype>(to, 0, list.size());
    if (to < pinnedCount)
        item.isPinned = true;
    else if (to > pinnedCount)
        item.isPinned = false;
    list.insert(to, item);
    commitList(listIndex);
}

void ListItems::sortItems(qint64 listIndex, bool ascending, bool byText)
{
    if (!validList(listIndex))
        return;
    ItemList &list = m_items[listIndex];

    // Sort a permutation so that collation keys are computed once per item.
    std::vector<qsizetype> order(size_t(list.size()));
    std::iota(order.begin(), order.end(), 0);
    if (byText) {
        // The POSIX "C" locale collates by code point, which would put every
        // capital first; sort such machines by the root (English) rules.
        const QLocale locale = QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale();
        QCollator collator(locale);
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        std::vector<QCollatorSortKey> keys;
        keys.reserve(size_t(list.size()));
        for (const ListItem &item : list)
            keys.push_back(collator.sortKey(item.text));
        std::stable_sort(order.begin(), order.end(), [&](qsizetype a, qsizetype b) {
            if (list[a].isPinned != list[b].isPinned)
                return list[a].isPinned;
            const int c = keys[size_t(a)].compare(keys[size_t(b)]);
            return ascending ? c < 0 : c > 0;
        });
    } else {
        // By status: to do before done, whatever the direction.
        std::stable_sort(order.begin(), order.end(), [&](qsizetype a, qsizetype b) {
            if (list[a].isPinned != list[b].isPinned)
                return list[a].isPinned;
            return list[a].state == ListItemState::toDo && list[b].state == ListItemState::done;
        });
    }
    ItemList sorted;
    sorted.reserve(list.size());
    for (qsizetype i : order)
        sorted.append(std::move(list[i]));
    list = std::move(sorted);
    commitList(listIndex);
}

ListItems::Partition ListItems::partition(qint64 listIndex) const
{
    Partition result;
    if (listIndex < 0 || listIndex >= m_items.size())
        return result;
    const ItemList &list = m_items[listIndex];
    for (qsizetype i = 0; i < list.size(); ++i)
        (list[i].isPinned ? result.pinned : result.unpinned).append(Positioned{i, list[i]});
    return result;
}

// ---- list operations ----------------------------------------------------

void ListItems::addList()
{
    m_listNames.prepend(QStringLiteral("New List"));
    m_items.prepend(ItemList());
    m_encoded.prepend(QByteArrayLiteral("[]"));
    m_savedAt.prepend(-1);
    commitLists();
}

void ListItems::deleteList(qint64 listIndex)
{
    if (!validList(listIndex))
        return;
    m_listNames.removeAt(listIndex);
    m_items.removeAt(listIndex);
    if (listIndex < m_encoded.size()) {
        m_encoded.removeAt(listIndex);
        m_savedAt.removeAt(listIndex);
    }
    commitLists();
}

void ListItems::renameList(qint64 listIndex, const QString &name)
{
    if (!validList(listIndex))
        return;
    m_listNames[listIndex] = name;
    saveNames();
    emit listNamesChanged();
}

void ListItems::moveList(qint64 from, qint64 to)
{
    if (!validList(from) || !validList(to))
        return;
    m_listNames.swapItemsAt(from, to);
    m_items.swapItemsAt(from, to);
    if (from < m_encoded.size() && to < m_encoded.size()) {
        m_encoded.swapItemsAt(from, to);
        m_savedAt.swapItemsAt(from, to);
    }
    commitLists();
}

bool ListItems::restoreList(qint64 index, const QString &name, const ItemList &items)
{
    if (index < 0 || index > m_listNames.size())
        return false;
    m_listNames.insert(index, name);
    m_items.insert(index, items);
    if (index <= m_encoded.size()) {
        m_encoded.insert(index, QByteArray());
        m_savedAt.insert(index, -1);
    }
    commitLists();
    return true;
}

bool ListItems::replaceList(qint64 listIndex, const ItemList &items)
{
    if (!validList(listIndex) || listIndex >= m_items.size())
        return false;
    m_items[listIndex] = items;
    commitList(listIndex);
    return true;
}

qint64 ListItems::clampSelection(qint64 index, qsizetype count)
{
    if (count <= 0)
        return 0;
    return std::clamp<qint64>(index, 0, qint64(count) - 1);
}
