#include "FontLoader.h"

#include "Symbols.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QSaveFile>
#include <QStandardPaths>
#include <QtEndian>

#include <cmath>
#include <optional>

namespace FontLoader {

namespace {

// Emoji at the size of the Inter text around them.
constexpr double kEmojiScale = 1.3;

struct TableEntry
{
    qsizetype record; // where the table's directory record starts
    qsizetype offset;
    qsizetype length;
};

std::optional<TableEntry> findTable(const QByteArray &font, const char (&tag)[5])
{
    if (font.size() < 12)
        return std::nullopt;
    const auto *data = reinterpret_cast<const uchar *>(font.constData());
    const int count = qFromBigEndian<quint16>(data + 4);
    for (int i = 0; i < count; ++i) {
        const qsizetype record = 12 + 16 * qsizetype(i);
        if (record + 16 > font.size())
            return std::nullopt;
        if (memcmp(data + record, tag, 4) != 0)
            continue;
        const qsizetype offset = qFromBigEndian<quint32>(data + record + 8);
        const qsizetype length = qFromBigEndian<quint32>(data + record + 12);
        if (offset + length > font.size())
            return std::nullopt;
        return TableEntry{record, offset, length};
    }
    return std::nullopt;
}

qint16 scaled(qint16 value, double scale)
{
    return qint16(std::lround(value / scale));
}

// The name table again, with the family, full and PostScript names replaced.
QByteArray renamed(const QByteArray &font, const TableEntry &name, const QString &family)
{
    const auto *table = reinterpret_cast<const uchar *>(font.constData() + name.offset);
    if (name.length < 6)
        return {};
    const int count = qFromBigEndian<quint16>(table + 2);
    const int stringsAt = qFromBigEndian<quint16>(table + 4);
    if (6 + 12 * qsizetype(count) > name.length)
        return {};
    QByteArray records;
    QByteArray strings;
    QString postScript = family;
    postScript.remove(QLatin1Char(' '));
    for (int i = 0; i < count; ++i) {
        const uchar *record = table + 6 + 12 * i;
        const quint16 platform = qFromBigEndian<quint16>(record);
        const quint16 nameId = qFromBigEndian<quint16>(record + 6);
        const qsizetype length = qFromBigEndian<quint16>(record + 8);
        const qsizetype offset = qFromBigEndian<quint16>(record + 10);
        QByteArray text;
        if (nameId == 1 || nameId == 4 || nameId == 6 || nameId == 16) {
            const QString value = nameId == 6 ? postScript : family;
            if (platform == 1) {
                text = value.toLatin1();
            } else {
                for (const QChar c : value) {
                    text.append(char(c.unicode() >> 8));
                    text.append(char(c.unicode() & 0xff));
                }
            }
        } else {
            if (stringsAt + offset + length > name.length)
                return {};
            text = QByteArray(reinterpret_cast<const char *>(table + stringsAt + offset), length);
        }
        uchar out[12];
        memcpy(out, record, 8);
        qToBigEndian<quint16>(quint16(text.size()), out + 8);
        qToBigEndian<quint16>(quint16(strings.size()), out + 10);
        records.append(reinterpret_cast<const char *>(out), 12);
        strings.append(text);
    }
    uchar header[6];
    qToBigEndian<quint16>(0, header);
    qToBigEndian<quint16>(quint16(count), header + 2);
    qToBigEndian<quint16>(quint16(6 + records.size()), header + 4);
    return QByteArray(reinterpret_cast<const char *>(header), 6) + records + strings;
}

// The scaled emoji face is written once to the cache folder and registered
// by path: the font engine then maps only the pictures it draws, where a
// face registered from memory would keep all 11 MB resident for good.
bool addScaledEmoji()
{
    const QFileInfo source(QStringLiteral("/usr/share/fonts/truetype/noto/NotoColorEmoji.ttf"));
    if (!source.exists())
        return false;
    const QString cached = QStandardPaths::writableLocation(QStandardPaths::CacheLocation)
        + QStringLiteral("/fonts/emoji-%1-%2-%3.ttf")
              .arg(source.size())
              .arg(source.lastModified().toSecsSinceEpoch())
              .arg(qRound(kEmojiScale * 100));
    if (QFileInfo::exists(cached) && QFontDatabase::addApplicationFont(cached) >= 0)
        return true;
    QFile file(source.filePath());
    if (!file.open(QIODevice::ReadOnly))
        return false;
    // Read through a mapping: the face is copied once, into the new one.
    const uchar *mapped = file.map(0, file.size());
    const QByteArray original = mapped
        ? QByteArray::fromRawData(reinterpret_cast<const char *>(mapped), file.size())
        : file.readAll();
    const QByteArray scaledFace = scaledColorEmoji(original, kEmojiScale, emojiFamily);
    if (scaledFace.isEmpty()) {
        QFontDatabase::addApplicationFont(source.filePath());
        return false;
    }
    QDir().mkpath(QFileInfo(cached).path());
    QSaveFile out(cached);
    if (out.open(QIODevice::WriteOnly) && out.write(scaledFace) == scaledFace.size() && out.commit()
        && QFontDatabase::addApplicationFont(cached) >= 0)
        return true;
    // No writable cache: keep the face in memory instead.
    return QFontDatabase::addApplicationFontFromData(scaledFace) >= 0;
}

} // namespace

QByteArray scaledColorEmoji(const QByteArray &font, double scale, const QString &family)
{
    const auto hhea = findTable(font, "hhea");
    const auto cblc = findTable(font, "CBLC");
    const auto name = findTable(font, "name");
    if (!hhea || !cblc || !name || hhea->length < 10 || cblc->length < 8 || scale <= 0)
        return {};
    // The renamed name table goes at the end, on a four-byte boundary.
    const QByteArray names = renamed(font, *name, family);
    if (names.isEmpty())
        return {};
    // One copy of the face, with room for the new names: it is 11 MB.
    QByteArray result;
    result.reserve(font.size() + 3 + names.size());
    result.append(font);
    auto *data = reinterpret_cast<uchar *>(result.data());
    // Ascender, descender and line gap of the whole face.
    for (int field = 0; field < 3; ++field) {
        uchar *at = data + hhea->offset + 4 + 2 * field;
        qToBigEndian<qint16>(scaled(qFromBigEndian<qint16>(at), scale), at);
    }
    // Each strike's horizontal and vertical line metrics (signed bytes).
    const quint32 strikes = qFromBigEndian<quint32>(data + cblc->offset + 4);
    for (quint32 i = 0; i < strikes; ++i) {
        const qsizetype strike = cblc->offset + 8 + 48 * qsizetype(i);
        if (strike + 48 > cblc->offset + cblc->length)
            return {};
        for (const int metrics : {16, 28})
            for (const int field : {0, 1}) {
                uchar *at = data + strike + metrics + field;
                *at = uchar(qint8(std::lround(qint8(*at) / scale)));
            }
    }
    while (result.size() % 4)
        result.append('\0');
    data = reinterpret_cast<uchar *>(result.data());
    qToBigEndian<quint32>(quint32(result.size()), data + name->record + 8);
    qToBigEndian<quint32>(quint32(names.size()), data + name->record + 12);
    result.append(names);
    return result;
}

void loadBundledFonts()
{
    static const char *const files[] = {
        "/usr/share/fonts/opentype/inter/Inter-Regular.otf",
        "/usr/share/fonts/opentype/inter/Inter-Medium.otf",
        "/usr/share/fonts/opentype/inter/Inter-SemiBold.otf",
        "/usr/share/fonts/opentype/inter/Inter-Bold.otf",
        "/usr/share/texmf/fonts/opentype/public/tex-gyre/texgyreheros-regular.otf",
        "/usr/share/texmf/fonts/opentype/public/tex-gyre/texgyreheros-bold.otf",
    };
    for (const char *path : files) {
        const QString file = QString::fromLatin1(path);
        if (QFile::exists(file))
            QFontDatabase::addApplicationFont(file);
    }
    QString emoji = emojiFamily;
    if (!addScaledEmoji())
        emoji = QStringLiteral("Noto Color Emoji"); // small emoji rather than none
    // The icon font is built into the app, so every icon has its glyph.
    QFontDatabase::addApplicationFont(Symbols::fontResource());
    QFont font(uiFamily);
    // Emoji in list names come from the colour emoji face, also in text
    // that names its face.
    font.setFamilies({uiFamily, emoji});
    QFont::insertSubstitution(uiFamily, emoji);
    QFont::insertSubstitution(helveticaFamily, emoji);
    QGuiApplication::setFont(font);
    // Text drawn from the glyphs the font engine rasterises, hinted for the
    // pixel grid, rather than from distance fields: sharper at list sizes,
    // and a plain texture lookup per pixel where a software rasteriser has to
    // draw every frame on the processor.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
}

} // namespace FontLoader
