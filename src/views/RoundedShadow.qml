import QtQuick

// The blurred shadow of a rounded rectangle. Declared as a child of the
// shape that casts it, it sits beneath its parent (negative z) and follows
// its size, so translucent shapes cast a shadow without being drawn twice.
// `blur` is the shadow's radius in points.
ShaderEffect {
    id: root

    property real cornerRadius: 0
    property real blur: 5
    property real offsetX: 0
    property real offsetY: 0
    // The shadow's colour; its alpha is the shadow's strength.
    property color color: "black"

    // Handed to the shader opaque, with the strength apart, so that it does
    // not depend on how colours reach shaders.
    readonly property color shadowColor: Qt.rgba(color.r, color.g, color.b, 1)
    readonly property real strength: color.a
    readonly property real margin: Math.ceil(blur * 3)
    readonly property size boxSize: Qt.size(parent ? parent.width : 0, parent ? parent.height : 0)
    readonly property real sigma: Math.max(blur, 0.01)

    x: offsetX - margin
    y: offsetY - margin
    z: -1
    width: boxSize.width + 2 * margin
    height: boxSize.height + 2 * margin
    visible: color.a > 0
    fragmentShader: "qrc:/qt/qml/Murvane/shaders/roundedshadow.frag.qsb"
}
