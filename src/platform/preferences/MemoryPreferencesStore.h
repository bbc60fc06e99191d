#pragma once

#include "PreferencesStore.h"

#include <QHash>

// Keeps values in memory only; for tests and as the fallback standard store.
class MemoryPreferencesStore : public PreferencesStore
{
public:
    void remove(const QString &key) override { m_values.remove(key); }
    // Stores a value of any type, so tests can plant wrongly typed entries.
    void setRawForTest(const QString &key, const QVariant &value) { m_values.insert(key, value); }
    int writeCount() const { return m_writes; }
    QStringList writtenKeys() const { return m_writtenKeys; }
    void resetWriteLog()
    {
        m_writes = 0;
        m_writtenKeys.clear();
    }

protected:
    QVariant rawValue(const QString &key) const override { return m_values.value(key); }
    void setRawValue(const QString &key, const QVariant &value) override;

private:
    QHash<QString, QVariant> m_values;
    int m_writes = 0;
    QStringList m_writtenKeys;
};
