import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The toolbar's pop-up menu in the phone's look: a rounded, nearly opaque
// card with a soft shadow, full-width rows and hairlines between them.
Menu {
    id: root

    // Icon of the row that opens this menu when it is a submenu.
    property string symbol

    readonly property color cardColor: SystemColors.menuBackground
    readonly property color separatorColor: SystemColors.hairline

    padding: 0
    margins: 8
    width: 250
    cascade: false
    overlap: 0
    modal: true
    dim: false

    delegate: ToolbarMenuItem {}
    // Qt 6.4 gives the menu's title to no one: its item tells screen readers.
    Component.onCompleted: contentItem.parent.Accessible.name = Qt.binding(() => root.title)

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: 150
        }
        NumberAnimation {
            property: "scale"
            from: 0.9
            to: 1
            duration: 150
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            from: 1
            to: 0
            duration: 120
        }
    }

    background: Rectangle {
        implicitWidth: 250
        radius: 13
        color: root.cardColor

        RoundedShadow {
            cornerRadius: 13
            blur: 16
            offsetY: 4
            color: Qt.rgba(0, 0, 0, 0.25)
        }
    }
}
