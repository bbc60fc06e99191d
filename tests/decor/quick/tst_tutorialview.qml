import QtQuick
import QtQuick.Controls.Basic
import QtTest
import Murvane

Item {
    id: scene
    width: 360
    height: 640

    Component {
        id: sheetComponent

        // Presented the way the main screen presents it: a full-window popup
        // that closes when the page says it is done.
        Popup {
            id: sheet
            property alias page: page
            width: scene.width
            height: scene.height
            padding: 0
            closePolicy: Popup.NoAutoClose

            TutorialView {
                id: page
                onDone: sheet.close()
            }
        }
    }

    TestCase {
        name: "TutorialView"
        when: windowShown

        function openSheet() {
            const sheet = createTemporaryObject(sheetComponent, scene)
            sheet.open()
            tryCompare(sheet, "opened", true)
            // Positioners lay out the wrapped texts before the frame.
            waitForRendering(sheet.page)
            return sheet
        }

        function texts(page, objectName) {
            const found = []
            const walk = item => {
                if (item.objectName === objectName)
                    found.push(item)
                for (let i = 0; i < item.children.length; ++i)
                    walk(item.children[i])
            }
            walk(page)
            return found
        }

        function test_doneClosesTheSheet() {
            const sheet = openSheet()
            const done = findChild(sheet.page, "doneButton")
            verify(done !== null)
            compare(done.text, "Done")
            mouseClick(done)
            tryCompare(sheet, "opened", false)
            verify(!sheet.visible)
        }

        function test_nothingElseClosesIt() {
            const sheet = openSheet()
            const page = findChild(sheet.page, "tutorialPage")
            mouseClick(page, 40, 200)
            mouseDrag(page, 100, 300, 0, -200)
            keyClick(Qt.Key_Escape)
            wait(50)
            verify(sheet.opened)
        }

        function test_textsAreExact() {
            compare(TutorialContent.navigationTitle, "Tutorial")
            compare(TutorialContent.title, "Welcome to Murvane!")
            compare(TutorialContent.intro, "Here\u2019s a quick guide to help you get started:")
            const sections = TutorialContent.sections
            compare(sections.length, 15)
            compare(sections.map(s => s.icon), [
                "plus.circle", "square.and.pencil", "text.badge.plus", "highlighter", "pin",
                "largecircle.fill.circle", "trash", "arrow.left.and.right.circle",
                "arrow.up.arrow.down.circle", "paintbrush", "minus.circle", "square.and.arrow.up",
                "arrow.uturn.backward.circle", "star.bubble", "party.popper"])
            compare(sections.map(s => s.heading), [
                "Creating a New List", "Renaming a List", "Adding Items", "Editing an Existing Item",
                "Pin & Unpin", "Mark Items as Done", "Delete Items", "Reordering Entire Lists",
                "Sort & Rearrange Items", "Themes & Appearance", "Deleting an Entire List", "Share a List",
                "Undo Actions", "We Value Your Feedback", "Have Fun!"])
            // Straight quotes where they are straight ...
            compare(sections[0].text, "Tap the \"+\" button at the top-right to create a brand new list. "
                    + "You can keep multiple lists for different areas of your life.")
            compare(sections[3].text, "To correct or rename an item, tap its text in the list. The input bar "
                    + "will pre-fill that item\u2019s text. Make your changes, then tap \"Update\" to save.")
            // ... typographic ones elsewhere, with the full stops inside.
            compare(sections[4].text, "Swipe an item from left to right to reveal \u201CPin.\u201D Pinned items "
                    + "float to the top. Swipe again to unpin.")
            compare(sections[5].text, "Tap the circle on the right to mark an item as completed. Tap again to "
                    + "switch it back to \u201CTo-Do.\u201D")
            compare(sections[7].text, "Tap the \u201C<<\u201D or \u201C>>\u201D arrow buttons at the top to move "
                    + "the current list left or right in your list header row.")
            compare(sections[8].text, "Use \u201CABC\u201D or \u201C\u2191\u2193\u201D at the bottom to sort items "
                    + "by text or status. You can also long-press and drag items to reorder them manually.")
            compare(sections[13].text, "We\u2019d love to hear from you! Use the \u201CRate Murvane!\u201D option "
                    + "or send us suggestions anytime.")
            compare(sections[14].text, "That\u2019s it! We hope Murvane makes your life simpler. Thank you for "
                    + "using it!")
        }

        function test_pageShowsEverySectionInOrder() {
            const sheet = openSheet()
            compare(findChild(sheet.page, "tutorialTitle").text, TutorialContent.title)
            compare(findChild(sheet.page, "tutorialIntro").text, TutorialContent.intro)
            const headings = texts(sheet.page, "sectionHeading")
            const bodies = texts(sheet.page, "sectionText")
            compare(headings.length, 15)
            compare(bodies.length, 15)
            for (let i = 0; i < 15; ++i) {
                compare(headings[i].text, TutorialContent.sections[i].heading)
                compare(bodies[i].text, TutorialContent.sections[i].text)
                if (i > 0) {
                    const above = headings[i - 1].mapToItem(sheet.page, 0, 0).y
                    verify(headings[i].mapToItem(sheet.page, 0, 0).y > above)
                }
            }
            for (const name of TutorialContent.sections.map(s => s.icon))
                verify(Symbols.contains(name), name)
        }

        function test_textsWrapWithinANarrowPage() {
            const sheet = openSheet()
            const page = findChild(sheet.page, "tutorialPage")
            const all = [findChild(sheet.page, "tutorialTitle"), findChild(sheet.page, "tutorialIntro")]
                .concat(texts(sheet.page, "sectionHeading"), texts(sheet.page, "sectionText"))
            for (const text of all) {
                verify(!text.truncated, text.text)
                const left = text.mapToItem(sheet.page, 0, 0).x
                verify(left >= 16, text.text)
                verify(left + text.width <= scene.width - 16 + 0.5, text.text)
                verify(text.contentWidth <= text.width + 0.5, text.text)
                // Its height holds every line it wraps onto.
                verify(text.height >= text.contentHeight - 0.5, text.text)
            }
            // A long text needs several lines at this width.
            verify(texts(sheet.page, "sectionText")[3].lineCount >= 3)

            // The page is taller than the window and scrolls to its last line.
            verify(page.contentHeight > page.height)
            page.contentY = page.contentHeight - page.height
            waitForRendering(sheet.page)
            const last = texts(sheet.page, "sectionText")[14]
            const bottom = last.mapToItem(page, 0, last.height).y
            verify(bottom <= page.height, bottom + " > " + page.height)
        }

        function test_pageFollowsNoTheme() {
            Appearance.schemeKey = "dark"
            const sheet = openSheet()
            waitForRendering(sheet.page)
            const image = grabImage(sheet.page)
            const corner = image.pixel(2, image.height - 2)
            compare(Qt.colorEqual(corner, "#ffffff"), true)
            compare(findChild(sheet.page, "tutorialTitle").color, "#000000")
            Appearance.schemeKey = "light"
        }
    }
}
