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
            Appearance.setDark(false)
        }

        function test_rateOpensTheSoftwareCentre() {
            raise()
            const before = promptDriver.opened.length
            mouseClick(findButton(prompt.contentItem, "Rate Murvane"))
            tryCompare(prompt, "visible", false)
            compare(RatingPrompt.shown, false)
            compare(promptDriver.opened.length, before + 1)
            compare(promptDriver.opened[before], "appstream://io.murvane.murvane")
        }

        function test_notNowCloses() {
            raise()
            const before = promptDriver.opened.length
            mouseClick(findButton(prompt.contentItem, "Not Now"))
            tryCompare(prompt, "visible", false)
            compare(RatingPrompt.shown, false)
            compare(promptDriver.opened.length, before)
        }

        function test_escapeCloses() {
            raise()
            keyClick(Qt.Key_Escape)
            tryCompare(prompt, "visible", false)
            compare(RatingPrompt.shown, false)
        }

        function test_tapOutsideCloses() {
            raise()
            mouseClick(window, 10, 10)
            tryCompare(prompt, "visible", false)
            compare(RatingPrompt.shown, false)
        }

        function test_followsTheScheme() {
            raise()
            const light = prompt.background.color.toString()
            Appearance.setDark(true)
            verify(prompt.background.color.toString() !== light)
            compare(prompt.foreground, Qt.color("white"))
        }
    }
}
