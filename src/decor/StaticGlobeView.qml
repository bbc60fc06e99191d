import QtQuick
import Murvane

// The still dot globe, 28 x 28, the menu button's icon: white dots in the
// dark scheme, black in the light one. Each scheme's picture is rendered once
// by a hidden 3-D view, kept as an image, and the view is then destroyed, so
// the toolbar carries no live 3-D rendering; a change of scheme swaps the
// picture at once. It takes no input: taps fall through to the button.
Item {
    id: root

    property bool isDark: false
    // Where each scheme's rendered picture can be loaded from, once taken.
    property url darkSource
    property url lightSource
    // True once the picture of the current scheme is on show.
    readonly property bool ready: (isDark ? darkPicture : lightPicture).status === Image.Ready
    // True while the hidden 3-D view exists.
    readonly property bool rendering: renderer.active
    readonly property int side: 28
    // The pictures are drawn this many times larger and scaled down smoothly,
    // which rounds dots only a pixel or two across.
    readonly property int oversampling: 4

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

    // Renders the scheme on screen first, then the other one, and goes away
    // once both pictures are loaded (they are served by the grabs, which go
    // with it).
    Loader {
        id: renderer

        readonly property StaticGlobeSnapshot snapshot: item as StaticGlobeSnapshot

        active: darkPicture.status !== Image.Ready || lightPicture.status !== Image.Ready
        sourceComponent: StaticGlobeSnapshot {}
        onLoaded: {
            renderer.snapshot.pictureSide = root.side * root.oversampling
            renderer.snapshot.renderBoth(root.isDark)
        }
    }

    Connections {
        target: renderer.snapshot

        function onCaptured(dark: bool, picture: url) {
            if (dark)
                root.darkSource = picture
            else
                root.lightSource = picture
        }
    }
}
