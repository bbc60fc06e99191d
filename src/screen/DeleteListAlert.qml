import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import QtQuick.Templates as T
import Murvane

// "Confirm Deletion": the phone's two-button alert, centred over a dimmed
// screen. "No" (the cancel button, in bold) only closes it; "Yes" is
// destructive and red.
Dialog {
    id: root

    signal confirmed

    readonly property color separator: SystemColors.separator

    anchors.centerIn: parent
    width: 270
    modal: true
    dim: true
    padding: 0
    topPadding: 0
    closePolicy: Popup.CloseOnEscape

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, 0.2)
    }

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: 200
        }
        NumberAnimation {
            property: "scale"
            from: 1.15
            to: 1
            duration: 200
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            from: 1
            to: 0
            duration: 150
        }
    }

    background: Rectangle {
        radius: 14
        color: SystemColors.alertBackground
    }

    header: null
    footer: null

    contentItem: ColumnLayout {
        spacing: 0

        Text {
            Layout.fillWidth: true
            Layout.topMargin: 19
            Layout.leftMargin: 16
            Layout.rightMargin: 16
            objectName: "alertTitle"
            text: "Confirm Deletion"
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            color: Appearance.foreground
            font.pixelSize: 17
            font.weight: Font.DemiBold
        }

        Text {
            Layout.fillWidth: true
            Layout.topMargin: 2
            Layout.bottomMargin: 19
            Layout.leftMargin: 16
            Layout.rightMargin: 16
            objectName: "alertMessage"
            text: "Are you sure you want to delete this list?"
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            color: Appearance.foreground
            font.pixelSize: 13
        }

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 0.5
            color: root.separator
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.preferredHeight: 44
            spacing: 0

            AlertButton {
                objectName: "noButton"
                Layout.fillWidth: true
                Layout.fillHeight: true
                text: "No"
                bold: true
                onClicked: root.close()
            }

            Rectangle {
                Layout.fillHeight: true
                Layout.preferredWidth: 0.5
                color: root.separator
            }

            AlertButton {
                objectName: "yesButton"
                Layout.fillWidth: true
                Layout.fillHeight: true
                text: "Yes"
                textColor: SystemColors.red
                onClicked: {
                    root.confirmed();
                    root.close();
                }
            }
        }
    }
}
