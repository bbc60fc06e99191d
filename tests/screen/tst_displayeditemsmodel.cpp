#include "platform/preferences/MemoryPreferencesStore.h"
#include "screen/DisplayedItemsModel.h"
#include "views/ItemRowText.h"

#include <QAbstractItemModelTester>
#include <QTest>
#include <functional>

namespace {

// A model over list 0 of two lists, checked by QAbstractItemModelTester,
// with every change it reports logged as "data 2-2", "insert 4-4",
// "remove 1-1", "move 3>0", "reset" or "count".
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
        using M = QAbstractItemModel;
        using Index = QModelIndex;
        const auto rows = [this](const char *what) {
            return [this, what](const Index &, int a, int b) { log << QStringLiteral("%1 %2-%3").arg(what).arg(a).arg(b); };
        };
        QObject::connect(model.get(), &M::rowsInserted, rows("insert"));
        QObject::connect(model.get(), &M::rowsRemoved, rows("remove"));
        QObject::connect(model.get(), &M::dataChanged,
                         [this](const Index &a, const Index &b) { log << QStringLiteral("data %1-%2").arg(a.row()).arg(b.row()); });
        QObject::connect(model.get(), &M::rowsMoved,
                         [this](const Index &, int a, int, const Index &, int to) { log << QStringLiteral("move %1>%2").arg(a).arg(to); });
        QObject::connect(model.get(), &M::modelReset, [this] { log << "reset"; });
        QObject::connect(model.get(), &M::layoutChanged, [this] { log << "layout"; });
        QObject::connect(model.get(), &DisplayedItemsModel::countChanged, [this] { log << "count"; });
    }
    QUuid id(int stored) const { return store->items()[0][stored].id; }
    QStringList take() { return std::exchange(log, {}); }
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
    QStringList log;
};

} // namespace

class TestDisplayedItemsModel : public QObject
{
    Q_OBJECT

private slots:
    // Rows come pinned first, with the item's id as QML passes it back, its
    // stored position, and a bounded text (the editor gets the whole one);
    // an edit of the text refreshes both.
    void rowsAndRoles()
    {
        const QString big = QString(1 << 20, QLatin1Char('w'));
        Fixture f({"a", big, "c"});
        f.store->setPinned(true, f.id(2), 0);
        QList<int> roles;
        QObject::connect(f.model.get(), &QAbstractItemModel::dataChanged,
                         [&](const QModelIndex &, const QModelIndex &, const QList<int> &r) { roles = r; });
        const auto role = [&](int row, int r) { return f.model->data(f.model->index(row), r).toString(); };
        QCOMPARE(role(0, DisplayedItemsModel::ItemIdRole), f.id(0).toString(QUuid::WithoutBraces).toUpper());
        QCOMPARE(f.model->rowOf(role(0, DisplayedItemsModel::ItemIdRole)), 0);
        QCOMPARE(role(2, DisplayedItemsModel::PositionRole), QStringLiteral("2"));
        QCOMPARE(role(0, DisplayedItemsModel::DisplayTextRole), QStringLiteral("c"));
        QCOMPARE(role(2, DisplayedItemsModel::TextRole), big);
        QCOMPARE(role(2, DisplayedItemsModel::DisplayTextRole), ItemRowText::shown(big));

        f.store->updateItemText(f.id(2), 0, QStringLiteral("now short"));
        QVERIFY(roles.contains(DisplayedItemsModel::DisplayTextRole));
        QCOMPARE(role(2, DisplayedItemsModel::DisplayTextRole), QStringLiteral("now short"));
    }

    // Each edit reaches the view as the smallest change, so rows keep
    // their delegates and the list its scroll position.
    void eachEditIsTheSmallestChange()
    {
        Fixture f({"a", "b", "c", "d"}, {"x"});
        ListItem b;
        const struct
        {
            std::function<void()> edit;
            QStringList log;
        } edits[] = {
            {[&] { f.store->setState(ListItemState::done, f.id(2), 0); }, {"data 2-2"}},
            {[&] { f.store->updateItemText(f.id(0), 0, QStringLiteral("A")); }, {"data 0-0"}},
            {[&] { f.model->setRotationAngle(f.id(3), 180); }, {"data 3-3"}},
            {[&] { f.store->addItem(ListItem::create("e"), 0); }, {"insert 4-4", "count"}},
            // The rows after a deleted one change position; an undo puts it back.
            {[&] { b = f.store->items()[0][1]; f.store->deleteItems({1}, 0); }, {"remove 1-1", "count", "data 1-3"}},
            {[&] { f.store->insertItem(b, 1, 0); }, {"insert 1-1", "count", "data 2-4"}},
            // Pinning and dragging move one row; the positions after it follow.
            {[&] { f.store->setPinned(true, f.id(4), 0); }, {"move 4>0", "data 0-4"}},
            // Unpinned, e still heads the others: only its data changes.
            {[&] { f.store->setPinned(false, f.id(0), 0); }, {"data 0-0"}},
            {[&] { f.store->moveItems({4}, 0, 0); }, {"move 4>0", "data 0-4"}},
            // Another list's changes are not this list's.
            {[&] { f.store->addItem(ListItem::create("y"), 1); }, {}},
        };
        for (const auto &e : edits) {
            e.edit();
            QCOMPARE(f.take(), e.log);
        }
        QCOMPARE(f.model->data(f.model->index(0), DisplayedItemsModel::RotationAngleRole).toDouble(), 180.0);
        QCOMPARE(f.shown(), (QStringList{"d", "e", "A", "b", "c"}));

        // A sort and its undo move the rows that left their order, fewest first.
        const ItemList unsorted = f.store->items()[0];
        f.store->sortItems(0, false, true);
        QCOMPARE(f.take().filter(QStringLiteral("move")).size(), 3);
        QCOMPARE(f.shown(), (QStringList{"e", "d", "c", "b", "A"}));
        f.store->replaceList(0, unsorted);
        QCOMPARE(f.take().filter(QStringLiteral("move")).size(), 3);
        QCOMPARE(f.shown(), (QStringList{"d", "e", "A", "b", "c"}));
        // A switch of lists starts afresh.
        f.model->setListIndex(1);
        QCOMPARE(f.take(), (QStringList{"reset", "count"}));
        QCOMPARE(f.shown(), (QStringList{"x", "y"}));
    }

    // Too many rows move to follow each: one layout change, with every
    // held index following its item; a list that changed otherwise resets.
    void longSortsAreOneLayoutChange()
    {
        QStringList texts;
        for (int i = 0; i < 1000; ++i)
            texts << QStringLiteral("%1").arg(i, 4, 10, QLatin1Char('0'));
        Fixture f(texts);
        const QPersistentModelIndex held = f.model->index(10);
        f.store->sortItems(0, false, true);
        QCOMPARE(f.take(), QStringList{"layout"});
        QCOMPARE(f.shown().first(), QStringLiteral("0999"));
        QCOMPARE(held.row(), 989);
        QCOMPARE(held.data(DisplayedItemsModel::TextRole).toString(), QStringLiteral("0010"));
        QCOMPARE(held.data(DisplayedItemsModel::PositionRole).toLongLong(), 989);

        ItemList other = f.store->items()[0];
        std::reverse(other.begin(), other.end());
        other.removeLast();
        other.prepend(ListItem::create(QStringLiteral("new")));
        f.store->replaceList(0, other);
        QCOMPARE(f.take(), QStringList{"reset"});
    }

    void heldUpdatesFollowTheListThatMoved()
    {
        Fixture f({"a", "b"}, {"x"});
        // The screen moves list 0 to 1 and selects it: the same rows, no change.
        f.model->holdUpdates();
        f.store->moveList(0, 1);
        f.model->setListIndex(1);
        f.model->releaseUpdates();
        QCOMPARE(f.take(), QStringList());
        QCOMPARE(f.shown(), (QStringList{"a", "b"}));

        // Without the selection following, the other list shows.
        f.store->moveList(0, 1);
        QCOMPARE(f.take(), (QStringList{"reset", "count"}));
        QCOMPARE(f.shown(), QStringList{"x"});

        // A change while held waits for the last release, as the smallest change.
        f.model->holdUpdates();
        f.model->holdUpdates();
        f.store->addItem(ListItem::create("y"), 1);
        f.model->releaseUpdates();
        QCOMPARE(f.model->rowCount(), 1);
        f.model->releaseUpdates();
        QCOMPARE(f.take(), (QStringList{"insert 1-1", "count"}));
    }
};

QTEST_MAIN(TestDisplayedItemsModel)
#include "tst_displayeditemsmodel.moc"
