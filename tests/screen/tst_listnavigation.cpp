#include "ScreenRig.h"
#include "screen/ListChipsModel.h"

#include <QSignalSpy>
#include <QTest>
#include <functional>

class TestListNavigation : public QObject
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

    void newMoveRenameAndSelectLists()
    {
        Screen s(QStringList{"Home", "Work"}, QVariant(qint64(1)));
        s.add("milk");
        QSignalSpy header(&s.lists(), &ListNavigation::scrollHeaderToSelected);
        s.prefs.resetWriteLog();
        s.lists().addList();
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "Home", "Work"}));
        QCOMPARE(s.storedIndex(), qint64(0));
        // Names, items and selection in one commit.
        QCOMPARE(s.prefs.commitCount(), 1);
        QCOMPARE(s.prefs.writtenKeys(),
                 (QStringList{PreferenceKeys::items, PreferenceKeys::listNames, PreferenceKeys::selectedListIndex}));
        QVERIFY(s.lists().isSelectedListEmpty());
        QVERIFY(!s.lists().canMoveListLeft());
        QCOMPARE(header.last()[0].toInt(), 500);

        // A chip tap selects and puts the keyboard away.
        s.input().setNewItemFieldIsFocused(true);
        s.lists().chooseList(2);
        QCOMPARE(s.storedIndex(), qint64(2));
        QCOMPARE(s.shown(), QStringList{"milk"});
        QVERIFY(!s.input().newItemFieldIsFocused());
        QVERIFY(!s.lists().canMoveListRight());
        QCOMPARE(header.last()[0].toInt(), 500);

        // The selection moves with its list; the header follows a moment later.
        s.lists().moveListLeft();
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "Work", "Home"}));
        QCOMPARE(s.storedIndex(), qint64(1));
        QCOMPARE(s.shown(), QStringList{"milk"});
        QVERIFY(s.lists().canMoveListLeft() && s.lists().canMoveListRight());
        header.clear();
        QTRY_VERIFY(!header.isEmpty());
        QCOMPARE(header.last()[0].toInt(), 200);
        s.lists().moveListLeft();
        s.lists().moveListLeft(); // already first
        s.lists().moveListRight();
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "Work", "Home"}));

        // Renamed as typed, spaces and all; an empty name is allowed.
        s.lists().setTitleEditing(true);
        s.lists().renameSelectedList(QStringLiteral(" Groceries "));
        QCOMPARE(s.lists().currentListName(), QStringLiteral(" Groceries "));
        QCOMPARE(s.prefs.stringList(PreferenceKeys::listNames)->value(1), QStringLiteral(" Groceries "));
        s.lists().renameSelectedList(QString());
        s.lists().setTitleEditing(false);
        QVERIFY(!s.lists().titleEdited());
        QCOMPARE(s.store().listNames(), (QStringList{"New List", "", "Home"}));
        QVERIFY(!s.history().canUndo());

        // No list selected: nothing to rename.
        s.lists().setSelectedListIndex(3);
        s.prefs.resetWriteLog();
        s.lists().renameSelectedList(QStringLiteral("x"));
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
        s.lists().askToDeleteList();
        QVERIFY(s.lists().showDeletionConfirmation());
        QCOMPARE(s.store().listNames(), names); // nothing until "Yes"

        s.lists().deleteSelectedList();
        QVERIFY(!s.lists().showDeletionConfirmation());
        QCOMPARE(s.store().listNames(), after);
        QCOMPARE(s.storedIndex(), selectedAfter);
        QCOMPARE(s.prefs.writeCount() > 0, after != names);
        QCOMPARE(s.history().canUndo(), after != names);

        s.history().undo();
        QCOMPARE(s.storedIndex(), selected);
        QCOMPARE(s.shown(), QStringList{"kept"});
        // The restored list is stored, not only shown.
        const ListItems reloaded(s.prefs);
        QCOMPARE(reloaded.listNames(), names);
        QCOMPARE(reloaded.items(), s.store().items());
    }

    // The chips follow the lists row by row, never rebuilt; the capsule's
    // pace comes with each change of the selection.
    void chipsFollowTheListsRowByRow()
    {
        Screen s(QStringList{"Home", "Work", "Trip"}, QVariant(qint64(1)));
        s.add("kept");
        ListChipsModel chips;
        chips.setStore(&s.store());
        QStringList log;
        connect(&chips, &QAbstractItemModel::modelReset, this, [&] { log << "reset"; });
        connect(&chips, &QAbstractItemModel::dataChanged, this,
                [&](const QModelIndex &a, const QModelIndex &b) { log << QStringLiteral("changed %1-%2").arg(a.row()).arg(b.row()); });
        connect(&chips, &QAbstractItemModel::rowsInserted, this,
                [&](const QModelIndex &, int a, int b) { log << QStringLiteral("inserted %1-%2").arg(a).arg(b); });
        connect(&chips, &QAbstractItemModel::rowsRemoved, this,
                [&](const QModelIndex &, int a, int b) { log << QStringLiteral("removed %1-%2").arg(a).arg(b); });
        connect(&chips, &QAbstractItemModel::rowsMoved, this, [&](const QModelIndex &, int a, int, const QModelIndex &, int to) {
            log << QStringLiteral("moved %1 to %2").arg(a).arg(to);
        });
        connect(&s.lists(), &ListNavigation::selectedListIndexChanged, this,
                [&] { log << QStringLiteral("selected %1 over %2 ms").arg(s.lists().selectedListIndex()).arg(s.lists().selectionDuration()); });
        const auto step = [&](const std::function<void()> &action, const QStringList &expected) {
            log.clear();
            action();
            QCOMPARE(log, expected);
            QStringList names;
            for (int row = 0; row < chips.rowCount(); ++row)
                names << chips.index(row).data().toString();
            QCOMPARE(names, s.store().listNames());
            QCOMPARE(s.lists().selectionDuration(), 0);
        };
        step([&] { s.lists().renameSelectedList("Job"); }, {"changed 1-1"});
        step([&] { s.lists().moveListRight(); }, {"moved 1 to 3", "selected 2 over 300 ms"});
        step([&] { s.lists().moveListLeft(); }, {"moved 1 to 3", "selected 1 over 300 ms"});
        step([&] { s.lists().chooseList(2); }, {"selected 2 over 500 ms"});
        step([&] { s.lists().chooseList(2); }, {});
        step([&] { s.lists().addList(); }, {"inserted 0-0", "selected 0 over 350 ms"});
        step([&] { s.lists().setSelectedListIndex(2); }, {"selected 2 over 0 ms"});
        step([&] { s.lists().deleteSelectedList(); }, {"removed 2-2"});
        step([&] { s.history().undo(); }, {"inserted 2-2"});
        step([&] { s.lists().renameSelectedList("Job"); }, {});
        QCOMPARE(s.shown(), QStringList{"kept"});
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
        QTest::newRow("12 families") << QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467").repeated(12) << 20;
        QTest::newRow("15 accented") << QStringLiteral("e\u0301").repeated(15) << 18;
    }
    void titlePointSize()
    {
        QFETCH(QString, title);
        QFETCH(int, size);
        QCOMPARE(ListNavigation::titlePointSize(title), size);
    }
};

QTEST_MAIN(TestListNavigation)
#include "tst_listnavigation.moc"
