#pragma once

#include "PreferencesStore.h"

#include <QHash>
#include <QSet>
#include <QTimer>

// The app's preferences in one SQLite database (Qt SQL, QSQLITE driver):
//   prefs(key, type, value)         one typed row per key
//   pieces(id, key, value)          the elements of a value set as a JSON
//                                   array, one row each; its prefs row
//                                   lists their ids in order, so a change
//                                   rewrites only the elements it touched
//                                   (ids are never reused)
//   recovered(id, at, key, type, value)  copies of values that could not be
//                                   read, kept before anything replaced them
// Every commit is one SQLite transaction in WAL mode with full syncs, so a
// crash or power cut leaves all of a commit's keys old or all new. The
// folder is 0700 and the database files 0600, whatever the umask.
//
// A commit that fails (read-only folder, full disk) keeps its values in
// memory, shows in status() and is retried every few seconds and with each
// later commit, so the screen never silently differs from the disk.
class SqlitePreferencesStore : public PreferencesStore
{
public:
    explicit SqlitePreferencesStore(const QString &directory);
    ~SqlitePreferencesStore() override;

    // Where the app keeps its data: the platform's per-user data folder.
    static QString defaultDirectory();
    static QString databaseName() { return QStringLiteral("murvane.sqlite"); }

    QString directory() const { return m_dir; }
    QString databasePath() const;
    bool isOpen() const { return m_open; }
    void keepCopy(const QString &key) override;

    // The stored row types.
    enum Type { StringListType = 1, DataType = 2, IntegerType = 3, StringType = 4, PiecesType = 5 };

protected:
    QVariant storedValue(const QString &key) const override { return m_values.value(key); }
    bool writeChanges(const Changes &changes, QString &error) override;
    void saveFailed() override;

private:
    bool open(QString &error);
    bool createSchema(QString &error);
    void load();
    void importOldFiles();
    bool copyRow(const QString &key, QString &error);
    bool writePieces(const QString &key, const JsonArray &value, QList<qint64> &ids, QString &error);
    // The document a PiecesType row reads as; null when its list of pieces
    // is unreadable, nullopt when the database fails.
    std::optional<QByteArray> storedPieces(const QString &key, QString &error) const;
    QString recoveredPlace() const;

    QString m_dir;
    QString m_connection;
    bool m_open = false;
    QHash<QString, QVariant> m_values; // every readable row, decoded
    QHash<QString, int> m_types;       // the stored type of every row
    QHash<QString, QList<qint64>> m_pieceIds; // of each readable PiecesType row
    QSet<QString> m_unreadable;        // rows whose bytes do not decode
    QTimer m_retry;
};
