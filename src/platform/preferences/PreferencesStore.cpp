#include "PreferencesStore.h"

#include "MemoryPreferencesStore.h"

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
