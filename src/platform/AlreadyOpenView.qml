import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts

// Shown by a second launch that cannot reach the running app to bring it
// forward. It reads nothing of the user's data, so it keeps to the
// system's palette rather than the chosen theme. Closing it ends the launch.
ApplicationWindow {
    id: root

    title: "Murvane"
    width: 320
    height: column.implicitHeight + 48
    minimumWidth: 240
    visible: true

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: 24
        spacing: 16

        Label {
            objectName: "message"
            Layout.fillWidth: true
            text: "Murvane is already open."
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
            font.pixelSize: 15
        }

        Button {
            objectName: "okButton"
            Layout.alignment: Qt.AlignHCenter
            text: "OK"
            onClicked: root.close()
        }
    }
}
