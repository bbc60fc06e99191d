#pragma once

#include "ListItem.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <variant>

// The stored JSON form of items: an array (one element per list) of arrays
// of {"id","text","state","isPinned"} objects, keys written in that order.
namespace ItemsCodec {

// Compact JSON of one list (an array of item objects).
QByteArray encodeList(const ItemList &list);
// Joins already-encoded lists into the whole document.
QByteArray joinLists(const QList<QByteArray> &encodedLists);
QByteArray encode(const QList<ItemList> &lists);

// Strict decoding of one item object: all four keys required, extra keys
// ignored. Returns the item or an error text.
std::variant<ListItem, QString> decodeItem(const QJsonObject &object);
// Decodes the whole document, or returns the error text.
std::variant<QList<ItemList>, QString> decode(const QByteArray &json);

// Upper-case 8-4-4-4-12 form.
QString uuidText(const QUuid &id);

} // namespace ItemsCodec
