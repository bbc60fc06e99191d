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
    // Tab reaches it; a tap does not take the focus from the text field.
    focusPolicy: Qt.TabFocus
    opacity: enabled ? (down ? 0.3 : 1) : 0.3
    Accessible.name: text
    Accessible.onPressAction: if (enabled) root.clicked()

    contentItem: SymbolIcon {
        name: root.symbol
        pointSize: root.pointSize
        color: root.color
    }

    background: Item {
        FocusRing {
            shown: root.visualFocus
        }
    }

    Behavior on opacity {
        NumberAnimation {
            duration: 150
        }
    }
}
