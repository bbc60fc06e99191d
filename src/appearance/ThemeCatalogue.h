#pragma once

#include "Theme.h"
#include "ThemeDefinition.h"

class PreferencesStore;

// The process-wide table of theme definitions, built once on first use
// (safely, even if first asked from several threads) and read-only after.
class ThemeCatalogue
{
public:
    static const ThemeDefinition &definition(Theme theme);

    // The theme the stored "selectedThemeKey" names; green when it was
    // never written or names no theme. The stored string is left as it is.
    static Theme currentTheme(const PreferencesStore &preferences);
    static const ThemeDefinition &currentDefinition(const PreferencesStore &preferences);

    // The dark scheme is exactly the string "dark"; anything else, a
    // missing value included, is light.
    static bool isDark(const QString &scheme);
    static bool isDark(const PreferencesStore &preferences);
};
