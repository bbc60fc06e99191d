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
#include <QSignalSpy>
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
    // Adds through the input bar; returns the new item's id.
    QString add(const QString &text)
    {
        input().setNewItem(text);
        input().addOrUpdate();
        haptics.clear();
        return input().lastItemId();
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
// "move 3>0", "layout", "reset" or "count", checked as it goes by
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
        QObject::connect(model, &M::layoutChanged, &guard, [this] { log << "layout"; });
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
    void schemeAndTheme()
    {
        // The scheme reaches the store at start-up, and with each toggle.
        Screen s;
        s.appearance.setSchemeKey(QStringLiteral("dark"));
        s.state->appear();
        QCOMPARE(s.store().appColorScheme(), ListItems::Dark);
        s.state->toggleColorScheme();
        QCOMPARE(s.store().appColorScheme(), ListItems::Light);

        // A new theme rebuilds the content, whoever sets it; the same one does not.
        const QString first = s.state->themeRefreshID();
        s.state->chooseTheme(QStringLiteral("pink"));
        const QString second = s.state->themeRefreshID();
        s.state->chooseTheme(QStringLiteral("pink"));
        QCOMPARE(s.state->themeRefreshID(), second);
        s.appearance.setThemeKey(QStringLiteral("gray"));
        QCOMPARE(QSet<QString>({first, second, s.state->themeRefreshID()}).size(), 3);
    }

    // Every key of the screen, on a fresh screen each, Tea just deleted:
    // the window's keys through their bindings (row -1), a row's keys on
    // row 0 ("Milk") or 1. The screen reads: names | selection | the list's
    // items | what else is up.
    void keys_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("handled");
        QTest::addColumn<QString>("expected");
        const QString before = "Home,Work,Trip|0|Milk,+Eggs|";
        QTest::newRow("new list") << "Ctrl+Shift+N" << -1 << true << "New List,Home,Work,Trip|0||";
        QTest::newRow("next list") << "Ctrl+PgDown" << -1 << true << "Home,Work,Trip|1||";
        QTest::newRow("no list before the first") << "Ctrl+PgUp" << -1 << false << before;
        QTest::newRow("move the list right") << "Ctrl+Shift+PgDown" << -1 << true << "Work,Home,Trip|1|Milk,+Eggs|";
        QTest::newRow("the first list moves no further left") << "Ctrl+Shift+PgUp" << -1 << false << before;
        QTest::newRow("input bar") << "Ctrl+N" << -1 << true << before + "input";
        QTest::newRow("tutorial") << "F1" << -1 << true << before + "tutorial";
        QTest::newRow("rename is the view's") << "F2" << -1 << false << before;
        QTest::newRow("undo") << "Ctrl+Z" << -1 << true << "Home,Work,Trip|0|Milk,+Eggs,Tea|";
        QTest::newRow("toggle") << "Space" << 0 << true << "Home,Work,Trip|0|+Milk,+Eggs|turned";
        QTest::newRow("edit") << "Return" << 0 << true << before + "input editing Milk";
        QTest::newRow("edit, keypad") << "Enter" << 0 << true << before + "input editing Milk";
        QTest::newRow("delete") << "Del" << 0 << true << "Home,Work,Trip|0|+Eggs|";
        QTest::newRow("pin") << "Ctrl+P" << 0 << true << "Home,Work,Trip|0|*Milk,+Eggs|";
        QTest::newRow("P alone") << "P" << 0 << false << before;
        QTest::newRow("Shift+Space") << "Shift+Space" << 0 << false << before;
        QTest::newRow("Ctrl+Del") << "Ctrl+Del" << 0 << false << before;
        QTest::newRow("down") << "Alt+Down" << 0 << true << "Home,Work,Trip|0|+Eggs,Milk|";
        QTest::newRow("up") << "Alt+Up" << 1 << true << "Home,Work,Trip|0|+Eggs,Milk|";
        QTest::newRow("nothing above the top") << "Alt+Up" << 0 << false << before;
        QTest::newRow("nothing below the bottom") << "Alt+Down" << 1 << false << before;
        QTest::newRow("a row's key off the rows") << "Space" << -1 << false << before;
    }
    void keys()
    {
        QFETCH(QString, keys);
        QFETCH(int, row);
        QFETCH(bool, handled);
        QFETCH(QString, expected);
        Screen s;
        const QStringList ids = s.seed({"Milk", "+Eggs", "Tea"});
        s.rows().deleteItem(ids[2]);
        KeyCommands &commands = *s.state->keys();
        const QKeyCombination pressed = QKeySequence(keys)[0];
        bool done = false;
        if (row >= 0) {
            done = commands.rowKey(pressed.key(), pressed.keyboardModifiers().toInt(), ids[row]);
        } else {
            // Through the table QML binds its shortcuts to.
            for (const QVariant &binding : commands.windowKeys())
                if (QKeySequence(binding.toMap()["sequence"].toString()) == QKeySequence(keys))
                    done = commands.perform(binding.toMap()["command"].toInt());
        }
        QCOMPARE(done, handled);
        QStringList up;
        if (s.input().newItemFieldIsFocused())
            up << "input";
        if (!s.input().editingItemId().isEmpty())
            up << "editing " + s.input().newItem();
        if (s.state->showTutorial())
            up << "tutorial";
        if (s.rows().rotationAngle(ids[0]) != 0)
            up << "turned";
        QCOMPARE(QStringList({s.store().listNames().join(','), QString::number(s.lists().selectedListIndex()),
                              s.stored().join(','), up.join(' ')})
                     .join('|'),
                 expected);
    }

    void hapticsPerFlowAndSharing()
    {
        Screen s;
        const QString milk = s.add("Milk");
        const QString eggs = s.add("Eggs");
        s.store().setState(ListItemState::done, QUuid::fromString(eggs), 0);
        const auto light = RecordingHaptics::Event::lightImpact;
        const auto success = RecordingHaptics::Event::successNotification;
        const struct
        {
            const char *flow;
            std::function<void()> run;
            QList<RecordingHaptics::Event> expected;
        } flows[] = {
            {"add", [&] { s.input().setNewItem("Tea"); s.input().addOrUpdate(); }, {light}},
            {"add only spaces", [&] { s.input().setNewItem(" "); s.input().addOrUpdate(); }, {light}},
            {"undo with nothing to undo", [&] { s.history().undo(); }, {light}},
            {"tap a to-do marker", [&] { s.rows().turnDoneMarker(milk); }, {success}},
            {"tap a done marker", [&] { s.rows().turnDoneMarker(eggs); }, {light}},
            {"toggle state", [&] { s.rows().toggleState(milk); }, {}},
            {"pin", [&] { s.rows().togglePin(milk); }, {light}},
            {"drag", [&] { s.rows().moveDisplayedRow(0, 2); }, {}},
            {"sort by status", [&] { s.history().sortByStatus(); }, {light}},
            {"reset dots", [&] { s.history().markAllToDo(); }, {light}},
            {"delete row", [&] { s.rows().deleteItem(milk); }, {light}},
            {"undo", [&] { s.history().undo(); }, {light}},
            {"delete gesture", [&] { s.rows().deleteDisplayedRows({0}); }, {}},
            {"new list", [&] { s.lists().addList(); }, {success}},
            {"move left when first", [&] { s.lists().moveListLeft(); }, {success}},
            {"move right", [&] { s.lists().moveListRight(); }, {success}},
            {"ask to delete the list", [&] { s.lists().askToDeleteList(); }, {success}},
            {"delete the list", [&] { s.lists().deleteSelectedList(); }, {}},
            {"chip tap", [&] { s.lists().chooseList(1); }, {light}},
            {"scheme", [&] { s.state->toggleColorScheme(); }, {light}},
            {"theme", [&] { s.state->chooseTheme("blue"); }, {light}},
            {"share", [&] { s.state->share(); }, {light}},
            {"rate", [&] { s.state->openWriteReviewPage(); }, {}},
        };
        for (const auto &f : flows) {
            s.haptics.clear();
            f.run();
            QVERIFY2(s.haptics.events == f.expected, f.flow);
        }
        QCOMPARE(s.opener.opened, 1); // by "rate"
        // Only a selected list is shared; the text is checked through the view.
        QTRY_VERIFY(s.sheet.isPresented());
        s.sheet.dismiss();
        s.lists().setSelectedListIndex(-1);
        s.state->share();
        QTest::qWait(20);
        QVERIFY(!s.sheet.isPresented());
    }

    void startUpClampsTheStoredSelection_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<qint64>("selected");
        const QStringList three{"Home", "Work", "Trip"};
        QTest::newRow("valid") << three << QVariant(qint64(1)) << qint64(1);
        QTest::newRow("far beyond last") << three << QVariant(qint64(1) << 50) << qint64(2);
        QTest::newRow("negative") << three << QVariant(qint64(-3)) << qint64(0);
        QTest::newRow("wrong type") << three << QVariant(QStringLiteral("2")) << qint64(0);
        QTest::newRow("absent") << three << QVariant() << qint64(0);
        QTest::newRow("no lists") << QStringList() << QVariant(qint64(4)) << qint64(0);
    }
    void startUpClampsTheStoredSelection()
    {
        QFETCH(QStringList, names);
        QFETCH(QVariant, stored);
        QFETCH(qint64, selected);
        Screen s(names, stored);
        QCOMPARE(s.lists().selectedListIndex(), selected);
        QCOMPARE(s.lists().currentListName(), names.value(selected));
        // Whatever is shown is what the next start finds.
        if (stored.typeId() == QMetaType::LongLong)
            QCOMPARE(s.storedIndex(), selected);
    }

    // Each step of the lists, as the screen and the chips see it: the chips
    // follow row by row, never rebuilt; the capsule's pace and the header's
    // scroll come with each change of the selection, which is stored as shown.
    void eachStepOfTheLists()
    {
        Screen s(QStringList{"H", "W", "T"}, QVariant(qint64(1)));
        s.add("kept");
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
            {[&] { lists.moveListLeft(); }, {"move 1>3", "select 1 in 300", "200", "200"}, "H,J,T|1|kept"},
            // A chip tap also puts the keyboard away.
            {[&] { s.input().setNewItemFieldIsFocused(true); lists.chooseList(2); }, {"select 2 in 500", "200", "500"},
             "H,J,T|2|"},
            {[&] { lists.chooseList(2); }, {"500"}, "H,J,T|2|"},
            {[&] { lists.addList(); }, {"insert 0-0", "select 0 in 350", "200", "500"}, "New List,H,J,T|0|"},
            {[&] { lists.moveListLeft(); }, {}, "New List,H,J,T|0|"},
            // A list goes only after a "Yes"; the selection stays on the last.
            {[&] { lists.setSelectedListIndex(3); }, {"select 3 in 0", "200"}, "New List,H,J,T|3|"},
            {[&] { lists.askToDeleteList(); }, {}, "New List,H,J,T|3||asking"},
            {[&] { lists.deleteSelectedList(); }, {"remove 3-3", "select 2 in 0", "200", "350"}, "New List,H,J|2|kept"},
            {[&] { s.history().undo(); }, {"insert 3-3", "select 3 in 0", "200", "350"}, "New List,H,J,T|3|"},
            {[&] { lists.setSelectedListIndex(2); }, {"select 2 in 0", "200"}, "New List,H,J,T|2|kept"},
            // Renamed as typed, spaces and all; an empty name is allowed;
            // neither is undone.
            {[&] { lists.renameSelectedList(" Groceries "); }, {"data 2-2"}, "New List,H, Groceries ,T|2|kept"},
            {[&] { lists.renameSelectedList(""); }, {"data 2-2"}, "New List,H,,T|2|kept"},
            {[&] { s.history().undo(); }, {}, "New List,H,,T|2|kept"},
            {[&] { lists.setSelectedListIndex(4); }, {"select 4 in 0", "200"}, "New List,H,,T|4|"},
            {[&] { lists.renameSelectedList("x"); }, {}, "New List,H,,T|4|"},
        };
        for (const auto &step : steps) {
            log.clear();
            step.run();
            QTRY_COMPARE(log, step.log);
            QCOMPARE(QStringList({s.store().listNames().join(','), QString::number(lists.selectedListIndex()),
                                  s.shown().join(',')})
                             .join('|')
                         + (lists.showDeletionConfirmation() ? "|asking" : ""),
                     step.state);
            QStringList names;
            for (int row = 0; row < chips.rowCount(); ++row)
                names << chips.index(row).data().toString();
            QCOMPARE(names, s.store().listNames());
            QCOMPARE(s.storedIndex(), lists.selectedListIndex());
            QCOMPARE(*s.prefs.stringList(PreferenceKeys::listNames), s.store().listNames());
            QCOMPARE(lists.selectionDuration(), 0);
            QVERIFY(!s.input().newItemFieldIsFocused());
        }

        // The restored list is stored, not only shown.
        QCOMPARE(ListItems(s.prefs).items(), s.store().items());
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
            {"Appointments", 20},
            {"Camping List 1", 20},
            {"Home Projects 1", 18},
            {QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467").repeated(12), 20},
            {QStringLiteral("e\u0301").repeated(15), 18},
        };
        for (const auto &[title, size] : titles)
            QCOMPARE(ListNavigation::titlePointSize(title), size);
    }

    void addEditAndUpdate()
    {
        Screen s;
        QSignalSpy scrolls(&s.input(), &InputBar::scrollToItem);
        s.input().setNewItem(QStringLiteral(" \n\tMilk \n"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Milk"});
        const QString milk = s.input().lastItemId();
        QCOMPARE(scrolls.size(), 1);
        QCOMPARE(scrolls[0][0].toString(), idText(s.items()[0].id));
        QCOMPARE(s.input().newItem(), QString());
        // The bullet flies out at once and comes back a third of a second later.
        QVERIFY(s.input().showBullet());
        QCOMPARE(s.input().bulletOffset(), 300.0);
        QTest::qWait(200);
        QVERIFY(s.input().showBullet());
        QTRY_VERIFY_WITH_TIMEOUT(!s.input().showBullet(), 1000);
        QCOMPARE(s.input().bulletOffset(), 0.0);

        // Only white space adds nothing, but the bullet still flies.
        s.prefs.resetWriteLog();
        s.add(QStringLiteral("  \n \u00a0\t"));
        QCOMPARE(s.stored(), QStringList{"Milk"});
        QCOMPARE(s.prefs.writeCount(), 0);
        QVERIFY(s.input().showBullet());
        QTRY_VERIFY(!s.input().showBullet());

        const QString refresh = s.input().refreshID();
        s.rows().edit(milk);
        QCOMPARE(s.input().editingItemId(), milk);
        QCOMPARE(s.input().newItem(), QStringLiteral("Milk"));
        QVERIFY(s.input().newItemFieldIsFocused());
        s.input().setNewItem(QStringLiteral("  Oat milk\n"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Oat milk"});
        QCOMPARE(s.input().editingItemId(), QString());
        QCOMPARE(s.input().newItem(), QString());
        QVERIFY(!s.input().newItemFieldIsFocused());
        QVERIFY(s.input().refreshID() != refresh);
        QVERIFY(!s.input().showBullet()); // only an add flies it

        // An update to nothing keeps the text and still ends editing.
        s.rows().edit(milk);
        s.input().setNewItem(QStringLiteral("   "));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Oat milk"});
        QCOMPARE(s.input().editingItemId(), QString());

        // The window going to the background or a menu taking the keys
        // keeps the edit; the user leaving the field ends it, so the next
        // submit adds.
        s.rows().edit(milk);
        s.input().setNewItem(QStringLiteral("Milk dr"));
        for (Qt::FocusReason kept : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
            s.input().fieldFocusChanged(false, kept);
            QVERIFY(s.input().newItemFieldIsFocused());
            QCOMPARE(s.input().editingItemId(), milk);
            QCOMPARE(s.input().newItem(), QStringLiteral("Milk dr"));
        }
        s.input().fieldFocusChanged(false, Qt::MouseFocusReason);
        QVERIFY(!s.input().newItemFieldIsFocused());
        QCOMPARE(s.input().editingItemId(), QString());
        QCOMPARE(s.input().newItem(), QString());
        s.add("Eggs");
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
            {&SortAndUndo::undo, "c,d,+a,+b", true},
            {&SortAndUndo::undo, "+a,+b,c,d", true},
            {&SortAndUndo::undo, "+b,c,+a,d", true},
            {&SortAndUndo::markAllToDo, "b,c,a,d", true},
            {&SortAndUndo::undo, "+b,c,+a,d", true},
        };
        for (const auto &step : steps) {
            (history.*step.run)();
            QCOMPARE(s.stored().join(','), step.after);
            QCOMPARE(history.isAscending(), step.ascending);
        }
        QVERIFY(!history.canUndo());

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
        QCOMPARE(s.state->displayedItems()->rowOf(zero.chopped(1)), -1);

        // The marker's angle only grows, turn after turn.
        s.rows().turnDoneMarker(zero);
        s.rows().toggleState(zero);
        s.rows().turnDoneMarker(zero);
        QCOMPARE(s.rows().rotationAngle(zero), 360.0);
        s.rows().edit(zero);
        QCOMPARE(s.input().editingItemId(), zero);
        s.input().setNewItem(QStringLiteral("Nil"));
        s.input().addOrUpdate();
        s.rows().togglePin(d.toLower());
        QCOMPARE(s.shown(), (QStringList{"*D", "A", "+Nil", "C"}));
        QVERIFY(!s.history().canUndo()); // pinning is not undoable
        const ItemList pinned = s.items();

        // The delete gesture reads each offset after the last: 0 takes D,
        // then 2 takes C of A Nil C. Offsets past the end are skipped.
        s.rows().deleteDisplayedRows({2, 0});
        QCOMPARE(s.shown(), (QStringList{"A", "+Nil"}));
        s.rows().deleteItem(zero);
        s.rows().deleteDisplayedRows({0, 1});
        QVERIFY(s.lists().isSelectedListEmpty());
        QCOMPARE(s.history().undoStack().size(), 4);
        for (int i = 0; i < 4; ++i)
            s.history().undo();
        QCOMPARE(s.items(), pinned);
        QVERIFY(!s.lists().isSelectedListEmpty());

        // Unpinned, D heads the others. Unknown ids and "" do nothing, play
        // nothing; a submit after an edit of "" adds.
        s.rows().togglePin(d);
        s.haptics.clear();
        s.rows().togglePin(idText(QUuid::createUuid()));
        s.rows().deleteItem(QStringLiteral("not an id"));
        s.rows().togglePin(QString());
        s.rows().edit(QString());
        QVERIFY(s.haptics.events.isEmpty());
        QVERIFY(!s.history().canUndo());
        s.add("E");
        QCOMPARE(s.shown(), (QStringList{"D", "A", "+Nil", "C", "E"}));
    }

    // Rows come pinned first, with the item's id as QML passes it back, its
    // stored position, and a bounded text (the editor gets the whole one);
    // an edit of the text refreshes both.
    void displayedRowsAndRoles()
    {
        Screen s;
        const QString big = QString(1 << 20, QLatin1Char('w'));
        const QStringList ids = s.seed({"a", big, "*c"});
        DisplayedItemsModel *model = s.state->displayedItems();
        QList<int> roles;
        connect(model, &QAbstractItemModel::dataChanged, this,
                [&](const QModelIndex &, const QModelIndex &, const QList<int> &r) { roles = r; });
        const auto role = [&](int row, int r) { return model->data(model->index(row), r).toString(); };
        QCOMPARE(role(0, DisplayedItemsModel::ItemIdRole), ids[2]);
        QCOMPARE(model->rowOf(ids[2]), 0);
        QCOMPARE(role(0, DisplayedItemsModel::PositionRole), QStringLiteral("2"));
        QCOMPARE(role(0, DisplayedItemsModel::DisplayTextRole), QStringLiteral("c"));
        QCOMPARE(role(2, DisplayedItemsModel::TextRole), big);
        QCOMPARE(role(2, DisplayedItemsModel::DisplayTextRole), ItemRowText::shown(big));

        s.store().updateItemText(s.items()[1].id, 0, QStringLiteral("now short"));
        QVERIFY(roles.contains(DisplayedItemsModel::DisplayTextRole));
        QCOMPARE(role(2, DisplayedItemsModel::DisplayTextRole), QStringLiteral("now short"));
    }

    // Each edit reaches the view as the smallest change, so rows keep
    // their delegates and the list its scroll position.
    void eachEditIsTheSmallestChange()
    {
        Screen s;
        s.seed({"a", "b", "c", "d"});
        s.store().replaceList(1, markedItems({"x"}));
        ListItems &store = s.store();
        DisplayedItemsModel *model = s.state->displayedItems();
        ModelLog log(model);
        const auto id = [&](int stored) { return s.items()[stored].id; };
        ListItem b;
        const struct
        {
            std::function<void()> edit;
            QStringList log;
        } edits[] = {
            {[&] { store.setState(ListItemState::done, id(2), 0); }, {"data 2-2"}},
            {[&] { store.updateItemText(id(0), 0, QStringLiteral("A")); }, {"data 0-0"}},
            {[&] { model->setRotationAngle(id(3), 180); }, {"data 3-3"}},
            {[&] { store.addItem(ListItem::create("e"), 0); }, {"insert 4-4", "count"}},
            // The rows after a deleted one change position; an undo puts it back.
            {[&] { b = s.items()[1]; store.deleteItems({1}, 0); }, {"remove 1-1", "count", "data 1-3"}},
            {[&] { store.insertItem(b, 1, 0); }, {"insert 1-1", "count", "data 2-4"}},
            // Pinning and dragging move one row; the positions after it follow.
            {[&] { store.setPinned(true, id(4), 0); }, {"move 4>0", "data 0-4"}},
            // Unpinned, e still heads the others: only its data changes.
            {[&] { store.setPinned(false, id(0), 0); }, {"data 0-0"}},
            {[&] { store.moveItems({4}, 0, 0); }, {"move 4>0", "data 0-4"}},
            // Another list's changes are not this list's.
            {[&] { store.addItem(ListItem::create("y"), 1); }, {}},
        };
        for (const auto &e : edits) {
            e.edit();
            QCOMPARE(log.take(), e.log);
        }
        QCOMPARE(model->data(model->index(0), DisplayedItemsModel::RotationAngleRole).toDouble(), 180.0);
        QCOMPARE(s.shown(), (QStringList{"d", "e", "A", "b", "+c"}));

        // A sort and its undo move the rows that left their order, fewest first.
        const ItemList unsorted = s.items();
        store.sortItems(0, false, true);
        QCOMPARE(log.take().filter(QStringLiteral("move")).size(), 3);
        QCOMPARE(s.shown(), (QStringList{"e", "d", "+c", "b", "A"}));
        store.replaceList(0, unsorted);
        QCOMPARE(log.take().filter(QStringLiteral("move")).size(), 3);
        QCOMPARE(s.shown(), (QStringList{"d", "e", "A", "b", "+c"}));
        // A switch of lists starts afresh.
        model->setListIndex(1);
        QCOMPARE(log.take(), (QStringList{"reset", "count"}));
        QCOMPARE(s.shown(), (QStringList{"x", "y"}));
    }

    // Too many rows move to follow each: one layout change, with every
    // held index following its item; a list that changed otherwise resets.
    void longSortsAreOneLayoutChange()
    {
        Screen s;
        QStringList texts;
        for (int i = 0; i < 1000; ++i)
            texts << QStringLiteral("%1").arg(i, 4, 10, QLatin1Char('0'));
        s.seed(texts);
        DisplayedItemsModel *model = s.state->displayedItems();
        ModelLog log(model);
        const QPersistentModelIndex held = model->index(10);
        s.store().sortItems(0, false, true);
        QCOMPARE(log.take(), QStringList{"layout"});
        QCOMPARE(s.shown().first(), QStringLiteral("0999"));
        QCOMPARE(held.row(), 989);
        QCOMPARE(held.data(DisplayedItemsModel::TextRole).toString(), QStringLiteral("0010"));
        QCOMPARE(held.data(DisplayedItemsModel::PositionRole).toLongLong(), 989);

        ItemList other = s.items();
        std::reverse(other.begin(), other.end());
        other.removeLast();
        other.prepend(ListItem::create(QStringLiteral("new")));
        s.store().replaceList(0, other);
        QCOMPARE(log.take(), QStringList{"reset"});
    }

    void heldUpdatesFollowTheListThatMoved()
    {
        Screen s;
        s.seed({"a", "b"});
        s.store().replaceList(1, markedItems({"x"}));
        DisplayedItemsModel *model = s.state->displayedItems();
        ModelLog log(model);
        // The screen moves list 0 to 1 and selects it: the same rows, no change.
        model->holdUpdates();
        s.store().moveList(0, 1);
        model->setListIndex(1);
        model->releaseUpdates();
        QCOMPARE(log.take(), QStringList());
        QCOMPARE(s.shown(), (QStringList{"a", "b"}));

        // Without the selection following, the other list shows.
        s.store().moveList(0, 1);
        QCOMPARE(log.take(), (QStringList{"reset", "count"}));
        QCOMPARE(s.shown(), QStringList{"x"});

        // A change while held waits for the last release, as the smallest change.
        model->holdUpdates();
        model->holdUpdates();
        s.store().addItem(ListItem::create("y"), 1);
        model->releaseUpdates();
        QCOMPARE(model->rowCount(), 1);
        model->releaseUpdates();
        QCOMPARE(log.take(), (QStringList{"insert 1-1", "count"}));
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
            {{"*P", "A", "B"}, 2, 1, {"*P", "B", "A"}},
            {{"*P", "A", "B"}, 1, 1, {"*P", "A", "B"}},
            {{"*P", "A", "B"}, 9, 0, {"*P", "A", "B"}},
            // Stored A P B shows P A B; the displayed positions are taken as
            // stored ones all the same.
            {{"A", "*P", "B"}, 2, 1, {"A", "B", "*P"}},
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
