import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 390
    height: 600

    property int frames: 0

    Connections {
        target: scene.Window.window
        function onFrameSwapped() { scene.frames += 1 }
    }

    Component {
        id: globeComponent
        Rectangle {
            property alias globe: globe
            anchors.fill: parent
            color: "#0000ff"
            GlobeView {
                id: globe
                dotColor: "#ff0000"
            }
        }
    }

    TestCase {
        name: "GlobeView"
        when: windowShown

        function redPixels(item) {
            const image = grabImage(item)
            let count = 0
            for (let y = 0; y < image.height; y += 2) {
                for (let x = 0; x < image.width; x += 2) {
                    const c = image.pixel(x, y)
                    if (c.a > 0.5 && c.r > 0.25 && c.g < 0.1 && c.b < 0.1)
                        ++count
                }
            }
            return count
        }

        // Waits until the frames already under way (the one that takes the
        // globe off screen among them) have been presented.
        function settle() {
            let last = -1
            for (let i = 0; i < 20 && scene.frames !== last; ++i) {
                last = scene.frames
                wait(250)
            }
            compare(scene.frames, last, "frames keep coming")
        }

        function test_allDotsAreDrawnAtOnce() {
            const holder = createTemporaryObject(globeComponent, scene)
            const globe = holder.globe
            compare(globe.dotCount, 1800)
            compare(globe.width, scene.width)
            compare(globe.height, scene.height)
            waitForRendering(globe)
            // Red dots on a clear background, many of them.
            verify(redPixels(globe) > 300)
            // The background shows through around the globe.
            const corner = grabImage(globe).pixel(1, 1)
            verify(Qt.colorEqual(corner, "#0000ff"), corner)
        }

        function test_itTurnsWhileShown() {
            const globe = createTemporaryObject(globeComponent, scene).globe
            verify(globe.spinning)
            const start = globe.spinAngle
            tryVerify(() => globe.spinAngle !== start, 2000)
            // A full turn takes 65 s.
            const before = globe.spinAngle
            wait(650)
            const turned = (globe.spinAngle - before + 360) % 360
            verify(turned > 1 && turned < 8, turned)
        }

        function test_hiddenOrTransparentItDrawsNothing_data() {
            return [
                { tag: "hidden", hide: g => g.visible = false, show: g => g.visible = true },
                { tag: "transparent", hide: g => g.opacity = 0, show: g => g.opacity = 1 },
                { tag: "parent hidden", hide: g => g.parent.visible = false, show: g => g.parent.visible = true },
            ]
        }
        function test_hiddenOrTransparentItDrawsNothing(data) {
            const globe = createTemporaryObject(globeComponent, scene).globe
            waitForRendering(globe)
            data.hide(globe)
            verify(!globe.spinning)
            const angle = globe.spinAngle
            settle()
            scene.frames = 0
            wait(700)
            compare(scene.frames, 0)
            compare(globe.spinAngle, angle)

            data.show(globe)
            verify(globe.spinning)
            tryVerify(() => scene.frames > 3, 3000)
            // It carries on from where it stopped.
            verify(Math.abs(globe.spinAngle - angle) < 10)
        }

        function test_halfFadedItStillTurns() {
            const globe = createTemporaryObject(globeComponent, scene).globe
            globe.opacity = 0.3
            verify(globe.spinning)
        }

        function test_draggingTurnsTheCamera() {
            const globe = createTemporaryObject(globeComponent, scene).globe
            waitForRendering(globe)
            // A copy: reading the property gives a live reference.
            const before = Qt.vector3d(globe.cameraTurn.x, globe.cameraTurn.y, globe.cameraTurn.z)
            mousePress(globe, 150, 300)
            for (let i = 1; i <= 10; ++i) {
                mouseMove(globe, 150 + i * 10, 300 + i * 4, -1, Qt.LeftButton)
                wait(20)
            }
            // The controller turns the camera on the frames while the button is held.
            wait(300)
            mouseRelease(globe, 250, 340)
            verify(globe.cameraTurn.y !== before.y || globe.cameraTurn.x !== before.x)
        }
    }
}
