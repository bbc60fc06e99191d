import QtQuick
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

    Component.onCompleted: {
        screen.onAppear();
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
        loader.setSource("ContentLayers.qml", { screen: screen });
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
        onTriggered: root.buildLayers()
    }

    // Ctrl+Z outside the text fields (they keep their own undo).
    Shortcut {
        sequence: "Ctrl+Z"
        onActivated: screen.undoAction()
    }
}
