#include "model/ItemsCodec.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace ItemsCodec;

class TestItemsCodec : public QObject
{
    Q_OBJECT

    static ListItem item(const QString &text, ListItemState s = ListItemState::toDo, bool pinned = false)
    {
        ListItem i = ListItem::create(text);
        i.state = s;
        i.isPinned = pinned;
        return i;
    }

    static QString decodeError(const QByteArray &json)
    {
        const auto r = decode(json);
        return std::holds_alternative<QString>(r) ? std::get<QString>(r) : QString();
    }

private slots:
    void newItemDefaultsAndEquality()
    {
        const ListItem a = ListItem::create(QStringLiteral("Milk"));
        QVERIFY(!a.id.isNull());
        QCOMPARE(a.id.version(), QUuid::Random);
        QCOMPARE(a.state, ListItemState::toDo);
        QVERIFY(!a.isPinned);

        ListItem b = ListItem::create(QStringLiteral("Milk"));
        QVERIFY(a != b); // same text and state, different ids
        ListItem c = a;
        QCOMPARE(c, a);
        c.isPinned = true;
        QVERIFY(c != a);
        c = a;
        c.text = QStringLiteral("milk"); // exact, case-sensitive text equality
        QVERIFY(c != a);
    }

    void stateRawValues()
    {
        QCOMPARE(listItemStateFromRaw(QStringLiteral("toDo")), ListItemState::toDo);
        QCOMPARE(listItemStateFromRaw(QStringLiteral("done")), ListItemState::done);
        for (const char *bad : {"Done", "todo", "TODO", " done", "done ", ""})
            QVERIFY2(!listItemStateFromRaw(QString::fromLatin1(bad)), bad);
        QCOMPARE(rawValue(ListItemState::toDo), QStringLiteral("toDo"));
        QCOMPARE(rawValue(ListItemState::done), QStringLiteral("done"));
    }

    void encodesKeysInOrderWithUpperCaseUuid()
    {
        ListItem i = item(QStringLiteral("Bread"), ListItemState::done, true);
        i.id = QUuid(QStringLiteral("{3f2504e0-4f89-41d3-9a0c-0305e82c3301}"));
        QCOMPARE(encodeList({i}),
                 QByteArray(R"([{"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","text":"Bread","state":"done","isPinned":true}])"));
        QCOMPARE(encode({}), QByteArray("[]"));
        QCOMPARE(encode({{}, {}}), QByteArray("[[],[]]"));
    }

    void roundTripsAwkwardTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("emoji") << QStringLiteral("Camping 🔥 and ✈️ and 👩‍👩‍👧");
        QTest::newRow("quotes") << QStringLiteral("say \"hi\" and 'bye'");
        QTest::newRow("backslashes") << QStringLiteral("C:\\path\\to\\ \\u0041");
        QTest::newRow("line breaks") << QStringLiteral("one\ntwo\r\nthree\tfour");
        QTest::newRow("controls") << QString::fromUtf16(u"a\u0001b\u001fc\u007f");
        QTest::newRow("slash and unicode") << QStringLiteral("a/b ü 中文 \u2028");
    }
    void roundTripsAwkwardTexts()
    {
        QFETCH(QString, text);
        const QList<ItemList> lists{{item(text), item(text, ListItemState::done, true)}, {}, {item(QStringLiteral("x"))}};
        const QByteArray json = encode(lists);
        // What we write must be plain valid JSON that any reader accepts.
        QJsonParseError err;
        QJsonDocument::fromJson(json, &err);
        QCOMPARE(err.error, QJsonParseError::NoError);
        const auto decoded = decode(json);
        QVERIFY(std::holds_alternative<QList<ItemList>>(decoded));
        QCOMPARE(std::get<QList<ItemList>>(decoded), lists);
    }

    void acceptsAnyKeyOrderExtraKeysAndLowerCaseIds()
    {
        const QByteArray json = R"([[{"isPinned":false,"extra":1,"state":"toDo","text":"a","id":"3f2504e0-4f89-41d3-9a0c-0305e82c3301"}]])";
        const auto decoded = decode(json);
        QVERIFY(std::holds_alternative<QList<ItemList>>(decoded));
        const ListItem i = std::get<QList<ItemList>>(decoded).at(0).at(0);
        QCOMPARE(i.text, QStringLiteral("a"));
        QCOMPARE(uuidText(i.id), QStringLiteral("3F2504E0-4F89-41D3-9A0C-0305E82C3301"));
    }

    void rejectsEveryMalformedDocument_data()
    {
        QTest::addColumn<QByteArray>("json");
        const QByteArray ok = R"("id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301")";
        QTest::newRow("not json") << QByteArray("[[{");
        QTest::newRow("empty bytes") << QByteArray();
        QTest::newRow("invalid utf-8") << QByteArray("[[{\"id\":\"3F2504E0-4F89-41D3-9A0C-0305E82C3301\",\"text\":\"\xff\xfe\",\"state\":\"toDo\",\"isPinned\":false}]]");
        QTest::newRow("top is object") << QByteArray("{}");
        QTest::newRow("list is object") << QByteArray("[{}]");
        QTest::newRow("item is string") << QByteArray("[[\"x\"]]");
        QTest::newRow("missing isPinned") << QByteArray("[[{" + ok + R"(,"text":"a","state":"toDo"}]])");
        QTest::newRow("missing id") << QByteArray(R"([[{"text":"a","state":"toDo","isPinned":false}]])");
        QTest::newRow("missing text") << QByteArray("[[{" + ok + R"(,"state":"toDo","isPinned":false}]])");
        QTest::newRow("missing state") << QByteArray("[[{" + ok + R"(,"text":"a","isPinned":false}]])");
        QTest::newRow("state Done") << QByteArray("[[{" + ok + R"(,"text":"a","state":"Done","isPinned":false}]])");
        QTest::newRow("state todo") << QByteArray("[[{" + ok + R"(,"text":"a","state":"todo","isPinned":false}]])");
        QTest::newRow("pinned as string") << QByteArray("[[{" + ok + R"(,"text":"a","state":"toDo","isPinned":"false"}]])");
        QTest::newRow("text as number") << QByteArray("[[{" + ok + R"(,"text":1,"state":"toDo","isPinned":false}]])");
        QTest::newRow("bad uuid") << QByteArray(R"([[{"id":"not-a-uuid","text":"a","state":"toDo","isPinned":false}]])");
        QTest::newRow("braced uuid") << QByteArray(R"([[{"id":"{3F2504E0-4F89-41D3-9A0C-0305E82C3301}","text":"a","state":"toDo","isPinned":false}]])");
        QTest::newRow("one bad item among good") << QByteArray("[[{" + ok + R"(,"text":"a","state":"toDo","isPinned":false}],[{)" + ok + R"(,"text":"b","state":"doing","isPinned":false}]])");
    }
    void rejectsEveryMalformedDocument()
    {
        QFETCH(QByteArray, json);
        QVERIFY(!decodeError(json).isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestItemsCodec)
#include "tst_itemscodec.moc"
