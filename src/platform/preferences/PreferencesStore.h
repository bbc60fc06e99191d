#pragma once

#include "StoreStatus.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

// Typed key-value store for everything the app keeps on the device.
// Reads tell "absent" apart from "present but empty"; a value of the wrong
// type reads as absent, so callers fall back to their default.
//
// Writes are grouped in transactions: everything written between the first
// beginChanges() and its matching commitChanges() reaches the disk together
// or not at all. A write outside a transaction is a transaction of its own.
// When a commit fails, the changes stay readable here, status() says so,
// and they go out again with the next commit or retrySave().
class PreferencesStore
{
public:
    // Groups the writes of its lifetime into one commit.
    class Transaction
    {
    public:
        explicit Transaction(PreferencesStore &store)
            : m_store(store)
        {
            m_store.beginChanges();
        }
        ~Transaction()
        {
            if (!m_finished)
                m_store.commitChanges();
        }
        Transaction(const Transaction &) = delete;
        Transaction &operator=(const Transaction &) = delete;
        bool commit()
        {
            m_finished = true;
            return m_store.commitChanges();
        }

    private:
        PreferencesStore &m_store;
        bool m_finished = false;
    };

    PreferencesStore();
    virtual ~PreferencesStore();
    PreferencesStore(const PreferencesStore &) = delete;
    PreferencesStore &operator=(const PreferencesStore &) = delete;

    std::optional<QStringList> stringList(const QString &key) const;
    std::optional<QByteArray> data(const QString &key) const;
    std::optional<qint64> integer(const QString &key) const;
    std::optional<QString> string(const QString &key) const;

    void setStringList(const QString &key, const QStringList &value);
    void setData(const QString &key, const QByteArray &value);
    void setInteger(const QString &key, qint64 value);
    void setString(const QString &key, const QString &value);

    // A data value that is a JSON array, given as its elements, each already
    // encoded: data(key) then reads "[e0,e1,...]". A store may keep the
    // elements apart and write only those that changed. from[i] is the
    // position element i had in the value as last written, or -1 when it is
    // new or changed; a position whose bytes differ only costs a write.
    struct JsonArray
    {
        QByteArrayList elements;
        QList<qsizetype> from;
    };
    void setJsonArray(const QString &key, const QByteArrayList &elements, const QList<qsizetype> &from);

    bool contains(const QString &key) const { return rawValue(key).isValid(); }
    void remove(const QString &key);

    // Nestable; only the outermost commit writes. False when the writes
    // could not be saved (they are kept and retried).
    void beginChanges();
    bool commitChanges();
    bool hasUnsavedChanges() const { return m_depth == 0 && !m_pending.isEmpty(); }
    bool retrySave();

    // Keeps the stored value of `key`, exactly as stored, in a place of its
    // own before the app replaces a value it could not read. Copies add up;
    // the same bytes twice in a row are kept once.
    virtual void keepCopy(const QString &key) = 0;

    StoreStatus &status() { return m_status; }

protected:
    // key -> new value; an invalid QVariant removes the key.
    using Changes = QHash<QString, QVariant>;

    virtual QVariant storedValue(const QString &key) const = 0;
    // Writes all changes at once or none; on failure says why in `error`.
    virtual bool writeChanges(const Changes &changes, QString &error) = 0;
    // Called after a failed commit; a store may schedule retrySave().
    virtual void saveFailed() {}

    QVariant rawValue(const QString &key) const;
    void setRawValue(const QString &key, const QVariant &value);

    static bool isJsonArray(const QVariant &v) { return v.metaType() == QMetaType::fromType<JsonArray>(); }
    static QByteArray joined(const QByteArrayList &elements);
    // For each element of `next`, the position in `previous` of the element
    // it keeps (its hint, checked byte for byte), or -1 when it must be written.
    static QList<qsizetype> kept(const QByteArrayList &previous, const JsonArray &next);

private:
    StoreStatus m_status;
    int m_depth = 0;
    // Changes of the open transaction, plus any that failed to save.
    Changes m_pending;
};

// The keys the app persists, with their defaults.
namespace PreferenceKeys {
inline const QString listNames = QStringLiteral("listNames");
inline const QString items = QStringLiteral("items");
inline const QString selectedListIndex = QStringLiteral("selectedListIndex");
inline const QString appColorScheme = QStringLiteral("appColorScheme");
inline const QString selectedThemeKey = QStringLiteral("selectedThemeKey");
inline const QString installDateString = QStringLiteral("installDateString");
inline const QString lastPromptDateString = QStringLiteral("lastPromptDateString");

inline constexpr qint64 defaultSelectedListIndex = 0;
inline const QString defaultAppColorScheme = QStringLiteral("light");
inline const QString defaultSelectedThemeKey = QStringLiteral("green");
inline const QString defaultDateString = QString();
} // namespace PreferenceKeys
