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
            color: "white"
            width: 80
            height: 80
            SymbolIcon {
                anchors.centerIn: parent
                color: "black"
                pointSize: 40
            }
        }
    }

    Component {
        id: lineComponent
        // On the window's white.
        Text {
            padding: 4
            font.pixelSize: 15
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
            const emoji = inkHeight("\u{1F34E}")
            verify(emoji >= letters - 1 && emoji <= letters * 1.3, emoji + " beside " + letters)
        }

        // One icon, renamed through the table: every symbol draws, roughly
        // centred on the em box (48 px, centred at 40). The frame is larger
        // than the em box, so the grab cuts nothing off.
        function test_everySymbolDrawsCentred() {
            // The tutorial's section icons come from C++; identifiers are exact.
            verify(Array.from(TutorialContent.sections).every(section => Symbols.contains(section.icon)))
            verify(!Symbols.contains("Pin") && !Symbols.contains(""))
            const frame = createTemporaryObject(frameComponent, scene)
            const icon = frame.children[0]
            for (const name of Symbols.names) {
                icon.name = name
                waitForRendering(frame)
                const box = inkBox(frame)
                verify(box !== null && box.count > 40, "nothing drawn for " + name)
                verify(Math.abs((box.left + box.right) / 2 - 40) <= 6
                       && Math.abs((box.top + box.bottom) / 2 - 40) <= 6, name + " " + JSON.stringify(box))
            }
            // Drawn symbols keep their holes and gaps, and take the em's
            // size: points of the 24-unit box, inked or not (the em box is
            // 48 px wide, centred at 40).
            const em = 40 * Symbols.emScale
            const moon = "moonphase.waxing.gibbous.inverse"
            for (const [name, x, y, inked] of [["pin", 12, 3, true], ["pin", 12, 8, false], [moon, 2.8, 12, true],
                                              [moon, 6, 12, false], [moon, 20, 12, false]]) {
                icon.name = name
                waitForRendering(frame)
                const c = grabImage(frame).pixel(Math.floor(40 - em / 2 + x * em / 24), Math.floor(40 - em / 2 + y * em / 24))
                compare(c.r < 0.5, inked, name + " at " + x + "," + y)
            }
        }
    }
}
