#include "ItemsCodec.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

namespace ItemsCodec {

namespace {

void appendEscaped(QByteArray &out, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    static const char hex[] = "0123456789abcdef";
    out.append('"');
    const char *p = utf8.constData();
    const char *end = p + utf8.size();
    const char *runStart = p;
    for (; p != end; ++p) {
        const unsigned char c = static_cast<unsigned char>(*p);
        if (c >= 0x20 && c != '"' && c != '\\')
            continue;
        out.append(runStart, p - runStart);
        runStart = p + 1;
        switch (c) {
        case '"': out.append("\\\"", 2); break;
        case '\\': out.append("\\\\", 2); break;
        case '\n': out.append("\\n", 2); break;
        case '\r': out.append("\\r", 2); break;
        case '\t': out.append("\\t", 2); break;
        case '\b': out.append("\\b", 2); break;
        case '\f': out.append("\\f", 2); break;
        default: {
            const char esc[6] = {'\\', 'u', '0', '0', hex[c >> 4], hex[c & 0xf]};
            out.append(esc, 6);
        }
        }
    }
    out.append(runStart, end - runStart);
    out.append('"');
}

QString describe(const QString &what, qsizetype list, qsizetype item)
{
    return QStringLiteral("item %1 of list %2: %3").arg(item).arg(list).arg(what);
}

} // namespace

QString uuidText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QByteArray encodeList(const ItemList &list)
{
    QByteArray out;
    qsizetype estimate = 2;
    for (const ListItem &item : list)
        estimate += 90 + item.text.size() * 3;
    out.reserve(estimate);
    out.append('[');
    bool first = true;
    for (const ListItem &item : list) {
        if (!first)
            out.append(',');
        first = false;
        out.append("{\"id\":\"", 7);
        out.append(item.id.toByteArray(QUuid::WithoutBraces).toUpper());
        out.append("\",\"text\":", 9);
        appendEscaped(out, item.text);
        out.append(item.state == ListItemState::done ? QByteArrayLiteral(",\"state\":\"done\"")
                                                     : QByteArrayLiteral(",\"state\":\"toDo\""));
        out.append(item.isPinned ? QByteArrayLiteral(",\"isPinned\":true}")
                                 : QByteArrayLiteral(",\"isPinned\":false}"));
    }
    out.append(']');
    return out;
}

QByteArray joinLists(const QList<QByteArray> &encodedLists)
{
    qsizetype size = 2 + encodedLists.size();
    for (const QByteArray &l : encodedLists)
        size += l.size();
    QByteArray out;
    out.reserve(size);
    out.append('[');
    for (qsizetype i = 0; i < encodedLists.size(); ++i) {
        if (i > 0)
            out.append(',');
        out.append(encodedLists[i]);
    }
    out.append(']');
    return out;
}

QByteArray encode(const QList<ItemList> &lists)
{
    QList<QByteArray> parts;
    parts.reserve(lists.size());
    for (const ItemList &l : lists)
        parts.append(encodeList(l));
    return joinLists(parts);
}

std::variant<ListItem, QString> decodeItem(const QJsonObject &object)
{
    const auto id = object.constFind(QLatin1String("id"));
    const auto text = object.constFind(QLatin1String("text"));
    const auto state = object.constFind(QLatin1String("state"));
    const auto pinned = object.constFind(QLatin1String("isPinned"));
    if (id == object.constEnd())
        return QStringLiteral("missing key \"id\"");
    if (text == object.constEnd())
        return QStringLiteral("missing key \"text\"");
    if (state == object.constEnd())
        return QStringLiteral("missing key \"state\"");
    if (pinned == object.constEnd())
        return QStringLiteral("missing key \"isPinned\"");
    if (!id->isString())
        return QStringLiteral("\"id\" is not a string");
    if (!text->isString())
        return QStringLiteral("\"text\" is not a string");
    if (!state->isString())
        return QStringLiteral("\"state\" is not a string");
    if (!pinned->isBool())
        return QStringLiteral("\"isPinned\" is not a boolean");

    const QString idText = id->toString();
    // Only the plain 36-character form is a UUID here (no braces, no URN).
    const QUuid uuid = idText.size() == 36 ? QUuid::fromString(idText) : QUuid();
    if (uuid.isNull() && idText != u"00000000-0000-0000-0000-000000000000")
        return QStringLiteral("\"id\" is not a valid UUID: \"%1\"").arg(idText);
    const auto parsedState = listItemStateFromRaw(state->toString());
    if (!parsedState)
        return QStringLiteral("\"state\" has an unknown value: \"%1\"").arg(state->toString());

    return ListItem{uuid, text->toString(), *parsedState, pinned->toBool()};
}

std::variant<QList<ItemList>, QString> decode(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return QStringLiteral("invalid JSON at offset %1: %2").arg(error.offset).arg(error.errorString());
    if (!doc.isArray())
        return QStringLiteral("expected an array of lists");

    const QJsonArray outer = doc.array();
    QList<ItemList> lists;
    lists.reserve(outer.size());
    for (qsizetype l = 0; l < outer.size(); ++l) {
        const QJsonValue listValue = outer.at(l);
        if (!listValue.isArray())
            return QStringLiteral("list %1: expected an array of items").arg(l);
        const QJsonArray inner = listValue.toArray();
        ItemList list;
        list.reserve(inner.size());
        for (qsizetype i = 0; i < inner.size(); ++i) {
            const QJsonValue itemValue = inner.at(i);
            if (!itemValue.isObject())
                return describe(QStringLiteral("expected an object"), l, i);
            auto result = decodeItem(itemValue.toObject());
            if (auto *err = std::get_if<QString>(&result))
                return describe(*err, l, i);
            list.append(std::get<ListItem>(std::move(result)));
        }
        lists.append(std::move(list));
    }
    return lists;
}

} // namespace ItemsCodec
