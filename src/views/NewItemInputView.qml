import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Murvane

// The bar at the foot of the list: undo, the growing entry with the bullet
// that flies out after an add, and "Add" / "Update". It owns nothing: text,
// focus, the editing id and the bullet come from the screen, and every
// change goes back through the signals.
Item {
    id: root

    property string newItem
    property bool newItemFieldIsFocused
    // Non-empty while an existing item is being edited.
    property string editingItemId
    property bool showBullet
    property real bulletOffset

    signal newItemEdited(string text)
    // `reason` is the Qt.FocusReason of the change.
    signal fieldFocusEdited(bool focused, int reason)
    signal addOrUpdateAction
    signal undoAction

    readonly property color outline: Appearance.pick(Appearance.theme.outlineDark, Appearance.theme.outlineLight)
    readonly property Item entry: field
    readonly property Item submitButton: submit
    readonly property Item undoButton: undo
    readonly property Item bullet: bulletShape

    implicitHeight: bar.implicitHeight

    onNewItemFieldIsFocusedChanged: {
        if (newItemFieldIsFocused)
            field.focusEntry();
        else
            field.releaseFocus();
    }
    Component.onCompleted: {
        if (newItemFieldIsFocused)
            field.focusEntry();
    }

    // A closing menu hands the focus back to the window as a whole; while
    // the screen still wants the keyboard here, the entry takes it back.
    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            const window = root.Window.window;
            if (root.newItemFieldIsFocused && root.visible && window.active && !field.entryActiveFocus
                    && (window.activeFocusItem === null || window.activeFocusItem === window.contentItem))
                field.focusEntry();
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Appearance.isDark ? Qt.rgba(0, 0, 0, 0.4) : Qt.rgba(0.95, 0.95, 0.95, 0.4)
    }

    RowLayout {
        id: bar

        anchors.fill: parent
        spacing: 8

        SymbolButton {
            id: undo

            objectName: "undoButton"
            Layout.leftMargin: 10
            Layout.rightMargin: 9
            Layout.preferredHeight: 44
            text: "Undo"
            symbol: "arrow.uturn.backward"
            pointSize: 21
            onClicked: root.undoAction()
        }

        Item {
            id: group

            Layout.fillWidth: true
            Layout.leftMargin: 8 + 5
            Layout.rightMargin: 5
            Layout.topMargin: 5
            Layout.bottomMargin: 5
            implicitHeight: field.implicitHeight

            FieldMultiEntryTextDynamic {
                id: field

                objectName: "newItemField"
                anchors.fill: parent
                text: root.newItem
                onEdited: text => root.newItemEdited(text)
                onEntryActiveFocusChanged: {
                    if (entryActiveFocus !== root.newItemFieldIsFocused)
                        root.fieldFocusEdited(entryActiveFocus, entryFocusReason);
                }
                onSubmitRequested: root.addOrUpdateAction()
            }

            Rectangle {
                id: bulletShape

                objectName: "bullet"
                Accessible.ignored: true
                width: 15
                height: 15
                radius: 7.5
                anchors.verticalCenter: parent.verticalCenter
                x: root.bulletOffset
                opacity: root.showBullet ? 1 : 0
                color: Appearance.pick(Appearance.theme.completeFillDark, Appearance.theme.completeFillLight)

                // Out quickly, back slowly.
                Behavior on x {
                    NumberAnimation {
                        duration: root.showBullet ? 100 : 250
                        easing.type: Easing.Linear
                    }
                }
                Behavior on opacity {
                    NumberAnimation {
                        duration: root.showBullet ? 100 : 250
                        easing.type: Easing.Linear
                    }
                }
            }

            Rectangle {
                anchors.fill: parent
                radius: 29
                color: "transparent"
                border.width: 0.7
                border.color: root.outline

                FocusRing {
                    radius: 31
                    shown: field.entryKeyboardFocus
                }
            }
        }

        AbstractButton {
            id: submit

            objectName: "submitButton"
            Layout.rightMargin: 10
            Layout.preferredHeight: 44
            focusPolicy: Qt.TabFocus
            text: root.editingItemId !== "" ? "Update" : "Add"
            opacity: down ? 0.3 : 1
            Accessible.name: text
            Accessible.onPressAction: submit.clicked()
            onClicked: root.addOrUpdateAction()

            contentItem: Text {
                text: submit.text
                color: Appearance.foreground
                font.pixelSize: 18
                verticalAlignment: Text.AlignVCenter
            }
            background: Item {
                FocusRing {
                    shown: submit.visualFocus
                }
            }
        }
    }

    // The hairline along the bar's top edge.
    Rectangle {
        anchors.top: parent.top
        width: parent.width
        height: 0.6
        color: root.outline
    }
}
