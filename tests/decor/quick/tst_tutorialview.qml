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

        // Every section in order, each text whole within a narrow page; the
        // page scrolls to its last line, and only "Done" closes it.
        function test_pageShowsEverySectionWrapped() {
            const sheet = createTemporaryObject(pageComponent, scene)
            // Positioners lay out the wrapped texts before the frame.
            waitForRendering(sheet.page)
            const page = findChild(sheet.page, "tutorialPage")
            const title = findChild(sheet.page, "tutorialTitle")
            const intro = findChild(sheet.page, "tutorialIntro")
            const headings = [], bodies = []
            const walk = item => {
                if (item.objectName === "sectionHeading")
                    headings.push(item)
                else if (item.objectName === "sectionText")
                    bodies.push(item)
                Array.from(item.children).forEach(walk)
            }
            walk(sheet.page)
            compare([title.text, intro.text], [TutorialContent.title, TutorialContent.intro])
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
            mouseClick(page, 40, 200)
            mouseDrag(page, 100, 300, 0, -200)
            keyClick(Qt.Key_Escape)
            compare(sheet.doneCount, 0)
            const done = findChild(sheet.page, "doneButton")
            compare(done.text, "Done")
            mouseClick(done)
            compare(sheet.doneCount, 1)
        }
    }
}
