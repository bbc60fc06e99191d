#include "MarkedItems.h"
#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QSet>
#include <QSignalSpy>
#include <QTemporaryFile>
#include <QTest>
#include <cstdio>
#include <functional>
#include <unistd.h>

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

QSet<QUuid> ids(const ItemList &list)
{
    QSet<QUuid> out;
    for (const ListItem &i : list)
        out << i.id;
    return out;
}

// What `run` returns, and what it printed on standard output meanwhile.
template<typename F>
auto capturingStdout(F run)
{
    std::fflush(stdout);
    QTemporaryFile capture;
    capture.open();
    const int saved = dup(fileno(stdout));
    dup2(capture.handle(), fileno(stdout));
    auto result = run();
    std::fflush(stdout);
    dup2(saved, fileno(stdout));
    close(saved);
    capture.seek(0);
    return std::pair{result, capture.readAll()};
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
        QCOMPARE(store.listNames().at(0), QString::fromUtf8("To Do List\u2714"));
        QCOMPARE(store.listNames().at(10), QString::fromUtf8("Vacation Ideas\u2708\uFE0F"));

        // Names that cannot be read are kept aside before the defaults replace them.
        for (const QVariant &bad : {QVariant(42), QVariant(QVariantList{QStringLiteral("a"), 1})}) {
            MemoryPreferencesStore wrongType;
            wrongType.setRawForTest(PreferenceKeys::listNames, bad);
            QCOMPARE(ListItems(wrongType).listNames(), ListItems::defaultListNames());
            QCOMPARE(wrongType.copies(), (QList<std::pair<QString, QVariant>>{{PreferenceKeys::listNames, bad}}));
            QVERIFY(!wrongType.status().message().isEmpty());
        }
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

    void unreadableItemsLeaveEmptyListsAndKeepTheBytes()
    {
        const QByteArray unknownState =
            R"([[{"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","text":"a","state":"Done","isPinned":false}]])";
        for (const QByteArray &bytes : {QByteArray("garbage"), unknownState}) {
            MemoryPreferencesStore prefs;
            prefs.setStringList(PreferenceKeys::listNames, {QStringLiteral("A"), QStringLiteral("B")});
            prefs.setData(PreferenceKeys::items, bytes);
            prefs.resetWriteLog();
            // Exactly one diagnostic line on standard output.
            const auto [loaded, out] = capturingStdout([&] { return ListItems(prefs).items(); });
            QVERIFY2(out.startsWith("Error decoding items: ") && out.count('\n') == 1 && out.endsWith('\n'),
                     out.constData());
            QCOMPARE(loaded, QList<ItemList>(2));
            // Nothing is written, and a copy is kept before the next save replaces them.
            QCOMPARE(prefs.writeCount(), 0);
            QCOMPARE(*prefs.data(PreferenceKeys::items), bytes);
            QCOMPARE(prefs.copies(), (QList<std::pair<QString, QVariant>>{{PreferenceKeys::items, bytes}}));
        }
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
        QTest::newRow("insert at the head") << "c e" << insert("y", 0) << "y c e";

        // Pinning moves an item to the edge of the pinned block.
        QTest::newRow("pin 3rd of 5 unpinned") << "a b c d e" << pin(2, true) << "*c a b d e";
        QTest::newRow("pin 5th after one pinned") << "*a b c d e" << pin(4, true) << "*a *e b c d";
        QTest::newRow("unpin first of 3 pinned") << "*a *b *c d e" << pin(0, false) << "*b *c a d e";
        QTest::newRow("unpin with all others pinned") << "*a *b *c *d *e" << pin(1, false) << "*a *c *d *e b";
        QTest::newRow("re-pin moves to block end") << "*a *b *c d e" << pin(0, true) << "*b *c *a d e";
        QTest::newRow("re-unpin moves to block head") << "*a b c d e" << pin(4, false) << "*a e b c d";

        // Moves take the drop gap and the pin state of where they land.
        QTest::newRow("0 to gap 3 of 4") << "a b c d" << move({0}, 3) << "b c a d";
        QTest::newRow("beyond the end") << "a b c d" << move({1}, 99) << "a c d b";
        QTest::newRow("upwards") << "a b c d" << move({3}, 1) << "a d b c";
        QTest::newRow("only smallest source moves") << "a b c d" << move({2, 0}, 4) << "b c d a";
        QTest::newRow("into pinned block pins") << "*a *b c d" << move({3}, 0) << "*d *a *b c";
        QTest::newRow("below pinned block unpins") << "*a *b c d" << move({0}, 4) << "*b c d a";
        QTest::newRow("boundary keeps flag (pinned)") << "*a *b c d" << move({0}, 2) << "*b *a c d";
        QTest::newRow("boundary keeps flag (unpinned)") << "*a *b c d" << move({3}, 2) << "*a *b d c";
        QTest::newRow("empty sources") << "a b c d" << move({}, 0) << "a b c d";
        QTest::newRow("source out of range") << "a b c d" << move({4}, 0) << "a b c d";

        // Text sorts ignore case and keep equal texts in order; status sorts
        // ignore the direction; the pinned block sorts on its own.
        QTest::newRow("text ascending") << "b A c" << sort(true, true) << "A b c";
        QTest::newRow("text descending") << "b A c" << sort(false, true) << "c b A";
        QTest::newRow("text stable") << "*z *x b a B é f" << sort(true, true) << "*x *z a b B é f";
        QTest::newRow("status ascending") << "*+p +1 2 +3 4" << sort(true, false) << "*+p 2 4 +1 +3";
        QTest::newRow("status descending") << "*+p +1 2 +3 4" << sort(false, false) << "*+p 2 4 +1 +3";
        // Text sorts follow the user's language, not code points.
        QTest::newRow("German: ä with a") << "zebra äpfel Apfel" << sortIn("de_DE") << "Apfel äpfel zebra";
        QTest::newRow("Swedish: ä after z") << "zebra äpfel Apfel" << sortIn("sv_SE") << "Apfel zebra äpfel";
        QTest::newRow("Lithuanian: y before k") << "kelias yra ilgas" << sortIn("lt_LT") << "ilgas yra kelias";
        QTest::newRow("English: y after k") << "kelias yra ilgas" << sortIn("en_US") << "ilgas kelias yra";
    }
    void operations()
    {
        QFETCH(QString, before);
        QFETCH(Op, op);
        QFETCH(QString, after);
        Fixture f(before);
        const ItemList initial = f.list();
        op(*f.store);
        QCOMPARE(notation(f.list()), after);
        QCOMPARE(f.stored(), after);
        // Nothing added or removed: the same items, ids kept.
        if (f.list().size() == initial.size())
            QCOMPARE(ids(f.list()), ids(initial));
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

    // What each list operation writes; the screen's tests cover the rest.
    void listOperationsWriteOnlyWhatTheyChange()
    {
        MemoryPreferencesStore prefs;
        ListItems store(prefs);
        prefs.resetWriteLog();
        // Marking all writes even an empty list.
        store.setAllStates(0, ListItemState::toDo);
        QCOMPARE(prefs.writtenKeys(), QStringList{PreferenceKeys::items});
        store.addItem(ListItem::create(QStringLiteral("in list 4")), 4);
        store.addList();
        QCOMPARE(store.listNames().mid(0, 2), QStringList({"New List", "To Do List\u2714"}));
        QCOMPARE(store.items()[5].first().text, QStringLiteral("in list 4"));
        store.deleteList(4);
        QCOMPARE(store.items()[4].first().text, QStringLiteral("in list 4")); // the next list moved in
        prefs.resetWriteLog();
        store.renameList(0, QString());
        QCOMPARE(store.listNames()[0], QString());
        QCOMPARE(prefs.writtenKeys(), QStringList{PreferenceKeys::listNames}); // rename saves names only
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
