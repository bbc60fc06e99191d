import QtQuick
import QtQuick3D
import QtQuick3D.Helpers
import Murvane

// The large dot globe of the empty list: it fills its parent, turns about its
// tilted axis once every 65 s without end, and the user may turn the camera
// around it by dragging. Whoever places it fades it with `opacity`; while it
// is hidden or fully transparent the 3-D view is switched off and the spin
// is paused, so it costs no frames at all.
Item {
    id: root

    property color dotColor: "gray"
    // True while any of it can be seen.
    readonly property bool shown: visible && opacity > 0
    // Exposed for tests and measurements.
    readonly property alias dotCount: dots.instanceCount
    // Detail of the dot mesh (see DotSphereGeometry) and its cost.
    property alias dotSubdivisions: sphere.subdivisions
    readonly property alias dotTriangles: sphere.triangleCount
    readonly property bool spinning: spin.running && !spin.paused
    // How far the user has turned the camera (Euler degrees of its pivot).
    readonly property vector3d cameraTurn: cameraPivot.eulerRotation
    property real spinAngle: 0

    anchors.fill: parent

    GlobeSceneModel {
        id: scene
        variant: GlobeSceneModel.Animated
    }

    View3D {
        id: view
        anchors.fill: parent
        visible: root.shown
        camera: camera
        environment: SceneEnvironment {
            backgroundMode: SceneEnvironment.Transparent
            clearColor: "transparent"
            antialiasingMode: SceneEnvironment.MSAA
            antialiasingQuality: SceneEnvironment.Medium
        }

        Node {
            id: cameraPivot
            eulerRotation: scene.cameraPivotRotation

            PerspectiveCamera {
                id: camera
                z: scene.cameraDistance
                fieldOfView: scene.fieldOfView
                clipNear: 1
                clipFar: 10000

                // An omni light riding on the camera, so the side in view is lit.
                PointLight {
                    brightness: 1
                    constantFade: 1
                    linearFade: 0
                    quadraticFade: 0
                }
            }
        }

        Node {
            eulerRotation.x: scene.tiltDegrees

            Node {
                eulerRotation.y: root.spinAngle

                Model {
                    // An icosahedron: dots are a few pixels across, where its
                    // outline is within a pixel of a circle, and each extra
                    // subdivision quadruples the triangles the software
                    // rasteriser has to set up.
                    geometry: DotSphereGeometry {
                        id: sphere
                        subdivisions: 0
                    }
                    instancing: GlobeInstancing {
                        id: dots
                        scene: scene
                    }
                    materials: DefaultMaterial {
                        diffuseColor: root.dotColor
                        specularAmount: 0
                    }
                }
            }
        }

        OrbitCameraController {
            anchors.fill: parent
            origin: cameraPivot
            camera: camera
            panEnabled: false
        }
    }

    NumberAnimation {
        id: spin
        target: root
        property: "spinAngle"
        from: 0
        to: 360
        duration: scene.spinPeriod
        loops: Animation.Infinite
        running: true
        paused: !root.shown
    }
}
