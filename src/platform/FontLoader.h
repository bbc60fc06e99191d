#pragma once

#include <QByteArray>
#include <QString>

// Loads the app's fonts from the system's font packages so the look does not
// depend on what a machine happens to have installed as defaults.
namespace FontLoader {
// The UI face, the Helvetica-metric face, the colour emoji and the icon font.
inline const QString uiFamily = QStringLiteral("Inter");
inline const QString helveticaFamily = QStringLiteral("TeX Gyre Heros");
inline const QString emojiFamily = QStringLiteral("Murvane Emoji");
inline const QString iconFamily = QStringLiteral("Material Design Icons");

// Registers the fonts with the application, makes Inter the default and has
// Qt Quick draw text from the font engine's own glyphs. Call before the
// first window. Missing files are skipped; the app then falls back to
// system fonts.
void loadBundledFonts();

// A copy of a colour bitmap font (CBDT/CBLC, such as Noto Color Emoji)
// whose pictures come out `scale` times larger, under the family name
// `family`. Qt sizes a colour bitmap strike by the strike's line height
// (ascender to descender), which Noto's pictures fill only in part, so
// emoji beside text come out at about two thirds of the text's size.
// Shortening that line height (the hhea and strike ascender, descender
// and gap, in proportion) scales the pictures up while the line spacing
// stays as it was. Empty when `font` is not such a font.
QByteArray scaledColorEmoji(const QByteArray &font, double scale, const QString &family);
} // namespace FontLoader
