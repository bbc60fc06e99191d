#include "model/ItemsCodec.h"

#include <QJsonDocument>
#include <QTest>

using namespace ItemsCodec;

class TestItemsCodec : public QObject
{
    Q_OBJECT

private slots:
    void encodesKeysInOrderWithUpperCaseUuid()
    {
        const QUuid id(QStringLiteral("{3f2504e0-4f89-41d3-9a0c-0305e82c3301}"));
        QCOMPARE(encodeList({ListItem{id, QStringLiteral("Bread"), ListItemState::done, true}}),
                 QByteArray(R"([{"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","text":"Bread","state":"done","isPinned":true}])"));
        QCOMPARE(encode({{}, {}}), QByteArray("[[],[]]"));
    }

    void roundTripsAwkwardTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("emoji") << QStringLiteral("Camping 🔥 and ✈️ and 👩‍👩‍👧");
        QTest::newRow("quotes and backslashes") << QStringLiteral("say \"hi\" C:\\path \\u0041");
        QTest::newRow("line breaks") << QStringLiteral("one\ntwo\r\nthree\tfour");
        QTest::newRow("controls") << QString::fromUtf16(u"a\u0001b\u001fc\u007f \u2028");
    }
    void roundTripsAwkwardTexts()
    {
        QFETCH(QString, text);
        const ListItem done{QUuid::createUuid(), text, ListItemState::done, true};
        const QList<ItemList> lists{{ListItem::create(text), done}, {}};
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
        QCOMPARE(uuidText(std::get<QList<ItemList>>(decoded).at(0).at(0).id),
                 QStringLiteral("3F2504E0-4F89-41D3-9A0C-0305E82C3301"));
    }

    void rejectsEveryMalformedDocument_data()
    {
        QTest::addColumn<QByteArray>("json");
        const QByteArray id = R"("id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301")";
        const auto one = [&](const char *rest) { return QByteArray("[[{" + id + rest + "}]]"); };
        QTest::newRow("not json") << QByteArray("[[{");
        QTest::newRow("empty bytes") << QByteArray();
        QTest::newRow("invalid utf-8") << one(",\"text\":\"\xff\xfe\",\"state\":\"toDo\",\"isPinned\":false");
        QTest::newRow("top is object") << QByteArray("{}");
        QTest::newRow("list is object") << QByteArray("[{}]");
        QTest::newRow("item is string") << QByteArray("[[\"x\"]]");
        QTest::newRow("missing id") << QByteArray(R"([[{"text":"a","state":"toDo","isPinned":false}]])");
        QTest::newRow("missing text") << one(R"(,"state":"toDo","isPinned":false)");
        QTest::newRow("missing state") << one(R"(,"text":"a","isPinned":false)");
        QTest::newRow("missing isPinned") << one(R"(,"text":"a","state":"toDo")");
        QTest::newRow("state Done") << one(R"(,"text":"a","state":"Done","isPinned":false)");
        QTest::newRow("pinned as string") << one(R"(,"text":"a","state":"toDo","isPinned":"false")");
        QTest::newRow("text as number") << one(R"(,"text":1,"state":"toDo","isPinned":false)");
        QTest::newRow("bad uuid") << QByteArray(R"([[{"id":"not-a-uuid","text":"a","state":"toDo","isPinned":false}]])");
        QTest::newRow("braced uuid")
            << QByteArray(R"([[{"id":"{3F2504E0-4F89-41D3-9A0C-0305E82C3301}","text":"a","state":"toDo","isPinned":false}]])");
        QTest::newRow("one bad item among good")
            << QByteArray("[[{" + id + R"(,"text":"a","state":"toDo","isPinned":false}],[{)" + id
                          + R"(,"text":"b","state":"doing","isPinned":false}]])");
    }
    void rejectsEveryMalformedDocument()
    {
        QFETCH(QByteArray, json);
        const auto decoded = decode(json);
        QVERIFY(std::holds_alternative<QString>(decoded));
        QVERIFY(!std::get<QString>(decoded).isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestItemsCodec)
#include "tst_itemscodec.moc"
