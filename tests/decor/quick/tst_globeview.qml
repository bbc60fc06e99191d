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
        // A parent to hide; grey, so dots of every colour show.
        Rectangle {
            anchors.fill: parent
            color: "#808080"
            GlobeView {
                dotColor: "#ff0000"
            }
            // The toolbar's still globe, clear of the big one's dots.
            StaticGlobeView {}
        }
    }

    TestCase {
        name: "GlobeView"
        when: windowShown

        // Pixels of a grabbed item that pass `test`, every `step`th in each direction.
        function countPixels(item, step, test) {
            const image = grabImage(item)
            let count = 0
            for (let y = 0; y < image.height; y += step) {
                for (let x = 0; x < image.width; x += step)
                    count += test(image.pixel(x, y))
            }
            return count
        }

        // It draws every dot inside its bounds; dragging over it turns the
        // camera around the globe, which keeps turning, even half faded.
        function test_drawsTurnsAndFollowsADrag() {
            const globe = createTemporaryObject(globeComponent, scene).children[0]
            waitForRendering(globe)
            const red = countPixels(globe, 2, c => c.a > 0.5 && c.r > 0.25 && c.g < 0.1 && c.b < 0.1)
            verify(red > 300, red)

            const item = findChild(globe, "globeItem")
            mouseDrag(globe, 100, 300, 120, -80, Qt.LeftButton, Qt.NoModifier, 50)
            verify(item.cameraYaw < -10 && item.cameraPitch < -5, item.cameraYaw + ", " + item.cameraPitch)

            globe.opacity = 0.3
            // A full turn takes 65 s by the clock, however few frames come:
            // here none for half a second.
            const before = globe.spinAngle
            const start = Date.now()
            while (Date.now() - start < 500) {}
            wait(150)
            const due = (Date.now() - start) * 360 / 65000
            fuzzyCompare((globe.spinAngle - before + 360) % 360, due, 1)
        }

        function test_hiddenOrTransparentItDrawsNothing_data() {
            return [
                { tag: "transparent", hide: g => g.opacity = 0, show: g => g.opacity = 1 },
                { tag: "parent hidden", hide: g => g.parent.visible = false, show: g => g.parent.visible = true },
            ]
        }
        function test_hiddenOrTransparentItDrawsNothing(data) {
            const globe = createTemporaryObject(globeComponent, scene).children[0]
            waitForRendering(globe)
            data.hide(globe)
            const angle = globe.spinAngle
            // Frames already under way, the one that takes the globe off
            // among them, may still come; then none.
            for (let i = 0; i < 10 && scene.frames !== 0; ++i) {
                scene.frames = 0
                wait(700)
            }
            compare(scene.frames, 0)
            compare(globe.spinAngle, angle)

            data.show(globe)
            tryVerify(() => scene.frames > 3, 3000)
            // It carries on from where it stopped.
            verify(Math.abs(globe.spinAngle - angle) < 10)
        }

        // The still globe: white dots in the dark scheme and black in the
        // light one (pixels clearly lighter or darker than the grey
        // behind), recoloured on the next frame after a switch.
        function test_staticGlobeIsAnIconInTheSchemesColours() {
            const frame = createTemporaryObject(globeComponent, scene)
            frame.children[0].visible = false
            const icon = frame.children[1]
            for (const dark of [true, false]) {
                icon.isDark = dark
                waitForRendering(frame)
                const t = { dark: countPixels(icon, 1, c => c.r < 0.3), light: countPixels(icon, 1, c => c.r > 0.7) }
                verify(dark ? t.light > 60 && t.dark === 0 : t.dark > 60 && t.light === 0, JSON.stringify(t))
            }
        }
    }
}
