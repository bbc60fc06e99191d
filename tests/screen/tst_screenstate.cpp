// The main screen's state and its parts (the lists and their chips, the
// input bar, sorting and undo, the rows and the model that shows them, the
// keys) driven as the view drives them, over an in-memory store.

#include "CountingReviewOpener.h"
#include "MarkedItems.h"
#include "RecordingHaptics.h"
#include "RecordingShareSheet.h"
#include "appearance/Appearance.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "screen/DisplayedItemsModel.h"
#include "screen/InputBar.h"
#include "screen/KeyCommands.h"
#include "screen/ListChipsModel.h"
#include "screen/ListNavigation.h"
#include "screen/RowActions.h"
#include "screen/ScreenState.h"
#include "screen/SortAndUndo.h"
#include "views/ItemRowText.h"

#include <QAbstractItemModelTester>
#include <QTest>
#include <functional>
#include <memory>

namespace {

QString idText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

// A screen over an in-memory store, already appeared, with empty logs.
struct Screen
{
    explicit Screen(const QStringList &names = {"Home", "Work", "Trip"}, const QVariant &storedIndex = {})
    {
        prefs.setStringList(PreferenceKeys::listNames, names);
        if (storedIndex.isValid())
            prefs.setRawForTest(PreferenceKeys::selectedListIndex, storedIndex);
        state = std::make_unique<ScreenState>(prefs, haptics, ScreenState::Services{appearance, sheet, opener});
        state->appear();
        haptics.clear();
        prefs.resetWriteLog();
    }

    ListItems &store() { return *state->store(); }
    ListNavigation &lists() { return *state->lists(); }
    InputBar &input() { return *state->inputBar(); }
    SortAndUndo &history() { return *state->sortAndUndo(); }
    RowActions &rows() { return *state->rows(); }
    ItemList items() { return store().itemsAt(lists().selectedListIndex()); }
    qint64 storedIndex() const { return prefs.integer(PreferenceKeys::selectedListIndex).value_or(-999); }

    // Replaces the selected list with marked texts; returns the new items' ids.
    QStringList seed(const QStringList &texts)
    {
        const ItemList list = markedItems(texts);
        QStringList ids;
        for (const ListItem &item : list)
            ids << idText(item.id);
        store().replaceList(lists().selectedListIndex(), list);
        prefs.resetWriteLog();
        return ids;
    }
    // The selected list, marked, in stored order and as the rows show it.
    QStringList stored() { return markedTexts(items()); }
    QStringList shown()
    {
        ItemList rows;
        for (int row = 0; const ListItem *item = state->displayedItems()->itemAt(row); ++row)
            rows << *item;
        return markedTexts(rows);
    }

    MemoryPreferencesStore prefs;
    RecordingHaptics haptics;
    Appearance appearance{prefs};
    RecordingShareSheet sheet;
    CountingReviewOpener opener;
    std::unique_ptr<ScreenState> state;
};

// What a model reports, as "data 2-2", "insert 4-4", "remove 1-1",
// "move 3>0", "reset" or "count", checked as it goes by
// QAbstractItemModelTester.
struct ModelLog
{
    explicit ModelLog(QAbstractItemModel *model)
        : tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        using M = QAbstractItemModel;
        using Index = QModelIndex;
        const auto rows = [this](const char *what) {
            return [this, what](const Index &, int a, int b) {
                log << QStringLiteral("%1 %2-%3").arg(what).arg(a).arg(b);
            };
        };
        QObject::connect(model, &M::rowsInserted, &guard, rows("insert"));
        QObject::connect(model, &M::rowsRemoved, &guard, rows("remove"));
        QObject::connect(model, &M::dataChanged, &guard, [this](const Index &a, const Index &b) {
            log << QStringLiteral("data %1-%2").arg(a.row()).arg(b.row());
        });
        QObject::connect(model, &M::rowsMoved, &guard, [this](const Index &, int a, int, const Index &, int to) {
            log << QStringLiteral("move %1>%2").arg(a).arg(to);
        });
        QObject::connect(model, &M::modelReset, &guard, [this] { log << "reset"; });
        if (auto *displayed = qobject_cast<DisplayedItemsModel *>(model))
            QObject::connect(displayed, &DisplayedItemsModel::countChanged, &guard, [this] { log << "count"; });
    }
    QStringList take() { return std::exchange(log, {}); }

    QAbstractItemModelTester tester;
    QStringList log;
    QObject guard; // goes first, and takes the connections with it
};

} // namespace

class TestScreenState : public QObject
{
    Q_OBJECT

private slots:
    // The scheme reaches the store at start-up, and with each toggle.
    void schemeReachesTheStore()
    {
        Screen s;
        s.appearance.setSchemeKey(QStringLiteral("dark"));
        s.state->appear();
        QCOMPARE(s.store().appColorScheme(), ListItems::Dark);
        s.state->toggleColorScheme();
        QCOMPARE(s.store().appColorScheme(), ListItems::Light);
    }

    // Keys on a fresh screen each: the window's keys through the table
    // QML binds its shortcuts to (row -1), a row's keys on row 0 ("Milk").
    // The screen reads: names | selection | the list's items | the text
    // being edited.
    void keys()
    {
        const QString before = "Home,Work,Trip|0|Milk,+Eggs|";
        const struct
        {
            QString keys;
            int row;
            bool handled;
            QString expected;
        } presses[] = {
            {"Ctrl+Shift+N", -1, true, "New List,Home,Work,Trip|0||"},
            {"Ctrl+PgUp", -1, false, before},
            {"Ctrl+Shift+PgDown", -1, true, "Work,Home,Trip|1|Milk,+Eggs|"},
            {"Enter", 0, true, before + "Milk"},
            {"P", 0, false, before},
            {"Alt+Up", 0, false, before},
            {"Space", -1, false, before},
        };
        for (const auto &press : presses) {
            Screen s;
            const QStringList ids = s.seed({"Milk", "+Eggs"});
            KeyCommands &commands = *s.state->keys();
            const QKeyCombination pressed = QKeySequence(press.keys)[0];
            bool done = false;
            if (press.row >= 0) {
                done = commands.rowKey(pressed.key(), pressed.keyboardModifiers().toInt(), ids[press.row]);
            } else {
                for (const QVariant &binding : commands.windowKeys())
                    if (QKeySequence(binding.toMap()["sequence"].toString()) == QKeySequence(press.keys))
                        done = commands.perform(binding.toMap()["command"].toInt());
            }
            QVERIFY2(done == press.handled, qPrintable(press.keys));
            const QString editing = s.input().editingItemId().isEmpty() ? QString() : s.input().newItem();
            QCOMPARE(QStringList({s.store().listNames().join(','), QString::number(s.lists().selectedListIndex()),
                                  s.stored().join(','), editing})
                         .join('|'),
                     press.expected);
        }
    }

    // One flow for each kind of haptic, and none.
    void hapticsAndSharing()
    {
        Screen s;
        const QStringList ids = s.seed({"Milk", "+Eggs"});
        using Event = RecordingHaptics::Event;
        const struct
        {
            const char *flow;
            std::function<void()> run;
            QList<Event> expected;
        } flows[] = {
            {"tap a to-do marker", [&] { s.rows().turnDoneMarker(ids[0]); }, {Event::successNotification}},
            {"tap a done marker", [&] { s.rows().turnDoneMarker(ids[1]); }, {Event::lightImpact}},
            {"drag", [&] { s.rows().moveDisplayedRow(0, 2); }, {}},
        };
        for (const auto &f : flows) {
            s.haptics.clear();
            f.run();
            QVERIFY2(s.haptics.events == f.expected, f.flow);
        }
        // Only a selected list is shared; the text is checked through the view.
        s.state->share();
        QTRY_VERIFY(s.sheet.isPresented());
        s.sheet.dismiss();
        s.lists().setSelectedListIndex(-1);
        s.state->share();
        QTest::qWait(20);
        QVERIFY(!s.sheet.isPresented());
    }

    // A stored selection out of range or of the wrong type comes back
    // clamped; whatever is shown is what the next start finds.
    void startUpClampsTheStoredSelection()
    {
        const QStringList three{"Home", "Work", "Trip"};
        const struct
        {
            QStringList names;
            QVariant stored;
            qint64 selected;
        } starts[] = {
            {three, qint64(-3), 0},
            {three, QStringLiteral("2"), 0},
            {{}, qint64(4), 0},
        };
        for (const auto &start : starts) {
            Screen s(start.names, start.stored);
            QCOMPARE(s.lists().selectedListIndex(), start.selected);
            QCOMPARE(s.lists().currentListName(), start.names.value(start.selected));
            if (start.stored.typeId() == QMetaType::LongLong)
                QCOMPARE(s.storedIndex(), start.selected);
        }
    }

    // Each step of the lists, as the screen and the chips see it: the chips
    // follow row by row, never rebuilt; the capsule's pace and the header's
    // scroll come with each change of the selection, which is stored as shown.
    void eachStepOfTheLists()
    {
        Screen s(QStringList{"H", "W", "T"}, QVariant(qint64(1)));
        s.seed({"kept"});
        ListChipsModel chips;
        chips.setStore(&s.store());
        ModelLog chipsLog(&chips);
        QStringList &log = chipsLog.log;
        ListNavigation &lists = s.lists();
        connect(&lists, &ListNavigation::selectedListIndexChanged, this, [&] {
            log << QStringLiteral("select %1 in %2").arg(lists.selectedListIndex()).arg(lists.selectionDuration());
        });
        connect(&lists, &ListNavigation::scrollHeaderToSelected, this, [&](int ms) { log << QString::number(ms); });
        // The log: the chips' changes, the selection and the capsule's time,
        // the header's scroll times. The state: names | selection | its items.
        const struct
        {
            std::function<void()> run;
            QStringList log;
            QString state;
        } steps[] = {
            {[&] { lists.renameSelectedList("J"); }, {"data 1-1"}, "H,J,T|1|kept"},
            {[&] { lists.moveListRight(); }, {"move 1>3", "select 2 in 300", "200", "200"}, "H,T,J|2|kept"},
            {[&] { lists.moveListRight(); }, {}, "H,T,J|2|kept"},
            {[&] { lists.addList(); }, {"insert 0-0", "select 0 in 350", "200", "500"}, "New List,H,T,J|0|"},
            // Deleting the last list selects the one before it; an undo brings it back.
            {[&] { lists.setSelectedListIndex(3); }, {"select 3 in 0", "200"}, "New List,H,T,J|3|kept"},
            {[&] { lists.deleteSelectedList(); }, {"remove 3-3", "select 2 in 0", "200", "350"}, "New List,H,T|2|"},
            {[&] { s.history().undo(); }, {"insert 3-3", "select 3 in 0", "200", "350"}, "New List,H,T,J|3|kept"},
            // Renamed as typed, spaces and all; a list that is not there is not renamed.
            {[&] { lists.renameSelectedList(" Groceries "); }, {"data 3-3"}, "New List,H,T, Groceries |3|kept"},
            {[&] { lists.setSelectedListIndex(4); }, {"select 4 in 0", "200"}, "New List,H,T, Groceries |4|"},
            {[&] { lists.renameSelectedList("x"); }, {}, "New List,H,T, Groceries |4|"},
        };
        for (const auto &step : steps) {
            log.clear();
            step.run();
            QTRY_COMPARE(log, step.log);
            QCOMPARE(QStringList({s.store().listNames().join(','), QString::number(lists.selectedListIndex()),
                                  s.shown().join(',')})
                         .join('|'),
                     step.state);
            QCOMPARE(s.storedIndex(), lists.selectedListIndex());
            QCOMPARE(*s.prefs.stringList(PreferenceKeys::listNames), s.store().listNames());
        }

        // The last list stays, whatever is asked.
        Screen one(QStringList{"Only"});
        one.lists().deleteSelectedList();
        QCOMPARE(one.store().listNames(), QStringList{"Only"});
        QVERIFY(!one.history().canUndo());

        // A new list, its name, its items and the selection are one commit.
        s.prefs.resetWriteLog();
        lists.addList();
        QCOMPARE(s.prefs.commitCount(), 1);
        QCOMPARE(s.prefs.writtenKeys(),
                 (QStringList{PreferenceKeys::items, PreferenceKeys::listNames, PreferenceKeys::selectedListIndex}));
    }

    void titlePointSize()
    {
        // Counted in user-perceived characters, however many code points.
        const std::pair<QString, int> titles[] = {
            {"Wish Lists!", 21},
            {"Camping List 1", 20},
            {QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467").repeated(12), 20},
            {QStringLiteral("e\u0301").repeated(15), 18},
        };
        for (const auto &[title, size] : titles)
            QCOMPARE(ListNavigation::titlePointSize(title), size);
    }

    void addEditAndUpdate()
    {
        Screen s;
        s.input().setNewItem(QStringLiteral(" \n\tMilk \n"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Milk"});
        const QString milk = s.input().lastItemId();

        // Only white space adds nothing, and saves nothing.
        s.prefs.resetWriteLog();
        s.input().setNewItem(QStringLiteral("  \n \u00a0\t"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Milk"});
        QCOMPARE(s.prefs.writeCount(), 0);

        // An edit brings the text up; the update trims it and ends editing.
        s.rows().edit(milk);
        QCOMPARE(s.input().newItem(), QStringLiteral("Milk"));
        s.input().setNewItem(QStringLiteral("  Oat milk\n"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Oat milk"});
        QCOMPARE(s.input().editingItemId(), QString());

        // An update to nothing keeps the text and still ends editing.
        s.rows().edit(milk);
        s.input().setNewItem(QStringLiteral("   "));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Oat milk"});
        QCOMPARE(s.input().editingItemId(), QString());

        // The window going to the background keeps the edit; the user
        // leaving the field ends it, so the next submit adds.
        s.rows().edit(milk);
        s.input().setNewItem(QStringLiteral("Milk dr"));
        s.input().fieldFocusChanged(false, Qt::ActiveWindowFocusReason);
        QCOMPARE(s.input().editingItemId(), milk);
        s.input().fieldFocusChanged(false, Qt::MouseFocusReason);
        QCOMPARE(s.input().newItem(), QString());
        s.input().setNewItem(QStringLiteral("Eggs"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), (QStringList{"Oat milk", "Eggs"}));
    }

    void sortsShareOneDirectionAndUndo()
    {
        Screen s;
        s.seed({"+b", "c", "+a", "d"});
        SortAndUndo &history = s.history();
        // Each sort runs the way the last one did not; a status sort puts
        // the to-dos first either way. Each is one entry, undone newest first.
        const struct
        {
            void (SortAndUndo::*run)();
            QString after;
            bool ascending;
        } steps[] = {
            {&SortAndUndo::sortByText, "+a,+b,c,d", false},
            {&SortAndUndo::sortByStatus, "c,d,+a,+b", true},
            {&SortAndUndo::sortByText, "+a,+b,c,d", false},
            {&SortAndUndo::sortByText, "d,c,+b,+a", true},
            {&SortAndUndo::undo, "+a,+b,c,d", true},
            {&SortAndUndo::markAllToDo, "a,b,c,d", true},
        };
        for (const auto &step : steps) {
            (history.*step.run)();
            QCOMPARE(s.stored().join(','), step.after);
            QCOMPARE(history.isAscending(), step.ascending);
        }
        QCOMPARE(history.undoStack().size(), 4);
        while (history.canUndo())
            history.undo();
        QCOMPARE(s.stored().join(','), QStringLiteral("+b,c,+a,d"));

        // No list selected: no sort, no entry, direction kept; a reset of the
        // dots is an entry all the same.
        s.lists().setSelectedListIndex(5);
        history.sortByText();
        QVERIFY(!history.canUndo());
        QVERIFY(history.isAscending());
        history.markAllToDo();
        QCOMPARE(history.undoStack().size(), 1);
    }

    // Rows are named by their ids, in any case; the all-zero id (stored
    // lists decode it) names a row like any other, and only "" means none.
    void rowActionsByIds()
    {
        Screen s;
        ItemList list = markedItems({"A", "Zero", "C", "D"});
        list[1].id = QUuid();
        s.store().replaceList(s.lists().selectedListIndex(), list);
        const QString zero = idText(QUuid());
        const QString d = idText(list[3].id);
        QCOMPARE(s.state->displayedItems()->rowOf('{' + zero + '}'), 1);

        // The marker's angle only grows, turn after turn.
        s.rows().turnDoneMarker(zero);
        s.rows().turnDoneMarker(zero);
        QCOMPARE(s.rows().rotationAngle(zero), 360.0);
        s.rows().edit(zero);
        s.input().setNewItem(QStringLiteral("Nil"));
        s.input().addOrUpdate();
        s.rows().togglePin(d.toLower());
        QCOMPARE(s.shown(), (QStringList{"*D", "A", "Nil", "C"}));
        QVERIFY(!s.history().canUndo()); // pinning is not undoable
        const ItemList pinned = s.items();

        // The delete gesture reads each offset after the last: 0 takes D,
        // then 2 takes C of A Nil C. Offsets past the end are skipped.
        s.rows().deleteDisplayedRows({2, 0, 9});
        QCOMPARE(s.shown(), (QStringList{"A", "Nil"}));
        s.rows().deleteItem(zero);
        QCOMPARE(s.history().undoStack().size(), 3);
        while (s.history().canUndo())
            s.history().undo();
        QCOMPARE(s.items(), pinned);

        // Unknown ids and "" do nothing, play nothing; a submit after an
        // edit of "" adds.
        s.haptics.clear();
        s.rows().togglePin(idText(QUuid::createUuid()));
        s.rows().deleteItem(QStringLiteral("not an id"));
        s.rows().togglePin(QString());
        s.rows().edit(QString());
        QVERIFY(s.haptics.events.isEmpty());
        QVERIFY(!s.history().canUndo());
        s.input().setNewItem(QStringLiteral("E"));
        s.input().addOrUpdate();
        QCOMPARE(s.shown(), (QStringList{"*D", "A", "Nil", "C", "E"}));
    }

    // Rows come pinned first, with the item's id as QML passes it back, its
    // stored position, and a bounded text (the editor gets the whole one).
    void displayedRowsAndRoles()
    {
        Screen s;
        const QString big = QString(1 << 20, QLatin1Char('w'));
        const QStringList ids = s.seed({"a", big, "*c"});
        DisplayedItemsModel *model = s.state->displayedItems();
        const auto role = [&](int row, int r) { return model->data(model->index(row), r).toString(); };
        QCOMPARE(role(0, DisplayedItemsModel::ItemIdRole), ids[2]);
        QCOMPARE(role(0, DisplayedItemsModel::PositionRole), QStringLiteral("2"));
        QCOMPARE(role(2, DisplayedItemsModel::TextRole), big);
        QCOMPARE(role(2, DisplayedItemsModel::DisplayTextRole), ItemRowText::shown(big));
    }

    // Each edit reaches the view as the smallest change, so rows keep
    // their delegates and the list its scroll position.
    void eachEditIsTheSmallestChange()
    {
        Screen s;
        s.seed({"a", "b", "c", "d"});
        ListItems &store = s.store();
        DisplayedItemsModel *model = s.state->displayedItems();
        ModelLog log(model);
        const auto id = [&](int stored) { return s.items()[stored].id; };
        const struct
        {
            std::function<void()> edit;
            QStringList log;
        } edits[] = {
            {[&] { store.setState(ListItemState::done, id(2), 0); }, {"data 2-2"}},
            {[&] { store.addItem(ListItem::create("e"), 0); }, {"insert 4-4", "count"}},
            // The rows after a deleted one change position.
            {[&] { store.deleteItems({1}, 0); }, {"remove 1-1", "count", "data 1-3"}},
            // Pinning moves one row; the positions after it follow.
            {[&] { store.setPinned(true, id(3), 0); }, {"move 3>0", "data 0-3"}},
            // Unpinned, e still heads the others: only its data changes.
            {[&] { store.setPinned(false, id(0), 0); }, {"data 0-0"}},
            // Another list's changes are not this list's.
            {[&] { store.addItem(ListItem::create("y"), 1); }, {}},
        };
        for (const auto &e : edits) {
            e.edit();
            QCOMPARE(log.take(), e.log);
        }

        // A sort and its undo move the rows that left their order, fewest first.
        const ItemList unsorted = s.items();
        store.sortItems(0, false, true);
        QCOMPARE(log.take().filter(QStringLiteral("move")).size(), 2);
        QCOMPARE(s.shown(), (QStringList{"e", "d", "+c", "a"}));
        store.replaceList(0, unsorted);
        QCOMPARE(log.take().filter(QStringLiteral("move")).size(), 2);
        // A switch of lists starts afresh.
        model->setListIndex(1);
        QCOMPARE(log.take(), (QStringList{"reset", "count"}));
        QCOMPARE(s.shown(), QStringList{"y"});
    }

    // Dropped rows go to the store's move, which has rules of its own; the
    // screen's part is the positions, and a save on every drop.
    void dragDrop()
    {
        const struct
        {
            QStringList stored;
            int from;
            int gap;
            QStringList after;
        } drops[] = {
            {{"*P", "A", "B"}, 1, 1, {"*P", "A", "B"}},
            {{"*P", "A", "B"}, 9, 0, {"*P", "A", "B"}},
            // Stored A P B shows P A B; the displayed positions are taken as
            // stored ones all the same.
            {{"A", "*P", "B"}, 0, 3, {"*P", "B", "A"}},
        };
        for (const auto &drop : drops) {
            Screen s;
            s.seed(drop.stored);
            s.rows().moveDisplayedRow(drop.from, drop.gap);
            QCOMPARE(s.stored(), drop.after);
            // Every drop of an existing row saves, also onto its own place.
            QCOMPARE(s.prefs.writeCount() > 0, drop.from < drop.stored.size());
            QVERIFY(!s.history().canUndo());
        }
    }
};

QTEST_MAIN(TestScreenState)
#include "tst_screenstate.moc"
