#pragma once

#include "model/ListItem.h"

#include <QStringList>

// Items written as texts: "*" before a text pins the item, "+" marks it done.
inline ListItem markedItem(QString text)
{
    ListItem item = ListItem::create({});
    item.isPinned = text.startsWith(u'*');
    text.remove(0, item.isPinned ? 1 : 0);
    item.state = text.startsWith(u'+') ? ListItemState::done : ListItemState::toDo;
    item.text = text.mid(item.isDone() ? 1 : 0);
    return item;
}

inline ItemList markedItems(const QStringList &texts)
{
    ItemList out;
    for (const QString &text : texts)
        out << markedItem(text);
    return out;
}

inline QStringList markedTexts(const ItemList &items)
{
    QStringList out;
    for (const ListItem &item : items)
        out << QString(item.isPinned ? "*" : "") + QString(item.isDone() ? "+" : "") + item.text;
    return out;
}
