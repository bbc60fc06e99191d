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

    Component {
        id: iconComponent
        // A button-like frame: grey so both dot colours show, and a click
        // target under the icon.
        Rectangle {
            property alias icon: icon
            property int clicks: 0
            width: 60
            height: 60
            color: "#808080"
            MouseArea {
                anchors.fill: parent
                onClicked: parent.clicks += 1
            }
            StaticGlobeView {
                id: icon
                anchors.centerIn: parent
            }
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
            waitForRendering(globe)
            const red = countPixels(globe, 2, c => c.a > 0.5 && c.r > 0.25 && c.g < 0.1 && c.b < 0.1)
            verify(red > 300, red)
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

        // The toolbar's still globe: a 28 point icon that
        // lets taps through, with white dots in the dark scheme and black
        // in the light one (pixels clearly lighter or darker than the grey
        // behind), recoloured on the next frame after a switch.
        function test_staticGlobeIsAnIconInTheSchemesColours() {
            const frame = createTemporaryObject(iconComponent, scene, { "icon.isDark": true })
            compare(frame.icon.implicitWidth, 28)
            compare(frame.icon.implicitHeight, 28)
            mouseClick(frame.icon)
            compare(frame.clicks, 1)
            for (const dark of [true, false]) {
                frame.icon.isDark = dark
                waitForRendering(frame)
                const t = { dark: countPixels(frame.icon, 1, c => c.r < 0.3),
                            light: countPixels(frame.icon, 1, c => c.r > 0.7) }
                verify(dark ? t.light > 60 && t.dark === 0 : t.dark > 60 && t.light === 0, JSON.stringify(t))
            }
        }
    }
}
