#include "MemoryPreferencesStore.h"

void MemoryPreferencesStore::setRawValue(const QString &key, const QVariant &value)
{
    m_values.insert(key, value);
    ++m_writes;
    m_writtenKeys.append(key);
}
