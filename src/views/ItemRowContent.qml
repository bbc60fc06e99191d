pragma ComponentBehavior: Bound
import QtQuick
import Murvane

// What a row shows: the text in its rounded highlight at the leading edge,
// the pin mark and the done-marker at the trailing edge. The marker's
// 44-point square reaches 7 points past the row's trailing inset.
Item {
    id: root

    // Held by the text item itself: a string property declared here would
    // be one more script-engine copy of the text of every recycled row.
    property alias itemText: label.text
    property bool isDone
    property bool isPinned
    property real rotationAngle
    // Off while a recycled row takes on another item, so its marker does
    // not spin from the old item's angle to the new one's.
    property bool animatesTurns: true
    // While true, changes of isDone fade the fill, the strike-through and
    // the marker over the default animation instead of switching at once.
    property bool animatesStates: false
    // How done the row looks: 0 to do, 1 done, between while it fades.
    property real doneAmount: isDone ? 1 : 0

    Behavior on doneAmount {
        enabled: root.animatesStates

        NumberAnimation {
            duration: 350
            easing.type: Easing.InOutQuad
        }
    }

    // A screen reader's press or toggle on the done-marker.
    signal markerActivated

    readonly property Item marker: markerBox
    readonly property Item textBox: textHighlight
    readonly property color foreground: Appearance.foreground

    implicitHeight: Math.max(markerBox.height, textHighlight.height)

    Rectangle {
        id: textHighlight

        // The text takes what it needs, up to what the pin and the marker
        // leave over (one default spacing before each).
        readonly property real available: (root.isPinned ? pinMark.x : markerBox.x) - 8
        readonly property color fill: Appearance.pick(Appearance.theme.textCompleteFillDark,
                                                      Appearance.theme.textCompleteFillLight)

        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(0, Math.min(label.implicitWidth, available))
        height: label.implicitHeight
        radius: 6
        color: Qt.rgba(fill.r, fill.g, fill.b, fill.a * 0.2 * root.doneAmount)

        Text {
            id: label

            width: parent.width
            leftPadding: 8
            rightPadding: 8
            topPadding: 4
            bottomPadding: 4
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            color: root.foreground
            font.pixelSize: 15
            font.strikeout: root.doneAmount >= 1
        }

        // The strike-through fading in or out, over the plain text.
        Loader {
            active: root.doneAmount > 0 && root.doneAmount < 1
            sourceComponent: Text {
                width: label.width
                leftPadding: label.leftPadding
                rightPadding: label.rightPadding
                topPadding: label.topPadding
                bottomPadding: label.bottomPadding
                text: label.text
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                color: label.color
                font.pixelSize: label.font.pixelSize
                font.strikeout: true
                opacity: root.doneAmount
            }
        }
    }

    SymbolIcon {
        id: pinMark

        anchors.right: markerBox.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        visible: root.isPinned
        name: "pin.fill"
        pointSize: 10
        color: root.foreground
    }

    Item {
        id: markerBox

        anchors.right: parent.right
        anchors.rightMargin: -7
        anchors.verticalCenter: parent.verticalCenter
        width: 44
        height: 44
        Accessible.role: Accessible.CheckBox
        Accessible.name: "Done"
        Accessible.checkable: true
        Accessible.checked: root.isDone
        Accessible.onPressAction: root.markerActivated()
        Accessible.onToggleAction: root.markerActivated()

        readonly property color doneColor: Appearance.pick(Appearance.theme.completeFillDark,
                                                           Appearance.theme.completeFillLight)
        readonly property color toDoColor: Appearance.isDark ? Qt.rgba(0.5, 0.5, 0.5, 1) : "black"

        // The marker of the state left behind, fading out.
        Loader {
            anchors.centerIn: parent
            active: root.doneAmount > 0 && root.doneAmount < 1
            sourceComponent: SymbolIcon {
                name: root.isDone ? "circle" : "largecircle.fill.circle"
                pointSize: 17
                color: root.isDone ? markerBox.toDoColor : markerBox.doneColor
                rotation: doneMarker.rotation
                opacity: root.isDone ? 1 - root.doneAmount : root.doneAmount
            }
        }

        SymbolIcon {
            id: doneMarker

            objectName: "doneMarker"
            anchors.centerIn: parent
            name: root.isDone ? "largecircle.fill.circle" : "circle"
            pointSize: 17
            color: root.isDone ? markerBox.doneColor : markerBox.toDoColor
            opacity: root.isDone ? root.doneAmount : 1 - root.doneAmount
            rotation: root.rotationAngle

            // A spring of mass 1, stiffness 170 and damping 15, in the
            // animation's per-16 ms steps.
            Behavior on rotation {
                enabled: root.animatesTurns

                SpringAnimation {
                    spring: 170 * 0.016
                    damping: 15 * 0.016
                    epsilon: 0.25
                }
            }
        }
    }
}
