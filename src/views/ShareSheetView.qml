import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Murvane

// The share sheet: slides up from the bottom while the sheet is presented,
// shows the text being shared and offers "Copy" and "Email"; "Cancel", a tap
// outside or Escape closes it.
BottomSheet {
    id: root

    property ShareSheet sheet: null
    readonly property color cardColor: SystemColors.sheetBackground
    readonly property color separator: SystemColors.separator
    readonly property color textColor: SystemColors.label
    readonly property color actionColor: SystemColors.blue
    readonly property Item copyButton: copy
    readonly property Item emailButton: email
    readonly property Item cancelButton: cancel

    parent: T.Overlay.overlay
    width: parent ? Math.min(parent.width - 16, 500) : 374
    x: parent ? Math.round((parent.width - width) / 2) : 0
    gap: 8
    closeDuration: 200
    dim: true
    closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutside
    accessibleName: "Share List"
    // Takes the keyboard while up: Tab walks its buttons, Escape closes it.
    focus: true
    visible: sheet !== null && sheet.isPresented
    // However it closes, the sheet is no longer presented.
    onClosed: if (sheet !== null && sheet.isPresented) sheet.dismiss()

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, 0.3)
    }

    background: Item {}
    // Sized from its parts' own heights, which are known as soon as the text
    // is, so the sheet opens at its final size rather than growing into it.
    contentHeight: card.height + parts.spacing + cancel.height

    Column {
        id: parts

        width: root.availableWidth
        spacing: 8

        Rectangle {
            id: card

            width: parent.width
            height: preview.height + 2 * 0.5 + copy.height + email.height
            radius: 14
            color: root.cardColor

            Column {
                id: actions

                width: parent.width

                Flickable {
                    id: preview

                    width: parent.width
                    height: Math.min(previewText.implicitHeight, 220) + 32
                    contentHeight: previewText.implicitHeight + 32
                    clip: true
                    boundsBehavior: Flickable.StopAtBounds

                    Text {
                        id: previewText

                        x: 16
                        y: 16
                        width: preview.width - 32
                        text: root.sheet !== null ? root.sheet.text : ""
                        textFormat: Text.PlainText
                        wrapMode: Text.Wrap
                        color: root.textColor
                        Accessible.role: Accessible.StaticText
                        Accessible.name: text
                        font.pixelSize: 15
                    }
                }

                Rectangle {
                    width: parent.width
                    height: 0.5
                    color: root.separator
                }

                AbstractButton {
                    id: copy

                    objectName: "copyButton"
                    width: parent.width
                    height: 56
                    text: "Copy"
                    focusPolicy: Qt.TabFocus
                    Accessible.name: text
                    Accessible.onPressAction: root.sheet.copyText()
                    onClicked: root.sheet.copyText()
                    contentItem: Text {
                        text: copy.text
                        color: root.actionColor
                        font.pixelSize: 20
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                    }
                    background: Rectangle {
                        color: copy.down ? SystemColors.pressed : "transparent"
                        FocusRing {
                            anchors.margins: 2
                            shown: copy.visualFocus
                        }
                    }
                }

                Rectangle {
                    width: parent.width
                    height: 0.5
                    color: root.separator
                }

                AbstractButton {
                    id: email

                    objectName: "emailButton"
                    width: parent.width
                    height: 56
                    text: "Email"
                    focusPolicy: Qt.TabFocus
                    Accessible.name: text
                    Accessible.onPressAction: root.sheet.emailText()
                    onClicked: root.sheet.emailText()
                    contentItem: Text {
                        text: email.text
                        color: root.actionColor
                        font.pixelSize: 20
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                    }
                    background: Rectangle {
                        radius: 14
                        color: email.down ? SystemColors.pressed : "transparent"
                        // Square top corners: only the card's bottom is round.
                        Rectangle {
                            width: parent.width
                            height: parent.radius
                            color: parent.color
                        }
                        FocusRing {
                            anchors.margins: 2
                            shown: email.visualFocus
                        }
                    }
                }
            }
        }

        AbstractButton {
            id: cancel

            objectName: "cancelButton"
            width: parent.width
            height: 56
            text: "Cancel"
            focusPolicy: Qt.TabFocus
            Accessible.name: text
            Accessible.onPressAction: root.sheet.dismiss()
            onClicked: root.sheet.dismiss()
            contentItem: Text {
                text: cancel.text
                color: root.actionColor
                font.pixelSize: 20
                font.weight: Font.DemiBold
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
            background: Rectangle {
                radius: 14
                color: cancel.down ? SystemColors.sheetButtonPressed : root.cardColor
                FocusRing {
                    anchors.margins: 2
                    shown: cancel.visualFocus
                }
            }
        }
    }
}
