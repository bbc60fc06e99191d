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
    // layers so a theme change does not close it; it ignores the theme. Its
    // page is made afresh on each opening, so it always opens at the top.
    BottomSheet {
        id: tutorialSheet

        objectName: "tutorialSheet"
        readonly property TutorialView page: (contentItem as Loader).item as TutorialView

        width: root.width
        height: root.height
        // Only "Done" and Escape close it.
        closePolicy: Popup.CloseOnEscape
        focus: true
        accessibleName: TutorialContent.navigationTitle
        visible: root.screen.showTutorial
        onAboutToShow: (contentItem as Loader).active = true
        onClosed: {
            (contentItem as Loader).active = false;
            root.screen.showTutorial = false;
        }

        contentItem: Loader {
            active: false
            // The page takes the keys (arrows, Page Up/Down) once loaded.
            focus: true
            onLoaded: (item as TutorialView).done.connect(tutorialSheet.close)

            sourceComponent: Component {
                TutorialView {}
            }
        }
    }

    // The window-wide keys. A shortcut gives way to a focused text field
    // that takes the key itself (Ctrl+Z there undoes typing).
    Instantiator {
        model: root.screen.keys.windowKeys

        delegate: Shortcut {
            required property var modelData

            sequence: modelData.sequence
            onActivated: {
                if (root.screen.keys.perform(modelData.command))
                    return;
                const bar = root.layers ? (root.layers as ContentLayers).navigationBar : null;
                if (modelData.command === KeyCommands.RenameList && bar)
                    bar.titleEditor.forceActiveFocus(Qt.ShortcutFocusReason);
            }
        }
    }
}
