#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "platform/FilePreferencesStore.h"
#include "platform/MemoryPreferencesStore.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>
#include <cstdio>
#include <unistd.h>

namespace {

ListItem item(const QString &text, ListItemState s = ListItemState::toDo, bool pinned = false)
{
    ListItem i = ListItem::create(text);
    i.state = s;
    i.isPinned = pinned;
    return i;
}

QStringList texts(const ItemList &list)
{
    QStringList out;
    for (const ListItem &i : list)
        out << i.text + (i.isPinned ? QStringLiteral("*") : QString());
    return out;
}

// A store over memory whose list 0 holds the given items.
struct Fixture
{
    MemoryPreferencesStore prefs;
    std::unique_ptr<ListItems> store;

    explicit Fixture(const ItemList &first = {}, int lists = 1)
    {
        QStringList names;
        for (int i = 0; i < lists; ++i)
            names << QStringLiteral("L%1").arg(i);
        prefs.setStringList(PreferenceKeys::listNames, names);
        QList<ItemList> all(lists);
        all[0] = first;
        prefs.setData(PreferenceKeys::items, ItemsCodec::encode(all));
        store = std::make_unique<ListItems>(prefs);
        prefs.resetWriteLog();
    }
    ItemList list(int i = 0) const { return store->items().at(i); }
    QStringList storedTexts(int i = 0) const
    {
        return texts(std::get<QList<ItemList>>(ItemsCodec::decode(*prefs.data(PreferenceKeys::items))).at(i));
    }
};

ItemList named(std::initializer_list<const char *> names, int pinnedCount = 0)
{
    ItemList out;
    int n = 0;
    for (const char *s : names)
        out << item(QString::fromUtf8(s), ListItemState::toDo, n++ < pinnedCount);
    return out;
}

} // namespace

class TestListItems : public QObject
{
    Q_OBJECT

private slots:
    // ---- construction and loading ----

    void firstStartWritesDefaultNamesOnly()
    {
        MemoryPreferencesStore prefs;
        ListItems store(prefs);
        QCOMPARE(store.listNames(), ListItems::defaultListNames());
        QCOMPARE(store.items(), QList<ItemList>(12));
        QCOMPARE(prefs.writtenKeys(), QStringList{PreferenceKeys::listNames});
        QCOMPARE(*prefs.stringList(PreferenceKeys::listNames), ListItems::defaultListNames());
        QCOMPARE(store.appColorScheme(), ListItems::Light);
        // Exact default names, emoji and variation selector included.
        QCOMPARE(store.listNames().at(0), QString::fromUtf8("To Do List\u2714"));
        QCOMPARE(store.listNames().at(10).toUtf8().size(), 20);
        QCOMPARE(store.listNames().at(10), QString::fromUtf8("Vacation Ideas\u2708\uFE0F"));
    }

    void laterStartReadsWithoutWriting()
    {
        MemoryPreferencesStore prefs;
        prefs.setStringList(PreferenceKeys::listNames, {QStringLiteral("A"), QStringLiteral("B")});
        ListItems store(prefs);
        QCOMPARE(store.listNames(), QStringList({"A", "B"}));
        QCOMPARE(prefs.writtenKeys(), QStringList{PreferenceKeys::listNames}); // only the set-up write
    }

    void reconcilesLengths_data()
    {
        QTest::addColumn<int>("names");
        QTest::addColumn<int>("lists");
        QTest::newRow("no names drops all items") << 0 << 3;
        QTest::newRow("3 names 5 lists") << 3 << 5;
        QTest::newRow("5 names 2 lists") << 5 << 2;
        QTest::newRow("equal") << 4 << 4;
    }
    void reconcilesLengths()
    {
        QFETCH(int, names);
        QFETCH(int, lists);
        MemoryPreferencesStore prefs;
        QStringList n;
        for (int i = 0; i < names; ++i)
            n << QString::number(i);
        prefs.setStringList(PreferenceKeys::listNames, n);
        QList<ItemList> stored;
        for (int i = 0; i < lists; ++i)
            stored << ItemList{item(QStringLiteral("item of %1").arg(i))};
        const QByteArray bytes = ItemsCodec::encode(stored);
        prefs.setData(PreferenceKeys::items, bytes);
        prefs.resetWriteLog();

        ListItems store(prefs);
        QCOMPARE(store.listNames().size(), names);
        QCOMPARE(store.items().size(), names);
        for (int i = 0; i < names; ++i)
            QCOMPARE(store.items()[i], i < lists ? stored[i] : ItemList());
        QCOMPARE(prefs.writeCount(), 0); // reconciling writes nothing
        QCOMPARE(*prefs.data(PreferenceKeys::items), bytes);
    }

    void unreadableItemsPrintOneLineAndKeepBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("not json") << QByteArray("garbage");
        QTest::newRow("missing isPinned") << QByteArray(R"([[{"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","text":"a","state":"toDo"}]])");
        QTest::newRow("unknown state") << QByteArray(R"([[{"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","text":"a","state":"Done","isPinned":false}]])");
    }
    void unreadableItemsPrintOneLineAndKeepBytes()
    {
        QFETCH(QByteArray, bytes);
        MemoryPreferencesStore prefs;
        prefs.setStringList(PreferenceKeys::listNames, {QStringLiteral("A"), QStringLiteral("B")});
        prefs.setData(PreferenceKeys::items, bytes);
        prefs.resetWriteLog();

        // Capture standard output around construction.
        std::fflush(stdout);
        QTemporaryFile capture;
        QVERIFY(capture.open());
        const int saved = dup(fileno(stdout));
        dup2(capture.handle(), fileno(stdout));
        std::unique_ptr<ListItems> store = std::make_unique<ListItems>(prefs);
        std::fflush(stdout);
        dup2(saved, fileno(stdout));
        close(saved);
        capture.seek(0);
        const QByteArray out = capture.readAll();

        QVERIFY2(out.startsWith("Error decoding items: "), out.constData());
        QCOMPARE(out.count('\n'), 1);
        QVERIFY(out.endsWith('\n'));
        QCOMPARE(store->listNames(), QStringList({"A", "B"}));
        QCOMPARE(store->items(), QList<ItemList>(2));
        QCOMPARE(prefs.writeCount(), 0);
        QCOMPARE(*prefs.data(PreferenceKeys::items), bytes);
    }

    void wrongTypedNamesFallBackToDefaults()
    {
        MemoryPreferencesStore prefs;
        prefs.setRawForTest(PreferenceKeys::listNames, 42);
        ListItems store(prefs);
        QCOMPARE(store.listNames(), ListItems::defaultListNames());
    }

    void persistsThroughAFileStoreRoundTrip()
    {
        QTemporaryDir dir;
        QList<ItemList> expected;
        QStringList names;
        {
            FilePreferencesStore prefs(dir.path());
            ListItems store(prefs);
            store.addItem(item(QStringLiteral("Milk \"2%\" 🥛\nsecond line")), 0);
            store.addItem(item(QStringLiteral("Bread"), ListItemState::done, true), 0);
            store.addItem(item(QString()), 11);
            store.addList();
            store.renameList(0, QString());
            expected = store.items();
            names = store.listNames();
        }
        FilePreferencesStore prefs(dir.path());
        ListItems reopened(prefs);
        QCOMPARE(reopened.listNames(), names);
        QCOMPARE(reopened.items(), expected);
        QCOMPARE(reopened.listNames().size(), 13);
    }

    void largeDocumentsWork()
    {
        MemoryPreferencesStore prefs;
        prefs.setStringList(PreferenceKeys::listNames, ListItems::defaultListNames());
        QList<ItemList> lists(12);
        const QString huge(1024 * 1024, QChar(u'\u00e9'));
        lists[3].append(item(huge));
        for (int i = 0; i < 100000; ++i)
            lists[i % 12].append(item(QString::number(i), i % 3 ? ListItemState::toDo : ListItemState::done));
        prefs.setData(PreferenceKeys::items, ItemsCodec::encode(lists));

        ListItems store(prefs);
        QCOMPARE(store.items(), lists);
        store.setState(ListItemState::done, lists[3][0].id, 3);
        store.sortItems(5, true, true);
        ListItems reopened(prefs);
        QCOMPARE(reopened.items()[3].first().text, huge);
        QVERIFY(reopened.items()[3].first().isDone());
        QCOMPARE(reopened.items(), store.items());
    }

    // ---- item operations ----

    void addUpdateAndStateChangesSave()
    {
        Fixture f(named({"a", "b"}, 1));
        const ListItem added = item(QStringLiteral("c"));
        f.store->addItem(added, 0);
        QCOMPARE(texts(f.list()), QStringList({"a*", "b", "c"})); // unpinned goes to the very end
        f.store->updateItemText(added.id, 0, QStringLiteral("c2"));
        f.store->setState(ListItemState::done, added.id, 0);
        QCOMPARE(f.list().last().text, QStringLiteral("c2"));
        QVERIFY(f.list().last().isDone());
        QCOMPARE(f.list().last().id, added.id);
        QCOMPARE(f.storedTexts(), QStringList({"a*", "b", "c2"}));
        QCOMPARE(f.prefs.writeCount(), 3);
    }

    void unknownIdsAndBadIndicesWriteNothing()
    {
        Fixture f(named({"a", "b"}), 2);
        QSignalSpy changed(f.store.get(), &ListItems::itemsChanged);
        const QUuid stranger = QUuid::createUuid();
        f.store->updateItemText(stranger, 0, QStringLiteral("x"));
        f.store->setState(ListItemState::done, stranger, 0);
        f.store->setPinned(true, stranger, 0);
        for (qint64 bad : {qint64(-1), qint64(2), qint64(1) << 40}) {
            f.store->addItem(item(QStringLiteral("x")), bad);
            f.store->deleteItems({0}, bad);
            f.store->insertItem(item(QStringLiteral("x")), 0, bad);
            f.store->setAllStates(bad, ListItemState::done);
            f.store->moveItems({0}, 1, bad);
            f.store->sortItems(bad, true, true);
            f.store->deleteList(bad);
            f.store->renameList(bad, QStringLiteral("x"));
            f.store->moveList(0, bad);
            f.store->moveList(bad, 0);
            QVERIFY(f.store->partition(bad).pinned.isEmpty());
        }
        QCOMPARE(f.prefs.writeCount(), 0);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(texts(f.list()), QStringList({"a", "b"}));
    }

    void deleteAndInsertByPosition()
    {
        Fixture f(named({"a", "b", "c", "d", "e"}));
        f.store->deleteItems({3, 0, 1}, 0); // positions refer to the list before removal
        QCOMPARE(texts(f.list()), QStringList({"c", "e"}));
        f.store->insertItem(item(QStringLiteral("z")), 2, 0);
        f.store->insertItem(item(QStringLiteral("y")), 0, 0);
        QCOMPARE(texts(f.list()), QStringList({"y", "c", "e", "z"}));
        QCOMPARE(f.storedTexts(), texts(f.list()));
    }

    void setAllStatesWritesEvenWhenEmpty()
    {
        Fixture f({}, 2);
        f.store->setAllStates(1, ListItemState::toDo);
        QCOMPARE(f.prefs.writtenKeys(), QStringList{PreferenceKeys::items});
        Fixture g(ItemList{item("a", ListItemState::done), item("b", ListItemState::done)});
        g.store->setAllStates(0, ListItemState::toDo);
        QVERIFY(!g.list()[0].isDone() && !g.list()[1].isDone());
    }

    void pinMovesToTheEdgeOfThePinnedBlock_data()
    {
        QTest::addColumn<int>("pinnedCount");
        QTest::addColumn<int>("target");
        QTest::addColumn<bool>("flag");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("pin 3rd of 5 unpinned") << 0 << 2 << true << QStringList({"c*", "a", "b", "d", "e"});
        QTest::newRow("pin 5th after one pinned") << 1 << 4 << true << QStringList({"a*", "e*", "b", "c", "d"});
        QTest::newRow("unpin first of 3 pinned") << 3 << 0 << false << QStringList({"b*", "c*", "a", "d", "e"});
        QTest::newRow("unpin with all others pinned") << 5 << 1 << false << QStringList({"a*", "c*", "d*", "e*", "b"});
        QTest::newRow("re-pin moves to block end") << 3 << 0 << true << QStringList({"b*", "c*", "a*", "d", "e"});
        QTest::newRow("re-unpin moves to block head") << 1 << 4 << false << QStringList({"a*", "e", "b", "c", "d"});
    }
    void pinMovesToTheEdgeOfThePinnedBlock()
    {
        QFETCH(int, pinnedCount);
        QFETCH(int, target);
        QFETCH(bool, flag);
        QFETCH(QStringList, expected);
        Fixture f(named({"a", "b", "c", "d", "e"}, pinnedCount));
        f.store->setPinned(flag, f.list()[target].id, 0);
        QCOMPARE(texts(f.list()), expected);
        QCOMPARE(f.storedTexts(), expected);
    }

    void moveFollowsTheDropGapAndPinRule_data()
    {
        QTest::addColumn<int>("pinnedCount");
        QTest::addColumn<QList<qsizetype>>("sources");
        QTest::addColumn<qsizetype>("destination");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("0 to gap 3 of 4") << 0 << QList<qsizetype>{0} << qsizetype(3) << QStringList({"b", "c", "a", "d"});
        QTest::newRow("beyond the end") << 0 << QList<qsizetype>{1} << qsizetype(99) << QStringList({"a", "c", "d", "b"});
        QTest::newRow("upwards") << 0 << QList<qsizetype>{3} << qsizetype(1) << QStringList({"a", "d", "b", "c"});
        QTest::newRow("only smallest source moves") << 0 << QList<qsizetype>{2, 0} << qsizetype(4) << QStringList({"b", "c", "d", "a"});
        QTest::newRow("into pinned block pins") << 2 << QList<qsizetype>{3} << qsizetype(0) << QStringList({"d*", "a*", "b*", "c"});
        QTest::newRow("below pinned block unpins") << 2 << QList<qsizetype>{0} << qsizetype(4) << QStringList({"b*", "c", "d", "a"});
        QTest::newRow("on the boundary keeps flag (pinned)") << 2 << QList<qsizetype>{0} << qsizetype(2) << QStringList({"b*", "a*", "c", "d"});
        QTest::newRow("on the boundary keeps flag (unpinned)") << 2 << QList<qsizetype>{3} << qsizetype(2) << QStringList({"a*", "b*", "d", "c"});
        QTest::newRow("empty sources") << 0 << QList<qsizetype>{} << qsizetype(0) << QStringList({"a", "b", "c", "d"});
        QTest::newRow("source out of range") << 0 << QList<qsizetype>{4} << qsizetype(0) << QStringList({"a", "b", "c", "d"});
    }
    void moveFollowsTheDropGapAndPinRule()
    {
        QFETCH(int, pinnedCount);
        QFETCH(QList<qsizetype>, sources);
        QFETCH(qsizetype, destination);
        QFETCH(QStringList, expected);
        Fixture f(named({"a", "b", "c", "d"}, pinnedCount));
        f.store->moveItems(sources, destination, 0);
        QCOMPARE(texts(f.list()), expected);
    }

    void sortByTextIsLocaleAwareCaseInsensitiveAndStable()
    {
        Fixture f(named({"b", "A", "c"}));
        f.store->sortItems(0, true, true);
        QCOMPARE(texts(f.list()), QStringList({"A", "b", "c"}));
        f.store->sortItems(0, false, true);
        QCOMPARE(texts(f.list()), QStringList({"c", "b", "A"}));

        // Equal ignoring case keeps its order; pinned block sorted on its own.
        Fixture g(named({"z", "x", "b", "a", "B", "é", "f"}, 2));
        g.store->sortItems(0, true, true);
        QCOMPARE(texts(g.list()), QStringList({"x*", "z*", "a", "b", "B", "é", "f"}));
    }

    void sortByStatusIgnoresDirection()
    {
        for (bool ascending : {true, false}) {
            Fixture f(ItemList{item("1", ListItemState::done), item("2"), item("3", ListItemState::done), item("4"),
                               item("p", ListItemState::done, true)});
            // A pinned done item stays above unpinned to-do items.
            f.store->setPinned(true, f.list()[4].id, 0);
            f.store->sortItems(0, ascending, false);
            QCOMPARE(texts(f.list()), QStringList({"p*", "2", "4", "1", "3"}));
        }
    }

    void partitionSplitsPinnedWithPositions()
    {
        Fixture f(ItemList{item("a", ListItemState::toDo, true), item("b"), item("c", ListItemState::done, true)});
        const auto p = f.store->partition(0);
        QCOMPARE(p.pinned.size(), 2);
        QCOMPARE(p.pinned[1].position, 2);
        QCOMPARE(p.pinned[1].item.text, QStringLiteral("c"));
        QCOMPARE(p.unpinned.size(), 1);
        QCOMPARE(p.unpinned[0].position, 1);
    }

    // ---- list operations ----

    void addListGoesToTheFront()
    {
        MemoryPreferencesStore prefs;
        ListItems store(prefs);
        prefs.resetWriteLog();
        store.addList();
        store.addList();
        QCOMPARE(store.listNames().size(), 14);
        QCOMPARE(store.listNames().mid(0, 3), QStringList({"New List", "New List", "To Do List\u2714"}));
        QCOMPARE(store.items().size(), 14);
        QVERIFY(prefs.writtenKeys().contains(PreferenceKeys::listNames));
        QVERIFY(prefs.writtenKeys().contains(PreferenceKeys::items));
        QCOMPARE(std::get<QList<ItemList>>(ItemsCodec::decode(*prefs.data(PreferenceKeys::items))).size(), 14);
    }

    void deleteRenameMoveAndClamp()
    {
        MemoryPreferencesStore prefs;
        ListItems store(prefs);
        store.addItem(item("in list 4"), 4);
        store.deleteList(3);
        QCOMPARE(store.listNames().size(), 11);
        QCOMPARE(store.items()[3].first().text, QStringLiteral("in list 4")); // the next list moved in
        QCOMPARE(store.clampSelection(3), 3);
        store.deleteList(10);
        QCOMPARE(store.clampSelection(10), 9);

        prefs.resetWriteLog();
        store.renameList(0, QString());
        QCOMPARE(store.listNames()[0], QString());
        QCOMPARE(prefs.writtenKeys(), QStringList{PreferenceKeys::listNames}); // rename saves names only

        prefs.resetWriteLog();
        store.moveList(3, 4);
        QCOMPARE(store.items()[4].first().text, QStringLiteral("in list 4"));
        QCOMPARE(prefs.writtenKeys(), QStringList({PreferenceKeys::listNames, PreferenceKeys::items}));

        QCOMPARE(ListItems::clampSelection(5, 0), 0);
        QCOMPARE(ListItems::clampSelection(-7, 3), 0);
        QCOMPARE(ListItems::clampSelection(qint64(1) << 50, 3), 2);
    }
};

QTEST_GUILESS_MAIN(TestListItems)
#include "tst_listitems.moc"
