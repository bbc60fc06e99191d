import QtQuick
import QtQuick.Shapes
import Murvane

// An icon of the app's symbol set, asked for by its identifier. Its implicit
// size is the point size square; the font's own margin spills over it, so
// icons line up with text of the same size.
Item {
    id: root

    property string name
    property real pointSize: 17
    property color color: "black"
    // The icon font has one weight: a bold icon is the glyph with its own
    // outline drawn round it.
    property bool bold: false

    readonly property symbolSpec symbol: Symbols.symbol(name)
    readonly property real em: pointSize * Symbols.emScale

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
            visible: root.symbol.glyph !== ""
            width: box.width
            // The baseline is placed from the font's own em box, so the
            // glyph is centred whatever line height the font reports.
            y: box.height * Symbols.baselineRatio - baselineOffset
            horizontalAlignment: Text.AlignHCenter
            text: root.symbol.glyph
            color: root.color
            style: root.bold ? Text.Outline : Text.Normal
            styleColor: root.color
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

        Shape {
            visible: root.symbol.path !== ""
            anchors.fill: parent
            // Edges are smoothed by multisampling the drawn icons only.
            layer.enabled: visible
            layer.samples: 4

            ShapePath {
                fillColor: root.color
                strokeColor: "transparent"
                strokeWidth: 0
                fillRule: ShapePath.WindingFill
                scale: Qt.size(box.width / 24, box.height / 24)

                PathSvg {
                    path: root.symbol.path
                }
            }
        }
    }
}
