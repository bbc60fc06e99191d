import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The app's one screen. ScreenState decides everything; this file lays the
// screen out, binds the child views to it and forwards their input. The
// layers are rebuilt when the theme changes, so every colour is read anew.
Item {
    id: root

    // Made by the app (or a test) over its services.
    required property ScreenState screen
    // The current layer stack (replaced on a theme change).
    readonly property Item layers: loader.item as Item

    Component.onCompleted: {
        root.screen.appear();
        buildLayers();
    }

    // The system background under the translucent theme gradient.
    Rectangle {
        anchors.fill: parent
        color: Appearance.isDark ? "black" : "white"
    }

    Loader {
        id: loader

        anchors.fill: parent
    }

    function buildLayers() {
        loader.setSource("ContentLayers.qml", { screen: root.screen });
    }

    Connections {
        target: root.screen

        function onThemeRefreshIDChanged() {
            rebuild.start();
        }
    }

    // Rebuilds on the next turn of the event loop, after the menu that
    // chose the theme has closed.
    Timer {
        id: rebuild

        interval: 0
        onTriggered: root.buildLayers()
    }

    // The tutorial, as a sheet over the whole screen. It lives outside the
    // layers so a theme change does not close it; it ignores the theme.
    Popup {
        id: tutorialSheet

        objectName: "tutorialSheet"
        width: root.width
        height: root.height
        padding: 0
        modal: true
        closePolicy: Popup.NoAutoClose
        visible: root.screen.showTutorial
        onClosed: root.screen.showTutorial = false

        enter: Transition {
            NumberAnimation {
                property: "y"
                from: root.height
                to: 0
                duration: 300
                easing.type: Easing.OutCubic
            }
        }
        exit: Transition {
            NumberAnimation {
                property: "y"
                from: 0
                to: root.height
                duration: 250
                easing.type: Easing.InCubic
            }
        }

        contentItem: TutorialView {
            onDone: tutorialSheet.close()
        }
    }

    // Ctrl+Z outside the text fields (they keep their own undo).
    Shortcut {
        sequence: "Ctrl+Z"
        onActivated: root.screen.sortAndUndo.undo()
    }
}
