#include "DisplayedItemsModel.h"

#include "ScreenContext.h"
#include "views/ItemRowText.h"

#include <algorithm>

namespace {

using Rows = QList<ListItems::Positioned>;

bool sameRowData(const ListItems::Positioned &a, const ListItems::Positioned &b)
{
    return a.position == b.position && a.item == b.item;
}

// The roles whose values differ between two versions of the same item.
QList<int> changedRoles(const ListItems::Positioned &a, const ListItems::Positioned &b)
{
    QList<int> roles;
    if (a.item.text != b.item.text)
        roles << DisplayedItemsModel::TextRole << DisplayedItemsModel::DisplayTextRole;
    if (a.item.state != b.item.state)
        roles << DisplayedItemsModel::IsDoneRole;
    if (a.item.isPinned != b.item.isPinned)
        roles << DisplayedItemsModel::IsPinnedRole;
    if (a.position != b.position)
        roles << DisplayedItemsModel::PositionRole;
    return roles;
}

// Leading and trailing rows that show the same items in both versions.
struct CommonEnds
{
    qsizetype prefix = 0;
    qsizetype suffix = 0;
};

CommonEnds commonEnds(const Rows &a, const Rows &b)
{
    CommonEnds ends;
    const qsizetype shorter = std::min(a.size(), b.size());
    while (ends.prefix < shorter && a[ends.prefix].item.id == b[ends.prefix].item.id)
        ++ends.prefix;
    while (ends.suffix < shorter - ends.prefix
           && a[a.size() - 1 - ends.suffix].item.id == b[b.size() - 1 - ends.suffix].item.id)
        ++ends.suffix;
    return ends;
}

// Marks the longest run of entries of `from` that increase: the rows that
// keep their order among themselves, so only the others need to move.
std::vector<bool> longestIncreasing(const std::vector<qsizetype> &from)
{
    const size_t n = from.size();
    std::vector<size_t> tails;          // index of the smallest tail of each run length
    std::vector<ptrdiff_t> before(n, -1); // the entry before each in its run
    for (size_t i = 0; i < n; ++i) {
        const auto at = std::lower_bound(tails.begin(), tails.end(), from[i],
                                         [&](size_t t, qsizetype value) { return from[t] < value; });
        if (at != tails.begin())
            before[i] = ptrdiff_t(*(at - 1));
        if (at == tails.end())
            tails.push_back(i);
        else
            *at = i;
    }
    std::vector<bool> stays(n, false);
    for (ptrdiff_t i = tails.empty() ? -1 : ptrdiff_t(tails.back()); i >= 0; i = before[size_t(i)])
        stays[size_t(i)] = true;
    return stays;
}

// Beyond this many moved rows a reorder is one layout change instead: the
// view then keeps its position without tracking every row's way.
constexpr qsizetype kMaxReportedMoves = 64;

} // namespace

DisplayedItemsModel::DisplayedItemsModel(ListItems *store, QObject *parent)
    : QAbstractListModel(parent)
    , m_store(store)
{
    if (store) {
        connect(store, &ListItems::listChanged, this, [this](qint64 listIndex) {
            if (listIndex != m_listIndex)
                return;
            if (m_holds > 0)
                m_dirty = true;
            else
                refresh();
        });
        // After lists are added, deleted or moved another list may stand at our index.
        connect(store, &ListItems::listsRearranged, this, [this] {
            if (m_holds > 0)
                m_dirty = true;
            else
                refresh();
        });
    }
    m_rows = displayedRows();
}

void DisplayedItemsModel::setListIndex(qint64 listIndex)
{
    if (listIndex == m_listIndex)
        return;
    m_listIndex = listIndex;
    if (m_holds > 0) {
        m_indexChanged = true;
        return;
    }
    // Another list: the view starts afresh rather than animating a diff.
    reset(displayedRows());
}

void DisplayedItemsModel::holdUpdates()
{
    ++m_holds;
}

void DisplayedItemsModel::releaseUpdates()
{
    Q_ASSERT(m_holds > 0);
    if (m_holds == 0 || --m_holds > 0)
        return;
    const bool switched = m_indexChanged;
    const bool dirty = m_dirty;
    m_indexChanged = m_dirty = false;
    if (!switched) {
        if (dirty)
            refresh();
        return;
    }
    Rows rows = displayedRows();
    const bool sameItems = rows.size() == m_rows.size() && commonEnds(m_rows, rows).prefix == rows.size();
    if (sameItems)
        reportChangedRows(rows, 0, int(rows.size()) - 1);
    else
        reset(std::move(rows));
}

void DisplayedItemsModel::setRotationAngle(const QUuid &id, double degrees)
{
    m_angles.insert(id, degrees);
    for (int row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].item.id == id) {
            const QModelIndex i = index(row);
            emit dataChanged(i, i, {RotationAngleRole});
        }
    }
}

int DisplayedItemsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant DisplayedItemsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const ListItems::Positioned &row = m_rows[index.row()];
    switch (role) {
    case ItemIdRole:
        return row.item.id.toString(QUuid::WithoutBraces).toUpper();
    case Qt::DisplayRole:
    case TextRole:
        return row.item.text;
    case DisplayTextRole:
        return ItemRowText::shown(row.item.text);
    case IsDoneRole:
        return row.item.isDone();
    case IsPinnedRole:
        return row.item.isPinned;
    case PositionRole:
        return qint64(row.position);
    case RotationAngleRole:
        return m_angles.value(row.item.id, 0.0);
    default:
        return {};
    }
}

QHash<int, QByteArray> DisplayedItemsModel::roleNames() const
{
    return {
        {ItemIdRole, "itemId"},
        {TextRole, "text"},
        {IsDoneRole, "isDone"},
        {IsPinnedRole, "isPinned"},
        {PositionRole, "position"},
        {RotationAngleRole, "rotationAngle"},
        {DisplayTextRole, "itemText"},
    };
}

const ListItem *DisplayedItemsModel::itemAt(int row) const
{
    return row >= 0 && row < m_rows.size() ? &m_rows[row].item : nullptr;
}

int DisplayedItemsModel::rowOf(const QString &itemId) const
{
    const std::optional<QUuid> id = ScreenContext::parseId(itemId);
    if (!id)
        return -1;
    for (int row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].item.id == *id)
            return row;
    }
    return -1;
}

Rows DisplayedItemsModel::displayedRows() const
{
    if (!m_store)
        return {};
    ListItems::Partition parts = m_store->partition(m_listIndex);
    parts.pinned.append(std::move(parts.unpinned));
    return std::move(parts.pinned);
}

void DisplayedItemsModel::refresh()
{
    Rows rows = displayedRows();
    if (rows.size() == m_rows.size()) {
        const CommonEnds ends = commonEnds(m_rows, rows);
        if (ends.prefix == rows.size()) {
            reportChangedRows(rows, 0, int(rows.size()) - 1);
            return;
        }
        if (tryReorder(rows))
            return;
    } else if (tryInsertOrRemove(rows)) {
        return;
    }
    reset(std::move(rows));
}

void DisplayedItemsModel::reportChangedRows(const Rows &rows, int first, int last)
{
    // Rows [first, last] hold the same items in m_rows and rows; report each
    // run of changed rows once, with the roles that changed in it.
    QList<int> roles;
    int runStart = -1;
    auto flush = [&](int runEnd) {
        if (runStart < 0)
            return;
        std::sort(roles.begin(), roles.end());
        roles.erase(std::unique(roles.begin(), roles.end()), roles.end());
        emit dataChanged(index(runStart), index(runEnd), roles);
        roles.clear();
        runStart = -1;
    };
    for (int row = first; row <= last; ++row) {
        if (sameRowData(m_rows[row], rows[row])) {
            flush(row - 1);
            continue;
        }
        roles << changedRoles(m_rows[row], rows[row]);
        m_rows[row] = rows[row];
        if (runStart < 0)
            runStart = row;
    }
    flush(last);
}

bool DisplayedItemsModel::tryInsertOrRemove(Rows &rows)
{
    const qsizetype delta = rows.size() - m_rows.size();
    if (delta != 1 && delta != -1)
        return false;
    const CommonEnds ends = commonEnds(m_rows, rows);
    const int at = int(ends.prefix);
    if (delta == 1) {
        if (ends.prefix + ends.suffix != m_rows.size())
            return false;
        beginInsertRows({}, at, at);
        m_rows.insert(at, rows[at]);
        endInsertRows();
    } else {
        if (ends.prefix + ends.suffix != rows.size())
            return false;
        beginRemoveRows({}, at, at);
        m_rows.removeAt(at);
        endRemoveRows();
    }
    emit countChanged();
    // The rows after it may now stand at other stored positions.
    reportChangedRows(rows, 0, int(rows.size()) - 1);
    return true;
}

bool DisplayedItemsModel::tryReorder(Rows &rows)
{
    // Only the same items in another order (a sort, its undo, a pin or a
    // drag); anything else, or repeated ids, starts afresh.
    const qsizetype n = rows.size();
    QHash<QUuid, qsizetype> oldRow;
    oldRow.reserve(n);
    for (qsizetype i = 0; i < n; ++i)
        oldRow.insert(m_rows[i].item.id, i);
    if (oldRow.size() != n)
        return false;
    std::vector<qsizetype> from(static_cast<size_t>(n));
    std::vector<bool> taken(static_cast<size_t>(n), false);
    for (qsizetype i = 0; i < n; ++i) {
        const auto it = oldRow.constFind(rows[i].item.id);
        if (it == oldRow.constEnd() || taken[size_t(*it)])
            return false;
        taken[size_t(*it)] = true;
        from[size_t(i)] = *it;
    }

    const std::vector<bool> stays = longestIncreasing(from);
    const qsizetype moves = std::count(stays.begin(), stays.end(), false);
    if (moves <= kMaxReportedMoves) {
        // Each row out of order goes right after the row that precedes it
        // in the new order, which is already where it belongs.
        const auto rowOfId = [this](const QUuid &id) {
            for (qsizetype r = 0; r < m_rows.size(); ++r) {
                if (m_rows[r].item.id == id)
                    return r;
            }
            return qsizetype(-1);
        };
        for (qsizetype i = 0; i < n; ++i) {
            if (stays[size_t(i)])
                continue;
            const qsizetype at = rowOfId(rows[i].item.id);
            const qsizetype to = i == 0 ? 0 : rowOfId(rows[i - 1].item.id) + 1;
            if (at == to)
                continue;
            beginMoveRows({}, int(at), int(at), {}, int(to));
            m_rows.move(at, at < to ? to - 1 : to);
            endMoveRows();
        }
        reportChangedRows(rows, 0, int(n) - 1);
        return true;
    }

    emit aboutToReorder();
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<qsizetype> to(static_cast<size_t>(n));
    for (qsizetype i = 0; i < n; ++i)
        to[size_t(from[size_t(i)])] = i;
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &old : before)
        after << index(int(to[size_t(old.row())]));
    changePersistentIndexList(before, after);
    m_rows = std::move(rows);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
    emit reordered();
    return true;
}

void DisplayedItemsModel::reset(Rows rows)
{
    const bool countChanges = rows.size() != m_rows.size();
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
    if (countChanges)
        emit countChanged();
}
