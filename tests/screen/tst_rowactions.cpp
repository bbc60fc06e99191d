#include "ScreenRig.h"

#include <QSignalSpy>
#include <QTest>

class TestRowActions : public QObject
{
    Q_OBJECT

private slots:
    void doneMarkerAnglesOnlyGrow()
    {
        Screen s;
        const QString milk = s.add("Milk");
        for (const char *expected : {"+Milk", "Milk"}) {
            s.rows().turnDoneMarker(milk);
            s.rows().toggleState(milk);
            QCOMPARE(s.stored(), QStringList{expected});
        }
        QCOMPARE(s.rows().rotationAngle(milk), 360.0);
        DisplayedItemsModel *rows = s.state->displayedItems();
        QCOMPARE(rows->data(rows->index(0), DisplayedItemsModel::RotationAngleRole).toDouble(), 360.0);
        // Ids from QML may come in any case.
        QCOMPARE(s.rows().rotationAngle(milk.toLower()), 360.0);
    }

    void pinDeleteAndUndo()
    {
        Screen s;
        const QStringList ids = s.seed({"A", "B", "C", "D"});
        s.rows().togglePin(ids[3]);
        QCOMPARE(s.shown(), (QStringList{"*D", "A", "B", "C"}));
        QVERIFY(!s.history().canUndo()); // pinning is not undoable
        const ItemList pinned = s.items();

        // The delete gesture reads each offset after the last: 0 takes D,
        // then 1 takes B of A B C. Offsets past the end are skipped.
        s.rows().deleteDisplayedRows({1, 0});
        QCOMPARE(s.shown(), (QStringList{"A", "C"}));
        s.rows().deleteDisplayedRows({1, 2});
        QCOMPARE(s.shown(), QStringList{"A"});
        s.rows().deleteItem(ids[0]);
        QVERIFY(s.lists().isSelectedListEmpty());
        QCOMPARE(s.history().undoStack().size(), 4);
        for (int i = 0; i < 4; ++i)
            s.history().undo();
        QCOMPARE(s.items(), pinned);
        QVERIFY(!s.lists().isSelectedListEmpty());

        // Unpinned, D heads the others.
        s.rows().togglePin(ids[3]);
        QCOMPARE(s.shown(), (QStringList{"D", "A", "B", "C"}));

        // An unknown id does nothing, plays nothing.
        s.haptics.clear();
        s.rows().togglePin(idText(QUuid::createUuid()));
        s.rows().deleteItem(QStringLiteral("not an id"));
        QCOMPARE(s.shown(), (QStringList{"D", "A", "B", "C"}));
        QVERIFY(s.haptics.events.isEmpty());
        QVERIFY(!s.history().canUndo());
    }

    // An item may have the all-zero id (stored lists decode it); its row
    // works like any other, and only "" means no item.
    void zeroIdWorksLikeAnyOther()
    {
        Screen s;
        ItemList list = markedItems({"A", "Zero", "C"});
        list[1].id = QUuid();
        s.store().replaceList(s.lists().selectedListIndex(), list);
        const QString zero = idText(QUuid());
        QCOMPARE(s.state->displayedItems()->rowOf(zero), 1);
        QCOMPARE(s.state->displayedItems()->rowOf('{' + zero + '}'), 1);
        QCOMPARE(s.state->displayedItems()->rowOf(zero.chopped(1)), -1);

        s.rows().turnDoneMarker(zero);
        s.rows().toggleState(zero);
        QCOMPARE(s.rows().rotationAngle(zero), 180.0);
        s.rows().togglePin(zero);
        QCOMPARE(s.stored(), (QStringList{"*+Zero", "A", "C"}));
        s.rows().edit(zero);
        QCOMPARE(s.input().editingItemId(), zero);
        QCOMPARE(s.input().newItem(), QStringLiteral("Zero"));
        s.input().setNewItem(QStringLiteral("Nil"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), (QStringList{"*+Nil", "A", "C"}));
        QCOMPARE(s.input().editingItemId(), QString());
        s.rows().deleteItem(zero);
        QCOMPARE(s.stored(), (QStringList{"A", "C"}));
        s.history().undo();
        QCOMPARE(s.items()[0].id, QUuid());

        // "" names no item, and a submit after an edit of "" adds.
        s.haptics.clear();
        s.rows().togglePin(QString());
        s.rows().edit(QString());
        QCOMPARE(s.input().editingItemId(), QString());
        QVERIFY(s.haptics.events.isEmpty());
        s.add("D");
        QCOMPARE(s.stored(), (QStringList{"*+Nil", "A", "C", "D"}));
    }

    void dragDrop_data()
    {
        QTest::addColumn<QStringList>("stored");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("gap");
        QTest::addColumn<QStringList>("after");
        const QStringList two{"*P", "*Q", "A", "B"};
        QTest::newRow("onto the pinned block pins") << two << 3 << 0 << QStringList{"*B", "*P", "*Q", "A"};
        QTest::newRow("within the others") << two << 2 << 4 << QStringList{"*P", "*Q", "B", "A"};
        QTest::newRow("onto itself") << two << 2 << 2 << two;
        QTest::newRow("just below itself") << two << 2 << 3 << two;
        QTest::newRow("from beyond the end") << two << 9 << 0 << two;
        // Stored A P B shows P A B; the displayed positions are taken as
        // stored ones all the same.
        const QStringList unordered{"A", "*P", "B"};
        QTest::newRow("out of display order, up") << unordered << 2 << 1 << QStringList{"A", "B", "*P"};
        QTest::newRow("out of display order, down") << unordered << 0 << 3 << QStringList{"*P", "B", "A"};
    }
    void dragDrop()
    {
        QFETCH(QStringList, stored);
        QFETCH(int, from);
        QFETCH(int, gap);
        QFETCH(QStringList, after);
        Screen s;
        s.seed(stored);
        s.rows().moveDisplayedRow(from, gap);
        QCOMPARE(s.stored(), after);
        // Every drop of an existing row saves, also onto its own place.
        QCOMPARE(s.prefs.writeCount() > 0, from < stored.size());
        QVERIFY(!s.history().canUndo());
    }
};

QTEST_MAIN(TestRowActions)
#include "tst_rowactions.moc"
