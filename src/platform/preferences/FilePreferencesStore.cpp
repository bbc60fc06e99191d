#include "FilePreferencesStore.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>
#include <QStandardPaths>
#include <cmath>

namespace {

bool writeAtomically(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

// Keys are fixed identifiers; anything else is kept out of file names.
bool isSafeKey(const QString &key)
{
    if (key.isEmpty())
        return false;
    for (QChar c : key) {
        if (!(c.isLetterOrNumber() && c.unicode() < 128) && c != u'_')
            return false;
    }
    return true;
}

QVariant fromJson(const QJsonValue &v)
{
    switch (v.type()) {
    case QJsonValue::String:
        return v.toString();
    case QJsonValue::Bool:
        return v.toBool();
    case QJsonValue::Double: {
        const double d = v.toDouble();
        if (std::isfinite(d) && std::floor(d) == d && std::fabs(d) < 9.0e15)
            return QVariant::fromValue(static_cast<qint64>(d));
        return d;
    }
    case QJsonValue::Array: {
        const QJsonArray a = v.toArray();
        QStringList strings;
        strings.reserve(a.size());
        for (const QJsonValue &e : a) {
            if (!e.isString())
                return a.toVariantList();
            strings.append(e.toString());
        }
        return QVariant::fromValue(strings);
    }
    case QJsonValue::Object:
        return v.toObject().toVariantMap();
    default:
        return {};
    }
}

QJsonValue toJson(const QVariant &v)
{
    switch (v.typeId()) {
    case QMetaType::QStringList:
        return QJsonArray::fromStringList(v.toStringList());
    case QMetaType::LongLong:
    case QMetaType::Int:
        return QJsonValue(v.toLongLong());
    case QMetaType::QString:
        return v.toString();
    case QMetaType::Bool:
        return v.toBool();
    default:
        return QJsonValue::fromVariant(v);
    }
}

} // namespace

FilePreferencesStore::FilePreferencesStore(const QString &directory)
    : m_dir(directory)
{
    QDir().mkpath(m_dir);
    QFile file(jsonPath());
    if (!file.exists() || !file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.readAll();
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(bytes, &error);
    if (error.error == QJsonParseError::NoError && doc.isObject()) {
        m_json = doc.object();
        return;
    }
    // Unreadable: start from defaults, but keep the old bytes beside the new
    // file so that nothing the user had is destroyed.
    const QString keep = jsonPath() + QStringLiteral(".unreadable");
    QFile::remove(keep);
    QFile::copy(jsonPath(), keep);
}

QString FilePreferencesStore::defaultDirectory()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString FilePreferencesStore::jsonPath() const
{
    return m_dir + QStringLiteral("/preferences.json");
}

QString FilePreferencesStore::binPath(const QString &key) const
{
    return m_dir + u'/' + key + QStringLiteral(".bin");
}

QVariant FilePreferencesStore::rawValue(const QString &key) const
{
    const auto it = m_json.constFind(key);
    if (it != m_json.constEnd())
        return fromJson(*it);
    if (!isSafeKey(key))
        return {};
    const auto cached = m_binCache.constFind(key);
    if (cached != m_binCache.constEnd())
        return QVariant::fromValue(*cached);
    QFile file(binPath(key));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    m_binCache.insert(key, bytes);
    return QVariant::fromValue(bytes);
}

void FilePreferencesStore::setRawValue(const QString &key, const QVariant &value)
{
    if (!isSafeKey(key))
        return;
    if (value.typeId() == QMetaType::QByteArray) {
        const QByteArray bytes = value.toByteArray();
        if (!writeAtomically(binPath(key), bytes))
            return;
        m_binCache.insert(key, bytes);
        if (m_json.contains(key)) {
            m_json.remove(key);
            writeJson();
        }
        return;
    }
    m_json.insert(key, toJson(value));
    writeJson();
    if (m_binCache.remove(key) > 0 || QFile::exists(binPath(key)))
        QFile::remove(binPath(key));
}

void FilePreferencesStore::remove(const QString &key)
{
    if (m_json.contains(key)) {
        m_json.remove(key);
        writeJson();
    }
    if (isSafeKey(key)) {
        m_binCache.remove(key);
        QFile::remove(binPath(key));
    }
}

void FilePreferencesStore::writeJson()
{
    writeAtomically(jsonPath(), QJsonDocument(m_json).toJson(QJsonDocument::Indented));
}
