#include "model/ListItems.h"
#include "model/UndoStack.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QTest>

using namespace UndoActions;

namespace {
ListItem item(const char *text)
{
    return ListItem::create(QString::fromUtf8(text));
}
} // namespace

class TestUndoStack : public QObject
{
    Q_OBJECT

    std::unique_ptr<MemoryPreferencesStore> prefs;
    std::unique_ptr<ListItems> store;
    UndoStack stack;

    // The recording steps the screen performs, kept here in their plain form.
    void deleteItemAt(qint64 list, qsizetype position)
    {
        stack.push(DeleteItem{list, position, store->items()[list][position]});
        store->deleteItems({position}, list);
    }

private slots:
    void init()
    {
        store.reset();
        prefs = std::make_unique<MemoryPreferencesStore>();
        store = std::make_unique<ListItems>(*prefs);
        stack = UndoStack();
        for (int i = 0; i < 6; ++i)
            store->addItem(ListItem::create(QStringLiteral("item %1").arg(i)), 2);
        prefs->resetWriteLog();
    }

    void restoredItemKeepsPositionEvenInsidePinnedBlock()
    {
        const ListItem victim = store->items()[2][3];
        deleteItemAt(2, 3);
        for (const ListItem &i : store->items()[2])
            store->setPinned(true, i.id, 2);
        stack.undo(*store);
        QCOMPARE(store->items()[2][3], victim);
        QVERIFY(!store->items()[2][3].isPinned);
    }

    void entriesApplyByPositionOrAreDropped()
    {
        // An item entry for list 11 once lists were deleted: dropped silently.
        store->addItem(item("in 11"), 11);
        deleteItemAt(11, 0);
        for (int i = 0; i < 3; ++i) {
            stack.push(DeleteList{0, store->listNames()[0], store->items()[0]});
            store->deleteList(0);
        }
        // Undo the three list deletions first, then the item goes back to list 11.
        for (int i = 0; i < 3; ++i)
            QVERIFY(stack.undo(*store).applied);
        QVERIFY(stack.undo(*store).applied);
        QCOMPARE(store->items()[11].first().text, QStringLiteral("in 11"));

        // Now with the lists really gone: the entry is dropped and the stack shrinks.
        deleteItemAt(11, 0);
        store->deleteList(11);
        store->deleteList(10);
        prefs->resetWriteLog();
        QCOMPARE(stack.size(), 1);
        QVERIFY(!stack.undo(*store).applied);
        QVERIFY(stack.isEmpty());
        QCOMPARE(prefs->writeCount(), 0);

        // Entries with positions beyond what exists, or negative, are dropped too.
        stack.push(DeleteItem{2, 99, item("x")});
        stack.push(DeleteItem{2, -1, item("x")});
        stack.push(DeleteItem{-2, 0, item("x")});
        stack.push(DeleteList{50, QStringLiteral("far"), {}});
        stack.push(DeleteList{-1, QStringLiteral("before"), {}});
        stack.push(SortList{-1, {}});
        stack.push(MarkAll{40, {}});
        stack.push(MarkAll{-3, {}});
        // The ninth undo finds the stack empty.
        for (int i = 0; i < 9; ++i)
            QVERIFY(!stack.undo(*store).applied);
        QCOMPARE(prefs->writeCount(), 0);
        QCOMPARE(store->listNames().size(), 10);
    }
};

QTEST_GUILESS_MAIN(TestUndoStack)
#include "tst_undostack.moc"
