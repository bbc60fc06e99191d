#include "RecordingHaptics.h"
#include "RecordingShareSheet.h"
#include "appearance/Appearance.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "platform/WriteReviewOpener.h"
#include "screen/DisplayedItemsModel.h"
#include "screen/ScreenState.h"

#include <QSignalSpy>
#include <QTest>
#include <functional>

namespace {

class CountingOpener : public WriteReviewOpener
{
public:
    void openWriteReviewPage() override { ++opened; }
    int opened = 0;
};

QString idText(const QUuid &id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

// Item texts with their state: "*" before a pinned item, "+" before a done one.
QString marked(const ListItem &item)
{
    return QString(item.isPinned ? "*" : "") + QString(item.isDone() ? "+" : "") + item.text;
}

// A screen over an in-memory store, already appeared, with empty logs.
struct Screen
{
    explicit Screen(const QStringList &names = {"Home", "Work", "Trip"}, const QVariant &storedIndex = {},
                    const QString &scheme = {})
    {
        prefs.setStringList(PreferenceKeys::listNames, names);
        if (storedIndex.isValid())
            prefs.setRawForTest(PreferenceKeys::selectedListIndex, storedIndex);
        if (!scheme.isEmpty())
            prefs.setString(PreferenceKeys::appColorScheme, scheme);
        state = std::make_unique<ScreenState>(prefs, haptics, ScreenState::Services{&appearance, &sheet, &opener});
        state->onAppear();
        haptics.clear();
        prefs.resetWriteLog();
    }

    ListItems &store() { return *state->store(); }
    ItemList items() { return store().itemsAt(state->selectedListIndex()); }
    qint64 storedIndex() const { return prefs.integer(PreferenceKeys::selectedListIndex).value_or(-999); }

    // Replaces the selected list with marked texts ("*" pinned, "+" done);
    // returns the new items' ids.
    QStringList seed(const QStringList &texts)
    {
        ItemList list;
        QStringList ids;
        for (QString text : texts) {
            ListItem item = ListItem::create({});
            item.isPinned = text.startsWith('*');
            text.remove(0, item.isPinned ? 1 : 0);
            item.state = text.startsWith('+') ? ListItemState::done : ListItemState::toDo;
            item.text = text.mid(item.isDone() ? 1 : 0);
            list << item;
            ids << idText(item.id);
        }
        store().replaceList(state->selectedListIndex(), list);
        prefs.resetWriteLog();
        return ids;
    }
    // Adds through the input bar; returns the new item's id.
    QString add(const QString &text)
    {
        state->setNewItem(text);
        state->addOrUpdateAction();
        haptics.clear();
        return state->lastItemId();
    }
    // The selected list, marked, in stored order and as the rows show it.
    QStringList stored()
    {
        QStringList texts;
        for (const ListItem &item : items())
            texts << marked(item);
        return texts;
    }
    QStringList shown()
    {
        QStringList texts;
        for (int row = 0; const ListItem *item = state->displayedItems()->itemAt(row); ++row)
            texts << marked(*item);
        return texts;
    }

    MemoryPreferencesStore prefs;
    RecordingHaptics haptics;
    Appearance appearance{prefs};
    RecordingShareSheet sheet;
    CountingOpener opener;
    std::unique_ptr<ScreenState> state;
};

} // namespace

class TestScreenState : public QObject
{
    Q_OBJECT

private slots:
    void startUpClampsTheStoredSelection_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<qint64>("selected");
        const QStringList three{"Home", "Work", "Trip"};
        QTest::newRow("valid") << three << QVariant(qint64(1)) << qint64(1);
        QTest::newRow("beyond last") << three << QVariant(qint64(7)) << qint64(2);
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
        QCOMPARE(s.state->selectedListIndex(), selected);
        QCOMPARE(s.state->currentListName(), names.value(selected));
        // Whatever is shown is what the next start finds.
        if (stored.typeId() == QMetaType::LongLong)
            QCOMPARE(s.storedIndex(), selected);
    }

    void addEditAndUpdate()
    {
        Screen s;
        QSignalSpy scrolls(s.state.get(), &ScreenState::scrollToItem);
        s.state->setNewItem(QStringLiteral(" \n\tMilk \n"));
        s.state->addOrUpdateAction();
        QCOMPARE(s.stored(), QStringList{"Milk"});
        const QString milk = s.state->lastItemId();
        QCOMPARE(milk, idText(s.items()[0].id));
        QCOMPARE(scrolls.size(), 1);
        QCOMPARE(scrolls[0][0].toString(), milk);
        QCOMPARE(s.state->newItem(), QString());
        // The bullet flies out at once and comes back a third of a second later.
        QVERIFY(s.state->showBullet());
        QCOMPARE(s.state->bulletOffset(), 300.0);
        QTest::qWait(200);
        QVERIFY(s.state->showBullet());
        QTRY_VERIFY_WITH_TIMEOUT(!s.state->showBullet(), 1000);
        QCOMPARE(s.state->bulletOffset(), 0.0);

        // Only white space adds nothing, but the bullet still flies.
        s.prefs.resetWriteLog();
        s.add(QStringLiteral("  \n \u00a0\t"));
        QCOMPARE(s.stored(), QStringList{"Milk"});
        QCOMPARE(s.prefs.writeCount(), 0);
        QVERIFY(s.state->showBullet());
        QTRY_VERIFY(!s.state->showBullet());

        const QString refresh = s.state->refreshID();
        s.state->editingAction(milk);
        QCOMPARE(s.state->editingItemId(), milk);
        QCOMPARE(s.state->newItem(), QStringLiteral("Milk"));
        QVERIFY(s.state->newItemFieldIsFocused());
        s.state->setNewItem(QStringLiteral("  Oat milk\n"));
        s.state->addOrUpdateAction();
        QCOMPARE(s.stored(), QStringList{"Oat milk"});
        QCOMPARE(s.state->editingItemId(), QString());
        QCOMPARE(s.state->newItem(), QString());
        QVERIFY(!s.state->newItemFieldIsFocused());
        QVERIFY(s.state->refreshID() != refresh);
        QVERIFY(!s.state->showBullet()); // only an add flies it

        // An update to nothing keeps the text and still ends editing.
        s.state->editingAction(milk);
        s.state->setNewItem(QStringLiteral("   "));
        s.state->addOrUpdateAction();
        QCOMPARE(s.stored(), QStringList{"Oat milk"});
        QCOMPARE(s.state->editingItemId(), QString());

        // Losing the focus ends editing too, so the next submit adds.
        s.state->editingAction(milk);
        s.state->setNewItemFieldIsFocused(false);
        QCOMPARE(s.state->editingItemId(), QString());
        QCOMPARE(s.state->newItem(), QString());
        s.add("Eggs");
        QCOMPARE(s.stored(), (QStringList{"Oat milk", "Eggs"}));
    }

    void doneMarkerAnglesOnlyGrow()
    {
        Screen s;
        const QString milk = s.add("Milk");
        for (const char *expected : {"+Milk", "Milk"}) {
            s.state->onTapDone(milk);
            s.state->toggleState(milk);
            QCOMPARE(s.stored(), QStringList{expected});
        }
        QCOMPARE(s.state->rotationAngle(milk), 360.0);
        DisplayedItemsModel *rows = s.state->displayedItems();
        QCOMPARE(rows->data(rows->index(0), DisplayedItemsModel::RotationAngleRole).toDouble(), 360.0);
        // Ids from QML may come in any case.
        QCOMPARE(s.state->rotationAngle(milk.toLower()), 360.0);
    }

    void pinDeleteAndUndo()
    {
        Screen s;
        const QStringList ids = s.seed({"A", "B", "C", "D"});
        s.state->pinAction(ids[3]);
        QCOMPARE(s.shown(), (QStringList{"*D", "A", "B", "C"}));
        QVERIFY(!s.state->canUndo()); // pinning is not undoable
        const ItemList pinned = s.items();

        // The delete gesture reads each offset after the last: 0 takes D,
        // then 1 takes B of A B C. Offsets past the end are skipped.
        s.state->deleteDisplayedRows({1, 0});
        QCOMPARE(s.shown(), (QStringList{"A", "C"}));
        s.state->deleteDisplayedRows({1, 2});
        QCOMPARE(s.shown(), QStringList{"A"});
        s.state->deleteAction(ids[0]);
        QVERIFY(s.state->isSelectedListEmpty());
        QCOMPARE(s.state->undoStack().size(), 4);
        for (int i = 0; i < 4; ++i)
            s.state->undoAction();
        QCOMPARE(s.items(), pinned);
        QVERIFY(!s.state->isSelectedListEmpty());

        // Unpinned, D heads the others.
        s.state->pinAction(ids[3]);
        QCOMPARE(s.shown(), (QStringList{"D", "A", "B", "C"}));

        // An unknown id does nothing, plays nothing.
        s.haptics.clear();
        s.state->pinAction(idText(QUuid::createUuid()));
        s.state->deleteAction(QStringLiteral("not an id"));
        QCOMPARE(s.shown(), (QStringList{"D", "A", "B", "C"}));
        QVERIFY(s.haptics.events.isEmpty());
        QVERIFY(!s.state->canUndo());
    }

    void dragDrop_data()
    {
        QTest::addColumn<QStringList>("stored");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("gap");
        QTest::addColumn<QStringList>("shown");
        const QStringList two{"*P", "*Q", "A", "B"};
        QTest::newRow("onto the pinned block pins") << two << 3 << 0 << QStringList{"*B", "*P", "*Q", "A"};
        QTest::newRow("below the pinned block unpins") << two << 0 << 4 << QStringList{"*Q", "A", "B", "P"};
        QTest::newRow("within the others") << two << 2 << 4 << QStringList{"*P", "*Q", "B", "A"};
        QTest::newRow("onto itself") << two << 2 << 2 << two;
        QTest::newRow("just below itself") << two << 2 << 3 << two;
        QTest::newRow("from beyond the end") << two << 9 << 0 << two;
        // An undo can leave an item inside the other block: stored A P B shows P A B.
        QTest::newRow("stored out of display order") << QStringList{"A", "*P", "B"} << 2 << 1
                                                     << QStringList{"*P", "B", "A"};
    }
    void dragDrop()
    {
        QFETCH(QStringList, stored);
        QFETCH(int, from);
        QFETCH(int, gap);
        QFETCH(QStringList, shown);
        Screen s;
        s.seed(stored);
        const QStringList before = s.shown();
        s.state->moveDisplayedRow(from, gap);
        QCOMPARE(s.shown(), shown);
        // A drop that changes nothing writes nothing.
        QCOMPARE(s.prefs.writeCount() > 0, shown != before);
        QVERIFY(!s.state->canUndo());
    }

    void sortByTextThenStatusThenUndo()
    {
        Screen s;
        s.seed({"+b", "c", "+a", "d"});
        const ItemList original = s.items();
        QVERIFY(s.state->isAscending());
        s.state->onSortByText();
        QCOMPARE(s.stored(), (QStringList{"+a", "+b", "c", "d"}));
        QVERIFY(!s.state->isAscending());
        s.state->onSortToggle(); // to do first, whatever the direction
        QCOMPARE(s.stored(), (QStringList{"c", "d", "+a", "+b"}));
        QVERIFY(s.state->isAscending());
        s.state->onSortByText(); // the status sort flipped the direction back
        QCOMPARE(s.stored(), (QStringList{"+a", "+b", "c", "d"}));
        s.state->onSortByText();
        QCOMPARE(s.stored(), (QStringList{"d", "c", "+b", "+a"}));

        for (const QStringList &expected : {QStringList{"+a", "+b", "c", "d"}, QStringList{"c", "d", "+a", "+b"},
                                            QStringList{"+a", "+b", "c", "d"}}) {
            s.state->undoAction();
            QCOMPARE(s.stored(), expected);
        }
        s.state->undoAction();
        QCOMPARE(s.items(), original);
        QVERIFY(!s.state->canUndo());

        // No list selected: no sort, no entry, direction kept.
        s.state->setSelectedListIndex(5);
        s.state->onSortByText();
        QVERIFY(!s.state->canUndo());
        QVERIFY(s.state->isAscending());
    }

    void resetDotsAndUndo()
    {
        Screen s;
        s.seed({"+a", "b", "+c"});
        s.state->resetDots();
        QCOMPARE(s.stored(), (QStringList{"a", "b", "c"}));
        s.state->undoAction();
        QCOMPARE(s.stored(), (QStringList{"+a", "b", "+c"}));

        // Nothing done: still an entry.
        s.state->setSelectedListIndex(1);
        s.state->resetDots();
        QCOMPARE(s.state->undoStack().size(), 1);
    }

    void newMoveRenameAndSelectLists()
    {
        Screen s(QStringList{"Home", "Work"}, QVariant(qint64(1)));
        s.add("milk");
        QSignalSpy header(s.state.get(), &ScreenState::scrollHeaderToSelected);
        s.prefs.resetWriteLog();
        s.state->newList();
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "Home", "Work"}));
        QCOMPARE(s.storedIndex(), qint64(0));
        // Names, items and selection in one commit.
        QCOMPARE(s.prefs.commitCount(), 1);
        QCOMPARE(s.prefs.writtenKeys(),
                 (QStringList{PreferenceKeys::items, PreferenceKeys::listNames, PreferenceKeys::selectedListIndex}));
        QVERIFY(s.state->isSelectedListEmpty());
        QVERIFY(!s.state->canMoveListLeft());
        QCOMPARE(header.last()[0].toInt(), 500);

        // A chip tap selects and puts the keyboard away.
        s.state->setNewItemFieldIsFocused(true);
        s.state->selectList(2);
        QCOMPARE(s.storedIndex(), qint64(2));
        QCOMPARE(s.shown(), QStringList{"milk"});
        QVERIFY(!s.state->newItemFieldIsFocused());
        QVERIFY(!s.state->canMoveListRight());
        QCOMPARE(header.last()[0].toInt(), 500);

        // The selection moves with its list; the header follows a moment later.
        s.state->moveListLeft();
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "Work", "Home"}));
        QCOMPARE(s.storedIndex(), qint64(1));
        QCOMPARE(s.shown(), QStringList{"milk"});
        QVERIFY(s.state->canMoveListLeft() && s.state->canMoveListRight());
        header.clear();
        QTRY_VERIFY(!header.isEmpty());
        QCOMPARE(header.last()[0].toInt(), 200);
        s.state->moveListLeft();
        s.state->moveListLeft(); // already first
        s.state->moveListRight();
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "Work", "Home"}));

        // Renamed as typed, spaces and all; an empty name is allowed.
        s.state->onTitleEditingChanged(true);
        s.state->onTitleChange(QStringLiteral(" Groceries "));
        QCOMPARE(s.state->currentListName(), QStringLiteral(" Groceries "));
        QCOMPARE(s.prefs.stringList(PreferenceKeys::listNames)->value(1), QStringLiteral(" Groceries "));
        s.state->onTitleChange(QString());
        s.state->onTitleCommit();
        QVERIFY(!s.state->titleEdited());
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "", "Home"}));
        QVERIFY(!s.state->canUndo());

        // No list selected: nothing to rename.
        s.state->setSelectedListIndex(3);
        s.prefs.resetWriteLog();
        s.state->onTitleChange(QStringLiteral("x"));
        QCOMPARE(s.prefs.writeCount(), 0);
    }

    void deleteListAfterConfirmationAndUndo_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<qint64>("selected");
        QTest::addColumn<QStringList>("after");
        QTest::addColumn<qint64>("selectedAfter");
        const QStringList three{"Home", "Work", "Trip"};
        QTest::newRow("middle") << three << qint64(1) << QStringList{"Home", "Trip"} << qint64(1);
        QTest::newRow("last") << three << qint64(2) << QStringList{"Home", "Work"} << qint64(1);
        QTest::newRow("the only one stays") << QStringList{"Only"} << qint64(0) << QStringList{"Only"} << qint64(0);
    }
    void deleteListAfterConfirmationAndUndo()
    {
        QFETCH(QStringList, names);
        QFETCH(qint64, selected);
        QFETCH(QStringList, after);
        QFETCH(qint64, selectedAfter);
        Screen s(names, QVariant(selected));
        s.add("kept");
        s.prefs.resetWriteLog();
        s.state->requestDeleteList();
        QVERIFY(s.state->showDeletionConfirmation());
        QCOMPARE(s.store().listNames(), names); // nothing until "Yes"

        s.state->confirmDeleteList();
        QVERIFY(!s.state->showDeletionConfirmation());
        QCOMPARE(s.store().listNames(), after);
        QCOMPARE(s.storedIndex(), selectedAfter);
        QCOMPARE(s.prefs.writeCount() > 0, after != names);
        QCOMPARE(s.state->canUndo(), after != names);

        s.state->undoAction();
        QCOMPARE(s.storedIndex(), selected);
        QCOMPARE(s.shown(), QStringList{"kept"});
        // The restored list is stored, not only shown.
        const ListItems reloaded(s.prefs);
        QCOMPARE(reloaded.listNames(), names);
        QCOMPARE(reloaded.items(), s.store().items());
    }

    void schemeAndTheme()
    {
        // The stored scheme reaches the store at start-up.
        Screen s(QStringList{"Home"}, {}, QStringLiteral("dark"));
        QCOMPARE(s.store().appColorScheme(), ListItems::Dark);
        s.state->toggleColorScheme();
        QCOMPARE(s.prefs.string(PreferenceKeys::appColorScheme).value_or(QString()), QStringLiteral("light"));
        QCOMPARE(s.store().appColorScheme(), ListItems::Light);
        s.state->toggleColorScheme();
        QCOMPARE(s.prefs.string(PreferenceKeys::appColorScheme).value_or(QString()), QStringLiteral("dark"));

        const QString first = s.state->themeRefreshID();
        s.state->chooseTheme(QStringLiteral("pink"));
        QCOMPARE(s.prefs.string(PreferenceKeys::selectedThemeKey).value_or(QString()), QStringLiteral("pink"));
        const QString second = s.state->themeRefreshID();
        QVERIFY(second != first);
        s.state->chooseTheme(QStringLiteral("pink")); // the same again: no rebuild
        QCOMPARE(s.state->themeRefreshID(), second);
        // Another writer of the theme rebuilds the content too.
        s.appearance.setThemeKey(QStringLiteral("gray"));
        QVERIFY(s.state->themeRefreshID() != second);
    }

    void shareTheSelectedList()
    {
        Screen s;
        s.add("Milk");
        s.state->share();
        QTRY_VERIFY(s.sheet.isPresented());
        QCOMPARE(s.sheet.text(), QStringLiteral("Home\n____\n\n\u2022 Milk "));
        s.sheet.dismiss();
        // No list selected: nothing to share.
        s.state->setSelectedListIndex(-1);
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
        const auto light = RecordingHaptics::Event::lightImpact;
        const auto success = RecordingHaptics::Event::successNotification;
        const struct
        {
            const char *flow;
            std::function<void()> run;
            QList<RecordingHaptics::Event> expected;
        } flows[] = {
            {"add", [&] { st.setNewItem("Tea"); st.addOrUpdateAction(); }, {light}},
            {"add only spaces", [&] { st.setNewItem(" "); st.addOrUpdateAction(); }, {light}},
            {"undo with nothing to undo", [&] { st.undoAction(); }, {light}},
            {"tap a to-do marker", [&] { st.onTapDone(milk); }, {success}},
            {"tap a done marker", [&] { st.onTapDone(eggs); }, {light}},
            {"toggle state", [&] { st.toggleState(milk); }, {}},
            {"pin", [&] { st.pinAction(milk); }, {light}},
            {"drag", [&] { st.moveDisplayedRow(0, 2); }, {}},
            {"sort by status", [&] { st.onSortToggle(); }, {light}},
            {"sort by text", [&] { st.onSortByText(); }, {light}},
            {"reset dots", [&] { st.resetDots(); }, {light}},
            {"delete row", [&] { st.deleteAction(milk); }, {light}},
            {"undo", [&] { st.undoAction(); }, {light}},
            {"delete gesture", [&] { st.deleteDisplayedRows({0}); }, {}},
            {"new list", [&] { st.newList(); }, {success}},
            {"move right", [&] { st.moveListRight(); }, {success}},
            {"move left", [&] { st.moveListLeft(); }, {success}},
            {"move left when first", [&] { st.moveListLeft(); }, {success}},
            {"ask to delete the list", [&] { st.requestDeleteList(); }, {success}},
            {"delete the list", [&] { st.confirmDeleteList(); }, {}},
            {"chip tap", [&] { st.selectList(1); }, {light}},
            {"the same chip again", [&] { st.selectList(1); }, {light}},
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

    void titlePointSize_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("size");
        QTest::newRow("11") << "Wish Lists!" << 21;
        QTest::newRow("12") << "Appointments" << 20;
        QTest::newRow("14") << "Camping List 1" << 20;
        QTest::newRow("15") << "Home Projects 1" << 18;
        // One user-perceived character each, however many code points.
        const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");
        QTest::newRow("12 families") << family.repeated(12) << 20;
        QTest::newRow("14 accented") << QStringLiteral("e\u0301").repeated(14) << 20;
        QTest::newRow("15 accented") << QStringLiteral("e\u0301").repeated(15) << 18;
        QTest::newRow("Vacation Ideas + plane") << QStringLiteral("Vacation Ideas\u2708\uFE0F") << 18;
    }
    void titlePointSize()
    {
        QFETCH(QString, title);
        QFETCH(int, size);
        QCOMPARE(ScreenState::titlePointSize(title), size);
    }
};

QTEST_MAIN(TestScreenState)
#include "tst_screenstate.moc"
