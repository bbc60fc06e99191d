#include "StoreSteps.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QTest>
#include <rapidcheck.h>

namespace {

bool pinnedFormHeadBlock(const ItemList &list)
{
    bool seenUnpinned = false;
    for (const ListItem &i : list) {
        if (!i.isPinned)
            seenUnpinned = true;
        else if (seenUnpinned)
            return false;
    }
    return true;
}

} // namespace

class TestStoreProperties : public QObject
{
    Q_OBJECT

private slots:
    void randomOperationSequencesKeepTheInvariants()
    {
        const auto step = rc::gen::construct<StoreStep>(rc::gen::inRange(0, 1000), rc::gen::inRange(0, 1000),
                                                   rc::gen::inRange(0, 1000), rc::gen::inRange(0, 1000));
        // Undo restores lists by position and may bring back a pinned item
        // below unpinned ones, so the pinned block is checked only without it.
        const bool hold = rc::check("lengths agree, pinned items head each list, saved state reloads equal",
                                    [&](bool withUndo) {
            const auto steps = *rc::gen::container<std::vector<StoreStep>>(step);
            MemoryPreferencesStore prefs;
            ListItems store(prefs);
            UndoStack undo;
            for (const StoreStep &s : steps) {
                applyStep(store, prefs, undo, s, withUndo, [] { return QUuid::createUuid(); });
                RC_ASSERT(store.items().size() == store.listNames().size());
                for (const ItemList &l : store.items())
                    RC_ASSERT(withUndo || pinnedFormHeadBlock(l));
            }
            store.saveItems();
            ListItems reopened(prefs);
            RC_ASSERT(reopened.listNames() == store.listNames());
            RC_ASSERT(reopened.items() == store.items());
        });
        QVERIFY(hold);
    }
};

QTEST_GUILESS_MAIN(TestStoreProperties)
#include "tst_storeproperties.moc"
