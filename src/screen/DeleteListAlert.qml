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
    readonly property string message: "Are you sure you want to delete this list?"

    anchors.centerIn: parent
    width: 270
    modal: true
    dim: true
    padding: 0
    topPadding: 0
    closePolicy: Popup.CloseOnEscape
    // Not drawn (there is no header): the name screen readers hear.
    title: "Confirm Deletion"
    // The keyboard starts on "No": Enter answers it, Tab or an arrow
    // reaches "Yes", Escape is "No" as well.
    focus: true
    // The title names it to screen readers; the message is read after it.
    Component.onCompleted: contentItem.parent.Accessible.description = root.message

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
            text: root.message
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
                focus: true
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
