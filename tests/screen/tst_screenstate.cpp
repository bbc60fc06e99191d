#include "ScreenRig.h"
#include "screen/KeyCommands.h"

#include <QSignalSpy>
#include <QTest>
#include <functional>

class TestScreenState : public QObject
{
    Q_OBJECT

private slots:
    void schemeAndTheme()
    {
        // The stored scheme reaches the store at start-up, and each toggle.
        Screen s(QStringList{"Home"}, {}, QStringLiteral("dark"));
        QCOMPARE(s.store().appColorScheme(), ListItems::Dark);
        s.state->toggleColorScheme();
        QCOMPARE(s.prefs.string(PreferenceKeys::appColorScheme), QStringLiteral("light"));
        QCOMPARE(s.store().appColorScheme(), ListItems::Light);

        // A new theme rebuilds the content, whoever sets it; the same one does not.
        const QString first = s.state->themeRefreshID();
        s.state->chooseTheme(QStringLiteral("pink"));
        QCOMPARE(s.prefs.string(PreferenceKeys::selectedThemeKey), QStringLiteral("pink"));
        const QString second = s.state->themeRefreshID();
        QVERIFY(second != first);
        s.state->chooseTheme(QStringLiteral("pink"));
        QCOMPARE(s.state->themeRefreshID(), second);
        s.appearance.setThemeKey(QStringLiteral("gray"));
        QVERIFY(s.state->themeRefreshID() != second);
    }

    // The text itself is checked through the view.
    void sharesOnlyASelectedList()
    {
        Screen s;
        s.state->share();
        QTRY_VERIFY(s.sheet.isPresented());
        s.sheet.dismiss();
        s.lists().setSelectedListIndex(-1);
        s.state->share();
        QTest::qWait(20);
        QVERIFY(!s.sheet.isPresented());
    }

    // Every key of the screen, on a fresh screen each: the window's keys
    // through their bindings (row -1), a row's keys on row 0 ("Milk") or 1.
    // The screen reads: names | selection | the list's items | what else is up.
    void keys_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("deleteFirst");
        QTest::addColumn<bool>("handled");
        QTest::addColumn<QString>("expected");
        const QString before = "Home,Work,Trip|0|Milk,+Eggs|";
        QTest::newRow("new list") << "Ctrl+Shift+N" << -1 << false << true << "New List,Home,Work,Trip|0||";
        QTest::newRow("next list") << "Ctrl+PgDown" << -1 << false << true << "Home,Work,Trip|1||";
        QTest::newRow("no list before the first") << "Ctrl+PgUp" << -1 << false << false << before;
        QTest::newRow("move the list right") << "Ctrl+Shift+PgDown" << -1 << false << true
                                             << "Work,Home,Trip|1|Milk,+Eggs|";
        QTest::newRow("the first list moves no further left") << "Ctrl+Shift+PgUp" << -1 << false << false << before;
        QTest::newRow("input bar") << "Ctrl+N" << -1 << false << true << before + "input";
        QTest::newRow("tutorial") << "F1" << -1 << false << true << before + "tutorial";
        QTest::newRow("rename is the view's") << "F2" << -1 << false << false << before;
        QTest::newRow("undo") << "Ctrl+Z" << -1 << true << true << before;
        QTest::newRow("toggle") << "Space" << 0 << false << true << "Home,Work,Trip|0|+Milk,+Eggs|turned";
        QTest::newRow("edit") << "Return" << 0 << false << true << before + "input editing Milk";
        QTest::newRow("edit, keypad") << "Enter" << 0 << false << true << before + "input editing Milk";
        QTest::newRow("delete") << "Del" << 0 << false << true << "Home,Work,Trip|0|+Eggs|undo";
        QTest::newRow("pin") << "Ctrl+P" << 0 << false << true << "Home,Work,Trip|0|*Milk,+Eggs|";
        QTest::newRow("P alone") << "P" << 0 << false << false << before;
        QTest::newRow("Shift+Space") << "Shift+Space" << 0 << false << false << before;
        QTest::newRow("Ctrl+Del") << "Ctrl+Del" << 0 << false << false << before;
        QTest::newRow("down") << "Alt+Down" << 0 << false << true << "Home,Work,Trip|0|+Eggs,Milk|";
        QTest::newRow("up") << "Alt+Up" << 1 << false << true << "Home,Work,Trip|0|+Eggs,Milk|";
        QTest::newRow("nothing above the top") << "Alt+Up" << 0 << false << false << before;
        QTest::newRow("nothing below the bottom") << "Alt+Down" << 1 << false << false << before;
        QTest::newRow("a row's key off the rows") << "Space" << -1 << false << false << before;
    }
    void keys()
    {
        QFETCH(QString, keys);
        QFETCH(int, row);
        QFETCH(bool, deleteFirst);
        QFETCH(bool, handled);
        QFETCH(QString, expected);
        Screen s;
        const QStringList ids = s.seed({"Milk", "+Eggs"});
        const QString milk = ids.first();
        if (deleteFirst)
            s.rows().deleteItem(milk);
        KeyCommands &commands = *s.state->keys();
        const QKeyCombination pressed = QKeySequence(keys)[0];
        bool done = false;
        if (row >= 0) {
            done = commands.rowKey(pressed.key(), pressed.keyboardModifiers().toInt(), ids[row]);
        } else {
            const auto &bindings = KeyCommands::windowBindings();
            const auto bound = std::find_if(bindings.begin(), bindings.end(),
                                            [&](const KeyCommands::Binding &b) { return b.keys == QKeySequence(keys); });
            if (bound != bindings.end()) {
                // QML sees the same table.
                QVERIFY(commands.windowKeys().contains(QVariantMap{{"sequence", bound->keys.toString()},
                                                                  {"command", int(bound->command)}}));
                done = commands.perform(bound->command);
            }
        }
        QCOMPARE(done, handled);
        QStringList up;
        if (s.input().newItemFieldIsFocused())
            up << "input";
        if (!s.input().editingItemId().isEmpty())
            up << "editing " + s.input().newItem();
        if (s.state->showTutorial())
            up << "tutorial";
        if (s.rows().rotationAngle(milk) != 0)
            up << "turned";
        if (s.history().canUndo() && !deleteFirst)
            up << "undo";
        QCOMPARE(QStringList({s.store().listNames().join(','), QString::number(s.lists().selectedListIndex()),
                              s.stored().join(','), up.join(' ')})
                     .join('|'),
                 expected);
    }

    void hapticsPerFlow()
    {
        Screen s;
        const QString milk = s.add("Milk");
        const QString eggs = s.add("Eggs");
        s.store().setState(ListItemState::done, QUuid::fromString(eggs), 0);
        ScreenState &st = *s.state;
        ListNavigation &lists = s.lists();
        InputBar &input = s.input();
        SortAndUndo &history = s.history();
        RowActions &rows = s.rows();
        const auto light = RecordingHaptics::Event::lightImpact;
        const auto success = RecordingHaptics::Event::successNotification;
        const struct
        {
            const char *flow;
            std::function<void()> run;
            QList<RecordingHaptics::Event> expected;
        } flows[] = {
            {"add", [&] { input.setNewItem("Tea"); input.addOrUpdate(); }, {light}},
            {"add only spaces", [&] { input.setNewItem(" "); input.addOrUpdate(); }, {light}},
            {"undo with nothing to undo", [&] { history.undo(); }, {light}},
            {"tap a to-do marker", [&] { rows.turnDoneMarker(milk); }, {success}},
            {"tap a done marker", [&] { rows.turnDoneMarker(eggs); }, {light}},
            {"toggle state", [&] { rows.toggleState(milk); }, {}},
            {"pin", [&] { rows.togglePin(milk); }, {light}},
            {"drag", [&] { rows.moveDisplayedRow(0, 2); }, {}},
            {"sort by status", [&] { history.sortByStatus(); }, {light}},
            {"sort by text", [&] { history.sortByText(); }, {light}},
            {"reset dots", [&] { history.markAllToDo(); }, {light}},
            {"delete row", [&] { rows.deleteItem(milk); }, {light}},
            {"undo", [&] { history.undo(); }, {light}},
            {"delete gesture", [&] { rows.deleteDisplayedRows({0}); }, {}},
            {"new list", [&] { lists.addList(); }, {success}},
            {"move right", [&] { lists.moveListRight(); }, {success}},
            {"move left", [&] { lists.moveListLeft(); }, {success}},
            {"move left when first", [&] { lists.moveListLeft(); }, {success}},
            {"ask to delete the list", [&] { lists.askToDeleteList(); }, {success}},
            {"delete the list", [&] { lists.deleteSelectedList(); }, {}},
            {"chip tap", [&] { lists.chooseList(1); }, {light}},
            {"the same chip again", [&] { lists.chooseList(1); }, {light}},
            {"scheme", [&] { st.toggleColorScheme(); }, {light}},
            {"theme", [&] { st.chooseTheme("blue"); }, {light}},
            {"the same theme again", [&] { st.chooseTheme("blue"); }, {light}},
            {"share", [&] { st.share(); }, {light}},
            {"rate", [&] { st.openWriteReviewPage(); }, {}},
        };
        for (const auto &f : flows) {
            s.haptics.clear();
            f.run();
            QVERIFY2(s.haptics.events == f.expected, f.flow);
        }
        QCOMPARE(s.opener.opened, 1); // by "rate"
    }
};

QTEST_MAIN(TestScreenState)
#include "tst_screenstate.moc"
