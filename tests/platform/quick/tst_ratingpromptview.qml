import QtQuick
import QtQuick.Controls.Basic
import QtTest
import Murvane

Item {
    id: window
    width: 390
    height: 844

    RatingPromptView {
        id: prompt
    }

    TestCase {
        name: "RatingPromptView"
        when: windowShown

        function findButton(item, text) {
            if (item instanceof Button && item.text === text)
                return item
            for (let i = 0; i < item.children.length; ++i) {
                const found = findButton(item.children[i], text)
                if (found)
                    return found
            }
            return null
        }

        function raise() {
            tryVerify(() => Qt.application.state === Qt.ApplicationActive, 3000, "window never became active")
            promptDriver.requestReview()
            compare(RatingPrompt.shown, true)
            tryCompare(prompt, "opened", true)
        }

        function cleanup() {
            RatingPrompt.dismiss()
            tryCompare(prompt, "visible", false)
        }

        function test_closes_data() {
            return [
                { tag: "rate", close: () => mouseClick(findButton(prompt.contentItem, "Rate Murvane")), opens: 1 },
                { tag: "not now", close: () => mouseClick(findButton(prompt.contentItem, "Not Now")), opens: 0 },
                { tag: "escape", close: () => keyClick(Qt.Key_Escape), opens: 0 },
                { tag: "tap outside", close: () => mouseClick(window, 10, 10), opens: 0 },
            ]
        }
        function test_closes(data) {
            raise()
            const before = promptDriver.opened.length
            data.close()
            tryCompare(prompt, "visible", false)
            compare(RatingPrompt.shown, false)
            compare(promptDriver.opened.length, before + data.opens)
            if (data.opens)
                compare(promptDriver.opened[before], "appstream://io.murvane.murvane")
        }
    }
}
