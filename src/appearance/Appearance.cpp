#include "Appearance.h"

#include "ThemeCatalogue.h"
#include "platform/QmlServices.h"
#include "platform/preferences/PreferencesStore.h"

Appearance::Appearance(PreferencesStore &preferences, QObject *parent)
    : QObject(parent)
    , m_preferences(&preferences)
{
}

Appearance *Appearance::create(QQmlEngine *, QJSEngine *engine)
{
    return QmlServices::provided<Appearance>(engine);
}

QString Appearance::themeKey() const
{
    return m_preferences->string(PreferenceKeys::selectedThemeKey).value_or(PreferenceKeys::defaultSelectedThemeKey);
}

void Appearance::setThemeKey(const QString &raw)
{
    m_preferences->setString(PreferenceKeys::selectedThemeKey, raw);
    emit themeChanged();
}

QString Appearance::schemeKey() const
{
    return m_preferences->string(PreferenceKeys::appColorScheme).value_or(PreferenceKeys::defaultAppColorScheme);
}

void Appearance::setSchemeKey(const QString &raw)
{
    m_preferences->setString(PreferenceKeys::appColorScheme, raw);
    emit schemeChanged();
    // Bindings that pick a colour pair read only the theme.
    emit themeChanged();
}

bool Appearance::isDark() const
{
    return ThemeCatalogue::isDark(*m_preferences);
}

void Appearance::setDark(bool dark)
{
    setSchemeKey(dark ? QStringLiteral("dark") : QStringLiteral("light"));
}

ThemeDefinition Appearance::theme() const
{
    return ThemeCatalogue::currentDefinition(*m_preferences);
}

QColor Appearance::foreground() const
{
    return isDark() ? QColor(Qt::white) : QColor(Qt::black);
}

QVariantList Appearance::themeMenu() const
{
    // The menu lists the themes in its own order, not the enumeration's.
    static const Theme order[] = {Theme::classic, Theme::gray, Theme::purple, Theme::blue, Theme::pink, Theme::green};
    QVariantList entries;
    for (Theme theme : order) {
        entries.append(QVariantMap{
            {QStringLiteral("label"), Themes::label(theme)},
            {QStringLiteral("rawValue"), Themes::rawValue(theme)},
        });
    }
    return entries;
}

QColor Appearance::pick(const QColor &dark, const QColor &light) const
{
    return isDark() ? dark : light;
}
