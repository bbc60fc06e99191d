#pragma once

#include "model/ListItems.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqml.h>

// The rows of one list as the screen shows them: pinned items first, then
// the others, each in list order. It follows the store and reports each
// change as the smallest row change it can (a toggle is one row's data, an
// add one inserted row), so long lists keep their scroll position and
// delegates.
class DisplayedItemsModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Owned by ScreenState")
    Q_PROPERTY(int count READ rowCount NOTIFY countChanged)

public:
    enum Role {
        ItemIdRole = Qt::UserRole + 1, // "itemId": upper-case UUID text
        TextRole,                      // "text"
        IsDoneRole,                    // "isDone"
        IsPinnedRole,                  // "isPinned"
        PositionRole,                  // "position": index in the stored list
        RotationAngleRole,             // "rotationAngle": degrees
        DisplayTextRole,               // "itemText": the text as a row shows it
    };

    explicit DisplayedItemsModel(ListItems *store, QObject *parent = nullptr);

    // Shows another list: a reset, so the view starts afresh.
    void setListIndex(qint64 listIndex);
    qint64 listIndex() const { return m_listIndex; }
    // While held, store changes and index changes wait; the last release
    // applies them in one step, so a list that moved together with the
    // selection shows no change at all. Holds nest.
    void holdUpdates();
    void releaseUpdates();
    // The turn of an item's done-marker in degrees, 0 when never set. The
    // angles are kept here only, for every list's items.
    double rotationAngle(const QUuid &id) const { return m_angles.value(id, 0.0); }
    void setRotationAngle(const QUuid &id, double degrees);

    // Holds the rows for the length of an operation, so the view sees one
    // change: the list as it stands once the selection has followed.
    class Hold
    {
    public:
        explicit Hold(DisplayedItemsModel &model)
            : m_model(model)
        {
            m_model.holdUpdates();
        }
        ~Hold() { m_model.releaseUpdates(); }
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;

    private:
        DisplayedItemsModel &m_model;
    };

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // The item shown at a row (for the screen's row actions).
    const ListItem *itemAt(int row) const;
    // The row showing an item, or -1.
    Q_INVOKABLE int rowOf(const QString &itemId) const;

signals:
    void countChanged();
    // Around a reorder reported as one layout change: the view notes where
    // the rows it shows stand before, and slides them from there after.
    void aboutToReorder();
    void reordered();

private:
    // Follows the store: diffs the rows against the list as it now stands.
    void refresh();
    // Ids in the same order: report only the rows whose data differ.
    void reportChangedRows(const QList<ListItems::Positioned> &rows, int first, int last);
    bool tryInsertOrRemove(QList<ListItems::Positioned> &rows);
    // The same items reordered: row moves, or one layout change when too
    // many rows move.
    bool tryReorder(QList<ListItems::Positioned> &rows);
    void reset(QList<ListItems::Positioned> rows);
    QList<ListItems::Positioned> displayedRows() const;

    QPointer<ListItems> m_store;
    qint64 m_listIndex = 0;
    QList<ListItems::Positioned> m_rows;
    QHash<QUuid, double> m_angles;
    int m_holds = 0;
    bool m_dirty = false;
    bool m_indexChanged = false;
};
