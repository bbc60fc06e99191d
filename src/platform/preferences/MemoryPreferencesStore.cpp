#include "MemoryPreferencesStore.h"

#include <algorithm>

void MemoryPreferencesStore::keepCopy(const QString &key)
{
    const auto it = m_values.constFind(key);
    if (it == m_values.constEnd())
        return;
    // A value kept as elements is copied as the document it reads as.
    const QVariant value = isJsonArray(*it) ? QVariant(joined(it->value<JsonArray>().elements)) : *it;
    const auto last = std::find_if(m_copies.crbegin(), m_copies.crend(), [&](const auto &c) { return c.first == key; });
    if (last == m_copies.crend() || last->second != value)
        m_copies.append({key, value});
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
        if (isJsonArray(v)) {
            const QVariant old = m_values.value(key);
            const QList<qsizetype> reused =
                kept(isJsonArray(old) ? old.value<JsonArray>().elements : QByteArrayList(), v.value<JsonArray>());
            for (qsizetype i = 0; i < reused.size(); ++i) {
                if (reused[i] < 0)
                    m_writtenElements.append(i);
            }
        }
        if (v.isValid())
            m_values.insert(key, v);
        else
            m_values.remove(key);
        m_writtenKeys.append(key);
    }
    ++m_commits;
    return true;
}
