import QtQuick
import Murvane

// The bar at the top: move the list left and delete it on the leading side,
// add a list and move it right on the trailing side, and the list's name,
// editable, in the middle.
Item {
    id: root

    required property ScreenState screen
    readonly property TitleEditorView titleEditor: editor
    readonly property Item deleteButton: minus

    implicitHeight: 44

    Row {
        id: leading

        anchors.left: parent.left
        anchors.leftMargin: 8
        height: parent.height

        SymbolButton {
            objectName: "moveLeftButton"
            height: parent.height
            padding: 5
            text: "Move List Left"
            enabled: root.screen.lists.canMoveListLeft
            onClicked: root.screen.lists.moveListLeft()

            contentItem: Row {
                spacing: 0.1

                SymbolIcon {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "chevron.left"
                    pointSize: 7
                    color: Appearance.foreground
                }
                SymbolIcon {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "chevron.left"
                    pointSize: 16
                    color: Appearance.foreground
                }
            }
        }

        SymbolButton {
            id: minus

            objectName: "deleteListButton"
            height: parent.height
            padding: 5
            text: "Delete List"
            onClicked: root.screen.lists.askToDeleteList()

            contentItem: SymbolIcon {
                name: "minus"
                pointSize: 11
                bold: true
                color: Appearance.foreground
            }
        }
    }

    TitleEditorView {
        id: editor

        objectName: "titleEditor"
        anchors.centerIn: parent
        // The middle keeps clear of the wider side.
        width: Math.max(0, parent.width - 2 * (Math.max(leading.width, trailing.width) + 16))
        height: parent.height
        title: root.screen.lists.currentListName
        pointSize: root.screen.lists.titlePointSize(root.screen.lists.currentListName)
        onTitleChange: text => root.screen.lists.renameSelectedList(text)
        onTitleEditingChanged: editing => root.screen.lists.setTitleEditing(editing)
        onTitleCommit: root.screen.lists.setTitleEditing(false)
    }

    Row {
        id: trailing

        anchors.right: parent.right
        anchors.rightMargin: 8
        height: parent.height

        SymbolButton {
            objectName: "newListButton"
            height: parent.height
            padding: 5
            text: "New List"
            onClicked: root.screen.lists.addList()

            contentItem: SymbolIcon {
                name: "plus"
                pointSize: 11
                bold: true
                color: Appearance.foreground
            }
        }

        SymbolButton {
            objectName: "moveRightButton"
            height: parent.height
            padding: 5
            text: "Move List Right"
            enabled: root.screen.lists.canMoveListRight
            onClicked: root.screen.lists.moveListRight()

            contentItem: Row {
                spacing: 0.1

                SymbolIcon {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "chevron.right"
                    pointSize: 16
                    color: Appearance.foreground
                }
                SymbolIcon {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "chevron.right"
                    pointSize: 7
                    color: Appearance.foreground
                }
            }
        }
    }
}
