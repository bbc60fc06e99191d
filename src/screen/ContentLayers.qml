import QtQuick
import QtQuick.Layouts
import Murvane

// The main screen's layers: the theme's gradient behind the navigation bar,
// the header row, the item area, the input bar and the toolbar, with the
// alerts and sheets above them. ContentView builds it afresh when the theme
// changes.
Item {
    id: stack

    required property ScreenState screen

    readonly property NavigationBarView navigationBar: navigationBar
    readonly property ListHeaderView header: header
    readonly property ItemListView itemList: itemList
    readonly property Item emptyArea: emptyArea
    readonly property NewItemInputView inputBar: inputBar
    readonly property BottomToolbarView toolbar: toolbar
    readonly property DeleteListAlert deleteAlert: deleteAlert

    Connections {
        target: stack.screen.inputBar

        function onScrollToItem(itemId) {
            itemList.revealItem(itemId);
        }
    }

    Connections {
        target: stack.screen.lists

        function onScrollHeaderToSelected(durationMs) {
            header.scrollToSelected(durationMs);
        }
        function onShowDeletionConfirmationChanged() {
            if (stack.screen.lists.showDeletionConfirmation)
                deleteAlert.open();
            else
                deleteAlert.close();
        }
    }

    // The theme's gradient, from the top-leading to the bottom-trailing
    // corner: a two-stop gradient along the diagonal, turned to lie across
    // the screen and cut to it. A rectangle's gradient is drawn with the
    // same vertex colours as every plain rectangle, so the first frame does
    // not wait for a gradient shader of its own.
    Item {
        anchors.fill: parent
        clip: true

        Rectangle {
            readonly property real diagonal: Math.max(Math.hypot(stack.width, stack.height), 1)
            // Just wide enough to cover the far corners either side of the
            // diagonal.
            readonly property real breadth: 2 * stack.width * stack.height / diagonal

            x: (stack.width - diagonal) / 2
            y: (stack.height - breadth) / 2
            width: diagonal
            height: breadth
            rotation: Math.atan2(stack.height, stack.width) * 180 / Math.PI
            gradient: Gradient {
                orientation: Gradient.Horizontal

                GradientStop {
                    position: 0
                    color: Appearance.isDark ? Appearance.theme.darkStart : Appearance.theme.lightStart
                }
                GradientStop {
                    position: 1
                    color: Appearance.isDark ? Appearance.theme.darkEnd : Appearance.theme.lightEnd
                }
            }
        }
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        NavigationBarView {
            id: navigationBar

            Layout.fillWidth: true
            screen: stack.screen
        }

        ListHeaderView {
            id: header

            objectName: "listHeader"
            Layout.fillWidth: true
            Layout.bottomMargin: 12
            store: stack.screen.store
            // The tools of Qt 6.4 do not know 64-bit integer properties.
            selectedIndex: stack.screen.lists.selectedListIndex // qmllint disable type
            selectionDuration: stack.screen.lists.selectionDuration
            onChipTapped: index => stack.screen.lists.chooseList(index)
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            ItemListView {
                id: itemList

                objectName: "itemList"
                anchors.fill: parent
                screen: stack.screen
                opacity: stack.screen.lists.isSelectedListEmpty ? 0 : 1
                visible: opacity > 0

                Behavior on opacity {
                    NumberAnimation {
                        duration: 350
                        easing.type: Easing.InOutQuad
                    }
                }
            }

            Item {
                id: emptyArea

                objectName: "emptyArea"
                anchors.fill: parent
                opacity: stack.screen.lists.isSelectedListEmpty ? 1 : 0
                visible: opacity > 0

                Behavior on opacity {
                    NumberAnimation {
                        duration: 350
                        easing.type: Easing.InOutQuad
                    }
                }

                // The turning globe of dots fills the empty list. Each time
                // the area appears it is a new globe: the spin starts again
                // and a camera the user turned is back in its place.
                Loader {
                    objectName: "globeLoader"
                    anchors.fill: parent
                    active: emptyArea.visible

                    sourceComponent: GlobeView {
                        objectName: "globe"
                        Accessible.ignored: true
                        dotColor: Appearance.theme.ballButton
                    }
                }

                // While the entry has focus, a tap on the empty area
                // puts the keyboard away.
                MouseArea {
                    objectName: "emptyAreaTapLayer"
                    anchors.fill: parent
                    enabled: stack.screen.inputBar.newItemFieldIsFocused
                    onClicked: stack.screen.inputBar.newItemFieldIsFocused = false
                }
            }
        }

        NewItemInputView {
            id: inputBar

            objectName: "inputBar"
            Layout.fillWidth: true
            visible: !stack.screen.lists.titleEdited
            newItem: stack.screen.inputBar.newItem
            newItemFieldIsFocused: stack.screen.inputBar.newItemFieldIsFocused
            editingItemId: stack.screen.inputBar.editingItemId
            showBullet: stack.screen.inputBar.showBullet
            bulletOffset: stack.screen.inputBar.bulletOffset
            onNewItemEdited: text => stack.screen.inputBar.newItem = text
            onFieldFocusEdited: (focused, reason) => stack.screen.inputBar.fieldFocusChanged(focused, reason)
            onAddOrUpdateAction: stack.screen.inputBar.addOrUpdate()
            onUndoAction: stack.screen.sortAndUndo.undo()
        }

        BottomToolbarView {
            id: toolbar

            objectName: "toolbar"
            Layout.fillWidth: true
            Layout.preferredHeight: 44
            rotateMoon: stack.screen.rotateMoon
            onToggleColorScheme: stack.screen.toggleColorScheme()
            onSortToggle: stack.screen.sortAndUndo.sortByStatus()
            onSortByText: stack.screen.sortAndUndo.sortByText()
            onRateApp: stack.screen.openWriteReviewPage()
            onShowTutorial: stack.screen.openTutorial()
            onResetDots: stack.screen.sortAndUndo.markAllToDo()
            onChooseTheme: rawValue => stack.screen.chooseTheme(rawValue)
            onShare: stack.screen.share()
        }
    }

    // A press anywhere outside the list closes a row left open by a swipe
    // (the list sees to presses on itself), and still reaches what it
    // lands on.
    MouseArea {
        anchors.fill: parent
        enabled: itemList.openRow !== null
        onPressed: mouse => {
            mouse.accepted = false;
            if (!itemList.contains(mapToItem(itemList, mouse.x, mouse.y)))
                itemList.closeOpenRow();
        }
    }

    ShareSheetView {
        objectName: "shareSheetView"
        sheet: stack.screen.shareSheet
    }

    DeleteListAlert {
        id: deleteAlert

        objectName: "deleteAlert"
        onConfirmed: stack.screen.lists.deleteSelectedList()
        onClosed: stack.screen.lists.showDeletionConfirmation = false
    }
}
