#include "MemoryPreferencesStore.h"

#include <algorithm>

void MemoryPreferencesStore::keepCopy(const QString &key)
{
    const auto it = m_values.constFind(key);
    if (it == m_values.constEnd())
        return;
    const auto last = std::find_if(m_copies.crbegin(), m_copies.crend(), [&](const auto &c) { return c.first == key; });
    if (last == m_copies.crend() || last->second != *it)
        m_copies.append({key, *it});
    status().noteRecovered(QStringLiteral("memory"));
}

bool MemoryPreferencesStore::writeChanges(const Changes &changes, QString &error)
{
    if (m_failWrites) {
        error = QStringLiteral("disk full");
        return false;
    }
    QStringList keys = changes.keys();
    keys.sort(); // a stable log whatever the hash order
    for (const QString &key : keys) {
        const QVariant &v = changes[key];
        if (v.isValid())
            m_values.insert(key, v);
        else
            m_values.remove(key);
        m_writtenKeys.append(key);
    }
    ++m_commits;
    return true;
}
