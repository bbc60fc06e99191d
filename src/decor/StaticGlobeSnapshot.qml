import QtQuick
import QtQuick3D
import Murvane

// Renders the still globe off screen in both schemes, one after the other,
// and hands each picture over with `captured`. It is never shown:
// StaticGlobeView keeps the pictures and releases this item afterwards.
Item {
    id: snapshot

    // The scheme being drawn.
    property bool dark: false
    // Side of the square pictures in pixels.
    property int pictureSide: 112
    property int picturesToGo: 0
    property bool grabbing: false
    signal captured(bool dark, var picture)

    function renderBoth(darkFirst: bool) {
        snapshot.dark = darkFirst
        snapshot.picturesToGo = 2
        snapshot.grabNext()
    }

    // One grab at a time, and the colour changes only once a picture is
    // taken. A grab needs a shown window; until then each presented frame
    // tries again.
    function grabNext() {
        if (snapshot.picturesToGo === 0 || snapshot.grabbing || snapshot.Window.window === null
                || !snapshot.Window.window.visible)
            return
        const dark = snapshot.dark
        snapshot.grabbing = snapshot.grabToImage(result => {
            snapshot.grabbing = false
            snapshot.picturesToGo -= 1
            snapshot.captured(dark, result.image)
            if (snapshot.picturesToGo > 0) {
                snapshot.dark = !dark
                snapshot.grabNext()
            }
        }, Qt.size(snapshot.pictureSide, snapshot.pictureSide))
    }

    width: pictureSide
    height: pictureSide
    visible: false

    Connections {
        target: snapshot.Window.window

        function onFrameSwapped() {
            snapshot.grabNext()
        }
    }

    View3D {
        anchors.fill: parent
        camera: camera
        environment: SceneEnvironment {
            backgroundMode: SceneEnvironment.Transparent
            clearColor: "transparent"
        }

        GlobeSceneModel {
            id: scene
            variant: GlobeSceneModel.Static
        }

        Node {
            eulerRotation: scene.cameraPivotRotation

            PerspectiveCamera {
                id: camera
                z: scene.cameraDistance
                fieldOfView: scene.fieldOfView
                clipNear: 1
                clipFar: 10000

                // An omni light at the camera, so the side in view is lit.
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

            Model {
                // Drawn once, four times oversized: a finer sphere costs little.
                geometry: DotSphereGeometry {
                    subdivisions: 1
                }
                instancing: GlobeInstancing {
                    scene: scene
                }
                materials: DefaultMaterial {
                    diffuseColor: scene.dotColorFor(snapshot.dark)
                    specularAmount: 0
                }
            }
        }
    }
}
