import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 360
    height: 640

    Component {
        id: pageComponent
        Item {
            property alias page: page
            property int doneCount: 0
            anchors.fill: parent
            TutorialView {
                id: page
                onDone: parent.doneCount += 1
            }
        }
    }

    TestCase {
        name: "TutorialView"
        when: windowShown

        function openSheet() {
            const sheet = createTemporaryObject(pageComponent, scene)
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

        function test_onlyDoneClosesThePage() {
            const sheet = openSheet()
            const page = findChild(sheet.page, "tutorialPage")
            mouseClick(page, 40, 200)
            mouseDrag(page, 100, 300, 0, -200)
            keyClick(Qt.Key_Escape)
            compare(sheet.doneCount, 0)
            const done = findChild(sheet.page, "doneButton")
            compare(done.text, "Done")
            mouseClick(done)
            compare(sheet.doneCount, 1)
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

        // Every section in order, each text whole within a narrow page, and
        // the page scrolls to its last line.
        function test_pageShowsEverySectionWrapped() {
            const sheet = openSheet()
            const page = findChild(sheet.page, "tutorialPage")
            const title = findChild(sheet.page, "tutorialTitle")
            const intro = findChild(sheet.page, "tutorialIntro")
            compare(title.text, TutorialContent.title)
            compare(intro.text, TutorialContent.intro)
            const headings = texts(sheet.page, "sectionHeading")
            const bodies = texts(sheet.page, "sectionText")
            compare(headings.map(h => h.text), TutorialContent.sections.map(s => s.heading))
            compare(bodies.map(b => b.text), TutorialContent.sections.map(s => s.text))
            for (let i = 1; i < headings.length; ++i)
                verify(headings[i].mapToItem(page, 0, 0).y > headings[i - 1].mapToItem(page, 0, 0).y)
            for (const text of [title, intro].concat(headings, bodies)) {
                const left = text.mapToItem(sheet.page, 0, 0).x
                verify(!text.truncated && left >= 16 && left + text.width <= scene.width - 16 + 0.5, text.text)
                verify(text.contentWidth <= text.width + 0.5, text.text)
                verify(text.height >= text.contentHeight - 0.5, text.text)
            }
            verify(bodies[3].lineCount >= 3)

            verify(page.contentHeight > page.height)
            page.contentY = page.contentHeight - page.height
            waitForRendering(sheet.page)
            const bottom = bodies[14].mapToItem(page, 0, bodies[14].height).y
            verify(bottom <= page.height, bottom + " > " + page.height)
        }
    }
}
