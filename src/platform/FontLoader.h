#pragma once

#include <QString>

// Loads the app's fonts from the system's font packages so the look does not
// depend on what a machine happens to have installed as defaults.
namespace FontLoader {
// The UI face, the Helvetica-metric face, the colour emoji and the icon font.
inline const QString uiFamily = QStringLiteral("Inter");
inline const QString helveticaFamily = QStringLiteral("TeX Gyre Heros");
inline const QString emojiFamily = QStringLiteral("Noto Color Emoji");
inline const QString iconFamily = QStringLiteral("Material Design Icons");

// Registers the fonts with the application and makes Inter the default.
// Missing files are skipped; the app then falls back to system fonts.
void loadBundledFonts();
} // namespace FontLoader
