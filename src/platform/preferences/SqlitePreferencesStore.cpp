#include "SqlitePreferencesStore.h"

#include <QAtomicInt>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <cmath>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int retryIntervalMs = 3000;

QString describe(const QSqlError &e)
{
    const QString text = e.databaseText().isEmpty() ? e.text() : e.databaseText();
    return text.isEmpty() ? QStringLiteral("database error") : text;
}

bool exec(QSqlDatabase &db, const QString &sql, QString &error)
{
    QSqlQuery q(db);
    if (q.exec(sql))
        return true;
    error = describe(q.lastError());
    return false;
}

// The connection's own SQLite handle, for what Qt SQL has no call for.
sqlite3 *handleOf(const QSqlDatabase &db)
{
    const QVariant handle = db.driver() ? db.driver()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3 *const *>(handle.constData());
}

// Fills the blob of row `rowid`, inserted as zeroblob(bytes.size()), in
// place. Bound as a parameter instead, a large document would be copied
// whole into a record before it reaches the pages.
bool fillBlob(sqlite3 *handle, const char *table, qint64 rowid, const QByteArray &bytes, QString &error)
{
    if (bytes.isEmpty())
        return true;
    sqlite3_blob *blob = nullptr;
    int rc = sqlite3_blob_open(handle, "main", table, "value", rowid, 1, &blob);
    if (rc == SQLITE_OK)
        rc = sqlite3_blob_write(blob, bytes.constData(), int(bytes.size()), 0);
    const int closed = sqlite3_blob_close(blob);
    if (rc == SQLITE_OK)
        rc = closed;
    if (rc != SQLITE_OK) {
        error = QString::fromUtf8(sqlite3_errmsg(handle));
        return false;
    }
    return true;
}

// Creates the file if needed and narrows an existing one to its owner.
void makePrivateFile(const QString &path, bool create)
{
    const QByteArray p = QFile::encodeName(path);
    if (create) {
        const int fd = ::open(p.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (fd >= 0)
            ::close(fd);
    }
    ::chmod(p.constData(), 0600);
}

QByteArray encodeStringList(const QStringList &list)
{
    return QJsonDocument(QJsonArray::fromStringList(list)).toJson(QJsonDocument::Compact);
}

// The decoded value of a row, or an invalid QVariant when its bytes do not
// hold what its type says.
QVariant decodeRow(int type, const QString &sqlType, const QVariant &value)
{
    switch (type) {
    case SqlitePreferencesStore::StringListType: {
        if (sqlType != u"text")
            return {};
        QJsonParseError error;
        const QJsonDocument doc = QJsonDocument::fromJson(value.toString().toUtf8(), &error);
        if (error.error != QJsonParseError::NoError || !doc.isArray())
            return {};
        QStringList list;
        for (const QJsonValue &e : doc.array()) {
            if (!e.isString())
                return {};
            list.append(e.toString());
        }
        return QVariant::fromValue(list);
    }
    case SqlitePreferencesStore::DataType:
        if (sqlType != u"blob")
            return {};
        return QVariant::fromValue(value.toByteArray());
    case SqlitePreferencesStore::IntegerType:
        if (sqlType != u"integer")
            return {};
        return QVariant::fromValue(value.toLongLong());
    case SqlitePreferencesStore::StringType:
        if (sqlType != u"text")
            return {};
        return QVariant::fromValue(value.toString());
    default:
        return {};
    }
}

// The row type and bound value of a value the app writes. Qt binds null
// strings and byte arrays as SQL NULL; empty ones keep their type.
std::pair<int, QVariant> encodeValue(const QVariant &v)
{
    switch (v.typeId()) {
    case QMetaType::QStringList:
        return {SqlitePreferencesStore::StringListType, QString::fromUtf8(encodeStringList(v.toStringList()))};
    case QMetaType::QByteArray: {
        const QByteArray bytes = v.toByteArray();
        return {SqlitePreferencesStore::DataType, bytes.isNull() ? QByteArray("", 0) : bytes};
    }
    case QMetaType::LongLong:
        return {SqlitePreferencesStore::IntegerType, v};
    default: {
        const QString s = v.toString();
        return {SqlitePreferencesStore::StringType, s.isNull() ? QStringLiteral("") : s};
    }
    }
}

QString idsText(const QList<qint64> &ids)
{
    QStringList parts;
    parts.reserve(ids.size());
    for (qint64 id : ids)
        parts.append(QString::number(id));
    // Never null: Qt would bind that as SQL NULL, not as empty text.
    return ids.isEmpty() ? QStringLiteral("") : parts.join(u',');
}

std::optional<QList<qint64>> parseIds(const QString &text)
{
    QList<qint64> ids;
    if (text.isEmpty())
        return ids;
    for (const QStringView part : QStringView(text).split(u',')) {
        bool ok = false;
        ids.append(part.toLongLong(&ok));
        if (!ok)
            return std::nullopt;
    }
    return ids;
}

QString displayPath(const QString &path)
{
    const QString home = QDir::homePath();
    if (!home.isEmpty() && home != u"/" && path.startsWith(home + u'/'))
        return u'~' + path.mid(home.size());
    return path;
}

} // namespace

SqlitePreferencesStore::SqlitePreferencesStore(const QString &directory)
    : m_dir(QDir::cleanPath(directory))
{
    static QAtomicInt serial;
    m_connection = QStringLiteral("murvane-prefs-%1").arg(serial.fetchAndAddRelaxed(1));
    m_retry.setSingleShot(true);
    m_retry.setInterval(retryIntervalMs);
    QObject::connect(&m_retry, &QTimer::timeout, [this] { retrySave(); });

    QString error;
    if (open(error)) {
        importOldFiles();
        load();
    } else {
        // Nothing to read; whatever the app writes waits in memory, the
        // notice says so, and each commit tries to open again.
        status().setSaveError(error);
    }
}

SqlitePreferencesStore::~SqlitePreferencesStore()
{
    if (m_open) {
        QSqlDatabase::database(m_connection, false).close();
    }
    QSqlDatabase::removeDatabase(m_connection);
}

QString SqlitePreferencesStore::defaultDirectory()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString SqlitePreferencesStore::databasePath() const
{
    return m_dir + u'/' + databaseName();
}

bool SqlitePreferencesStore::open(QString &error)
{
    if (!QDir().mkpath(m_dir)) {
        error = QStringLiteral("cannot create %1").arg(displayPath(m_dir));
        return false;
    }
    ::chmod(QFile::encodeName(m_dir).constData(), 0700);
    // SQLite gives its -wal and -shm files the database file's mode.
    makePrivateFile(databasePath(), true);
    for (const char *suffix : {"-wal", "-shm"}) {
        if (QFile::exists(databasePath() + QLatin1String(suffix)))
            makePrivateFile(databasePath() + QLatin1String(suffix), false);
    }

    QSqlDatabase db = QSqlDatabase::contains(m_connection) ? QSqlDatabase::database(m_connection, false)
                                                           : QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    if (!db.isValid()) {
        error = QStringLiteral("the SQLite driver is missing");
        return false;
    }
    db.setDatabaseName(databasePath());
    if (!db.open()) {
        error = describe(db.lastError());
        return false;
    }
    // Large pages keep the item document's chain of overflow pages short
    // (only takes effect on a new database). WAL with full syncs: a commit
    // is on disk when it returns, and a crash at any point leaves the last
    // committed state. The log is checkpointed at about 64 MB, so a large
    // document is not copied a second time on every save.
    if (!exec(db, QStringLiteral("PRAGMA page_size=65536"), error)
        || !exec(db, QStringLiteral("PRAGMA journal_mode=WAL"), error)
        || !exec(db, QStringLiteral("PRAGMA synchronous=FULL"), error)
        || !exec(db, QStringLiteral("PRAGMA wal_autocheckpoint=1000"), error)
        || !exec(db, QStringLiteral("PRAGMA journal_size_limit=67108864"), error)
        || !exec(db, QStringLiteral("PRAGMA cache_size=-32768"), error) || !createSchema(error)) {
        db.close();
        return false;
    }
    m_open = true;
    return true;
}

bool SqlitePreferencesStore::createSchema(QString &error)
{
    QSqlDatabase db = QSqlDatabase::database(m_connection, false);
    return exec(db,
                QStringLiteral("CREATE TABLE IF NOT EXISTS prefs (key TEXT PRIMARY KEY NOT NULL, "
                               "type INTEGER NOT NULL, value)"),
                error)
        && exec(db,
                QStringLiteral("CREATE TABLE IF NOT EXISTS recovered (id INTEGER PRIMARY KEY, at TEXT NOT NULL, "
                               "key TEXT NOT NULL, type INTEGER, value)"),
                error)
        && exec(db, QStringLiteral("CREATE TABLE IF NOT EXISTS meta (key TEXT PRIMARY KEY NOT NULL, value)"), error)
        && exec(db,
                QStringLiteral("CREATE TABLE IF NOT EXISTS pieces (id INTEGER PRIMARY KEY AUTOINCREMENT, "
                               "key TEXT NOT NULL, value BLOB NOT NULL)"),
                error);
}

void SqlitePreferencesStore::load()
{
    QSqlDatabase db = QSqlDatabase::database(m_connection, false);
    m_values.clear();
    m_types.clear();
    m_unreadable.clear();
    m_pieceIds.clear();
    QHash<qint64, QByteArray> pieces;
    QSqlQuery p(db);
    p.setForwardOnly(true);
    if (p.exec(QStringLiteral("SELECT id, value FROM pieces WHERE typeof(value) = 'blob'"))) {
        while (p.next())
            pieces.insert(p.value(0).toLongLong(), p.value(1).toByteArray());
    }
    p.finish();
    QSqlQuery q(db);
    q.setForwardOnly(true);
    if (!q.exec(QStringLiteral("SELECT key, type, typeof(value), value FROM prefs")))
        return;
    while (q.next()) {
        const QString key = q.value(0).toString();
        const int type = q.value(1).toInt();
        m_types.insert(key, type);
        QVariant value;
        if (type == PiecesType) {
            // Readable when every element it names is there.
            const auto ids = q.value(2).toString() == u"text" ? parseIds(q.value(3).toString()) : std::nullopt;
            JsonArray array;
            for (qsizetype i = 0; ids && i < ids->size(); ++i) {
                const auto piece = pieces.constFind(ids->at(i));
                if (piece == pieces.cend())
                    break;
                array.elements.append(*piece);
            }
            if (ids && array.elements.size() == ids->size()) {
                value = QVariant::fromValue(array);
                m_pieceIds.insert(key, *ids);
            }
        } else {
            value = decodeRow(type, q.value(2).toString(), q.value(3));
        }
        if (value.isValid())
            m_values.insert(key, value);
        else
            m_unreadable.insert(key);
    }
    // Unreadable rows read as absent, so the app will write defaults over
    // them: keep their bytes first.
    for (const QString &key : std::as_const(m_unreadable))
        keepCopy(key);
}

std::optional<QByteArray> SqlitePreferencesStore::storedPieces(const QString &key, QString &error) const
{
    QSqlDatabase db = QSqlDatabase::database(m_connection, false);
    QSqlQuery row(db);
    row.prepare(QStringLiteral("SELECT typeof(value), value FROM prefs WHERE key = ?"));
    row.addBindValue(key);
    if (!row.exec()) {
        error = describe(row.lastError());
        return std::nullopt;
    }
    const auto ids = row.next() && row.value(0).toString() == u"text" ? parseIds(row.value(1).toString())
                                                                       : std::nullopt;
    if (!ids)
        return QByteArray();
    // What can be found of a damaged list is kept all the same.
    QByteArrayList elements;
    QSqlQuery piece(db);
    piece.prepare(QStringLiteral("SELECT value FROM pieces WHERE id = ?"));
    for (qint64 id : *ids) {
        piece.bindValue(0, id);
        if (!piece.exec()) {
            error = describe(piece.lastError());
            return std::nullopt;
        }
        if (piece.next())
            elements.append(piece.value(0).toByteArray());
    }
    return joined(elements);
}

bool SqlitePreferencesStore::copyRow(const QString &key, QString &error)
{
    QSqlDatabase db = QSqlDatabase::database(m_connection, false);
    const auto pieces = m_types.value(key) == PiecesType ? storedPieces(key, error) : QByteArray();
    if (!pieces)
        return false;
    if (!pieces->isNull()) {
        // Copied as the document it reads as, so a copy is one value.
        const QByteArray &bytes = *pieces;
        QSqlQuery last(db);
        last.prepare(QStringLiteral("SELECT type, typeof(value), value FROM recovered WHERE key = ? "
                                    "ORDER BY id DESC LIMIT 1"));
        last.addBindValue(key);
        if (!last.exec()) {
            error = describe(last.lastError());
            return false;
        }
        if (!(last.next() && last.value(0).toInt() == DataType && last.value(1).toString() == u"blob"
              && last.value(2).toByteArray() == bytes)) {
            QSqlQuery q(db);
            q.prepare(QStringLiteral("INSERT INTO recovered (at, key, type, value) VALUES (?, ?, ?, ?)"));
            q.addBindValue(QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs));
            q.addBindValue(key);
            q.addBindValue(int(DataType));
            q.addBindValue(bytes);
            if (!q.exec()) {
                error = describe(q.lastError());
                return false;
            }
        }
        // A row that names pieces it has lost is kept too, as it stands.
        if (m_pieceIds.contains(key))
            return true;
    }
    // The same bytes as the latest copy need no second copy.
    QSqlQuery same(db);
    same.prepare(QStringLiteral(
        "SELECT 1 FROM prefs p, (SELECT type, value FROM recovered WHERE key = :k ORDER BY id DESC LIMIT 1) r "
        "WHERE p.key = :k AND p.type IS r.type AND typeof(p.value) = typeof(r.value) "
        "AND CAST(p.value AS BLOB) = CAST(r.value AS BLOB)"));
    same.bindValue(QStringLiteral(":k"), key);
    if (!same.exec()) {
        error = describe(same.lastError());
        return false;
    }
    if (same.next())
        return true;
    QSqlQuery q(db);
    q.prepare(QStringLiteral("INSERT INTO recovered (at, key, type, value) "
                             "SELECT :at, key, type, value FROM prefs WHERE key = :k"));
    q.bindValue(QStringLiteral(":at"), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs));
    q.bindValue(QStringLiteral(":k"), key);
    if (!q.exec()) {
        error = describe(q.lastError());
        return false;
    }
    return true;
}

void SqlitePreferencesStore::keepCopy(const QString &key)
{
    if (!m_open || !m_types.contains(key))
        return;
    QString error;
    if (!copyRow(key, error)) {
        // Then the write that replaces it makes the copy in its own
        // transaction, or fails and shows.
        m_unreadable.insert(key);
        return;
    }
    status().noteRecovered(recoveredPlace());
}

QString SqlitePreferencesStore::recoveredPlace() const
{
    return QStringLiteral("the table \u201crecovered\u201d of %1").arg(displayPath(databasePath()));
}

bool SqlitePreferencesStore::writeChanges(const Changes &changes, QString &error)
{
    // Opened only now: the app never saw what the disk holds, so every row
    // it is about to replace is copied first.
    const bool unseen = !m_open;
    if (!m_open) {
        if (!open(error))
            return false;
        importOldFiles();
        load();
    }
    QSqlDatabase db = QSqlDatabase::database(m_connection, false);
    if (!exec(db, QStringLiteral("BEGIN IMMEDIATE"), error))
        return false;
    bool ok = true;
    sqlite3 *handle = handleOf(db);
    QSqlQuery put(db);
    QSqlQuery putBlob(db);
    QSqlQuery del(db);
    QSqlQuery delPieces(db);
    put.prepare(QStringLiteral("INSERT OR REPLACE INTO prefs (key, type, value) VALUES (?, ?, ?)"));
    if (handle)
        putBlob.prepare(QStringLiteral("INSERT OR REPLACE INTO prefs (key, type, value) VALUES (?, ?, zeroblob(?))"));
    del.prepare(QStringLiteral("DELETE FROM prefs WHERE key = ?"));
    delPieces.prepare(QStringLiteral("DELETE FROM pieces WHERE key = ?"));
    auto run = [&](QSqlQuery &q) {
        ok = ok && q.exec();
        if (!ok && error.isEmpty())
            error = describe(q.lastError());
    };
    QHash<QString, int> newTypes;
    QHash<QString, QList<qint64>> newPieceIds;
    bool copied = false;
    for (auto it = changes.cbegin(); ok && it != changes.cend(); ++it) {
        const QString &key = it.key();
        const auto oldType = m_types.constFind(key);
        const bool hadPieces = oldType != m_types.cend() && *oldType == PiecesType;
        const bool pieces = isJsonArray(*it);
        const auto [plainType, bound] = it->isValid() && !pieces ? encodeValue(*it) : std::pair<int, QVariant>();
        const int type = pieces ? int(PiecesType) : plainType;
        // A value of another type, or one that could not be read, goes to
        // the recovered copies before it is replaced. Data kept whole or as
        // pieces is the same type.
        const bool sameType = oldType != m_types.cend()
            && (*oldType == type || (type == DataType && hadPieces) || (type == PiecesType && *oldType == DataType));
        if (oldType != m_types.cend() && (unseen || m_unreadable.contains(key) || (type != 0 && !sameType))) {
            ok = copyRow(key, error);
            copied = true;
        }
        // Pieces a readable list did not name, or that a plain value replaces.
        if (hadPieces && (!pieces || !m_pieceIds.contains(key))) {
            delPieces.bindValue(0, key);
            run(delPieces);
        }
        if (!it->isValid()) {
            del.bindValue(0, key);
            run(del);
            continue;
        }
        if (pieces) {
            QList<qint64> ids;
            ok = ok && writePieces(key, it->value<JsonArray>(), ids, error);
            put.bindValue(0, key);
            put.bindValue(1, type);
            put.bindValue(2, idsText(ids));
            run(put);
            newPieceIds.insert(key, ids);
        } else if (type == DataType && handle) {
            const QByteArray bytes = bound.toByteArray();
            putBlob.bindValue(0, key);
            putBlob.bindValue(1, type);
            putBlob.bindValue(2, qint64(bytes.size()));
            run(putBlob);
            ok = ok && fillBlob(handle, "prefs", putBlob.lastInsertId().toLongLong(), bytes, error);
        } else {
            put.bindValue(0, key);
            put.bindValue(1, type);
            put.bindValue(2, bound);
            run(put);
        }
        newTypes.insert(key, type);
    }
    put.finish();
    putBlob.finish();
    del.finish();
    delPieces.finish();
    if (ok)
        ok = exec(db, QStringLiteral("COMMIT"), error);
    if (!ok) {
        QString ignored;
        exec(db, QStringLiteral("ROLLBACK"), ignored);
        return false;
    }
    for (auto it = changes.cbegin(); it != changes.cend(); ++it) {
        m_unreadable.remove(it.key());
        m_pieceIds.remove(it.key());
        if (it->isValid()) {
            // Hints are for one write only.
            m_values.insert(it.key(),
                            isJsonArray(*it) ? QVariant::fromValue(JsonArray{it->value<JsonArray>().elements, {}}) : *it);
            m_types.insert(it.key(), newTypes.value(it.key()));
            if (newPieceIds.contains(it.key()))
                m_pieceIds.insert(it.key(), newPieceIds.value(it.key()));
        } else {
            m_values.remove(it.key());
            m_types.remove(it.key());
        }
    }
    m_retry.stop();
    if (copied)
        status().noteRecovered(recoveredPlace());
    return true;
}

// Writes the elements of `value` that the stored ones do not already hold,
// each as a row of its own, and drops the stored ones it no longer names.
bool SqlitePreferencesStore::writePieces(const QString &key, const JsonArray &value, QList<qint64> &ids,
                                         QString &error)
{
    QSqlDatabase db = QSqlDatabase::database(m_connection, false);
    const QList<qint64> oldIds = m_pieceIds.value(key);
    const QVariant old = oldIds.isEmpty() ? QVariant() : m_values.value(key);
    const QList<qsizetype> reused = kept(isJsonArray(old) ? old.value<JsonArray>().elements : QByteArrayList(), value);

    // Dropped first, so that the new rows can take their pages.
    QList<bool> keep(oldIds.size(), false);
    for (qsizetype r : reused) {
        if (r >= 0)
            keep[r] = true;
    }
    QSqlQuery drop(db);
    drop.prepare(QStringLiteral("DELETE FROM pieces WHERE id = ?"));
    for (qsizetype j = 0; j < oldIds.size(); ++j) {
        if (keep[j])
            continue;
        drop.bindValue(0, oldIds[j]);
        if (!drop.exec()) {
            error = describe(drop.lastError());
            return false;
        }
    }

    sqlite3 *handle = handleOf(db);
    QSqlQuery insert(db);
    insert.prepare(handle ? QStringLiteral("INSERT INTO pieces (key, value) VALUES (?, zeroblob(?))")
                          : QStringLiteral("INSERT INTO pieces (key, value) VALUES (?, ?)"));
    ids.clear();
    ids.reserve(value.elements.size());
    for (qsizetype i = 0; i < value.elements.size(); ++i) {
        if (reused[i] >= 0) {
            ids.append(oldIds[reused[i]]);
            continue;
        }
        const QByteArray &bytes = value.elements[i];
        insert.bindValue(0, key);
        if (handle)
            insert.bindValue(1, qint64(bytes.size()));
        else
            insert.bindValue(1, bytes.isNull() ? QByteArray("", 0) : bytes);
        if (!insert.exec()) {
            error = describe(insert.lastError());
            return false;
        }
        const qint64 id = insert.lastInsertId().toLongLong();
        if (handle && !fillBlob(handle, "pieces", id, bytes, error))
            return false;
        ids.append(id);
    }
    return true;
}

void SqlitePreferencesStore::saveFailed()
{
    m_retry.start();
}

// ---- the files of earlier versions ---------------------------------------

// Earlier versions kept preferences.json (a JSON object of typed values) and
// items.bin (the raw item document). They are imported once, in one
// transaction, then renamed with ".migrated" so that nothing is lost and
// nothing is imported twice.
void SqlitePreferencesStore::importOldFiles()
{
    const QString jsonPath = m_dir + QStringLiteral("/preferences.json");
    const QString binPath = m_dir + QStringLiteral("/items.bin");
    if (!QFile::exists(jsonPath) && !QFile::exists(binPath))
        return;
    QSqlDatabase db = QSqlDatabase::database(m_connection, false);
    QSqlQuery done(db);
    if (!done.exec(QStringLiteral("SELECT 1 FROM meta WHERE key = 'importedOldFiles'")))
        return;
    const bool imported = done.next();
    done.finish();

    if (!imported) {
        // A file that is there but cannot be read now is left for a later
        // start rather than passed over.
        for (const QString &path : {jsonPath, binPath}) {
            QFile file(path);
            if (file.exists() && !file.open(QIODevice::ReadOnly))
                return;
        }
        QString error;
        if (!exec(db, QStringLiteral("BEGIN IMMEDIATE"), error))
            return;
        const QString at = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs);
        auto put = [&](const QString &table, const QString &key, int type, const QVariant &value) {
            QSqlQuery q(db);
            q.prepare(table == u"prefs" ? QStringLiteral("INSERT OR REPLACE INTO prefs (key, type, value) VALUES (?, ?, ?)")
                                        : QStringLiteral("INSERT INTO recovered (key, type, value, at) VALUES (?, ?, ?, ?)"));
            q.addBindValue(key);
            q.addBindValue(type);
            q.addBindValue(value);
            if (table != u"prefs")
                q.addBindValue(at);
            return q.exec();
        };
        bool ok = true;
        bool recovered = false;
        QFile json(jsonPath);
        if (json.open(QIODevice::ReadOnly)) {
            const QByteArray bytes = json.readAll();
            const QJsonDocument doc = QJsonDocument::fromJson(bytes);
            if (doc.isObject()) {
                const QJsonObject object = doc.object();
                for (auto it = object.begin(); ok && it != object.end(); ++it) {
                    const QJsonValue v = it.value();
                    const double d = v.toDouble();
                    if (v.isString())
                        ok = put(QStringLiteral("prefs"), it.key(), StringType, v.toString());
                    else if (v.isDouble() && std::isfinite(d) && std::floor(d) == d && std::fabs(d) < 9.0e15)
                        ok = put(QStringLiteral("prefs"), it.key(), IntegerType, qint64(d));
                    else if (v.isArray())
                        // Kept as written; an entry that is not a string makes
                        // it unreadable, and it is then copied like any other.
                        ok = put(QStringLiteral("prefs"), it.key(), StringListType,
                                 QString::fromUtf8(QJsonDocument(v.toArray()).toJson(QJsonDocument::Compact)));
                    else {
                        ok = put(QStringLiteral("recovered"), it.key(), 0,
                                 QJsonDocument(QJsonArray{v}).toJson(QJsonDocument::Compact));
                        recovered = true;
                    }
                }
            } else {
                ok = put(QStringLiteral("recovered"), QStringLiteral("preferences.json"), 0, bytes);
                recovered = true;
            }
        }
        QFile bin(binPath);
        if (ok && bin.open(QIODevice::ReadOnly)) {
            QByteArray bytes = bin.readAll();
            ok = put(QStringLiteral("prefs"), PreferenceKeys::items, DataType, bytes.isNull() ? QByteArray("", 0) : bytes);
        }
        QSqlQuery mark(db);
        mark.prepare(QStringLiteral("INSERT INTO meta (key, value) VALUES ('importedOldFiles', ?)"));
        mark.addBindValue(at);
        ok = ok && mark.exec();
        mark.finish();
        if (!ok || !exec(db, QStringLiteral("COMMIT"), error)) {
            exec(db, QStringLiteral("ROLLBACK"), error);
            return;
        }
        if (recovered)
            status().noteRecovered(recoveredPlace());
    }
    for (const QString &path : {jsonPath, binPath}) {
        if (QFile::exists(path) && !QFile::exists(path + QStringLiteral(".migrated"))
            && QFile::rename(path, path + QStringLiteral(".migrated")))
            makePrivateFile(path + QStringLiteral(".migrated"), false);
    }
    // Half-written temporaries of the old atomic saves.
    const QStringList leftovers = QDir(m_dir).entryList({QStringLiteral("items.bin.??????"),
                                                         QStringLiteral("preferences.json.??????")},
                                                        QDir::Files);
    for (const QString &name : leftovers) {
        if (!name.endsWith(QStringLiteral(".migrated")))
            QFile::remove(m_dir + u'/' + name);
    }
}
