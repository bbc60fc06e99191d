#pragma once

#include "PreferencesStore.h"

#include <QHash>
#include <QJsonObject>

// Preferences kept as files in one folder:
//   preferences.json  the small typed values (string arrays, integers, strings)
//   <key>.bin         each binary value as its raw bytes (the item document)
// Every write replaces its file atomically (write a temporary file, sync,
// rename), so a crash leaves either the previous or the new value. Binary
// values live in their own files so that saving a large item document does
// not rewrite or re-escape anything else.
class FilePreferencesStore : public PreferencesStore
{
public:
    explicit FilePreferencesStore(const QString &directory);

    QString directory() const { return m_dir; }
    void remove(const QString &key) override;

    // Where the app keeps its data: the platform's per-user data folder.
    static QString defaultDirectory();

protected:
    QVariant rawValue(const QString &key) const override;
    void setRawValue(const QString &key, const QVariant &value) override;

private:
    QString binPath(const QString &key) const;
    QString jsonPath() const;
    void writeJson();

    QString m_dir;
    QJsonObject m_json;
    mutable QHash<QString, QByteArray> m_binCache;
};
