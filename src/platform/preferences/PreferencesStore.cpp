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
    if (isJsonArray(v))
        return joined(v.value<JsonArray>().elements);
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

void PreferencesStore::setJsonArray(const QString &key, const QByteArrayList &elements, const QList<qsizetype> &from)
{
    setRawValue(key, QVariant::fromValue(JsonArray{elements, from}));
}

QByteArray PreferencesStore::joined(const QByteArrayList &elements)
{
    qsizetype size = 2 + elements.size();
    for (const QByteArray &e : elements)
        size += e.size();
    QByteArray out;
    out.reserve(size);
    out.append('[');
    for (qsizetype i = 0; i < elements.size(); ++i) {
        if (i > 0)
            out.append(',');
        out.append(elements[i]);
    }
    out.append(']');
    return out;
}

QList<qsizetype> PreferencesStore::kept(const QByteArrayList &previous, const JsonArray &next)
{
    QList<qsizetype> out(next.elements.size(), -1);
    QList<bool> taken(previous.size(), false);
    for (qsizetype i = 0; i < next.elements.size(); ++i) {
        const qsizetype p = i < next.from.size() ? next.from[i] : -1;
        if (p < 0 || p >= previous.size() || taken[p])
            continue;
        const QByteArray &a = previous[p];
        const QByteArray &b = next.elements[i];
        // Shared bytes are the usual case; comparing is the safety net.
        if (a.size() == b.size() && (a.constData() == b.constData() || a == b)) {
            out[i] = p;
            taken[p] = true;
        }
    }
    return out;
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
