#include "platform/preferences/MemoryPreferencesStore.h"
#include "platform/preferences/SqlitePreferencesStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <sys/stat.h>

namespace {

const QString names = QStringLiteral("listNames");
const QString items = QStringLiteral("items");
const QString selection = QStringLiteral("selectedListIndex");
const QString scheme = QStringLiteral("appColorScheme");

// Direct access to a store's database, as another program would have it.
struct Raw
{
    QString name = QStringLiteral("raw-%1").arg(quintptr(this));
    explicit Raw(const QString &dir)
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(dir + u'/' + SqlitePreferencesStore::databaseName());
        db.open();
    }
    ~Raw() { QSqlDatabase::removeDatabase(name); }
    // Runs `sql` with `values` bound; returns the first column of its rows.
    QVariantList query(const QString &sql, const QVariantList &values = {})
    {
        QSqlQuery q(QSqlDatabase::database(name));
        q.prepare(sql);
        for (const QVariant &value : values)
            q.addBindValue(value);
        QVariantList out;
        for (q.exec(); q.next();)
            out << q.value(0);
        return out;
    }
    // The recovered copies of a key, oldest first, as stored.
    QVariantList copies(const QString &key)
    {
        return query(QStringLiteral("SELECT value FROM recovered WHERE key = ? ORDER BY id"), {key});
    }
};

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

} // namespace

class TestPreferences : public QObject
{
    Q_OBJECT

private slots:
    void typedValuesSurviveAReopenInPrivateFiles()
    {
        QTemporaryDir parent;
        const QString dir = parent.filePath(QStringLiteral("a/murvane"));
        const QStringList list = {QStringLiteral("A✔"), QString(), QStringLiteral("Ü\"\\")};
        // Long enough to span several database pages.
        const QByteArray bytes = QByteArray("[[]]\xff\x00", 6).repeated(50000);
        const mode_t umask = ::umask(0);
        {
            SqlitePreferencesStore p(dir);
            p.setStringList(names, list);
            p.setData(items, bytes);
            p.setInteger(selection, -3);
            p.setString(scheme, QStringLiteral("x"));
            p.remove(scheme);
            // Private whatever the umask: nothing for group or others.
            const QString db = p.databasePath();
            for (const QString &path : {dir, db, db + "-wal", db + "-shm"}) {
                QVERIFY2(QFileInfo::exists(path), qPrintable(path));
                QCOMPARE(QFileInfo(path).permissions() & 0x77, QFileDevice::Permissions());
            }
        }
        ::umask(umask);
        SqlitePreferencesStore p(dir);
        QCOMPARE(p.stringList(names), list);
        QCOMPARE(p.data(items), bytes);
        QCOMPARE(p.integer(selection), qint64(-3));
        QVERIFY(!p.contains(scheme));
        // A value of another type reads as absent.
        QVERIFY(!p.data(names).has_value());
    }

    void transactionsCommitOnceAtTheOutermostEnd()
    {
        MemoryPreferencesStore p;
        {
            PreferencesStore::Transaction outer(p);
            p.setString(scheme, QStringLiteral("dark"));
            {
                PreferencesStore::Transaction inner(p);
                p.setInteger(selection, 2);
            }
            // Reads see the open transaction's values.
            QCOMPARE(p.integer(selection), qint64(2));
        }
        QCOMPARE(p.commitCount(), 1);
        QCOMPARE(p.writtenKeys(), QStringList({scheme, selection}));
    }

    void aStoreThatCannotOpenKeepsChangesUntilItCan()
    {
        QTemporaryDir dir;
        QTemporaryDir elsewhere;
        SqlitePreferencesStore(elsewhere.path()).setStringList(names, {QStringLiteral("on disk")});
        // Something in the way of the database file.
        QVERIFY(QDir(dir.path()).mkdir(SqlitePreferencesStore::databaseName()));
        SqlitePreferencesStore p(dir.path());
        p.setStringList(names, {QStringLiteral("kept")});
        QVERIFY(p.status().message().contains(QStringLiteral("not being saved")));

        // The database turns up: what it held and the app never saw is
        // copied before the waiting change replaces it.
        QVERIFY(QDir(dir.path()).rmdir(SqlitePreferencesStore::databaseName()));
        QVERIFY(QFile::copy(elsewhere.filePath(SqlitePreferencesStore::databaseName()),
                            dir.filePath(SqlitePreferencesStore::databaseName())));
        QVERIFY(p.retrySave());
        QCOMPARE(SqlitePreferencesStore(dir.path()).stringList(names), QStringList{QStringLiteral("kept")});
        QCOMPARE(Raw(dir.path()).copies(names), QVariantList{QStringLiteral("[\"on disk\"]")});
    }

    void unreadableRowsAreCopiedBeforeTheyAreReplaced_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<int>("type");
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("names with a number") << names << 1 << QVariant(QStringLiteral("[\"a\",1]"));
        QTest::newRow("integer as text") << selection << 3 << QVariant(QStringLiteral("2"));
        QTest::newRow("unknown type") << scheme << 9 << QVariant(QByteArray("dark\xff", 5));
        QTest::newRow("pieces not named as text") << items << 5 << QVariant(QByteArray("1,2"));
    }

    void unreadableRowsAreCopiedBeforeTheyAreReplaced()
    {
        QFETCH(QString, key);
        QFETCH(int, type);
        QFETCH(QVariant, stored);
        QTemporaryDir dir;
        SqlitePreferencesStore(dir.path()).setString(QStringLiteral("other"), QStringLiteral("x"));
        Raw raw(dir.path());
        raw.query(QStringLiteral("INSERT OR REPLACE INTO prefs (key, type, value) VALUES (?, ?, ?)"), {key, type, stored});
        for (int start = 0; start < 2; ++start) {
            SqlitePreferencesStore p(dir.path());
            QVERIFY(!p.contains(key));
            QVERIFY(p.status().message().contains(SqlitePreferencesStore::databaseName()));
        }
        // Copied once however often it was opened, byte for byte.
        QCOMPARE(raw.copies(key), QVariantList{stored});
    }

    void copiesAddUpAndTypeChangesAreKept()
    {
        QTemporaryDir dir;
        SqlitePreferencesStore p(dir.path());
        p.setData(items, "first");
        p.keepCopy(items);
        p.keepCopy(items);
        p.setData(items, "second");
        p.keepCopy(items);
        // Changing the type copies the old value first; an unchanged value is copied once.
        p.setString(items, QStringLiteral("a string now"));
        p.setInteger(items, 1);
        QCOMPARE(Raw(dir.path()).copies(items),
                 QVariantList({QByteArray("first"), QByteArray("second"), QStringLiteral("a string now")}));
    }

    void oldFilesAreImportedOnceAndKept()
    {
        QTemporaryDir dir;
        const QByteArray json = R"({"listNames":["a",1],"selectedListIndex":2,"appColorScheme":"dark",)"
                                R"("selectedThemeKey":["pink"],"flag":true})";
        const QByteArray document = "[[\xc3\xa9]] not even JSON";
        writeFile(dir.filePath(QStringLiteral("preferences.json")), json);
        writeFile(dir.filePath(QStringLiteral("items.bin")), document);
        writeFile(dir.filePath(QStringLiteral("items.bin.Ab12Cd")), "half a save");
        {
            SqlitePreferencesStore p(dir.path());
            QCOMPARE(p.data(items), document);
            QCOMPARE(p.integer(selection), qint64(2));
            QCOMPARE(p.string(scheme), QStringLiteral("dark"));
            QVERIFY(!p.contains(names)); // unreadable, and copied
            QVERIFY(!p.contains(QStringLiteral("flag")));
            p.setInteger(selection, 5);
        }
        QCOMPARE(QDir(dir.path()).entryList({QStringLiteral("*.json*"), QStringLiteral("items.bin*")}, QDir::Files),
                 QStringList({"items.bin.migrated", "preferences.json.migrated"}));
        // A file put back by hand is not imported a second time.
        writeFile(dir.filePath(QStringLiteral("preferences.json")), R"({"selectedListIndex":9})");
        QCOMPARE(SqlitePreferencesStore(dir.path()).integer(selection), qint64(5));
        Raw raw(dir.path());
        QCOMPARE(raw.copies(names), QVariantList{QStringLiteral("[\"a\",1]")});
        QCOMPARE(raw.copies(QStringLiteral("flag")), QVariantList{QByteArray("[true]")});

        QTemporaryDir broken;
        writeFile(broken.filePath(QStringLiteral("preferences.json")), "{not json");
        SqlitePreferencesStore p(broken.path());
        QVERIFY(p.status().message().contains(QStringLiteral("could not be read")));
        QCOMPARE(Raw(broken.path()).copies(QStringLiteral("preferences.json")), QVariantList{QByteArray("{not json")});
    }

    // Steps on one key: the elements set, their hints, how many rows they add.
    void jsonArraysRewriteOnlyTheElementsThatChanged()
    {
        QTemporaryDir dir;
        SqlitePreferencesStore(dir.path()).setData(items, "[[1],[2]]"); // one row, as earlier versions kept it
        SqlitePreferencesStore p(dir.path());
        Raw raw(dir.path());
        const QByteArray a = "[1]", b = "[2]", c = QByteArray("[\"\xc3\xa9\"]").repeated(30000);
        struct Step
        {
            QByteArrayList elements;
            QList<qsizetype> from;
            int newRows;
        };
        const QList<Step> steps = {
            {{a, b, c}, {0, 1, -1}, 3}, // the whole row becomes pieces
            {{a, c + "", b}, {0, 2, -1}, 1}, // b came back as new: written again
            {{b, a, c}, {2, 0, 1}, 0},       // reordered only
            {{a, c}, {2, 1}, 2},             // hints that do not hold cost writes, not bytes
            {{}, {}, 0},
        };
        QVariantList before = raw.query(QStringLiteral("SELECT id FROM pieces ORDER BY id"), {});
        for (const Step &step : steps) {
            p.setJsonArray(items, step.elements, step.from);
            const QVariantList after = raw.query(QStringLiteral("SELECT id FROM pieces ORDER BY id"), {});
            QCOMPARE(after.size(), step.elements.size());
            QCOMPARE(qsizetype(std::count_if(after.cbegin(), after.cend(), [&](const QVariant &id) {
                         return !before.contains(id);
                     })),
                     qsizetype(step.newRows));
            before = after;
            const QByteArray document = '[' + step.elements.join(',') + ']';
            QCOMPARE(p.data(items), document);
            QCOMPARE(SqlitePreferencesStore(dir.path()).data(items), document);
        }
        // Whole or in pieces it is the same data: no copy was made on the way.
        QVERIFY(raw.copies(items).isEmpty());
        p.setJsonArray(items, {c, a}, {-1, -1});
        p.keepCopy(items);
        QCOMPARE(raw.copies(items), QVariantList{QByteArray('[' + c + ',' + a + ']')});
        // Read back after a reopen, equal bytes need no write.
        const QString order = raw.query(QStringLiteral("SELECT value FROM prefs WHERE key = ?"), {items}).value(0).toString();
        SqlitePreferencesStore reopened(dir.path());
        reopened.setJsonArray(items, {c, a, b}, {0, 1, -1});
        QVERIFY(raw.query(QStringLiteral("SELECT value FROM prefs WHERE key = ?"), {items}).value(0).toString().startsWith(order + u','));
        QCOMPARE(raw.query(QStringLiteral("SELECT count(*) FROM pieces"), {}), QVariantList{3});
        reopened.setData(items, "whole");
        QCOMPARE(raw.query(QStringLiteral("SELECT count(*) FROM pieces"), {}), QVariantList{0});
        QCOMPARE(SqlitePreferencesStore(dir.path()).data(items), QByteArray("whole"));
    }
};

QTEST_GUILESS_MAIN(TestPreferences)
#include "tst_preferences.moc"
