import QtQuick
import QtQuick.Controls.Basic
import Murvane

// Interim main screen: the stored lists with their item counts.
Item {
    id: root

    ListItems {
        id: store
    }

    ListView {
        anchors.fill: parent
        anchors.margins: 16
        spacing: 8
        model: store.listNames
        header: Label {
            text: "Murvane"
            font.pixelSize: 24
            font.weight: Font.DemiBold
            bottomPadding: 12
        }
        delegate: Label {
            required property int index
            required property string modelData
            width: ListView.view.width
            text: modelData + " (" + store.itemCount(index) + ")"
            font.pixelSize: 17
        }
    }
}
