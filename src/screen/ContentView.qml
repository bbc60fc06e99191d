pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Shapes
import Murvane

// The app's one screen. ScreenState decides everything; this file lays the
// screen out, binds the child views to it and forwards their input. The
// layers are rebuilt when the theme changes, so every colour is read anew.
Item {
    id: root

    readonly property ScreenState screenState: screen
    // The current layer stack (replaced on a theme change).
    readonly property Item layers: loader.item as Item

    ScreenState {
        id: screen
    }

    Component.onCompleted: screen.onAppear()

    // The system background under the translucent theme gradient.
    Rectangle {
        anchors.fill: parent
        color: Appearance.isDark ? "black" : "white"
    }

    Loader {
        id: loader

        anchors.fill: parent
        sourceComponent: layerStack
    }

    Connections {
        target: screen

        function onThemeRefreshIDChanged() {
            rebuild.start();
        }
    }

    // Rebuilds on the next turn of the event loop, after the menu that
    // chose the theme has closed.
    Timer {
        id: rebuild

        interval: 0
        onTriggered: {
            loader.active = false;
            loader.active = true;
        }
    }

    // Ctrl+Z outside the text fields (they keep their own undo).
    Shortcut {
        sequence: "Ctrl+Z"
        onActivated: screen.undoAction()
    }

    Component {
        id: layerStack

        Item {
            id: stack

            readonly property NavigationBarView navigationBar: navigationBar
            readonly property ListHeaderView header: header
            readonly property ItemListView itemList: itemList
            readonly property Item emptyArea: emptyArea
            readonly property NewItemInputView inputBar: inputBar
            readonly property BottomToolbarView toolbar: toolbar
            readonly property DeleteListAlert deleteAlert: deleteAlert

            Connections {
                target: screen

                function onScrollToItem(itemId) {
                    itemList.revealItem(itemId);
                }
                function onScrollHeaderToSelected(durationMs) {
                    header.scrollToSelected(durationMs);
                }
                function onShowDeletionConfirmationChanged() {
                    if (screen.showDeletionConfirmation)
                        deleteAlert.open();
                    else
                        deleteAlert.close();
                }
            }

            // The theme's gradient, from the top-leading to the
            // bottom-trailing corner.
            Shape {
                anchors.fill: parent

                ShapePath {
                    strokeColor: "transparent"
                    strokeWidth: 0
                    fillGradient: LinearGradient {
                        x1: 0
                        y1: 0
                        x2: stack.width
                        y2: stack.height
                        GradientStop {
                            position: 0
                            color: Appearance.isDark ? Appearance.theme.darkStart : Appearance.theme.lightStart
                        }
                        GradientStop {
                            position: 1
                            color: Appearance.isDark ? Appearance.theme.darkEnd : Appearance.theme.lightEnd
                        }
                    }
                    startX: 0
                    startY: 0
                    PathLine {
                        x: stack.width
                        y: 0
                    }
                    PathLine {
                        x: stack.width
                        y: stack.height
                    }
                    PathLine {
                        x: 0
                        y: stack.height
                    }
                    PathLine {
                        x: 0
                        y: 0
                    }
                }
            }

            ColumnLayout {
                anchors.fill: parent
                spacing: 0

                NavigationBarView {
                    id: navigationBar

                    Layout.fillWidth: true
                    screen: screen
                }

                ListHeaderView {
                    id: header

                    objectName: "listHeader"
                    Layout.fillWidth: true
                    Layout.bottomMargin: 12
                    listNames: screen.store.listNames
                    selectedIndex: screen.selectedListIndex
                    onChipTapped: index => screen.selectList(index)
                }

                Item {
                    Layout.fillWidth: true
                    Layout.fillHeight: true

                    ItemListView {
                        id: itemList

                        objectName: "itemList"
                        anchors.fill: parent
                        screen: screen
                        opacity: screen.isSelectedListEmpty ? 0 : 1
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
                        opacity: screen.isSelectedListEmpty ? 1 : 0
                        visible: opacity > 0

                        Behavior on opacity {
                            NumberAnimation {
                                duration: 350
                                easing.type: Easing.InOutQuad
                            }
                        }

                        // Holds the place of the globe until it arrives.
                        Rectangle {
                            objectName: "globePlaceholder"
                            anchors.centerIn: parent
                            width: Math.min(parent.width, parent.height) * 0.6
                            height: width
                            radius: width / 2
                            color: "transparent"
                            border.width: 2
                            border.color: Appearance.theme.ballButton
                            opacity: 0.5
                        }

                        // While the entry has focus, a tap on the empty area
                        // puts the keyboard away.
                        MouseArea {
                            objectName: "emptyAreaTapLayer"
                            anchors.fill: parent
                            enabled: screen.newItemFieldIsFocused
                            onClicked: screen.newItemFieldIsFocused = false
                        }
                    }
                }

                NewItemInputView {
                    id: inputBar

                    objectName: "inputBar"
                    Layout.fillWidth: true
                    visible: !screen.titleEdited
                    newItem: screen.newItem
                    newItemFieldIsFocused: screen.newItemFieldIsFocused
                    editingItemId: screen.editingItemId
                    showBullet: screen.showBullet
                    bulletOffset: screen.bulletOffset
                    onNewItemEdited: text => screen.newItem = text
                    onFieldFocusEdited: focused => screen.newItemFieldIsFocused = focused
                    onAddOrUpdateAction: screen.addOrUpdateAction()
                    onUndoAction: screen.undoAction()
                }

                BottomToolbarView {
                    id: toolbar

                    objectName: "toolbar"
                    Layout.fillWidth: true
                    Layout.preferredHeight: 44
                    rotateMoon: screen.rotateMoon
                    onToggleColorScheme: screen.toggleColorScheme()
                    onSortToggle: screen.onSortToggle()
                    onSortByText: screen.onSortByText()
                    onRateApp: screen.openWriteReviewPage()
                    onShowTutorial: screen.onShowTutorial()
                    onResetDots: screen.resetDots()
                    onChooseTheme: rawValue => screen.chooseTheme(rawValue)
                    onShare: screen.share()
                }
            }

            DeleteListAlert {
                id: deleteAlert

                objectName: "deleteAlert"
                onConfirmed: screen.confirmDeleteList()
                onClosed: screen.showDeletionConfirmation = false
            }
        }
    }
}
