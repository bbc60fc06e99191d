// Kills a process in the middle of store operations, again and again, and
// checks what the disk holds afterwards: exactly the state after the last
// acknowledged operation or after the one in flight, never a mix of keys,
// never less than what was acknowledged.
//
// The same binary is the child: `tst_storecrash --child <dir> <seed>` runs
// a seeded script of operations and acknowledges each on standard output.
// MURVANE_CRASH_ROUNDS sets the number of rounds (default 200).
#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "model/UndoStack.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "platform/preferences/SqlitePreferencesStore.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <unistd.h>

namespace {

// What a test compares: every key the operations write.
using Snapshot = std::tuple<std::optional<QStringList>, std::optional<QByteArray>, std::optional<qint64>>;

Snapshot snapshot(const PreferencesStore &p)
{
    return {p.stringList(PreferenceKeys::listNames), p.data(PreferenceKeys::items),
            p.integer(PreferenceKeys::selectedListIndex)};
}

// A deterministic stream of the screen's operations on the store, chosen by
// four numbers each, new items' ids included, so that a replay makes the
// same ones. Lists and positions are sometimes out of range on purpose;
// deletions are recorded for undo as the screen records them.
class Script
{
public:
    explicit Script(quint32 seed)
        : m_rng(seed)
    {
    }

    void step(ListItems &store, PreferencesStore &prefs)
    {
        using namespace UndoActions;
        const int kind = next(), a = next(), b = next(), c = next();
        const qint64 n = store.listCount();
        const qint64 list = n ? (a % (n + 2)) - 1 : a % 3 - 1;
        const ItemList current = store.itemsAt(list);
        const qsizetype at = current.isEmpty() ? 0 : b % current.size();
        // Each kind writes a different set of keys: items, names, both, or with the selection.
        switch (kind % 6) {
        case 0: store.addItem(ListItem{newId(), QString::number(c), ListItemState::toDo, false}, list); break;
        case 1:
            if (!current.isEmpty()) {
                m_undo.push(DeleteItem{list, at, current[at]});
                store.deleteItems({at}, list);
            }
            break;
        case 2:
            if (n >= 2 && list >= 0 && list < n) {
                m_undo.push(DeleteList{list, store.listNames()[list], current});
                store.deleteList(list);
            }
            break;
        case 3: store.renameList(list, QString::number(c)); break;
        case 4: m_undo.undo(store); break;
        default: {
            // A list operation and the selection it leaves, in one transaction.
            PreferencesStore::Transaction transaction(prefs);
            if (b % 2)
                store.addList();
            else
                store.moveList(list, list + 1);
            prefs.setInteger(PreferenceKeys::selectedListIndex, store.clampSelection(b % 2 ? 0 : list + 1));
        }
        }
    }

private:
    int next() { return int(m_rng.bounded(1000)); }
    QUuid newId() { return QUuid(m_rng.generate(), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0); }

    QRandomGenerator m_rng;
    UndoStack m_undo;
};

int runChild(const QString &dir, quint32 seed)
{
    SqlitePreferencesStore prefs(dir);
    ListItems store(prefs);
    Script script(seed);
    ::write(STDOUT_FILENO, "ready\n", 6);
    for (int k = 1;; ++k) {
        script.step(store, prefs);
        // Acknowledged only once the operation has returned.
        const QByteArray ack = QByteArray::number(k) + '\n';
        if (::write(STDOUT_FILENO, ack.constData(), size_t(ack.size())) != ack.size())
            return 1;
    }
}

} // namespace

class TestStoreCrash : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_template;
    Snapshot m_start;

private slots:
    void initTestCase()
    {
        m_template = m_dir.filePath(QStringLiteral("template"));
        SqlitePreferencesStore prefs(m_template);
        QList<ItemList> lists(12);
        // Large enough that a save takes a while, so kills land in the middle of one.
        for (int i = 0; i < 10000; ++i)
            lists[i % 12].append(ListItem::create(QStringLiteral("Item %1 to buy").arg(i)));
        prefs.setStringList(PreferenceKeys::listNames, ListItems::defaultListNames());
        prefs.setData(PreferenceKeys::items, ItemsCodec::encode(lists));
        prefs.setInteger(PreferenceKeys::selectedListIndex, 0);
        m_start = snapshot(prefs);
    }

    void killedAtRandomMomentsLosesNothing()
    {
        const int rounds = qEnvironmentVariableIsSet("MURVANE_CRASH_ROUNDS")
            ? qEnvironmentVariableIntValue("MURVANE_CRASH_ROUNDS")
            : 200;
        auto *rng = QRandomGenerator::global();
        const QString db = SqlitePreferencesStore::databaseName();
        for (int round = 0; round < rounds; ++round) {
            QTemporaryDir dir;
            QVERIFY(QFile::copy(m_template + u'/' + db, dir.filePath(db)));
            const quint32 seed = rng->generate();

            QProcess child;
            child.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--child"), dir.path(), QString::number(seed)});
            QByteArray out;
            while (!out.contains("ready\n") && child.waitForReadyRead(10000))
                out += child.readAllStandardOutput();
            QVERIFY2(out.contains("ready\n"), "the child never opened the store");
            QThread::usleep(rng->bounded(80000));
            child.kill();
            QVERIFY(child.waitForFinished());
            out += child.readAllStandardOutput();
            // One line per acknowledgement after "ready"; each is a single short write, never torn.
            const int acked = int(out.count('\n')) - 1;

            // The acknowledged state and the one after the operation in flight.
            MemoryPreferencesStore replay;
            replay.setStringList(PreferenceKeys::listNames, *std::get<0>(m_start));
            replay.setData(PreferenceKeys::items, *std::get<1>(m_start));
            replay.setInteger(PreferenceKeys::selectedListIndex, *std::get<2>(m_start));
            ListItems replayed(replay);
            Script script(seed);
            for (int k = 0; k < acked; ++k)
                script.step(replayed, replay);
            const Snapshot acknowledged = snapshot(replay);
            script.step(replayed, replay);
            const Snapshot inFlight = snapshot(replay);

            SqlitePreferencesStore reopened(dir.path());
            QVERIFY2(reopened.status().message().isEmpty(), qPrintable(reopened.status().message()));
            const Snapshot found = snapshot(reopened);
            QVERIFY2(found == acknowledged || found == inFlight,
                     qPrintable(QStringLiteral("round %1, seed %2, %3 acknowledged").arg(round).arg(seed).arg(acked)));
        }
    }
};

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (argc == 4 && qstrcmp(argv[1], "--child") == 0)
        return runChild(QString::fromLocal8Bit(argv[2]), QByteArray(argv[3]).toUInt());
    TestStoreCrash test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_storecrash.moc"
