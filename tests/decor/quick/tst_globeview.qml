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

        // It draws every dot inside its bounds; dragging over it turns the
        // camera around the globe, which keeps turning, even half faded.
        function test_drawsTurnsAndFollowsADrag() {
            const globe = createTemporaryObject(globeComponent, scene).globe
            compare(globe.dotCount, 1800)
            waitForRendering(globe)
            verify(redPixels(globe) > 300)
            const corner = grabImage(globe).pixel(1, 1)
            verify(Qt.colorEqual(corner, "#0000ff"), corner)

            const item = findChild(globe, "globeItem")
            mouseDrag(globe, 100, 300, 120, -80, Qt.LeftButton, Qt.NoModifier, 50)
            verify(item.cameraYaw < -10, item.cameraYaw)
            verify(item.cameraPitch < -5, item.cameraPitch)

            globe.opacity = 0.3
            verify(globe.spinning)
            // A full turn takes 65 s by the clock, however few frames come:
            // here none for half a second.
            const before = globe.spinAngle
            const start = Date.now()
            while (Date.now() - start < 500) {}
            wait(150)
            const turned = (globe.spinAngle - before + 360) % 360
            const due = (Date.now() - start) * 360 / 65000
            verify(Math.abs(turned - due) < 1, turned + " vs " + due)
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
    }
}
