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
    };

    explicit DisplayedItemsModel(ListItems *store, QObject *parent = nullptr);

    void setListIndex(qint64 listIndex);
    qint64 listIndex() const { return m_listIndex; }
    // Set by the screen when a marker's angle changes.
    void setRotationAngle(const QUuid &id, double degrees);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // The item shown at a row (for the screen's row actions).
    const ListItem *itemAt(int row) const;

signals:
    void countChanged();

private:
    void refresh();

    QPointer<ListItems> m_store;
    qint64 m_listIndex = 0;
    QList<ListItems::Positioned> m_rows;
    QHash<QUuid, double> m_angles;
};
