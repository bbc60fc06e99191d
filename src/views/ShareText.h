#pragma once

#include "model/ListItem.h"

#include <QString>
#include <optional>

class ListItems;

// The plain text a list is shared as:
//
//   Home
//   ____
//
//   • Milk 
//   • Bread ✓
//
// Title, an underline as long as the title, an empty line, then one bullet
// line per item in stored order: " ✓" after a done item, a single space
// after one still to do. No line feed at the end.
namespace ShareText {

QString format(const QString &listName, const ItemList &items);

// The text of the list at `listIndex`, or nothing when there is no such list.
std::optional<QString> build(const ListItems &store, qint64 listIndex);

} // namespace ShareText
