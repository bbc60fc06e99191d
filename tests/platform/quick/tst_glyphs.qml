import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 400
    height: 400

    Component {
        id: frameComponent
        Rectangle {
            property alias icon: icon
            color: "white"
            width: 80
            height: 80
            SymbolIcon {
                id: icon
                anchors.centerIn: parent
                color: "black"
                pointSize: 40
            }
        }
    }

    Component {
        id: lineComponent
        Rectangle {
            property alias text: label.text
            color: "white"
            width: label.width + 8
            height: label.height + 8
            Text {
                id: label
                x: 4
                y: 4
                font.pixelSize: 15
            }
        }
    }

    TestCase {
        name: "Glyphs"
        when: windowShown

        // The box around every pixel of a grabbed item darker than `limit`
        // (red, green and blue summed), or null.
        function inkBox(item, limit) {
            const image = grabImage(item)
            let box = null
            for (let y = 0; y < image.height; ++y) {
                for (let x = 0; x < image.width; ++x) {
                    const c = image.pixel(x, y)
                    if (c.a <= 0.5 || c.r + c.g + c.b >= (limit || 1.5))
                        continue
                    box = box || { left: x, right: x, top: y, bottom: y, count: 0 }
                    Object.assign(box, { left: Math.min(box.left, x), right: Math.max(box.right, x),
                                         bottom: y, count: box.count + 1 })
                }
            }
            return box
        }

        // Emoji among the app's text come out the size of the text around
        // them: cap height to descender, as tall as a line's letters reach.
        function test_emojiMatchTheTextAroundThem() {
            const inkHeight = text => {
                const line = createTemporaryObject(lineComponent, scene, { text: text })
                waitForRendering(line)
                const box = inkBox(line, 2.7)
                return box.bottom - box.top + 1
            }
            const letters = inkHeight("Hg")
            for (const emoji of ["\u{1F600}", "\u{1F34E}", "\u{1F3E1}"]) {
                const height = inkHeight(emoji)
                verify(height >= letters - 1 && height <= letters * 1.3, height + " beside " + letters)
            }
        }

        // The tutorial's section icons come from C++; identifiers are exact.
        function test_tutorialIconsAreKnown() {
            for (const section of TutorialContent.sections)
                verify(Symbols.contains(section.icon), section.icon)
            for (const name of ["no.such.symbol", "", "Pin"])
                verify(!Symbols.contains(name), name)
        }

        // One icon, renamed through the table: every symbol draws inside the
        // em box (48 px, centred at 40) and roughly centred on it. The frame
        // is larger than the em box, so the grab cuts nothing off.
        function test_everySymbolDrawsCentred() {
            const frame = createTemporaryObject(frameComponent, scene)
            compare(frame.icon.implicitWidth, 40)
            compare(frame.icon.implicitHeight, 40)
            for (const name of Symbols.names) {
                frame.icon.name = name
                waitForRendering(frame)
                const box = inkBox(frame)
                verify(box !== null && box.count > 40, "nothing drawn for " + name)
                verify(box.left >= 15 && box.right <= 65 && box.top >= 15 && box.bottom <= 65,
                       name + " " + JSON.stringify(box))
                verify(Math.abs((box.left + box.right) / 2 - 40) <= 6
                       && Math.abs((box.top + box.bottom) / 2 - 40) <= 6, name + " " + JSON.stringify(box))
            }
            // The circle's ring spans 20/24 of the em, which is the point size.
            frame.icon.name = "circle"
            waitForRendering(frame)
            const ring = inkBox(frame)
            fuzzyCompare(ring.right - ring.left + 1, 40, 2)
            fuzzyCompare(ring.bottom - ring.top + 1, 40, 2)
            // Drawn symbols keep their holes and gaps: points of the 24-unit
            // box, inked or not (the em box is 48 px wide, centred at 40).
            const em = 40 * Symbols.emScale
            for (const [name, x, y, inked] of [["pin", 12, 3, true], ["pin", 12, 8, false],
                                              ["moonphase.waxing.gibbous.inverse", 2.8, 12, true],
                                              ["moonphase.waxing.gibbous.inverse", 6, 12, false],
                                              ["moonphase.waxing.gibbous.inverse", 20, 12, false],
                                              ["moonphase.waxing.gibbous.inverse", 14, 12, true]]) {
                frame.icon.name = name
                waitForRendering(frame)
                const c = grabImage(frame).pixel(Math.floor(40 - em / 2 + x * em / 24), Math.floor(40 - em / 2 + y * em / 24))
                compare(c.r < 0.5, inked, name + " at " + x + "," + y)
            }
            frame.icon.name = "no.such.symbol"
            waitForRendering(frame)
            compare(inkBox(frame), null)
        }
    }
}
