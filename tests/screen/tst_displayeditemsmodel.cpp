#include "platform/MemoryPreferencesStore.h"
#include "screen/DisplayedItemsModel.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

namespace {

// Every kind of change the model can report, counted.
struct Changes
{
    explicit Changes(DisplayedItemsModel *m)
        : data(m, &QAbstractItemModel::dataChanged)
        , inserted(m, &QAbstractItemModel::rowsInserted)
        , removed(m, &QAbstractItemModel::rowsRemoved)
        , moved(m, &QAbstractItemModel::rowsMoved)
        , reset(m, &QAbstractItemModel::modelReset)
        , count(m, &DisplayedItemsModel::countChanged)
    {
    }
    int structural() const { return int(inserted.size() + removed.size() + moved.size() + reset.size()); }
    void clear()
    {
        for (QSignalSpy *s : {&data, &inserted, &removed, &moved, &reset, &count})
            s->clear();
    }
    // The rows (first..last) of each dataChanged, as "first-last".
    QStringList dataRows() const
    {
        QStringList rows;
        for (const QList<QVariant> &args : data)
            rows << QStringLiteral("%1-%2").arg(args[0].toModelIndex().row()).arg(args[1].toModelIndex().row());
        return rows;
    }

    QSignalSpy data, inserted, removed, moved, reset, count;
};

struct Fixture
{
    explicit Fixture(const QStringList &texts, const QStringList &otherList = {})
    {
        prefs.setStringList(PreferenceKeys::listNames, {"One", "Two"});
        store = std::make_unique<ListItems>(prefs);
        for (const QString &t : texts)
            store->addItem(ListItem::create(t), 0);
        for (const QString &t : otherList)
            store->addItem(ListItem::create(t), 1);
        model = std::make_unique<DisplayedItemsModel>(store.get());
        tester = std::make_unique<QAbstractItemModelTester>(model.get(),
                                                            QAbstractItemModelTester::FailureReportingMode::QtTest);
        changes = std::make_unique<Changes>(model.get());
    }
    QUuid id(int stored) const { return store->items()[0][stored].id; }
    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < model->rowCount(); ++row)
            texts << model->data(model->index(row), DisplayedItemsModel::TextRole).toString();
        return texts;
    }

    MemoryPreferencesStore prefs;
    std::unique_ptr<ListItems> store;
    std::unique_ptr<DisplayedItemsModel> model;
    std::unique_ptr<QAbstractItemModelTester> tester;
    std::unique_ptr<Changes> changes;
};

} // namespace

class TestDisplayedItemsModel : public QObject
{
    Q_OBJECT

private slots:
    void rowsAndRoles()
    {
        Fixture f({"a", "b", "c"});
        const QUuid b = f.id(1);
        f.store->setPinned(true, f.id(2), 0); // stored: c a b
        f.store->setState(ListItemState::done, b, 0);
        QCOMPARE(f.shown(), (QStringList{"c", "a", "b"}));
        const QHash<int, QByteArray> names = f.model->roleNames();
        QCOMPARE(names.value(DisplayedItemsModel::ItemIdRole), QByteArray("itemId"));
        QCOMPARE(names.value(DisplayedItemsModel::RotationAngleRole), QByteArray("rotationAngle"));

        const QModelIndex first = f.model->index(0);
        const ListItem c = f.store->items()[0][0];
        QCOMPARE(f.model->data(first, DisplayedItemsModel::ItemIdRole).toString(),
                 c.id.toString(QUuid::WithoutBraces).toUpper());
        QVERIFY(f.model->data(first, DisplayedItemsModel::IsPinnedRole).toBool());
        QCOMPARE(f.model->data(first, DisplayedItemsModel::PositionRole).toLongLong(), 0);
        QVERIFY(f.model->data(f.model->index(2), DisplayedItemsModel::IsDoneRole).toBool());
        QCOMPARE(f.model->rowOf(c.id.toString()), 0);
        QCOMPARE(f.model->rowOf(QStringLiteral("nonsense")), -1);
        QCOMPARE(f.model->itemAt(0)->text, QStringLiteral("c"));
        QVERIFY(!f.model->itemAt(3));
    }

    void toggleChangesOneRowsData()
    {
        Fixture f({"a", "b", "c", "d"});
        f.store->setState(ListItemState::done, f.id(2), 0);
        QCOMPARE(f.changes->structural(), 0);
        QCOMPARE(f.changes->dataRows(), QStringList{"2-2"});
        QCOMPARE(f.changes->data[0][2].value<QList<int>>(), QList<int>{DisplayedItemsModel::IsDoneRole});

        f.changes->clear();
        f.store->updateItemText(f.id(0), 0, QStringLiteral("A"));
        QCOMPARE(f.changes->dataRows(), QStringList{"0-0"});
        QCOMPARE(f.changes->structural(), 0);

        f.changes->clear();
        f.model->setRotationAngle(f.id(3), 180);
        QCOMPARE(f.changes->dataRows(), QStringList{"3-3"});
        QCOMPARE(f.model->data(f.model->index(3), DisplayedItemsModel::RotationAngleRole).toDouble(), 180.0);
    }

    void addInsertsOneRow()
    {
        Fixture f({"a", "b"});
        f.store->addItem(ListItem::create("c"), 0);
        QCOMPARE(f.changes->inserted.size(), 1);
        QCOMPARE(f.changes->inserted[0][1].toInt(), 2);
        QCOMPARE(f.changes->structural(), 1);
        QCOMPARE(f.changes->count.size(), 1);
        QCOMPARE(f.shown(), (QStringList{"a", "b", "c"}));

        // Undo of a deletion puts a row back in the middle.
        f.changes->clear();
        const ListItem b = f.store->items()[0][1];
        f.store->deleteItems({1}, 0);
        QCOMPARE(f.changes->removed.size(), 1);
        QCOMPARE(f.changes->removed[0][1].toInt(), 1);
        QCOMPARE(f.changes->dataRows(), QStringList{"1-1"}); // c now stands at position 1
        f.store->insertItem(b, 1, 0);
        QCOMPARE(f.changes->inserted.size(), 1);
        QCOMPARE(f.changes->structural(), 2);
        QCOMPARE(f.shown(), (QStringList{"a", "b", "c"}));
    }

    void pinMovesARow()
    {
        Fixture f({"a", "b", "c", "d"});
        const QUuid c = f.id(2), d = f.id(3);
        f.store->setPinned(true, d, 0);
        QCOMPARE(f.changes->moved.size(), 1);
        QCOMPARE(f.changes->structural(), 1);
        QCOMPARE(f.shown(), (QStringList{"d", "a", "b", "c"}));
        QVERIFY(f.model->data(f.model->index(0), DisplayedItemsModel::IsPinnedRole).toBool());

        f.changes->clear();
        f.store->setPinned(true, c, 0); // c joins the end of the pinned block
        QCOMPARE(f.shown(), (QStringList{"d", "c", "a", "b"}));
        f.store->setPinned(false, d, 0); // d goes to the head of the others
        QCOMPARE(f.shown(), (QStringList{"c", "d", "a", "b"}));
        QCOMPARE(f.changes->moved.size(), 2);
        QCOMPARE(f.changes->reset.size(), 0);

        // A drag is a move too.
        f.changes->clear();
        f.store->moveItems({3}, 0, 0);
        QCOMPARE(f.shown(), (QStringList{"b", "c", "d", "a"}));
        QCOMPARE(f.changes->moved.size(), 1);
        QCOMPARE(f.changes->structural(), 1);
    }

    void sortAndSwitchReset()
    {
        Fixture f({"d", "b", "c", "a"}, {"x"});
        f.store->sortItems(0, true, true);
        QCOMPARE(f.changes->reset.size(), 1);
        QCOMPARE(f.shown(), (QStringList{"a", "b", "c", "d"}));

        f.changes->clear();
        f.store->addItem(ListItem::create("y"), 1); // another list: nothing here
        QCOMPARE(f.changes->structural() + f.changes->data.size(), 0);

        f.model->setListIndex(1);
        QCOMPARE(f.changes->reset.size(), 1);
        QCOMPARE(f.shown(), (QStringList{"x", "y"}));
        f.model->setListIndex(5);
        QCOMPARE(f.model->rowCount(), 0);
    }

    void heldUpdatesFollowTheListThatMoved()
    {
        Fixture f({"a", "b"}, {"x"});
        // The screen moves list 0 to 1 and selects it: the same rows, no change.
        f.model->holdUpdates();
        f.store->moveList(0, 1);
        f.model->setListIndex(1);
        QCOMPARE(f.shown(), (QStringList{"a", "b"}));
        f.model->releaseUpdates();
        QCOMPARE(f.changes->structural() + f.changes->data.size(), 0);
        QCOMPARE(f.shown(), (QStringList{"a", "b"}));

        // Without the selection following, the other list shows.
        f.store->moveList(0, 1);
        QCOMPARE(f.changes->reset.size(), 1);
        QCOMPARE(f.shown(), QStringList{"x"});

        // A change while held is applied on release, as the smallest change.
        f.changes->clear();
        f.model->holdUpdates();
        f.model->holdUpdates();
        f.store->addItem(ListItem::create("y"), 1);
        f.model->releaseUpdates();
        QCOMPARE(f.model->rowCount(), 1);
        f.model->releaseUpdates();
        QCOMPARE(f.changes->inserted.size(), 1);
        QCOMPARE(f.shown(), (QStringList{"x", "y"}));
    }

    void tenThousandItemsToggleWithoutAReset()
    {
        MemoryPreferencesStore prefs;
        prefs.setStringList(PreferenceKeys::listNames, {"Long"});
        ItemList items;
        for (int i = 0; i < 10000; ++i)
            items << ListItem::create(QStringLiteral("item %1").arg(i));
        ListItems store(prefs);
        store.replaceList(0, items);
        DisplayedItemsModel model(&store);
        Changes changes(&model);

        QElapsedTimer timer;
        timer.start();
        store.setState(ListItemState::done, items[7345].id, 0);
        const qint64 ms = timer.elapsed();
        QCOMPARE(changes.structural(), 0);
        QCOMPARE(changes.dataRows(), QStringList{"7345-7345"});
        qInfo("toggle in a 10,000-item list, store and rows: %lld ms", ms);

        store.setPinned(true, items[9999].id, 0);
        QCOMPARE(changes.moved.size(), 1);
        QCOMPARE(changes.reset.size(), 0);
        QCOMPARE(model.data(model.index(0), DisplayedItemsModel::TextRole).toString(), QStringLiteral("item 9999"));
    }
};

QTEST_MAIN(TestDisplayedItemsModel)
#include "tst_displayeditemsmodel.moc"
