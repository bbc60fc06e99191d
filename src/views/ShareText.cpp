#include "ShareText.h"

#include "model/Graphemes.h"
#include "model/ListItems.h"

#include <QStringList>

namespace ShareText {

QString format(const QString &listName, const ItemList &items)
{
    QStringList lines;
    lines.reserve(items.size() + 3);
    lines << listName << QString(Graphemes::count(listName), QLatin1Char('_')) << QString();
    for (const ListItem &item : items) {
        lines << QStringLiteral("\u2022 ") + item.text
                + (item.isDone() ? QStringLiteral(" \u2713") : QStringLiteral(" "));
    }
    return lines.join(QLatin1Char('\n'));
}

std::optional<QString> build(const ListItems &store, qint64 listIndex)
{
    // Items and names are checked separately: they are loaded separately.
    if (listIndex < 0 || listIndex >= store.items().size())
        return std::nullopt;
    const ItemList &items = store.items()[listIndex];
    if (listIndex >= store.listNames().size())
        return std::nullopt;
    return format(store.listNames()[listIndex], items);
}

} // namespace ShareText
