#include "MarkedItems.h"
#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "model/UndoStack.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QSignalSpy>
#include <QTemporaryFile>
#include <QTest>
#include <cstdio>
#include <functional>
#include <unistd.h>

using namespace ItemsCodec;

namespace {

// A list as words of marked texts: "*a b +c".
ItemList parse(const QString &notation)
{
    return markedItems(notation.split(u' ', Qt::SkipEmptyParts));
}

QString notation(const ItemList &list)
{
    return markedTexts(list).join(u' ');
}

// A store over memory with one list holding the given items.
struct Fixture
{
    MemoryPreferencesStore prefs;
    std::unique_ptr<ListItems> store;

    explicit Fixture(const QString &items)
    {
        prefs.setStringList(PreferenceKeys::listNames, {QStringLiteral("L")});
        prefs.setData(PreferenceKeys::items, ItemsCodec::encode({parse(items)}));
        store = std::make_unique<ListItems>(prefs);
        prefs.resetWriteLog();
    }
    ItemList list() const { return store->items().at(0); }
    QString stored() const
    {
        return notation(std::get<QList<ItemList>>(ItemsCodec::decode(*prefs.data(PreferenceKeys::items))).at(0));
    }
};

using Op = std::function<void(ListItems &)>;

} // namespace

Q_DECLARE_METATYPE(Op)

class TestListItems : public QObject
{
    Q_OBJECT

    // Steps on list 0, by position at the time they run.
    static Op add(const QString &t) { return [=](auto &s) { s.addItem(ListItem::create(t), 0); }; }
    static Op edit(int at, const QString &t) { return [=](auto &s) { s.updateItemText(idAt(s, at), 0, t); }; }
    static Op mark(int at) { return [=](auto &s) { s.setState(ListItemState::done, idAt(s, at), 0); }; }
    static Op markAll() { return [](auto &s) { s.setAllStates(0, ListItemState::toDo); }; }
    static Op pin(int at, bool flag) { return [=](auto &s) { s.setPinned(flag, idAt(s, at), 0); }; }
    static Op remove(QList<qsizetype> at) { return [=](auto &s) { s.deleteItems(at, 0); }; }
    static Op insert(QString t, int at) { return [=](auto &s) { s.insertItem(ListItem::create(t), at, 0); }; }
    static Op move(QList<qsizetype> from, int to) { return [=](auto &s) { s.moveItems(from, to, 0); }; }
    static Op sort(bool up, bool byText) { return [=](auto &s) { s.sortItems(0, up, byText); }; }
    static Op sortIn(const char *locale)
    {
        return [=](auto &s) {
            const QLocale saved;
            QLocale::setDefault(QLocale(QString::fromLatin1(locale)));
            s.sortItems(0, true, true);
            QLocale::setDefault(saved);
        };
    }
    static QUuid idAt(const ListItems &s, int at) { return s.items()[0][at].id; }

private slots:
    void firstStartWritesDefaultNamesOnly()
    {
        MemoryPreferencesStore prefs;
        ListItems store(prefs);
        QCOMPARE(store.listNames(), ListItems::defaultListNames());
        QCOMPARE(store.items(), QList<ItemList>(12));
        QCOMPARE(prefs.writtenKeys(), QStringList{PreferenceKeys::listNames});
        QCOMPARE(*prefs.stringList(PreferenceKeys::listNames), ListItems::defaultListNames());
        // Exact default names, emoji and variation selector included.
        QCOMPARE(store.listNames().at(10), QString::fromUtf8("Vacation Ideas\u2708\uFE0F"));

        // Names that cannot be read are kept aside before the defaults replace them.
        const QVariant bad = QVariantList{QStringLiteral("a"), 1};
        MemoryPreferencesStore wrongType;
        wrongType.setRawForTest(PreferenceKeys::listNames, bad);
        QCOMPARE(ListItems(wrongType).listNames(), ListItems::defaultListNames());
        QCOMPARE(wrongType.copies(), (QList<std::pair<QString, QVariant>>{{PreferenceKeys::listNames, bad}}));
    }

    void reconcilesLengthsWithoutWriting()
    {
        // Names decide how many lists there are: items are cut or padded.
        for (const auto &[names, lists] : {std::pair{0, 3}, {3, 5}, {5, 2}, {4, 4}}) {
            MemoryPreferencesStore prefs;
            QStringList n;
            QList<ItemList> stored;
            for (int i = 0; i < std::max(names, lists); ++i) {
                if (i < names)
                    n << QString::number(i);
                if (i < lists)
                    stored << parse(QStringLiteral("in%1").arg(i));
            }
            prefs.setStringList(PreferenceKeys::listNames, n);
            prefs.setData(PreferenceKeys::items, ItemsCodec::encode(stored));
            prefs.resetWriteLog();

            ListItems store(prefs);
            QCOMPARE(store.listNames(), n);
            QCOMPARE(store.items().size(), names);
            for (int i = 0; i < names; ++i)
                QCOMPARE(store.items()[i], i < lists ? stored[i] : ItemList());
            QCOMPARE(prefs.writeCount(), 0);
            // Lists beyond the names would go at the next save: the document is kept first.
            QCOMPARE(prefs.copies().size(), lists > names ? 1 : 0);
            if (lists > names)
                QCOMPARE(prefs.copies().first().second, QVariant(ItemsCodec::encode(stored)));
        }
    }

    // Any decoding failure, whatever its class (see decodes()), is handled alike.
    void unreadableItemsLeaveEmptyListsAndKeepTheBytes()
    {
        const QByteArray bytes = "garbage";
        MemoryPreferencesStore prefs;
        prefs.setStringList(PreferenceKeys::listNames, {QStringLiteral("A"), QStringLiteral("B")});
        prefs.setData(PreferenceKeys::items, bytes);
        prefs.resetWriteLog();
        // Exactly one diagnostic line on standard output.
        std::fflush(stdout);
        QTemporaryFile capture;
        QVERIFY(capture.open());
        const int saved = dup(STDOUT_FILENO);
        dup2(capture.handle(), STDOUT_FILENO);
        const QList<ItemList> loaded = ListItems(prefs).items();
        std::fflush(stdout);
        dup2(saved, STDOUT_FILENO);
        close(saved);
        capture.seek(0);
        const QByteArray out = capture.readAll();
        QVERIFY2(out.startsWith("Error decoding items: ") && out.count('\n') == 1 && out.endsWith('\n'),
                 out.constData());
        QCOMPARE(loaded, QList<ItemList>(2));
        // Nothing is written, and a copy is kept before the next save replaces them.
        QCOMPARE(prefs.writeCount(), 0);
        QCOMPARE(*prefs.data(PreferenceKeys::items), bytes);
        QCOMPARE(prefs.copies(), (QList<std::pair<QString, QVariant>>{{PreferenceKeys::items, bytes}}));
    }

    void operations_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<Op>("op");
        QTest::addColumn<QString>("after");

        QTest::newRow("add goes below everything") << "*a b" << add("c") << "*a b c";
        QTest::newRow("edit in place") << "*a b c" << edit(1, "b2") << "*a b2 c";
        QTest::newRow("mark done") << "a b" << mark(1) << "a +b";
        QTest::newRow("mark all to do") << "*+a b +c" << markAll() << "*a b c";
        QTest::newRow("delete by former positions") << "a b c d e" << remove({3, 0, 1}) << "c e";
        QTest::newRow("insert at the end") << "c e" << insert("z", 2) << "c e z";

        // Pinning moves an item to the edge of the pinned block.
        QTest::newRow("pin 5th after one pinned") << "*a b c d e" << pin(4, true) << "*a *e b c d";
        QTest::newRow("unpin first of 3 pinned") << "*a *b *c d e" << pin(0, false) << "*b *c a d e";
        QTest::newRow("unpin with all others pinned") << "*a *b *c *d *e" << pin(1, false) << "*a *c *d *e b";
        QTest::newRow("re-unpin moves to block head") << "*a b c d e" << pin(4, false) << "*a e b c d";

        // Moves take the drop gap and the pin state of where they land.
        QTest::newRow("0 to gap 3 of 4") << "a b c d" << move({0}, 3) << "b c a d";
        QTest::newRow("beyond the end") << "a b c d" << move({1}, 99) << "a c d b";
        QTest::newRow("only smallest source moves") << "a b c d" << move({2, 0}, 4) << "b c d a";
        QTest::newRow("into pinned block pins") << "*a *b c d" << move({3}, 0) << "*d *a *b c";
        QTest::newRow("below pinned block unpins") << "*a *b c d" << move({0}, 4) << "*b c d a";
        QTest::newRow("boundary keeps flag (pinned)") << "*a *b c d" << move({0}, 2) << "*b *a c d";
        QTest::newRow("source out of range") << "a b c d" << move({4}, 0) << "a b c d";

        // Text sorts ignore case and keep equal texts in order; status sorts
        // ignore the direction; the pinned block sorts on its own.
        QTest::newRow("text descending") << "b A c" << sort(false, true) << "c b A";
        QTest::newRow("text stable") << "*z *x b a B é f" << sort(true, true) << "*x *z a b B é f";
        QTest::newRow("status ascending") << "*+p +1 2 +3 4" << sort(true, false) << "*+p 2 4 +1 +3";
        QTest::newRow("status descending") << "*+p +1 2 +3 4" << sort(false, false) << "*+p 2 4 +1 +3";
        // Text sorts follow the user's language, not code points.
        QTest::newRow("German: ä with a") << "zebra äpfel Apfel" << sortIn("de_DE") << "Apfel äpfel zebra";
        QTest::newRow("Swedish: ä after z") << "zebra äpfel Apfel" << sortIn("sv_SE") << "Apfel zebra äpfel";
        QTest::newRow("Lithuanian: y before k") << "kelias yra ilgas" << sortIn("lt_LT") << "ilgas yra kelias";
    }
    void operations()
    {
        QFETCH(QString, before);
        QFETCH(Op, op);
        QFETCH(QString, after);
        Fixture f(before);
        op(*f.store);
        QCOMPARE(notation(f.list()), after);
        QCOMPARE(f.stored(), after);
    }

    void unknownIdsAndBadIndicesWriteNothing()
    {
        Fixture f(QStringLiteral("a b"));
        QSignalSpy changed(f.store.get(), &ListItems::itemsChanged);
        const QUuid stranger = QUuid::createUuid();
        f.store->updateItemText(stranger, 0, QStringLiteral("x"));
        f.store->setState(ListItemState::done, stranger, 0);
        f.store->setPinned(true, stranger, 0);
        for (qint64 bad : {qint64(-1), qint64(1), qint64(1) << 40}) {
            f.store->addItem(ListItem::create(QStringLiteral("x")), bad);
            f.store->deleteItems({0}, bad);
            f.store->insertItem(ListItem::create(QStringLiteral("x")), 0, bad);
            f.store->setAllStates(bad, ListItemState::done);
            f.store->moveItems({0}, 1, bad);
            f.store->sortItems(bad, true, true);
            f.store->deleteList(bad);
            f.store->renameList(bad, QStringLiteral("x"));
            f.store->moveList(0, bad);
            f.store->moveList(bad, 0);
            QVERIFY(f.store->partition(bad).pinned.isEmpty());
        }
        // Positions outside the list do nothing, in release and debug builds
        // alike; one bad position spoils the whole deletion.
        for (const QList<qsizetype> &bad : {QList<qsizetype>{2}, {-1}, {0, 2}, {1, -5}, {qsizetype(1) << 40}})
            f.store->deleteItems(bad, 0);
        for (qsizetype bad : {qsizetype(-1), qsizetype(3), qsizetype(-1) << 40})
            f.store->insertItem(ListItem::create(QStringLiteral("x")), bad, 0);
        QCOMPARE(f.prefs.writeCount(), 0);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(notation(f.list()), QStringLiteral("a b"));
    }

    // Undo applies by list position, not identity: an item comes back where
    // it was, even inside what is now the pinned block, and unpinned.
    void undoAppliesByPositionOrDropsTheEntry()
    {
        using namespace UndoActions;
        Fixture f(QStringLiteral("a b c d e f"));
        UndoStack stack;
        stack.push(DeleteItem{0, 3, f.list()[3]});
        f.store->deleteItems({3}, 0);
        for (const ListItem &i : f.list())
            f.store->setPinned(true, i.id, 0);
        QVERIFY(stack.undo(*f.store).applied);
        QCOMPARE(notation(f.list()), QStringLiteral("*a *b *c d *e *f"));

        // Entries for a list that is gone, or positions beyond what exists, or negative, are dropped.
        const ListItem x = ListItem::create(QStringLiteral("x"));
        for (const UndoAction &bad : {UndoAction(DeleteItem{1, 0, x}), UndoAction(DeleteItem{0, 7, x}),
                                      UndoAction(DeleteItem{-2, 0, x}), UndoAction(DeleteList{50, {}, {}}),
                                      UndoAction(MarkAll{-3, {}})})
            stack.push(bad);
        f.prefs.resetWriteLog();
        // The sixth undo finds the stack empty.
        for (int i = 0; i < 6; ++i)
            QVERIFY(!stack.undo(*f.store).applied);
        QVERIFY(stack.isEmpty());
        QCOMPARE(f.prefs.writeCount(), 0);
        QCOMPARE(notation(f.list()), QStringLiteral("*a *b *c d *e *f"));
    }

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
        QTest::newRow("emoji") << QStringLiteral("Camping 🔥 and ✈️ and 👩‍👩‍👧");
        QTest::newRow("quotes and breaks") << QStringLiteral("say \"hi\" C:\\path \\u0041\none\r\n\t");
        QTest::newRow("controls") << QString::fromUtf16(u"a\u0001b\u001fc\u007f \u2028");
    }
    void roundTripsAwkwardTexts()
    {
        QFETCH(QString, text);
        const ListItem done{QUuid::createUuid(), text, ListItemState::done, true};
        const QList<ItemList> lists{{ListItem::create(text), done}, {}};
        // Decoding goes through a strict JSON parser, so this also proves the output is valid JSON.
        const auto decoded = decode(encode(lists));
        QVERIFY(std::holds_alternative<QList<ItemList>>(decoded));
        QCOMPARE(std::get<QList<ItemList>>(decoded), lists);
    }

    // Any key order, extra keys and lower-case ids are read; anything else
    // malformed spoils the whole document.
    void decodes_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<bool>("valid");
        const auto item = [](const QByteArray &fields) { return "[[{" + fields + "}]]"; };
        const QByteArray id = R"("id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301")";
        const auto one = [&](const char *rest) { return item(id + rest); };
        QTest::newRow("key order, extra key, lower case")
            << item(R"("isPinned":false,"x":1,"state":"toDo","text":"a","id":"3f2504e0-4f89-41d3-9a0c-0305e82c3301")")
            << true;
        QTest::newRow("not json") << QByteArray("[[{") << false;
        QTest::newRow("invalid utf-8") << one(",\"text\":\"\xff\xfe\",\"state\":\"toDo\",\"isPinned\":false") << false;
        QTest::newRow("top is object") << QByteArray("{}") << false;
        QTest::newRow("item is string") << QByteArray("[[\"x\"]]") << false;
        QTest::newRow("missing id") << item(R"("text":"a","state":"toDo","isPinned":false)") << false;
        QTest::newRow("missing isPinned") << one(R"(,"text":"a","state":"toDo")") << false;
        QTest::newRow("state Done") << one(R"(,"text":"a","state":"Done","isPinned":false)") << false;
        QTest::newRow("pinned as string") << one(R"(,"text":"a","state":"toDo","isPinned":"false")") << false;
        QTest::newRow("bad uuid") << item(R"("id":"not-a-uuid","text":"a","state":"toDo","isPinned":false)") << false;
        QTest::newRow("braced uuid")
            << item(R"("id":"{3F2504E0-4F89-41D3-9A0C-0305E82C3301}","text":"a","state":"toDo","isPinned":false)")
            << false;
        QTest::newRow("one bad item among good")
            << item(id + R"(,"text":"a","state":"toDo","isPinned":false}],[{)" + id
                    + R"(,"text":"b","state":"doing","isPinned":false)")
            << false;
    }
    void decodes()
    {
        QFETCH(QByteArray, json);
        QFETCH(bool, valid);
        const auto decoded = decode(json);
        QCOMPARE(std::holds_alternative<QList<ItemList>>(decoded), valid);
        QVERIFY(valid || !std::get<QString>(decoded).isEmpty());
    }

    // Which lists a save writes (by position), and that they read back as
    // the whole document the encoder makes.
    void savesWriteOnlyTheListsThatChanged_data()
    {
        QTest::addColumn<Op>("op");
        QTest::addColumn<QList<qsizetype>>("written");
        auto one = [](int list) { return [=](ListItems &s) { s.setPinned(true, s.items()[list][0].id, list); }; };
        QTest::newRow("item change") << Op(one(3)) << QList<qsizetype>{3};
        QTest::newRow("sort") << Op([](ListItems &s) { s.sortItems(1, false, true); }) << QList<qsizetype>{1};
        QTest::newRow("move list") << Op([](ListItems &s) { s.moveList(2, 5); }) << QList<qsizetype>{};
        QTest::newRow("add list") << Op([](ListItems &s) { s.addList(); }) << QList<qsizetype>{0};
        QTest::newRow("delete list") << Op([](ListItems &s) { s.deleteList(0); }) << QList<qsizetype>{};
        QTest::newRow("restore list") << Op([](ListItems &s) { s.restoreList(4, QString(), s.items()[9]); })
                                      << QList<qsizetype>{4};
        QTest::newRow("replace list") << Op([](ListItems &s) { s.replaceList(6, s.items()[6].mid(1)); })
                                      << QList<qsizetype>{6};
    }

    void savesWriteOnlyTheListsThatChanged()
    {
        QFETCH(Op, op);
        QFETCH(QList<qsizetype>, written);
        MemoryPreferencesStore prefs;
        QList<ItemList> lists;
        for (int l = 0; l < 12; ++l)
            lists.append(parse(QStringLiteral("b%1 *a +c").arg(l)));
        prefs.setData(PreferenceKeys::items, ItemsCodec::encode(lists)); // the whole document in one value
        ListItems store(prefs);
        prefs.resetWriteLog();
        op(store); // the first save writes every list of a whole document
        QCOMPARE(prefs.writtenElements().size(), store.listCount());
        QCOMPARE(prefs.data(PreferenceKeys::items), ItemsCodec::encode(store.items()));
        prefs.resetWriteLog();
        op(store);
        QCOMPARE(prefs.writtenElements(), written);
        QCOMPARE(prefs.data(PreferenceKeys::items), ItemsCodec::encode(store.items()));
        // Loaded from lists kept apart, only the changed one is written.
        ListItems reloaded(prefs);
        prefs.resetWriteLog();
        reloaded.addItem(ListItem::create(QStringLiteral("x")), 7);
        QCOMPARE(prefs.writtenElements(), QList<qsizetype>{7});
        QCOMPARE(prefs.data(PreferenceKeys::items), ItemsCodec::encode(reloaded.items()));
    }
};

QTEST_GUILESS_MAIN(TestListItems)
#include "tst_listitems.moc"
