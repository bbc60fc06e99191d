import QtQuick
import QtQuick.Controls.Basic
import Murvane

// A borderless icon (or label) button in the app's bars: no box, the label
// dims while pressed and fades when disabled, like the phone's bar buttons.
AbstractButton {
    id: root

    property string symbol
    property real pointSize: 17
    property color color: Appearance.foreground

    padding: 0
    focusPolicy: Qt.NoFocus
    opacity: enabled ? (down ? 0.3 : 1) : 0.3
    Accessible.name: text

    contentItem: SymbolIcon {
        name: root.symbol
        pointSize: root.pointSize
        color: root.color
    }

    background: Item {}

    Behavior on opacity {
        NumberAnimation {
            duration: 150
        }
    }
}
