#include "ScreenRig.h"

#include <QSignalSpy>
#include <QTest>

class TestSortAndUndo : public QObject
{
    Q_OBJECT

private slots:
    void sortByTextThenStatusThenUndo()
    {
        Screen s;
        s.seed({"+b", "c", "+a", "d"});
        const ItemList original = s.items();
        QVERIFY(s.history().isAscending());
        s.history().sortByText();
        QCOMPARE(s.stored(), (QStringList{"+a", "+b", "c", "d"}));
        QVERIFY(!s.history().isAscending());
        s.history().sortByStatus(); // to do first, whatever the direction
        QCOMPARE(s.stored(), (QStringList{"c", "d", "+a", "+b"}));
        QVERIFY(s.history().isAscending());
        s.history().sortByText(); // the status sort flipped the direction back
        QCOMPARE(s.stored(), (QStringList{"+a", "+b", "c", "d"}));
        s.history().sortByText();
        QCOMPARE(s.stored(), (QStringList{"d", "c", "+b", "+a"}));

        // Each sort is one entry, undone newest first.
        s.history().undo();
        QCOMPARE(s.stored(), (QStringList{"+a", "+b", "c", "d"}));
        for (int i = 0; i < 3; ++i)
            s.history().undo();
        QCOMPARE(s.items(), original);
        QVERIFY(!s.history().canUndo());

        // No list selected: no sort, no entry, direction kept.
        s.lists().setSelectedListIndex(5);
        s.history().sortByText();
        QVERIFY(!s.history().canUndo());
        QVERIFY(s.history().isAscending());
    }

    void resetDotsAndUndo()
    {
        Screen s;
        s.seed({"+a", "b", "+c"});
        s.history().markAllToDo();
        QCOMPARE(s.stored(), (QStringList{"a", "b", "c"}));
        s.history().undo();
        QCOMPARE(s.stored(), (QStringList{"+a", "b", "+c"}));

        // Nothing done: still an entry.
        s.lists().setSelectedListIndex(1);
        s.history().markAllToDo();
        QCOMPARE(s.history().undoStack().size(), 1);
    }
};

QTEST_MAIN(TestSortAndUndo)
#include "tst_sortandundo.moc"
