import QtQuick
import Murvane

// The blurred shadow of a rounded rectangle. Declared as a child of the
// shape that casts it, it sits beneath its parent (negative z) and follows
// its size, so translucent shapes cast a shadow without being drawn twice.
// `blur` is the shadow's radius in points.
RoundedShadowMesh {
    property real blur: 5
    property real offsetX: 0
    property real offsetY: 0

    boxSize: Qt.size(parent ? parent.width : 0, parent ? parent.height : 0)
    sigma: Math.max(blur, 0.01)
    margin: Math.ceil(blur * 3)
    x: offsetX - margin
    y: offsetY - margin
    z: -1
    width: boxSize.width + 2 * margin
    height: boxSize.height + 2 * margin
    visible: color.a > 0
}
