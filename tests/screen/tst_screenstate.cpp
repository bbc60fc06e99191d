#include "RecordingHaptics.h"
#include "RecordingShareSheet.h"
#include "appearance/Appearance.h"
#include "platform/MemoryPreferencesStore.h"
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

// A screen over an in-memory store, already appeared, with empty logs.
struct Screen
{
    explicit Screen(std::optional<QStringList> names = QStringList{"Home", "Work", "Trip"},
                    std::optional<QVariant> storedIndex = std::nullopt)
    {
        if (names)
            prefs.setStringList(PreferenceKeys::listNames, *names);
        if (storedIndex)
            prefs.setRawForTest(PreferenceKeys::selectedListIndex, *storedIndex);
        state = std::make_unique<ScreenState>(prefs, haptics, ScreenState::Services{&appearance, &sheet, &opener});
        state->onAppear();
        haptics.played.clear();
        prefs.resetWriteLog();
    }

    ListItems &store() { return *state->store(); }
    qint64 storedIndex() const { return prefs.integer(PreferenceKeys::selectedListIndex).value_or(-999); }
    // Adds through the input bar; returns the new item's id.
    QString add(const QString &text)
    {
        state->setNewItem(text);
        state->addOrUpdateAction();
        haptics.played.clear();
        return state->lastItemId();
    }
    ListItem item(const QString &id)
    {
        const ItemList items = store().itemsAt(state->selectedListIndex());
        for (const ListItem &i : items) {
            if (idText(i.id) == id)
                return i;
        }
        return {};
    }
    // Texts of the selected list in stored order, and as the rows show them.
    QStringList stored()
    {
        QStringList texts;
        for (const ListItem &i : store().itemsAt(state->selectedListIndex()))
            texts << i.text;
        return texts;
    }
    QStringList shown()
    {
        QStringList texts;
        DisplayedItemsModel *model = state->displayedItems();
        for (int row = 0; row < model->rowCount(); ++row)
            texts << model->data(model->index(row), DisplayedItemsModel::TextRole).toString();
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
        QTest::addColumn<QString>("title");
        const QStringList three{"Home", "Work", "Trip"};
        QTest::newRow("valid") << three << QVariant(qint64(1)) << qint64(1) << "Work";
        QTest::newRow("beyond last") << three << QVariant(qint64(7)) << qint64(2) << "Trip";
        QTest::newRow("negative") << three << QVariant(qint64(-3)) << qint64(0) << "Home";
        QTest::newRow("wrong type") << three << QVariant(QStringLiteral("2")) << qint64(0) << "Home";
        QTest::newRow("absent") << three << QVariant() << qint64(0) << "Home";
        QTest::newRow("no lists") << QStringList() << QVariant(qint64(4)) << qint64(0) << "";
    }
    void startUpClampsTheStoredSelection()
    {
        QFETCH(QStringList, names);
        QFETCH(QVariant, stored);
        QFETCH(qint64, selected);
        QFETCH(QString, title);
        Screen s(names, stored.isValid() ? std::optional<QVariant>(stored) : std::nullopt);
        QCOMPARE(s.state->selectedListIndex(), selected);
        QCOMPARE(s.state->currentListName(), title);
        // Whatever is shown is what the next start finds.
        if (stored.typeId() == QMetaType::LongLong && stored != QVariant(selected))
            QCOMPARE(s.storedIndex(), selected);
    }

    void startUpCopiesTheColorScheme_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("scheme");
        QTest::newRow("dark") << "dark" << int(ListItems::Dark);
        QTest::newRow("light") << "light" << int(ListItems::Light);
        QTest::newRow("empty") << "" << int(ListItems::Light);
        QTest::newRow("Dark") << "Dark" << int(ListItems::Light);
    }
    void startUpCopiesTheColorScheme()
    {
        QFETCH(QString, stored);
        QFETCH(int, scheme);
        MemoryPreferencesStore prefs;
        prefs.setString(PreferenceKeys::appColorScheme, stored);
        RecordingHaptics haptics;
        Appearance appearance(prefs);
        ScreenState state(prefs, haptics, ScreenState::Services{&appearance, nullptr, nullptr});
        state.onAppear();
        QCOMPARE(int(state.store()->appColorScheme()), scheme);
    }

    void addTrimsAndFliesTheBullet()
    {
        Screen s;
        QSignalSpy scrolls(s.state.get(), &ScreenState::scrollToItem);
        s.state->setNewItem(QStringLiteral(" \n\tMilk and honey \n"));
        s.state->addOrUpdateAction();

        QCOMPARE(s.stored(), QStringList{"Milk and honey"});
        const ListItem added = s.store().items()[0][0];
        QCOMPARE(added.state, ListItemState::toDo);
        QVERIFY(!added.isPinned);
        QCOMPARE(s.state->lastItemId(), idText(added.id));
        QCOMPARE(scrolls.size(), 1);
        QCOMPARE(scrolls[0][0].toString(), idText(added.id));
        QCOMPARE(s.state->newItem(), QString());
        QCOMPARE(s.haptics.played, QStringList{"light"});
        QVERIFY(s.prefs.writtenKeys().contains(PreferenceKeys::items));

        // Out at once; back a third of a second later.
        QVERIFY(s.state->showBullet());
        QCOMPARE(s.state->bulletOffset(), 300.0);
        QTest::qWait(200);
        QVERIFY(s.state->showBullet());
        QTRY_VERIFY_WITH_TIMEOUT(!s.state->showBullet(), 1000);
        QCOMPARE(s.state->bulletOffset(), 0.0);
    }

    void addingOnlyWhitespaceAddsNothingButFliesTheBullet()
    {
        Screen s;
        s.state->setNewItem(QStringLiteral("  \n \u00a0\t"));
        s.state->addOrUpdateAction();
        QCOMPARE(s.store().itemCount(0), 0);
        QCOMPARE(s.state->lastItemId(), QString());
        QVERIFY(s.state->showBullet());
        QCOMPARE(s.state->editingItemId(), QString());
        QCOMPARE(s.state->newItem(), QString());
        QCOMPARE(s.haptics.played, QStringList{"light"});
        QVERIFY(!s.prefs.writtenKeys().contains(PreferenceKeys::items));
    }

    void editAndUpdate()
    {
        Screen s;
        const QString milk = s.add("Milk");
        s.add("Bread");
        QTRY_VERIFY(!s.state->showBullet());
        QSignalSpy refresh(s.state.get(), &ScreenState::refreshIDChanged);
        const QString before = s.state->refreshID();

        s.state->editingAction(milk);
        QCOMPARE(s.state->editingItemId(), milk);
        QCOMPARE(s.state->newItem(), QStringLiteral("Milk"));
        QVERIFY(s.state->newItemFieldIsFocused());

        s.state->setNewItem(QStringLiteral("  Oat milk\n"));
        s.state->addOrUpdateAction();
        QCOMPARE(s.stored(), (QStringList{"Oat milk", "Bread"}));
        QCOMPARE(s.item(milk).text, QStringLiteral("Oat milk"));
        QCOMPARE(s.state->editingItemId(), QString());
        QCOMPARE(s.state->newItem(), QString());
        QVERIFY(!s.state->newItemFieldIsFocused());
        QCOMPARE(refresh.size(), 1);
        QVERIFY(s.state->refreshID() != before);
        QVERIFY(!s.state->showBullet()); // only an add flies it
        QCOMPARE(s.haptics.played, QStringList{"light"});

        // An update to nothing leaves the text and still ends editing.
        s.state->editingAction(milk);
        s.state->setNewItem(QStringLiteral("   "));
        s.state->addOrUpdateAction();
        QCOMPARE(s.item(milk).text, QStringLiteral("Oat milk"));
        QCOMPARE(s.state->editingItemId(), QString());
        QVERIFY(!s.state->showBullet());
    }

    void losingFocusEndsEditing()
    {
        Screen s;
        const QString milk = s.add("Milk");
        s.state->editingAction(milk);
        s.state->setNewItemFieldIsFocused(false);
        QCOMPARE(s.state->editingItemId(), QString());
        QCOMPARE(s.state->newItem(), QString());
        s.state->setNewItem(QStringLiteral("Eggs"));
        s.state->addOrUpdateAction(); // adds, since editing ended
        QCOMPARE(s.stored(), (QStringList{"Milk", "Eggs"}));
    }

    void doneMarkerAnglesOnlyGrow()
    {
        Screen s;
        const QString milk = s.add("Milk");
        QSignalSpy turns(s.state.get(), &ScreenState::rotationChanged);
        QCOMPARE(s.state->rotationAngle(milk), 0.0);

        s.state->onTapDone(milk);
        s.state->toggleState(milk);
        QCOMPARE(s.item(milk).state, ListItemState::done);
        s.state->onTapDone(milk);
        s.state->toggleState(milk);
        QCOMPARE(s.item(milk).state, ListItemState::toDo);

        QCOMPARE(s.state->rotationAngle(milk), 360.0);
        QCOMPARE(turns.size(), 2);
        QCOMPARE(turns[1][0].toString(), milk);
        QCOMPARE(turns[1][1].toDouble(), 360.0);
        DisplayedItemsModel *rows = s.state->displayedItems();
        QCOMPARE(rows->data(rows->index(0), DisplayedItemsModel::RotationAngleRole).toDouble(), 360.0);
        // Becoming done is a success; becoming to do again a light tap.
        QCOMPARE(s.haptics.played, (QStringList{"success", "light"}));
        // Ids from QML may come in any case.
        QCOMPARE(s.state->rotationAngle(milk.toLower()), 360.0);
    }

    void pinDeleteAndUndo()
    {
        Screen s;
        const QString a = s.add("A");
        s.add("B");
        const QString c = s.add("C");

        s.state->pinAction(c);
        QCOMPARE(s.shown(), (QStringList{"C", "A", "B"}));
        QVERIFY(s.item(c).isPinned);
        QCOMPARE(s.haptics.take(), QStringList{"light"});
        QVERIFY(!s.state->canUndo()); // pinning is not undoable

        const ListItem deleted = s.item(a);
        s.state->deleteAction(a);
        QCOMPARE(s.shown(), (QStringList{"C", "B"}));
        QVERIFY(s.state->canUndo());
        QCOMPARE(s.haptics.take(), QStringList{"light"});

        s.state->undoAction();
        QCOMPARE(s.shown(), (QStringList{"C", "A", "B"}));
        QCOMPARE(s.item(a), deleted);
        QVERIFY(!s.state->canUndo());
        QCOMPARE(s.haptics.take(), QStringList{"light"});

        // Unpinning puts it at the head of the others.
        s.state->pinAction(c);
        QCOMPARE(s.shown(), (QStringList{"C", "A", "B"}));
        QVERIFY(!s.item(c).isPinned);

        // An unknown id does nothing, plays nothing.
        s.haptics.played.clear();
        s.state->pinAction(idText(QUuid::createUuid()));
        s.state->deleteAction(QStringLiteral("not an id"));
        QVERIFY(s.haptics.played.isEmpty());
        QVERIFY(!s.state->canUndo());
    }

    void deleteGestureReadsEachOffsetAfterTheLast()
    {
        Screen s;
        for (const char *t : {"A", "B", "C", "D"})
            s.add(t);
        const QString d = s.state->lastItemId();
        s.state->pinAction(d); // shown D A B C, stored D A B C
        s.haptics.played.clear();

        // 0 takes D; 1 is then read against A B C and takes B.
        s.state->deleteDisplayedRows({1, 0});
        QCOMPARE(s.shown(), (QStringList{"A", "C"}));
        QCOMPARE(s.state->undoStack().size(), 2);
        // Offsets that have run past the end are skipped.
        s.state->deleteDisplayedRows({1, 2});
        QCOMPARE(s.shown(), QStringList{"A"});
        QCOMPARE(s.state->undoStack().size(), 3);

        s.state->undoAction();
        s.state->undoAction();
        s.state->undoAction();
        QCOMPARE(s.shown(), (QStringList{"D", "A", "B", "C"}));
        QVERIFY(s.item(d).isPinned);
        // The undos play; the gesture plays nothing.
        QCOMPARE(s.haptics.played, (QStringList{"light", "light", "light"}));
    }

    void dragAcrossThePinnedBoundary()
    {
        Screen s;
        for (const char *t : {"P", "Q", "A", "B"})
            s.add(t);
        const ItemList items = s.store().items()[0];
        s.state->pinAction(idText(items[0].id));
        s.state->pinAction(idText(items[1].id));
        QCOMPARE(s.shown(), (QStringList{"P", "Q", "A", "B"}));

        s.state->moveDisplayedRow(3, 0); // B to the top: pinned
        QCOMPARE(s.shown(), (QStringList{"B", "P", "Q", "A"}));
        QVERIFY(s.item(idText(items[3].id)).isPinned);

        s.state->moveDisplayedRow(1, 4); // P to the bottom: unpinned
        QCOMPARE(s.shown(), (QStringList{"B", "Q", "A", "P"}));
        QVERIFY(!s.item(idText(items[0].id)).isPinned);

        // Dropping a row where it was changes and writes nothing.
        s.prefs.resetWriteLog();
        s.state->moveDisplayedRow(2, 2);
        s.state->moveDisplayedRow(2, 3);
        s.state->moveDisplayedRow(9, 0);
        QCOMPARE(s.prefs.writeCount(), 0);
        QCOMPARE(s.shown(), (QStringList{"B", "Q", "A", "P"}));
    }

    void dragInAListStoredOutOfDisplayOrder()
    {
        // An undo can put an item back inside the other block: stored
        // "A P B" with P pinned shows as "P A B".
        Screen s;
        for (const char *t : {"A", "P", "B"})
            s.add(t);
        const QString a = idText(s.store().items()[0][0].id);
        const QString p = idText(s.store().items()[0][1].id);
        s.state->deleteAction(a);
        s.state->pinAction(p);
        s.state->undoAction();
        QCOMPARE(s.stored(), (QStringList{"A", "P", "B"}));
        QCOMPARE(s.shown(), (QStringList{"P", "A", "B"}));

        s.state->moveDisplayedRow(2, 1); // B dropped between P and A
        QCOMPARE(s.shown(), (QStringList{"P", "B", "A"}));
        QVERIFY(s.item(p).isPinned);
        QVERIFY(!s.item(s.state->lastItemId()).isPinned);
    }

    void sortByTextThenStatusThenUndo()
    {
        Screen s;
        for (const char *t : {"b", "c", "a", "d"})
            s.add(t);
        const ItemList items = s.store().items()[0];
        s.store().setState(ListItemState::done, items[2].id, 0); // a
        s.store().setState(ListItemState::done, items[0].id, 0); // b
        const ItemList original = s.store().items()[0];

        QVERIFY(s.state->isAscending());
        s.state->onSortByText();
        QCOMPARE(s.stored(), (QStringList{"a", "b", "c", "d"}));
        QVERIFY(!s.state->isAscending());
        s.state->onSortToggle(); // to do first, whatever the direction
        QCOMPARE(s.stored(), (QStringList{"c", "d", "a", "b"}));
        QVERIFY(s.state->isAscending());
        s.state->onSortByText(); // the status sort flipped the direction back
        QCOMPARE(s.stored(), (QStringList{"a", "b", "c", "d"}));
        s.state->onSortByText();
        QCOMPARE(s.stored(), (QStringList{"d", "c", "b", "a"}));
        QCOMPARE(s.haptics.take(), (QStringList{"light", "light", "light", "light"}));
        QCOMPARE(s.state->undoStack().size(), 4);

        s.state->undoAction();
        QCOMPARE(s.stored(), (QStringList{"a", "b", "c", "d"}));
        s.state->undoAction();
        QCOMPARE(s.stored(), (QStringList{"c", "d", "a", "b"}));
        s.state->undoAction();
        s.state->undoAction();
        QCOMPARE(s.store().items()[0], original);

        // No list selected: no sort, no entry, direction kept.
        s.state->setSelectedListIndex(5);
        s.state->onSortByText();
        QVERIFY(!s.state->canUndo());
        QVERIFY(s.state->isAscending());
    }

    void resetDotsAndUndo()
    {
        Screen s;
        for (const char *t : {"a", "b", "c"})
            s.add(t);
        const ItemList items = s.store().items()[0];
        s.store().setState(ListItemState::done, items[0].id, 0);
        s.store().setState(ListItemState::done, items[2].id, 0);
        const ItemList before = s.store().items()[0];

        s.state->resetDots();
        for (const ListItem &i : s.store().items()[0])
            QCOMPARE(i.state, ListItemState::toDo);
        QCOMPARE(s.haptics.take(), QStringList{"light"});
        s.state->undoAction();
        QCOMPARE(s.store().items()[0], before);

        // Nothing done: still undoable.
        s.state->setSelectedListIndex(1);
        s.state->resetDots();
        QCOMPARE(s.state->undoStack().size(), 1);

        // No list at the index: an entry with nothing in it.
        s.state->setSelectedListIndex(9);
        s.prefs.resetWriteLog();
        s.state->resetDots();
        QCOMPARE(s.state->undoStack().size(), 2);
        const auto *entry = std::get_if<UndoActions::MarkAll>(&s.state->undoStack().actions().last());
        QVERIFY(entry);
        QCOMPARE(entry->listIndex, qint64(9));
        QVERIFY(entry->oldState.isEmpty());
        QVERIFY(!s.prefs.writtenKeys().contains(PreferenceKeys::items));
        s.state->undoAction(); // dropped: no list 9
        QCOMPARE(s.state->undoStack().size(), 1);
        QCOMPARE(s.store().items()[0], before);
    }

    void newListGoesToTheFront()
    {
        Screen s(QStringList{"Home", "Work"}, QVariant(qint64(1)));
        QSignalSpy header(s.state.get(), &ScreenState::scrollHeaderToSelected);
        s.state->newList();
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "Home", "Work"}));
        QCOMPARE(s.state->selectedListIndex(), 0);
        QCOMPARE(s.storedIndex(), qint64(0));
        QCOMPARE(s.state->currentListName(), QStringLiteral("New List"));
        QVERIFY(s.state->isSelectedListEmpty());
        QVERIFY(!header.isEmpty());
        QCOMPARE(header.last()[0].toInt(), 500);
        QCOMPARE(s.haptics.take(), QStringList{"success"});
        QVERIFY(!s.state->canUndo());
    }

    void moveListsLeftAndRight()
    {
        Screen s(QStringList{"Home", "Work", "Trip"}, QVariant(qint64(0)));
        s.add("milk");
        QSignalSpy header(s.state.get(), &ScreenState::scrollHeaderToSelected);

        s.state->moveListRight();
        QCOMPARE(s.store().listNames(), (QStringList{"Work", "Home", "Trip"}));
        QCOMPARE(s.state->selectedListIndex(), 1);
        QCOMPARE(s.storedIndex(), qint64(1));
        QCOMPARE(s.shown(), QStringList{"milk"}); // the selection moved with the list
        QCOMPARE(s.haptics.take(), QStringList{"success"});
        // The header follows a moment later.
        header.clear();
        QTRY_VERIFY(!header.isEmpty());
        QCOMPARE(header.last()[0].toInt(), 200);

        s.state->moveListRight();
        s.state->moveListRight(); // already last: nothing, but the haptic
        QCOMPARE(s.store().listNames(), (QStringList{"Work", "Trip", "Home"}));
        QCOMPARE(s.state->selectedListIndex(), 2);
        QCOMPARE(s.haptics.take(), (QStringList{"success", "success"}));

        s.state->moveListLeft();
        QCOMPARE(s.store().listNames(), (QStringList{"Work", "Home", "Trip"}));
        QCOMPARE(s.state->currentListName(), QStringLiteral("Home"));
        QVERIFY(!s.state->canUndo());
    }

    void moveButtonsEnabled_data()
    {
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<qint64>("selected");
        QTest::addColumn<bool>("left");
        QTest::addColumn<bool>("right");
        const QStringList three{"a", "b", "c"};
        QTest::newRow("first") << three << qint64(0) << false << true;
        QTest::newRow("middle") << three << qint64(1) << true << true;
        QTest::newRow("last") << three << qint64(2) << true << false;
        QTest::newRow("only") << QStringList{"a"} << qint64(0) << false << false;
        QTest::newRow("none") << QStringList() << qint64(0) << false << false;
    }
    void moveButtonsEnabled()
    {
        QFETCH(QStringList, names);
        QFETCH(qint64, selected);
        QFETCH(bool, left);
        QFETCH(bool, right);
        Screen s(names, QVariant(selected));
        QCOMPARE(s.state->canMoveListLeft(), left);
        QCOMPARE(s.state->canMoveListRight(), right);
    }

    void renameAsTyped()
    {
        Screen s;
        QSignalSpy title(s.state.get(), &ScreenState::currentListNameChanged);
        s.state->onTitleEditingChanged(true);
        QVERIFY(s.state->titleEdited());
        s.state->onTitleChange(QStringLiteral(" Groceries "));
        QCOMPARE(s.store().listNames()[0], QStringLiteral(" Groceries "));
        QCOMPARE(s.state->currentListName(), QStringLiteral(" Groceries "));
        QCOMPARE(s.prefs.stringList(PreferenceKeys::listNames)->first(), QStringLiteral(" Groceries "));
        s.state->onTitleChange(QString());
        QCOMPARE(s.store().listNames()[0], QString());
        QCOMPARE(title.size(), 2);
        s.state->onTitleCommit();
        QVERIFY(!s.state->titleEdited());

        s.state->setSelectedListIndex(3);
        s.prefs.resetWriteLog();
        s.state->onTitleChange(QStringLiteral("x"));
        QCOMPARE(s.store().listNames(), (QStringList{"", "Work", "Trip"}));
        QCOMPARE(s.prefs.writeCount(), 0);
    }

    void deleteListAfterConfirmationAndUndo_data()
    {
        QTest::addColumn<qint64>("selected");
        QTest::addColumn<qint64>("after");
        QTest::newRow("middle") << qint64(1) << qint64(1);
        QTest::newRow("last") << qint64(2) << qint64(1);
    }
    void deleteListAfterConfirmationAndUndo()
    {
        QFETCH(qint64, selected);
        QFETCH(qint64, after);
        Screen s(QStringList{"Home", "Work", "Trip"}, QVariant(selected));
        const QString kept = s.add("kept");
        const QStringList names = s.store().listNames();

        s.state->requestDeleteList();
        QVERIFY(s.state->showDeletionConfirmation());
        QCOMPARE(s.haptics.take(), QStringList{"success"});
        QCOMPARE(s.store().listCount(), 3); // nothing until "Yes"

        s.state->confirmDeleteList();
        QVERIFY(!s.state->showDeletionConfirmation());
        QCOMPARE(s.store().listCount(), 2);
        QVERIFY(!s.store().listNames().contains(names[selected]));
        QCOMPARE(s.state->selectedListIndex(), after);
        QCOMPARE(s.storedIndex(), qint64(after));
        QVERIFY(s.state->canUndo());

        s.prefs.resetWriteLog();
        QSignalSpy header(s.state.get(), &ScreenState::scrollHeaderToSelected);
        s.state->undoAction();
        QCOMPARE(s.store().listNames(), names);
        QCOMPARE(s.state->selectedListIndex(), selected);
        QCOMPARE(s.shown(), QStringList{"kept"});
        QVERIFY(s.prefs.writtenKeys().contains(PreferenceKeys::listNames));
        QVERIFY(s.prefs.writtenKeys().contains(PreferenceKeys::items));
        QCOMPARE(s.storedIndex(), qint64(selected));
        QVERIFY(!header.isEmpty());
        QCOMPARE(s.item(kept).text, QStringLiteral("kept"));
    }

    void theLastListIsNeverDeleted()
    {
        Screen s(QStringList{"Only"});
        s.state->requestDeleteList();
        QVERIFY(s.state->showDeletionConfirmation());
        s.state->confirmDeleteList();
        QCOMPARE(s.store().listNames(), QStringList{"Only"});
        QVERIFY(!s.state->canUndo());
        QCOMPARE(s.prefs.writeCount(), 0);
        QVERIFY(!s.state->showDeletionConfirmation());
    }

    void chipTapSelects()
    {
        Screen s;
        s.add("x");
        s.state->setNewItemFieldIsFocused(true);
        QSignalSpy header(s.state.get(), &ScreenState::scrollHeaderToSelected);
        s.state->selectList(2);
        QCOMPARE(s.state->selectedListIndex(), 2);
        QCOMPARE(s.storedIndex(), qint64(2));
        QCOMPARE(s.state->currentListName(), QStringLiteral("Trip"));
        QVERIFY(!s.state->newItemFieldIsFocused());
        QVERIFY(s.state->isSelectedListEmpty());
        QCOMPARE(header.last()[0].toInt(), 500);
        QCOMPARE(s.haptics.take(), QStringList{"light"});
        // The same chip again: still a tap.
        s.state->selectList(2);
        QCOMPARE(s.haptics.take(), QStringList{"light"});
        s.state->selectList(0);
        QVERIFY(!s.state->isSelectedListEmpty());
    }

    void schemeAndTheme()
    {
        Screen s;
        QVERIFY(!s.state->rotateMoon());
        s.state->toggleColorScheme();
        QVERIFY(s.state->rotateMoon());
        QCOMPARE(s.prefs.string(PreferenceKeys::appColorScheme).value_or(QString()), QStringLiteral("dark"));
        QCOMPARE(s.store().appColorScheme(), ListItems::Dark);
        s.state->toggleColorScheme();
        QVERIFY(!s.state->rotateMoon());
        QCOMPARE(s.prefs.string(PreferenceKeys::appColorScheme).value_or(QString()), QStringLiteral("light"));
        QCOMPARE(s.store().appColorScheme(), ListItems::Light);
        QCOMPARE(s.haptics.take(), (QStringList{"light", "light"}));

        const QString first = s.state->themeRefreshID();
        s.state->chooseTheme(QStringLiteral("pink"));
        QCOMPARE(s.prefs.string(PreferenceKeys::selectedThemeKey).value_or(QString()), QStringLiteral("pink"));
        const QString second = s.state->themeRefreshID();
        QVERIFY(second != first);
        s.prefs.resetWriteLog();
        s.state->chooseTheme(QStringLiteral("pink")); // stored again, no rebuild
        QCOMPARE(s.prefs.writtenKeys(), QStringList{PreferenceKeys::selectedThemeKey});
        QCOMPARE(s.state->themeRefreshID(), second);
        QCOMPARE(s.haptics.take(), (QStringList{"light", "light"}));
        // Another writer of the theme rebuilds the content too.
        s.appearance.setThemeKey(QStringLiteral("gray"));
        QVERIFY(s.state->themeRefreshID() != second);
    }

    void shareReviewAndTutorial()
    {
        Screen s;
        s.add("Milk");
        s.state->share();
        QCOMPARE(s.haptics.take(), QStringList{"light"});
        QVERIFY(!s.sheet.isPresented()); // on the next turn of the event loop
        QTRY_VERIFY(s.sheet.isPresented());
        QCOMPARE(s.sheet.text(), QStringLiteral("Home\n____\n\n\u2022 Milk "));
        s.sheet.dismiss();

        s.state->setSelectedListIndex(-1);
        s.state->share();
        s.haptics.played.clear();
        QTest::qWait(20);
        QVERIFY(!s.sheet.isPresented());

        s.state->openWriteReviewPage();
        QCOMPARE(s.opener.opened, 1);
        QVERIFY(!s.state->showTutorial());
        s.state->onShowTutorial();
        QVERIFY(s.state->showTutorial());
        QVERIFY(s.haptics.played.isEmpty());
    }

    void hapticsPerFlow()
    {
        Screen s;
        const QString milk = s.add("Milk");
        const QString eggs = s.add("Eggs");
        s.store().setState(ListItemState::done, QUuid::fromString(eggs), 0);
        ScreenState &st = *s.state;
        const struct
        {
            const char *flow;
            std::function<void()> run;
            QStringList expected;
        } flows[] = {
            {"add", [&] { st.setNewItem("Tea"); st.addOrUpdateAction(); }, {"light"}},
            {"undo with nothing to undo", [&] { st.undoAction(); }, {"light"}},
            {"tap a to-do marker", [&] { st.onTapDone(milk); }, {"success"}},
            {"tap a done marker", [&] { st.onTapDone(eggs); }, {"light"}},
            {"toggle state", [&] { st.toggleState(milk); }, {}},
            {"edit", [&] { st.editingAction(milk); }, {}},
            {"end editing", [&] { st.onEditingEnded(); }, {}},
            {"pin", [&] { st.pinAction(milk); }, {"light"}},
            {"drag", [&] { st.moveDisplayedRow(0, 2); }, {}},
            {"sort by status", [&] { st.onSortToggle(); }, {"light"}},
            {"sort by text", [&] { st.onSortByText(); }, {"light"}},
            {"reset dots", [&] { st.resetDots(); }, {"light"}},
            {"delete row", [&] { st.deleteAction(milk); }, {"light"}},
            {"delete gesture", [&] { st.deleteDisplayedRows({0}); }, {}},
            {"rename", [&] { st.onTitleChange("Shop"); }, {}},
            {"new list", [&] { st.newList(); }, {"success"}},
            {"move right", [&] { st.moveListRight(); }, {"success"}},
            {"move left", [&] { st.moveListLeft(); }, {"success"}},
            {"ask to delete the list", [&] { st.requestDeleteList(); }, {"success"}},
            {"delete the list", [&] { st.confirmDeleteList(); }, {}},
            {"chip tap", [&] { st.selectList(1); }, {"light"}},
            {"scheme", [&] { st.toggleColorScheme(); }, {"light"}},
            {"theme", [&] { st.chooseTheme("blue"); }, {"light"}},
            {"share", [&] { st.share(); }, {"light"}},
            {"rate", [&] { st.openWriteReviewPage(); }, {}},
            {"tutorial", [&] { st.onShowTutorial(); }, {}},
        };
        for (const auto &f : flows) {
            s.haptics.played.clear();
            f.run();
            QVERIFY2(s.haptics.played == f.expected,
                     qPrintable(QStringLiteral("%1: %2").arg(f.flow, s.haptics.played.join(','))));
        }
    }

    void titlePointSize_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("size");
        QTest::newRow("empty") << "" << 21;
        QTest::newRow("11") << "Wish Lists!" << 21;
        QTest::newRow("12") << "Appointments" << 20;
        QTest::newRow("14") << "Camping List 1" << 20;
        QTest::newRow("15") << "Home Projects 1" << 18;
        // One user-perceived character each, however many code points.
        const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467");
        QTest::newRow("11 families") << family.repeated(11) << 21;
        QTest::newRow("12 families") << family.repeated(12) << 20;
        QTest::newRow("14 accented") << QStringLiteral("e\u0301").repeated(14) << 20;
        QTest::newRow("15 accented") << QStringLiteral("e\u0301").repeated(15) << 18;
        QTest::newRow("11 flags") << QStringLiteral("\U0001F1EB\U0001F1F7").repeated(11) << 21;
        QTest::newRow("Vacation Ideas + plane") << QStringLiteral("Vacation Ideas\u2708\uFE0F") << 18;
        QTest::newRow("Gift Ideas + gift") << QStringLiteral("Gift Ideas\U0001F381") << 21;
    }
    void titlePointSize()
    {
        QFETCH(QString, title);
        QFETCH(int, size);
        QCOMPARE(ScreenState::titlePointSize(title), size);
    }

    void emptyScreenFlag()
    {
        // Raised when editing ends on an empty list; never lowered here.
        Screen s;
        QVERIFY(s.state->showdefaultScreen());
        s.add("x");
        s.state->onEditingEnded();
        QVERIFY(s.state->showdefaultScreen());
        QSignalSpy empty(s.state.get(), &ScreenState::isSelectedListEmptyChanged);
        s.state->deleteAction(s.state->lastItemId());
        QVERIFY(s.state->isSelectedListEmpty());
        QCOMPARE(empty.size(), 1);
        s.state->undoAction();
        QVERIFY(!s.state->isSelectedListEmpty());
        QCOMPARE(empty.size(), 2);
    }
};

QTEST_MAIN(TestScreenState)
#include "tst_screenstate.moc"
