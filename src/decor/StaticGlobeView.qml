import QtQuick
import Murvane

// The still dot globe, 28 x 28, the menu button's icon: white dots in the
// dark scheme, black in the light one; a change of scheme recolours it at
// once. It takes no input: taps fall through to the button.
Item {
    id: root

    property bool isDark: false
    readonly property int side: 28

    implicitWidth: side
    implicitHeight: side

    GlobeItem {
        id: globe
        anchors.centerIn: parent
        width: root.side
        height: root.side
        variant: GlobeItem.Static
        dotColor: globe.staticDotColor(root.isDark)
    }
}
