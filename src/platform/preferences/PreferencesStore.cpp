#include "PreferencesStore.h"

#include "MemoryPreferencesStore.h"

PreferencesStore::PreferencesStore() = default;
PreferencesStore::~PreferencesStore() = default;

std::optional<QStringList> PreferencesStore::stringList(const QString &key) const
{
    const QVariant v = rawValue(key);
    if (v.typeId() != QMetaType::QStringList)
        return std::nullopt;
    return v.toStringList();
}

std::optional<QByteArray> PreferencesStore::data(const QString &key) const
{
    const QVariant v = rawValue(key);
    if (v.typeId() != QMetaType::QByteArray)
        return std::nullopt;
    return v.toByteArray();
}

std::optional<qint64> PreferencesStore::integer(const QString &key) const
{
    const QVariant v = rawValue(key);
    if (v.typeId() != QMetaType::LongLong)
        return std::nullopt;
    return v.toLongLong();
}

std::optional<QString> PreferencesStore::string(const QString &key) const
{
    const QVariant v = rawValue(key);
    if (v.typeId() != QMetaType::QString)
        return std::nullopt;
    return v.toString();
}

void PreferencesStore::setStringList(const QString &key, const QStringList &value)
{
    setRawValue(key, QVariant::fromValue(value));
}

void PreferencesStore::setData(const QString &key, const QByteArray &value)
{
    setRawValue(key, QVariant::fromValue(value));
}

void PreferencesStore::setInteger(const QString &key, qint64 value)
{
    setRawValue(key, QVariant::fromValue(value));
}

void PreferencesStore::setString(const QString &key, const QString &value)
{
    setRawValue(key, QVariant::fromValue(value));
}

void PreferencesStore::remove(const QString &key)
{
    setRawValue(key, QVariant());
}

QVariant PreferencesStore::rawValue(const QString &key) const
{
    const auto it = m_pending.constFind(key);
    return it != m_pending.constEnd() ? *it : storedValue(key);
}

void PreferencesStore::setRawValue(const QString &key, const QVariant &value)
{
    beginChanges();
    m_pending.insert(key, value);
    commitChanges();
}

void PreferencesStore::beginChanges()
{
    ++m_depth;
}

bool PreferencesStore::commitChanges()
{
    Q_ASSERT(m_depth > 0);
    if (m_depth > 0 && --m_depth > 0)
        return true;
    return retrySave();
}

bool PreferencesStore::retrySave()
{
    if (m_depth > 0 || m_pending.isEmpty())
        return true;
    QString error;
    if (!writeChanges(m_pending, error)) {
        // Kept: reads still see them and the next commit carries them.
        m_status.setSaveError(error.isEmpty() ? QStringLiteral("unknown error") : error);
        saveFailed();
        return false;
    }
    m_pending.clear();
    m_status.setSaveError(QString());
    return true;
}
