import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Murvane

// A card at the top of the window while the store has something to say:
// changes that are not being saved, or stored data that could not be read
// and where its copy is. Only the latter can be put away.
Item {
    id: root

    property StoreStatus status: null
    readonly property string message: status ? status.message : ""
    readonly property color foreground: Appearance.foreground

    anchors.left: parent ? parent.left : undefined
    anchors.right: parent ? parent.right : undefined
    anchors.top: parent ? parent.top : undefined
    anchors.margins: 12
    height: card.implicitHeight
    visible: opacity > 0
    opacity: message !== "" ? 1 : 0
    z: 10

    Behavior on opacity {
        NumberAnimation { duration: 200; easing.type: Easing.OutCubic }
    }

    Rectangle {
        id: card

        anchors.fill: parent
        implicitHeight: row.implicitHeight + 24
        radius: 14
        color: Appearance.pick(Appearance.theme.listRowBackgroundDark, Appearance.theme.listRowBackgroundLight)
        border.width: 1.5
        border.color: Appearance.pick(Appearance.theme.accentDark, Appearance.theme.accentLight)

        RowLayout {
            id: row

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            anchors.leftMargin: 16
            anchors.rightMargin: 8
            spacing: 8

            Label {
                Layout.fillWidth: true
                text: root.message
                wrapMode: Text.Wrap
                font.pixelSize: 14
                lineHeight: 1.1
                color: root.foreground
            }

            ToolButton {
                id: close

                visible: root.status !== null && root.status.dismissable
                Layout.preferredWidth: 36
                Layout.preferredHeight: 36
                Layout.alignment: Qt.AlignTop
                onClicked: root.status.dismiss()
                contentItem: SymbolIcon {
                    name: "xmark"
                    pointSize: 16
                    color: root.foreground
                }
                background: Item {}
            }
        }
    }
}
