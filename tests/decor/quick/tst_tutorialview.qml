import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 360
    height: 640

    Component {
        id: pageComponent
        TutorialView {}
    }

    TestCase {
        name: "TutorialView"
        when: windowShown

        // Every section in order, each text whole within a narrow page; the
        // page scrolls to its last line, and only "Done" closes it.
        function test_pageShowsEverySectionWrapped() {
            const view = createTemporaryObject(pageComponent, scene)
            let doneCount = 0
            view.done.connect(() => doneCount += 1)
            // Positioners lay out the wrapped texts before the frame.
            waitForRendering(view)
            const page = findChild(view, "tutorialPage")
            const texts = { tutorialTitle: [], tutorialIntro: [], sectionHeading: [], sectionText: [] }
            const walk = item => {
                if (texts[item.objectName])
                    texts[item.objectName].push(item)
                Array.from(item.children).forEach(walk)
            }
            walk(view)
            const all = [].concat(...Object.values(texts))
            compare(all.map(t => t.text), [TutorialContent.title, TutorialContent.intro].concat(
                        TutorialContent.sections.map(s => s.heading), TutorialContent.sections.map(s => s.text)))
            for (const text of all) {
                const left = text.mapToItem(view, 0, 0).x
                verify(!text.truncated && left >= 16 && left + text.width <= scene.width - 16 + 0.5, text.text)
                verify(text.height >= text.contentHeight - 0.5, text.text)
            }

            page.contentY = page.contentHeight - page.height
            waitForRendering(view)
            const last = texts.sectionText[texts.sectionText.length - 1]
            const bottom = last.mapToItem(page, 0, last.height).y
            verify(bottom <= page.height, bottom + " > " + page.height)
            mouseClick(page, 40, 200)
            keyClick(Qt.Key_Escape)
            compare(doneCount, 0)
            const done = findChild(view, "doneButton")
            compare(done.text, "Done")
            mouseClick(done)
            compare(doneCount, 1)
        }
    }
}
