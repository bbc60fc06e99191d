#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

// Typed key-value store for everything the app keeps on the device.
// Reads tell "absent" apart from "present but empty"; a value of the wrong
// type reads as absent, so callers fall back to their default.
class PreferencesStore
{
public:
    virtual ~PreferencesStore();

    std::optional<QStringList> stringList(const QString &key) const;
    std::optional<QByteArray> data(const QString &key) const;
    std::optional<qint64> integer(const QString &key) const;
    std::optional<QString> string(const QString &key) const;

    void setStringList(const QString &key, const QStringList &value);
    void setData(const QString &key, const QByteArray &value);
    void setInteger(const QString &key, qint64 value);
    void setString(const QString &key, const QString &value);

    bool contains(const QString &key) const { return rawValue(key).isValid(); }
    virtual void remove(const QString &key) = 0;

protected:
    virtual QVariant rawValue(const QString &key) const = 0;
    virtual void setRawValue(const QString &key, const QVariant &value) = 0;
};

// The keys the app persists, with their defaults.
namespace PreferenceKeys {
inline const QString listNames = QStringLiteral("listNames");
inline const QString items = QStringLiteral("items");
inline const QString selectedListIndex = QStringLiteral("selectedListIndex");
inline const QString appColorScheme = QStringLiteral("appColorScheme");
inline const QString selectedThemeKey = QStringLiteral("selectedThemeKey");
inline const QString installDateString = QStringLiteral("installDateString");
inline const QString lastPromptDateString = QStringLiteral("lastPromptDateString");

inline constexpr qint64 defaultSelectedListIndex = 0;
inline const QString defaultAppColorScheme = QStringLiteral("light");
inline const QString defaultSelectedThemeKey = QStringLiteral("green");
inline const QString defaultDateString = QString();
} // namespace PreferenceKeys
