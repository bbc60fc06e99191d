import QtQuick
import Murvane

// An icon of the app's symbol set, asked for by its identifier. Its implicit
// size is the point size square; the font's own margin spills over it, so
// icons line up with text of the same size.
Item {
    id: root

    property string name
    property real pointSize: 17
    property color color: "black"
    // The icon font has one weight: a bold icon is the glyph's outline
    // filled and stroked.
    property bool bold: false

    readonly property symbolSpec symbol: Symbols.symbol(name)
    readonly property real em: pointSize * Symbols.emScale
    // A turned glyph is drawn as a shape, since turned text is drawn with a
    // pipeline of its own, which the first frame would wait for; so is a
    // bold one.
    readonly property bool drawnGlyph: (symbol.rotation !== 0 || bold) && symbol.glyph !== "" && symbol.badge === ""

    implicitWidth: pointSize
    implicitHeight: pointSize
    // A glyph of the icon font says nothing read aloud; the control that
    // shows the icon carries the name.
    Accessible.ignored: true

    Item {
        id: box
        width: root.em
        height: root.em
        anchors.centerIn: parent
        rotation: root.symbol.rotation

        Text {
            id: glyph
            visible: root.symbol.glyph !== "" && !root.drawnGlyph
            width: box.width
            // The baseline is placed from the font's own em box, so the
            // glyph is centred whatever line height the font reports.
            y: box.height * Symbols.baselineRatio - baselineOffset
            horizontalAlignment: Text.AlignHCenter
            text: root.symbol.glyph
            color: root.color
            font.family: Symbols.fontFamily
            font.pixelSize: box.height
        }

        Text {
            readonly property real size: box.height * root.symbol.badgeScale
            visible: root.symbol.badge !== ""
            x: (box.width - width) / 2
            width: size
            y: (box.height - size) / 2 + size * Symbols.baselineRatio - baselineOffset + root.symbol.badgeOffsetY * box.height
            horizontalAlignment: Text.AlignHCenter
            text: root.symbol.badge
            color: root.color
            font.family: Symbols.fontFamily
            font.pixelSize: Math.max(1, size)
        }
    }

    // Outside the em box, on whole pixels: its picture then lands on the
    // screen pixel for pixel, as sharp as the glyphs.
    SymbolPath {
        readonly property real margin: Math.floor((root.width - root.em) / 2)

        visible: root.symbol.path !== "" || root.drawnGlyph
        x: margin
        y: Math.floor((root.height - root.em) / 2)
        width: root.width - 2 * margin
        height: root.height - 2 * y
        rotation: root.symbol.rotation
        em: root.em
        path: root.symbol.path
        glyph: root.drawnGlyph ? root.symbol.glyph : ""
        bold: root.bold
        color: root.color
    }
}
