#include "FontLoader.h"

#include "Symbols.h"

#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>

namespace FontLoader {

void loadBundledFonts()
{
    static const char *const files[] = {
        "/usr/share/fonts/opentype/inter/Inter-Regular.otf",
        "/usr/share/fonts/opentype/inter/Inter-Medium.otf",
        "/usr/share/fonts/opentype/inter/Inter-SemiBold.otf",
        "/usr/share/fonts/opentype/inter/Inter-Bold.otf",
        "/usr/share/texmf/fonts/opentype/public/tex-gyre/texgyreheros-regular.otf",
        "/usr/share/texmf/fonts/opentype/public/tex-gyre/texgyreheros-bold.otf",
        "/usr/share/fonts/truetype/noto/NotoColorEmoji.ttf",
    };
    for (const char *path : files) {
        const QString file = QString::fromLatin1(path);
        if (QFile::exists(file))
            QFontDatabase::addApplicationFont(file);
    }
    // The icon font is built into the app, so every icon has its glyph.
    QFontDatabase::addApplicationFont(Symbols::fontResource());
    QFont font(uiFamily);
    // Emoji in list names come from the colour emoji face.
    font.setFamilies({uiFamily, emojiFamily});
    QGuiApplication::setFont(font);
}

} // namespace FontLoader
