import QtQuick
import Murvane

// The tinted action that a swiped row uncovers, filling only the uncovered
// strip so that it does not show through the row's translucent band. Its
// icon sits centred in the strip until that is as wide as a swipe button,
// then follows the row's edge, showing that letting go performs the action.
// Rows too low for two lines show the icon alone, as the phone does.
Item {
    id: root

    // Width of the strip the row has uncovered so far.
    property real revealed
    // True for the leading (left) edge, false for the trailing one.
    property bool leading
    property color color
    property string symbol
    property string title

    // Width of the button once the row rests open.
    property real buttonWidth: 74
    readonly property real centreFromEdge: revealed < buttonWidth ? revealed / 2 : revealed - buttonWidth / 2

    visible: revealed > 0
    Accessible.role: Accessible.Button
    Accessible.name: title

    Rectangle {
        x: root.leading ? 0 : root.width - width
        width: Math.min(root.width, Math.max(0, root.revealed))
        height: root.height
        color: root.color
        clip: true

        Column {
            x: (root.leading ? root.centreFromEdge : parent.width - root.centreFromEdge) - width / 2
            anchors.verticalCenter: parent.verticalCenter
            spacing: 2

            SymbolIcon {
                anchors.horizontalCenter: parent.horizontalCenter
                name: root.symbol
                pointSize: 17
                color: "white"
            }

            Text {
                anchors.horizontalCenter: parent.horizontalCenter
                visible: root.height >= 60
                text: root.title
                color: "white"
                font.pixelSize: 14
                font.weight: Font.Medium
            }
        }
    }
}
