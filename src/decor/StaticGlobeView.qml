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
    // Rendered pictures, one per scheme (null until rendered).
    property var darkPicture: null
    property var lightPicture: null
    readonly property bool ready: (isDark ? darkPicture : lightPicture) !== null
    readonly property int side: 28
    // The pictures are drawn this many times larger and scaled down smoothly,
    // which rounds dots only a pixel or two across.
    readonly property int oversampling: 4

    implicitWidth: side
    implicitHeight: side

    Image {
        anchors.centerIn: parent
        width: root.side
        height: root.side
        source: root.isDark ? (root.darkPicture ? root.darkPicture.url : "")
                            : (root.lightPicture ? root.lightPicture.url : "")
        smooth: true
        mipmap: true
    }

    // Renders the scheme on screen first, then the other one, then goes away.
    Loader {
        id: renderer

        readonly property StaticGlobeSnapshot snapshot: item as StaticGlobeSnapshot

        active: root.darkPicture === null || root.lightPicture === null
        sourceComponent: StaticGlobeSnapshot {}
        onLoaded: {
            renderer.snapshot.pictureSide = root.side * root.oversampling
            renderer.snapshot.renderBoth(root.isDark)
        }
    }

    Connections {
        target: renderer.snapshot

        function onCaptured(dark: bool, picture: var) {
            if (dark)
                root.darkPicture = picture
            else
                root.lightPicture = picture
        }
    }
}
