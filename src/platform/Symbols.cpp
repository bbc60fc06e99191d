#include "Symbols.h"

#include "FontLoader.h"

#include <QHash>
#include <algorithm>

namespace {

// Code points of the Material Design Icons font (1.6.50), by the font's own
// glyph names.
enum Glyph : char32_t {
    mdiBrush = 0xF0E3,
    mdiChevronLeft = 0xF141,
    mdiChevronRight = 0xF142,
    mdiClose = 0xF156,
    mdiDelete = 0xF1C0,
    mdiExport = 0xF207,
    mdiHelpCircleOutline = 0xF625,
    mdiMarker = 0xF652,
    mdiMessageOutline = 0xF365,
    mdiMinus = 0xF374,
    mdiMinusCircleOutline = 0xF377,
    mdiPalette = 0xF3D8,
    mdiPencilBoxOutline = 0xF3ED,
    mdiPin = 0xF403,
    mdiPlaylistPlus = 0xF412,
    mdiPlus = 0xF415,
    mdiPlusCircleOutline = 0xF419,
    mdiRadioboxBlank = 0xF43D,
    mdiRadioboxMarked = 0xF43E,
    mdiStar = 0xF4CE,
    mdiStarOutline = 0xF4D2,
    mdiSwapHorizontal = 0xF4E1,
    mdiSwapVertical = 0xF4E2,
    mdiUndo = 0xF54C,
};

QString text(char32_t codePoint)
{
    return QString::fromUcs4(&codePoint, 1);
}

SymbolSpec glyph(char32_t codePoint, double rotation = 0)
{
    SymbolSpec s;
    s.glyph = text(codePoint);
    s.rotation = rotation;
    return s;
}

// A small glyph inside a larger one: the circled and bubbled symbols.
SymbolSpec badged(char32_t outer, char32_t inner, double scale, double offsetY = 0)
{
    SymbolSpec s;
    s.glyph = text(outer);
    s.badge = text(inner);
    s.badgeScale = scale;
    s.badgeOffsetY = offsetY;
    return s;
}

SymbolSpec drawn(const char *path)
{
    SymbolSpec s;
    s.path = QString::fromLatin1(path);
    return s;
}

// The font has only a filled pin; the outline pin is the same outline with
// the head and body hollowed out (a hole wound the other way).
const char pinOutline[] = "M16,12V4H17V2H7V4H8V12L6,14V16H11.2V22H12.8V16H18V14L16,12Z"
                          "M10,4H14V12.8L15.2,14H8.8L10,12.8Z";

// A ring with the lit part of a waxing gibbous moon filled inside it: the
// right half of the disc plus a bulge past the terminator on the left.
const char moonWaxingGibbousInverse[] = "M12,2A10,10 0 1,1 12,22A10,10 0 1,1 12,2Z"
                                        "M12,3.6A8.4,8.4 0 1,0 12,20.4A8.4,8.4 0 1,0 12,3.6Z"
                                        "M12,5.2A6.8,6.8 0 0,1 12,18.8A2.8,6.8 0 0,1 12,5.2Z";

// A cone pointing down-left with confetti flying out of its mouth.
const char partyPopper[] = "M3,21L7.4,8.6L15.4,16.6Z"
                           "M9.2,6.4L10.8,1.9L12.3,2.5L10.7,7Z"
                           "M17.6,14.7L22.1,13.1L22.6,14.6L18.1,16.2Z"
                           "M17.4,4.6L19.3,6.5L17.4,8.4L15.5,6.5Z"
                           "M12.9,3.6A1.2,1.2 0 1,0 15.3,3.6A1.2,1.2 0 1,0 12.9,3.6Z"
                           "M19.6,10.2A1.2,1.2 0 1,0 22,10.2A1.2,1.2 0 1,0 19.6,10.2Z"
                           "M20.2,2.8A1,1 0 1,0 22.2,2.8A1,1 0 1,0 20.2,2.8Z"
                           "M12.4,10.1A0.9,0.9 0 1,0 14.2,10.1A0.9,0.9 0 1,0 12.4,10.1Z";

const QHash<QString, SymbolSpec> &table()
{
    static const QHash<QString, SymbolSpec> symbols = {
        // Item rows, input bar, header row and toolbar.
        {QStringLiteral("pin"), drawn(pinOutline)},
        {QStringLiteral("pin.fill"), glyph(mdiPin)},
        {QStringLiteral("trash"), glyph(mdiDelete)},
        {QStringLiteral("circle"), glyph(mdiRadioboxBlank)},
        {QStringLiteral("largecircle.fill.circle"), glyph(mdiRadioboxMarked)},
        {QStringLiteral("arrow.uturn.backward"), glyph(mdiUndo)},
        {QStringLiteral("chevron.left"), glyph(mdiChevronLeft)},
        {QStringLiteral("chevron.right"), glyph(mdiChevronRight)},
        {QStringLiteral("minus"), glyph(mdiMinus)},
        {QStringLiteral("plus"), glyph(mdiPlus)},
        {QStringLiteral("moonphase.waxing.gibbous.inverse"), drawn(moonWaxingGibbousInverse)},
        {QStringLiteral("arrow.up.arrow.down"), glyph(mdiSwapVertical)},
        // The font's export arrow leaves its box sideways; turned a
        // quarter to the left it leaves through the top.
        {QStringLiteral("square.and.arrow.up"), glyph(mdiExport, -90)},
        {QStringLiteral("star"), glyph(mdiStarOutline)},
        {QStringLiteral("star.fill"), glyph(mdiStar)},
        {QStringLiteral("questionmark.circle"), glyph(mdiHelpCircleOutline)},
        {QStringLiteral("paintpalette"), glyph(mdiPalette)},
        {QStringLiteral("xmark"), glyph(mdiClose)},
        // Tutorial sections.
        {QStringLiteral("plus.circle"), glyph(mdiPlusCircleOutline)},
        {QStringLiteral("square.and.pencil"), glyph(mdiPencilBoxOutline)},
        {QStringLiteral("text.badge.plus"), glyph(mdiPlaylistPlus)},
        {QStringLiteral("highlighter"), glyph(mdiMarker)},
        {QStringLiteral("arrow.left.and.right.circle"), badged(mdiRadioboxBlank, mdiSwapHorizontal, 0.55)},
        {QStringLiteral("arrow.up.arrow.down.circle"), badged(mdiRadioboxBlank, mdiSwapVertical, 0.55)},
        {QStringLiteral("paintbrush"), glyph(mdiBrush)},
        {QStringLiteral("minus.circle"), glyph(mdiMinusCircleOutline)},
        {QStringLiteral("arrow.uturn.backward.circle"), badged(mdiRadioboxBlank, mdiUndo, 0.55)},
        {QStringLiteral("star.bubble"), badged(mdiMessageOutline, mdiStar, 0.42, -0.05)},
        {QStringLiteral("party.popper"), drawn(partyPopper)},
    };
    return symbols;
}

} // namespace

Symbols::Symbols(QObject *parent)
    : QObject(parent)
{
}

QString Symbols::fontFamily()
{
    return FontLoader::iconFamily;
}

QString Symbols::fontResource()
{
    return QStringLiteral(":/qt/qml/Murvane/materialdesignicons-webfont.ttf");
}

QStringList Symbols::names()
{
    QStringList result = table().keys();
    std::sort(result.begin(), result.end());
    return result;
}

SymbolSpec Symbols::lookup(const QString &name)
{
    return table().value(name);
}
