import QtQuick
import QtQuick.Controls.Basic

// A modal sheet that slides up from the bottom of its parent, `gap` above
// the bottom edge, and back down when it closes.
Popup {
    id: root

    property real gap: 0
    // What screen readers call the sheet (Qt 6.4 names no popup itself).
    property string accessibleName
    property int closeDuration: 250
    readonly property real shownY: parent ? parent.height - height - gap : 0

    y: shownY
    padding: 0
    modal: true
    Component.onCompleted: contentItem.parent.Accessible.name = Qt.binding(() => root.accessibleName)

    enter: Transition {
        NumberAnimation {
            property: "y"
            from: root.parent ? root.parent.height : 0
            to: root.shownY
            duration: 300
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "y"
            to: root.parent ? root.parent.height : 0
            duration: root.closeDuration
            easing.type: Easing.InCubic
        }
    }
}
