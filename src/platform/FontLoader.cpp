#include "FontLoader.h"

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
        "/usr/share/fonts/truetype/materialdesignicons-webfont/materialdesignicons-webfont.ttf",
    };
    for (const char *path : files) {
        const QString file = QString::fromLatin1(path);
        if (QFile::exists(file))
            QFontDatabase::addApplicationFont(file);
    }
    QFont font(uiFamily);
    // Emoji in list names come from the colour emoji face.
    font.setFamilies({uiFamily, emojiFamily});
    QGuiApplication::setFont(font);
}

} // namespace FontLoader
