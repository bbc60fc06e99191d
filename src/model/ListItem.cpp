#include "ListItem.h"

ListItem ListItem::create(const QString &text)
{
    return ListItem{QUuid::createUuid(), text, ListItemState::toDo, false};
}
