#pragma once

#include "ThemeDefinition.h"

#include <QColor>
#include <QObject>
#include <QVariantList>
#include <QtQml/qqml.h>

class PreferencesStore;

// The theme and colour scheme in force, for QML and C++ alike. It owns the
// two persisted settings "selectedThemeKey" and "appColorScheme": writes go
// to the preferences store at once, and every view rebinds on the signals.
class Appearance : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    // Raw stored strings, written as given (an unknown theme string is kept
    // and reads as green; a scheme other than "dark" is light).
    Q_PROPERTY(QString themeKey READ themeKey WRITE setThemeKey NOTIFY themeChanged)
    Q_PROPERTY(QString schemeKey READ schemeKey WRITE setSchemeKey NOTIFY schemeChanged)
    Q_PROPERTY(bool isDark READ isDark NOTIFY schemeChanged)
    // The definition to paint with (green when the stored key is unknown).
    // It is signalled on a scheme change too, so a binding such as
    // pick(Appearance.theme.accentDark, Appearance.theme.accentLight)
    // follows both the theme and the scheme.
    Q_PROPERTY(ThemeDefinition theme READ theme NOTIFY themeChanged)
    // White in the dark scheme, black in the light one: icons and labels.
    Q_PROPERTY(QColor foreground READ foreground NOTIFY schemeChanged)
    // The theme menu's entries in menu order: [{label, rawValue}, ...].
    Q_PROPERTY(QVariantList themeMenu READ themeMenu CONSTANT)

public:
    explicit Appearance(PreferencesStore &preferences, QObject *parent = nullptr);

    // The QML singleton: the appearance the app provided for the engine.
    static Appearance *create(QQmlEngine *, QJSEngine *engine);

    QString themeKey() const;
    void setThemeKey(const QString &raw); // always writes, even when unchanged
    QString schemeKey() const;
    void setSchemeKey(const QString &raw);
    bool isDark() const;
    Q_INVOKABLE void setDark(bool dark); // writes "dark" or "light"
    ThemeDefinition theme() const;
    QColor foreground() const;
    QVariantList themeMenu() const;

    // The dark or light member of a colour pair under the current scheme.
    // A QML binding learns of changes only through what it reads itself:
    // pass fields of Appearance.theme (as above), not saved copies.
    Q_INVOKABLE QColor pick(const QColor &dark, const QColor &light) const;

signals:
    void themeChanged();
    void schemeChanged();

private:
    PreferencesStore *m_preferences;
};
