import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Murvane

// The app's own review prompt, for platforms without a system review
// sheet: a small card over the content that asks once and gets out of the
// way. Rating opens the app's page in the software centre; "Not Now", a tap
// outside or Escape/back closes it.
Popup {
    id: root

    readonly property color foreground: Appearance.foreground

    x: parent ? (parent.width - width) / 2 : 0
    y: parent ? (parent.height - height) / 2 : 0
    width: Math.min(parent ? parent.width - 48 : 320, 320)
    modal: true
    dim: true
    focus: true
    padding: 24
    closePolicy: Popup.CloseOnEscape | Popup.CloseOnPressOutside

    Component.onCompleted: if (RatingPrompt.shown) open()
    onClosed: RatingPrompt.dismiss()

    Connections {
        target: RatingPrompt
        function onShownChanged() {
            if (RatingPrompt.shown)
                root.open()
            else
                root.close()
        }
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: 180; easing.type: Easing.OutCubic }
        NumberAnimation { property: "scale"; from: 0.92; to: 1; duration: 180; easing.type: Easing.OutCubic }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: 140 }
    }

    background: Rectangle {
        radius: 18
        color: Appearance.pick(Appearance.theme.listRowBackgroundDark, Appearance.theme.listRowBackgroundLight)
        border.width: 0.7
        border.color: Appearance.pick(Appearance.theme.outlineDark, Appearance.theme.outlineLight)
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 14

        Row {
            Layout.alignment: Qt.AlignHCenter
            spacing: 6
            Repeater {
                model: 5
                SymbolIcon {
                    name: "star.fill"
                    pointSize: 22
                    color: Appearance.pick(Appearance.theme.completeFillDark, Appearance.theme.completeFillLight)
                }
            }
        }

        Label {
            Layout.fillWidth: true
            text: "Enjoying Murvane?"
            horizontalAlignment: Text.AlignHCenter
            font.pixelSize: 20
            font.weight: Font.DemiBold
            color: root.foreground
        }

        Label {
            Layout.fillWidth: true
            text: "If Murvane makes your lists a little easier, would you rate it in your software centre? It only takes a moment."
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignHCenter
            lineHeight: 1.15
            font.pixelSize: 15
            color: root.foreground
            opacity: 0.75
        }

        Button {
            id: rateButton
            Layout.fillWidth: true
            Layout.topMargin: 6
            Layout.preferredHeight: 46
            text: "Rate Murvane"
            font.pixelSize: 17
            font.weight: Font.DemiBold
            onClicked: RatingPrompt.rate()
            contentItem: Label {
                text: rateButton.text
                font: rateButton.font
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                color: SystemColors.label
            }
            background: Rectangle {
                radius: 23
                color: Appearance.pick(Appearance.theme.accentDark, Appearance.theme.accentLight)
                opacity: rateButton.down ? 0.7 : 1
            }
        }

        Button {
            id: laterButton
            Layout.fillWidth: true
            Layout.preferredHeight: 40
            text: "Not Now"
            flat: true
            font.pixelSize: 16
            onClicked: RatingPrompt.dismiss()
            contentItem: Label {
                text: laterButton.text
                font: laterButton.font
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                color: root.foreground
                opacity: laterButton.down ? 0.5 : 0.8
            }
            background: Item {}
        }
    }
}
