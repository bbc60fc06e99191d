#include "ScreenRig.h"

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
