#pragma once

#include "PreferencesStore.h"

#include <QHash>
#include <QList>
#include <utility>

// Keeps values in memory only; for tests and as the fallback standard store.
class MemoryPreferencesStore : public PreferencesStore
{
public:
    void keepCopy(const QString &key) override;

    // Stores a value of any type, so tests can plant wrongly typed entries.
    void setRawForTest(const QString &key, const QVariant &value) { m_values.insert(key, value); }
    // While set, every commit fails as a full disk would.
    void setFailWrites(bool fail) { m_failWrites = fail; }
    // Successful commits, and the keys they wrote (one entry per key).
    int commitCount() const { return m_commits; }
    int writeCount() const { return int(m_writtenKeys.size()); }
    QStringList writtenKeys() const { return m_writtenKeys; }
    // Of the values set as JSON arrays: the positions of the elements that
    // had to be written, in commit order.
    QList<qsizetype> writtenElements() const { return m_writtenElements; }
    void resetWriteLog()
    {
        m_commits = 0;
        m_writtenKeys.clear();
        m_writtenElements.clear();
    }
    const QList<std::pair<QString, QVariant>> &copies() const { return m_copies; }

protected:
    QVariant storedValue(const QString &key) const override { return m_values.value(key); }
    bool writeChanges(const Changes &changes, QString &error) override;

private:
    QHash<QString, QVariant> m_values;
    QStringList m_writtenKeys;
    QList<qsizetype> m_writtenElements;
    QList<std::pair<QString, QVariant>> m_copies;
    int m_commits = 0;
    bool m_failWrites = false;
};
