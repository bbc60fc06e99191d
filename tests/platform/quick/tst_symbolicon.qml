import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 400
    height: 400

    Component {
        id: iconComponent
        SymbolIcon {
            color: "black"
        }
    }

    TestCase {
        name: "SymbolIcon"
        when: windowShown

        // The box around every dark pixel of a grabbed item, or null.
        function inkBox(item) {
            const image = grabImage(item)
            let box = null
            for (let y = 0; y < image.height; ++y) {
                for (let x = 0; x < image.width; ++x) {
                    const c = image.pixel(x, y)
                    if (c.a > 0.5 && c.r < 0.5) {
                        if (!box)
                            box = { left: x, right: x, top: y, bottom: y, count: 0 }
                        box.left = Math.min(box.left, x)
                        box.right = Math.max(box.right, x)
                        box.top = Math.min(box.top, y)
                        box.bottom = Math.max(box.bottom, y)
                        box.count++
                    }
                }
            }
            return box
        }

        // The icon sits on white inside a frame larger than the font's em box,
        // so nothing it draws is cut off by the grab.
        // Frames of one test sit side by side: a grab reads the window.
        function frameFor(name, pointSize, slot) {
            const frame = createTemporaryQmlObject(
                "import QtQuick; Rectangle { color: 'white'; width: 80; height: 80 }", scene)
            frame.x = (slot || 0) * 100
            const icon = createTemporaryObject(iconComponent, frame, { name: name, pointSize: pointSize })
            icon.anchors.centerIn = frame
            return { frame: frame, icon: icon }
        }

        function test_everySymbolDrawsCentred_data() {
            return Symbols.names.map(n => ({ tag: n, name: n }))
        }
        function test_everySymbolDrawsCentred(data) {
            const f = frameFor(data.name, 40)
            compare(f.icon.implicitWidth, 40)
            compare(f.icon.implicitHeight, 40)
            waitForRendering(f.frame)
            const box = inkBox(f.frame)
            verify(box !== null, "nothing drawn for " + data.name)
            verify(box.count > 40, "almost nothing drawn for " + data.name)
            // Inside the em box (48 px, centred at 40) and roughly centred on it.
            verify(box.left >= 15 && box.right <= 65 && box.top >= 15 && box.bottom <= 65,
                   JSON.stringify(box))
            const cx = (box.left + box.right) / 2
            const cy = (box.top + box.bottom) / 2
            verify(Math.abs(cx - 40) <= 6 && Math.abs(cy - 40) <= 6, JSON.stringify(box))
        }

        function test_circleFillsThePointSize() {
            const f = frameFor("circle", 40)
            waitForRendering(f.frame)
            const box = inkBox(f.frame)
            // The ring spans 20/24 of the em, which is the point size.
            fuzzyCompare(box.right - box.left + 1, 40, 2)
            fuzzyCompare(box.bottom - box.top + 1, 40, 2)
            fuzzyCompare((box.left + box.right) / 2, 39.5, 1)
            fuzzyCompare((box.top + box.bottom) / 2, 39.5, 1)
        }

        function test_filledAndOutlinePinDiffer() {
            const filled = frameFor("pin.fill", 40)
            const outline = frameFor("pin", 40, 1)
            waitForRendering(outline.frame)
            const a = inkBox(filled.frame)
            const b = inkBox(outline.frame)
            // Same outline, but the outline pin is hollow.
            fuzzyCompare(a.right - a.left, b.right - b.left, 2)
            verify(b.count < a.count * 0.8, a.count + " vs " + b.count)
        }

        function test_unknownNameDrawsNothing() {
            const f = frameFor("no.such.symbol", 40)
            waitForRendering(f.frame)
            compare(inkBox(f.frame), null)
        }
    }
}
