#include "ThemeCatalogue.h"

#include "platform/preferences/PreferencesStore.h"

#include <QHash>

namespace {

QColor hsb(double h, double s, double b)
{
    return QColor::fromHsvF(float(h), float(s), float(b));
}

QColor srgb(double r, double g, double b)
{
    return QColor::fromRgbF(float(r), float(g), float(b));
}

QColor grey(double white)
{
    return srgb(white, white, white);
}

// The colour at an opacity: multiplies its alpha, as an opacity modifier does.
QColor operator*(QColor colour, double opacity)
{
    colour.setAlphaF(float(colour.alphaF() * opacity));
    return colour;
}

const QColor black = QColor(Qt::black);
const QColor white = QColor(Qt::white);
// The standard green of phone toolkits, #34C759 (52, 199, 89), rather than
// the pure #00FF00 of X11 and CSS, which glares in the gradients.
const QColor green = QColor(52, 199, 89);

ThemeDefinition makeGreen()
{
    ThemeDefinition t;
    t.darkStart = black * 0.9;
    t.darkEnd = green * 0.25;
    t.lightStart = green * 0.4;
    t.lightEnd = black * 0.15;
    // Hue 0.33 for the dark accents and 0.35 for the light ones, on purpose.
    t.accentDark = hsb(0.33, 0.9, 0.7);
    t.accentLight = hsb(0.35, 0.35, 0.9);
    t.selectedHeaderBackgroundDark = hsb(0.33, 0.9, 0.7) * 0.3;
    t.selectedHeaderBackgroundLight = hsb(0.35, 0.45, 0.87) * 0.8;
    t.selectedHeaderStrokeColorDark = hsb(0.33, 0.9, 0.7) * 0.8;
    t.selectedHeaderStrokeColorLight = srgb(0.0, 0.6, 0.4);
    t.selectedHeaderStrokeWidth = 0.9;
    t.outlineDark = srgb(0.1, 0.25, 0.1);
    t.outlineLight = srgb(0.0, 0.55, 0.0);
    t.listRowBackgroundDark = srgb(0.1, 0.1, 0.1);
    t.listRowBackgroundLight = white;
    t.textCompleteFillDark = grey(0.99);
    t.textCompleteFillLight = grey(0.15);
    t.completeFillDark = srgb(50 / 255.0, 205 / 255.0, 50 / 255.0);
    t.completeFillLight = hsb(0.35, 0.6, 0.5);
    t.ballButton = srgb(100 / 255.0, 160 / 255.0, 100 / 255.0);
    t.pinSwipe = srgb(0.3, 0.6, 0.3);
    return t;
}

ThemeDefinition makePink()
{
    const QColor pink = srgb(1.0, 0.2, 0.7);
    ThemeDefinition t;
    t.darkStart = black * 0.9;
    t.darkEnd = pink * 0.25;
    t.lightStart = pink * 0.4;
    t.lightEnd = black * 0.15;
    t.accentDark = hsb(0.9, 0.9, 0.7);
    // The light accent is the green theme's light green; it is meant so.
    t.accentLight = hsb(0.35, 0.35, 0.9);
    t.selectedHeaderBackgroundDark = hsb(0.9, 0.9, 0.7) * 0.3;
    t.selectedHeaderBackgroundLight = hsb(0.9, 0.45, 1.0) * 0.4;
    t.selectedHeaderStrokeColorDark = hsb(0.9, 0.9, 0.7) * 0.8;
    t.selectedHeaderStrokeColorLight = srgb(0.6, 0.0, 0.4);
    t.selectedHeaderStrokeWidth = 0.9;
    t.outlineDark = srgb(0.25, 0.1, 0.2);
    t.outlineLight = srgb(0.75, 0.0, 0.4);
    t.listRowBackgroundDark = srgb(0.1, 0.1, 0.1);
    t.listRowBackgroundLight = white;
    t.textCompleteFillDark = grey(0.99);
    t.textCompleteFillLight = grey(0.15);
    t.completeFillDark = srgb(1.0, 0.08, 0.58);
    t.completeFillLight = srgb(0.9, 0.21, 0.51);
    t.ballButton = srgb(210 / 255.0, 80 / 255.0, 160 / 255.0);
    t.pinSwipe = srgb(0.7, 0.3, 0.5);
    return t;
}

ThemeDefinition makeBlue()
{
    const QColor blue = srgb(0.35, 0.55, 1.0);
    ThemeDefinition t;
    t.darkStart = black * 0.9;
    t.darkEnd = blue * 0.25;
    t.lightStart = blue * 0.4;
    t.lightEnd = black * 0.15;
    t.accentDark = hsb(0.58, 0.9, 0.7);
    t.accentLight = hsb(0.58, 0.35, 0.9);
    t.selectedHeaderBackgroundDark = hsb(0.58, 0.9, 0.7) * 0.3;
    t.selectedHeaderBackgroundLight = hsb(0.58, 0.45, 0.95) * 0.8;
    t.selectedHeaderStrokeColorDark = hsb(0.58, 0.9, 0.7) * 0.8;
    t.selectedHeaderStrokeColorLight = srgb(0.2, 0.4, 0.7);
    t.selectedHeaderStrokeWidth = 0.9;
    t.outlineDark = srgb(0.1, 0.1, 0.25);
    t.outlineLight = srgb(0.0, 0.4, 0.75);
    t.listRowBackgroundDark = srgb(0.1, 0.1, 0.1);
    t.listRowBackgroundLight = white;
    t.textCompleteFillDark = grey(0.99);
    t.textCompleteFillLight = grey(0.15);
    t.completeFillDark = srgb(100 / 255.0, 149 / 255.0, 237 / 255.0);
    t.completeFillLight = srgb(35 / 255.0, 106 / 255.0, 150 / 255.0);
    t.ballButton = srgb(35 / 255.0, 106 / 255.0, 190 / 255.0);
    t.pinSwipe = srgb(0.3, 0.4, 0.7);
    return t;
}

ThemeDefinition makeGray()
{
    ThemeDefinition t;
    t.darkStart = black * 0.9;
    t.darkEnd = grey(0.3) * 0.4;
    t.lightStart = grey(0.7) * 0.4;
    t.lightEnd = black * 0.15;
    t.accentDark = grey(0.7);
    t.accentLight = grey(0.5);
    t.selectedHeaderBackgroundDark = grey(0.7) * 0.3;
    t.selectedHeaderBackgroundLight = grey(0.7) * 0.8;
    t.selectedHeaderStrokeColorDark = grey(0.7) * 0.8;
    t.selectedHeaderStrokeColorLight = grey(0.3);
    t.selectedHeaderStrokeWidth = 0.9;
    t.outlineDark = grey(0.3);
    t.outlineLight = grey(0.5);
    t.listRowBackgroundDark = srgb(0.1, 0.1, 0.1);
    t.listRowBackgroundLight = white;
    t.textCompleteFillDark = grey(0.99);
    t.textCompleteFillLight = grey(0.15);
    t.completeFillDark = grey(0.7);
    t.completeFillLight = grey(0.5);
    t.ballButton = grey(0.55);
    t.pinSwipe = grey(0.5);
    return t;
}

ThemeDefinition makePurple()
{
    const QColor purple = srgb(0.6, 0.4, 0.9);
    ThemeDefinition t;
    t.darkStart = black * 0.9;
    t.darkEnd = purple * 0.25;
    t.lightStart = purple * 0.4;
    t.lightEnd = black * 0.15;
    t.accentDark = hsb(0.75, 0.9, 0.7);
    t.accentLight = hsb(0.75, 0.35, 0.9);
    t.selectedHeaderBackgroundDark = hsb(0.75, 0.9, 0.7) * 0.3;
    t.selectedHeaderBackgroundLight = hsb(0.75, 0.45, 0.95) * 0.5;
    t.selectedHeaderStrokeColorDark = hsb(0.75, 0.9, 0.7) * 0.8;
    t.selectedHeaderStrokeColorLight = srgb(0.4, 0.2, 0.6);
    t.selectedHeaderStrokeWidth = 0.9;
    t.outlineDark = srgb(0.15, 0.1, 0.2);
    t.outlineLight = srgb(0.45, 0.3, 0.65);
    t.listRowBackgroundDark = srgb(0.1, 0.1, 0.1);
    t.listRowBackgroundLight = white;
    t.textCompleteFillDark = grey(0.99);
    t.textCompleteFillLight = grey(0.15);
    t.completeFillDark = srgb(0.7, 0.4, 0.9);
    t.completeFillLight = srgb(0.6, 0.4, 0.8);
    t.ballButton = srgb(0.65, 0.3, 0.9);
    t.pinSwipe = srgb(0.6, 0.4, 0.9);
    return t;
}

// Green in every field but the gradient, which is plain black and white.
ThemeDefinition makeClassic()
{
    ThemeDefinition t = makeGreen();
    t.darkStart = black;
    t.darkEnd = black;
    t.lightStart = white;
    t.lightEnd = white;
    return t;
}

const QHash<Theme, ThemeDefinition> &table()
{
    // A function-local static is initialised exactly once, even when first
    // reached from several threads at the same time.
    static const QHash<Theme, ThemeDefinition> themes = {
        {Theme::green, makeGreen()},   {Theme::pink, makePink()},     {Theme::blue, makeBlue()},
        {Theme::gray, makeGray()},     {Theme::purple, makePurple()}, {Theme::classic, makeClassic()},
    };
    return themes;
}

} // namespace

const ThemeDefinition &ThemeCatalogue::definition(Theme theme)
{
    const auto &themes = table();
    const auto it = themes.constFind(theme);
    return it != themes.cend() ? *it : *themes.constFind(Theme::green);
}

Theme ThemeCatalogue::currentTheme(const PreferencesStore &preferences)
{
    const QString raw =
        preferences.string(PreferenceKeys::selectedThemeKey).value_or(PreferenceKeys::defaultSelectedThemeKey);
    return Themes::fromRawValue(raw).value_or(Theme::green);
}

const ThemeDefinition &ThemeCatalogue::currentDefinition(const PreferencesStore &preferences)
{
    return definition(currentTheme(preferences));
}

bool ThemeCatalogue::isDark(const QString &scheme)
{
    return scheme == QLatin1String("dark");
}

bool ThemeCatalogue::isDark(const PreferencesStore &preferences)
{
    return isDark(preferences.string(PreferenceKeys::appColorScheme).value_or(PreferenceKeys::defaultAppColorScheme));
}
