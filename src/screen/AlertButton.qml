import QtQuick
import QtQuick.Controls.Basic
import Murvane

// A button of an alert: a full-width label that greys its cell while held.
AbstractButton {
    id: root

    property bool bold: false
    property color textColor: SystemColors.blue

    focusPolicy: Qt.TabFocus
    Accessible.name: text
    Accessible.onPressAction: root.clicked()
    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()
    // The arrows go to the alert's button on that side, if there is one.
    Keys.onLeftPressed: (nextItemInFocusChain(false) as AlertButton)?.forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onRightPressed: (nextItemInFocusChain(true) as AlertButton)?.forceActiveFocus(Qt.TabFocusReason)

    contentItem: Text {
        text: root.text
        color: root.textColor
        font.pixelSize: 17
        font.weight: root.bold ? Font.DemiBold : Font.Normal
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        color: root.down ? SystemColors.pressed : "transparent"

        FocusRing {
            anchors.margins: 2
            shown: root.visualFocus
        }
    }
}
