// Opening the store with arbitrary bytes under every key, then the list
// store on top of it and one change: never a crash, every unreadable row is
// copied before it is replaced, and names and items agree afterwards.
//
// Input: for each key in turn, one byte of row type, one byte of SQL storage
// class (blob, text or integer), two bytes of length, then that many bytes;
// then the pieces of split values, each with a key byte, a length and bytes.
#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "platform/preferences/SqlitePreferencesStore.h"

#include <QCoreApplication>
#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

const QStringList keys = {PreferenceKeys::listNames,         PreferenceKeys::items,
                          PreferenceKeys::selectedListIndex, PreferenceKeys::appColorScheme,
                          PreferenceKeys::selectedThemeKey,  PreferenceKeys::installDateString,
                          PreferenceKeys::lastPromptDateString};

QString directory()
{
    // tmpfs where there is one: syncs cost nothing there.
    const QString base = QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : QDir::tempPath();
    return base + QStringLiteral("/murvane-fuzz-%1").arg(::getpid());
}

QSqlDatabase rawConnection()
{
    static const bool ready = [] {
        // A Qt application for the SQL plugin; created once for the process.
        static int argc = 1;
        static char name[] = "fuzz_store";
        static char *argv[] = {name, nullptr};
        new QCoreApplication(argc, argv);
        // Lets the store create the schema, then keeps a connection of its own.
        { SqlitePreferencesStore schema(directory()); }
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("raw"));
        db.setDatabaseName(directory() + u'/' + SqlitePreferencesStore::databaseName());
        return db.open();
    }();
    if (!ready)
        std::abort();
    return QSqlDatabase::database(QStringLiteral("raw"));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QSqlDatabase db = rawConnection();
    QSqlQuery q(db);
    q.exec(QStringLiteral("DELETE FROM prefs"));
    q.exec(QStringLiteral("DELETE FROM recovered"));
    q.exec(QStringLiteral("DELETE FROM pieces"));
    q.prepare(QStringLiteral("INSERT INTO prefs (key, type, value) VALUES (?, ?, ?)"));
    size_t at = 0;
    for (const QString &key : keys) {
        if (size - at < 4)
            break;
        const int type = data[at];
        const int storage = data[at + 1] % 3;
        const size_t length = std::min<size_t>(size - at - 4, size_t(data[at + 2]) | size_t(data[at + 3]) << 8);
        const QByteArray bytes(reinterpret_cast<const char *>(data + at + 4), qsizetype(length));
        at += 4 + length;
        q.bindValue(0, key);
        q.bindValue(1, type);
        if (storage == 0)
            q.bindValue(2, bytes.isNull() ? QByteArray("", 0) : bytes);
        else if (storage == 1)
            q.bindValue(2, QString::fromUtf8(bytes.isNull() ? QByteArray("") : bytes));
        else
            q.bindValue(2, bytes.toLongLong());
        if (!q.exec())
            std::abort();
    }
    // What is left: the pieces a row may name, ids 1, 2, ... each one byte
    // choosing its key, two of length, then its bytes.
    q.prepare(QStringLiteral("INSERT INTO pieces (id, key, value) VALUES (?, ?, ?)"));
    for (qint64 id = 1; size - at >= 3; ++id) {
        const size_t length = std::min<size_t>(size - at - 3, size_t(data[at + 1]) | size_t(data[at + 2]) << 8);
        q.bindValue(0, id);
        q.bindValue(1, keys[data[at] % keys.size()]);
        q.bindValue(2, QByteArray(reinterpret_cast<const char *>(data + at + 3), qsizetype(length)));
        at += 3 + length;
        if (!q.exec())
            std::abort();
    }
    q.finish();
    QHash<QString, QVariantList> original;
    QSqlQuery rows(db);
    rows.exec(QStringLiteral("SELECT key, type, typeof(value), 'x' || hex(value) FROM prefs "
                             "WHERE key IN ('listNames', 'items')"));
    while (rows.next())
        original.insert(rows.value(0).toString(), {rows.value(1), rows.value(2), rows.value(3)});
    rows.finish();

    bool namesRead = false;
    bool itemsRead = false;
    // A row of pieces that could all be found is copied as the document
    // they make up; any other row as it was stored.
    QHash<QString, QByteArray> joined;
    {
        // Quiet the decoder's diagnostic line.
        std::FILE *out = std::freopen("/dev/null", "w", stdout);
        (void)out;
        SqlitePreferencesStore store(directory());
        if (!store.isOpen())
            std::abort();
        // What the app can read as it is; anything else must be copied.
        for (const auto &[key, row] : original.asKeyValueRange())
            if (const auto bytes = store.data(key); bytes && row[0].toInt() == SqlitePreferencesStore::PiecesType)
                joined.insert(key, *bytes);
        const auto before = store.stringList(PreferenceKeys::listNames);
        namesRead = before.has_value();
        if (const auto bytes = store.data(PreferenceKeys::items)) {
            const auto decoded = ItemsCodec::decode(*bytes);
            const auto *lists = std::get_if<QList<ItemList>>(&decoded);
            itemsRead = lists && lists->size() <= before.value_or(ListItems::defaultListNames()).size();
        }
        ListItems lists(store);
        lists.addList();
        lists.addItem(ListItem::create(QStringLiteral("new")), 0);
        if (lists.items().size() != lists.listNames().size() || store.status().saveFailing())
            std::abort();
        const auto names = store.stringList(PreferenceKeys::listNames);
        const auto decoded = ItemsCodec::decode(store.data(PreferenceKeys::items).value_or(QByteArray()));
        const auto *stored = std::get_if<QList<ItemList>>(&decoded);
        if (!names || !stored || *stored != lists.items() || *names != lists.listNames())
            std::abort();
    }
    // Both rows were replaced: one the app could not read must be among
    // the copies exactly as it was stored.
    for (const auto &[key, row] : original.asKeyValueRange()) {
        if (key == PreferenceKeys::listNames ? namesRead : itemsRead)
            continue;
        QSqlQuery copied(db);
        copied.prepare(QStringLiteral("SELECT count(*) FROM recovered WHERE key = ? AND type IS ? "
                                      "AND typeof(value) = ? AND 'x' || hex(value) = ?"));
        const QVariantList expected = joined.contains(key)
            ? QVariantList{int(SqlitePreferencesStore::DataType), QStringLiteral("blob"),
                           QString(u'x' + QString::fromLatin1(joined[key].toHex().toUpper()))}
            : row;
        for (int i = 0; i < 4; ++i)
            copied.bindValue(i, i == 0 ? QVariant(key) : expected[i - 1]);
        if (!copied.exec() || !copied.next() || copied.value(0).toInt() == 0)
            std::abort();
    }
    return 0;
}
