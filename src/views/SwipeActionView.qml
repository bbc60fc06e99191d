import QtQuick
import Murvane

// The tinted action that a swiped row uncovers. Its icon sits centred in the
// uncovered strip until that is as wide as a swipe button, then follows the
// row's edge, showing that letting go performs the action. Rows too low for
// two lines show the icon alone, as the phone does.
Rectangle {
    id: root

    // Width of the strip the row has uncovered so far.
    property real revealed
    // True for the leading (left) edge, false for the trailing one.
    property bool leading
    property string symbol
    property string title

    readonly property real buttonWidth: 74
    readonly property real centreFromEdge: revealed < buttonWidth ? revealed / 2 : revealed - buttonWidth / 2

    Accessible.role: Accessible.Button
    Accessible.name: title

    Column {
        x: (root.leading ? root.centreFromEdge : root.width - root.centreFromEdge) - width / 2
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
