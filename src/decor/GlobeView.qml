import QtQuick
import Murvane

// The large dot globe of the empty list: it fills its parent, turns about its
// tilted axis once every 65 s without end, and the user may turn the camera
// around it by dragging. Whoever places it fades it with `opacity`; while it
// is hidden or fully transparent it draws nothing and the spin is paused, so
// it costs no frames at all. The spin follows the clock, not the frames.
Item {
    id: root

    property color dotColor: "gray"
    // True while any of it can be seen.
    readonly property bool shown: visible && opacity > 0
    readonly property alias dotCount: globe.dotCount
    readonly property bool spinning: globe.spinning
    readonly property alias spinAngle: globe.spinAngle

    anchors.fill: parent

    GlobeItem {
        id: globe
        objectName: "globeItem"
        anchors.fill: parent
        visible: root.shown
        variant: GlobeItem.Animated
        dotColor: root.dotColor
        spinning: root.shown
    }

    DragHandler {
        id: drag
        target: null
        enabled: root.shown
        property point last: Qt.point(0, 0)
        onActiveChanged: drag.last = Qt.point(0, 0)
        onTranslationChanged: {
            globe.turnCamera(drag.translation.x - drag.last.x, drag.translation.y - drag.last.y)
            drag.last = Qt.point(drag.translation.x, drag.translation.y)
        }
    }
}
