import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Murvane

// A row of the toolbar's menu: its title at the leading edge, its icon at
// the trailing edge, a hairline below unless it is the last row.
MenuItem {
    id: root

    // The icon; a submenu's row takes the submenu's.
    property string symbol: subMenu ? ((subMenu as ToolbarMenu)?.symbol ?? "") : ""

    readonly property bool isLast: menu !== null && menu.itemAt(menu.count - 1) === root

    implicitWidth: 250
    implicitHeight: 44
    leftPadding: 16
    rightPadding: 16
    focusPolicy: Qt.NoFocus
    arrow: null
    indicator: null
    Accessible.name: text
    Accessible.onPressAction: root.clicked()

    contentItem: RowLayout {
        spacing: 8

        Text {
            Layout.fillWidth: true
            text: root.text
            elide: Text.ElideRight
            color: Appearance.foreground
            font.pixelSize: 17
        }

        SymbolIcon {
            visible: root.symbol !== ""
            name: root.symbol
            pointSize: 17
            color: Appearance.foreground
        }
    }

    background: Item {
        // Inset and rounded, so that it stays inside the card's corners.
        Rectangle {
            anchors.fill: parent
            anchors.margins: 4
            radius: 9
            color: root.down || root.hovered || root.highlighted ? SystemColors.menuPressed : "transparent"
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 0.5
            visible: !root.isLast
            color: SystemColors.hairline
        }
    }
}
