import QtQuick
import QtTest

// Emoji among the app's text come out the size of the text around them.
Item {
    id: scene
    width: 200
    height: 100

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
        name: "Emoji"
        when: windowShown

        // Rows of the grabbed item holding anything but white.
        function inkHeight(text) {
            const line = createTemporaryObject(lineComponent, scene, { text: text })
            waitForRendering(line)
            const image = grabImage(line)
            let top = -1, bottom = -1
            for (let y = 0; y < image.height; ++y)
                for (let x = 0; x < image.width; ++x) {
                    const c = image.pixel(x, y)
                    if (c.r + c.g + c.b < 2.7) {
                        top = top < 0 ? y : top
                        bottom = y
                        break
                    }
                }
            return bottom - top + 1
        }

        function test_emojiMatchTheTextAroundThem_data() {
            return [{ tag: "face", emoji: "\u{1F600}" }, { tag: "apple", emoji: "\u{1F34E}" },
                    { tag: "house", emoji: "\u{1F3E1}" }]
        }
        function test_emojiMatchTheTextAroundThem(data) {
            // Cap height to descender, as tall as a line's letters reach.
            const letters = inkHeight("Hg")
            const emoji = inkHeight(data.emoji)
            verify(emoji >= letters - 1 && emoji <= letters * 1.3, emoji + " beside " + letters)
        }
    }
}
