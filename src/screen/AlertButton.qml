import QtQuick
import QtQuick.Controls.Basic
import Murvane

// A button of an alert: a full-width label that greys its cell while held.
AbstractButton {
    id: root

    property bool bold: false
    property color textColor: SystemColors.blue

    focusPolicy: Qt.NoFocus
    Accessible.name: text

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
    }
}
