#pragma once

#include "ListItemState.h"

#include <QList>
#include <QMetaType>
#include <QString>
#include <QUuid>

// One line of a list. Identity is `id`; equality compares every field.
struct ListItem
{
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(bool isDone READ isDone)
    Q_PROPERTY(bool isPinned MEMBER isPinned)

public:
    QUuid id;
    QString text;
    ListItemState state = ListItemState::toDo;
    bool isPinned = false;

    // A new item: fresh random id, to do, not pinned.
    static ListItem create(const QString &text);

    bool isDone() const { return state == ListItemState::done; }
    bool operator==(const ListItem &other) const = default;
};

using ItemList = QList<ListItem>;
Q_DECLARE_METATYPE(ListItem)
