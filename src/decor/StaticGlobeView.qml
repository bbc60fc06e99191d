import QtQuick
import Murvane

// The still dot globe, 28 x 28, the menu button's icon: white dots in the
// dark scheme, black in the light one. Each scheme's picture is rendered once
// per process by a hidden 3-D view and kept by StaticGlobeImages; the view is
// then released, so the toolbar carries no live 3-D rendering, and a change
// of scheme swaps the picture at once. It takes no input: taps fall through
// to the button.
Item {
    id: root

    property bool isDark: false
    // Where each scheme's picture is loaded from, once it exists.
    readonly property url darkSource: StaticGlobeImages.darkSource
    readonly property url lightSource: StaticGlobeImages.lightSource
    // True once the picture of the current scheme is on show.
    readonly property bool ready: (isDark ? darkPicture : lightPicture).status === Image.Ready
    // True while the hidden 3-D view exists.
    readonly property bool rendering: renderer.active
    readonly property int side: 28
    // The pictures are drawn this many times larger and scaled down smoothly,
    // which rounds dots only a pixel or two across.
    readonly property int oversampling: 4
    readonly property bool bothRendered: StaticGlobeImages.darkReady && StaticGlobeImages.lightReady

    implicitWidth: side
    implicitHeight: side

    // Both pictures stay loaded, so a change of scheme only swaps which one
    // is visible.
    Image {
        id: darkPicture
        anchors.centerIn: parent
        width: root.side
        height: root.side
        visible: root.isDark
        source: root.darkSource
        smooth: true
        mipmap: true
    }

    Image {
        id: lightPicture
        anchors.centerIn: parent
        width: root.side
        height: root.side
        visible: !root.isDark
        source: root.lightSource
        smooth: true
        mipmap: true
    }

    // Renders the scheme on screen first, then the other one. Only made when
    // this process has no pictures yet.
    Loader {
        id: renderer

        readonly property StaticGlobeSnapshot snapshot: item as StaticGlobeSnapshot

        Component.onCompleted: renderer.active = !root.bothRendered
        active: false
        sourceComponent: StaticGlobeSnapshot {}
        onLoaded: {
            renderer.snapshot.pictureSide = root.side * root.oversampling
            renderer.snapshot.renderBoth(root.isDark)
        }
    }

    // Releases the 3-D view on a later turn of the event loop, never from
    // inside its own grab callback.
    onBothRenderedChanged: if (root.bothRendered) release.start()

    Timer {
        id: release
        interval: 0
        onTriggered: renderer.active = false
    }

    Connections {
        target: renderer.snapshot

        function onCaptured(dark: bool, picture: var) {
            StaticGlobeImages.store(dark, picture)
        }
    }
}
