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
        color: SystemColors.background
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
    BottomSheet {
        id: tutorialSheet

        objectName: "tutorialSheet"
        width: root.width
        height: root.height
        closePolicy: Popup.NoAutoClose
        visible: root.screen.showTutorial
        onClosed: root.screen.showTutorial = false

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
