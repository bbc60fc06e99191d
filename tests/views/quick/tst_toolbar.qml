import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 390
    height: 600

    Component {
        id: toolbarComponent

        BottomToolbarView {
            width: scene.width
            height: 44
            y: scene.height - 44
        }
    }

    TestCase {
        id: test

        name: "BottomToolbarView"
        when: windowShown

        property var log: []

        function openMenu() {
            const bar = createTemporaryObject(toolbarComponent, scene);
            verify(bar);
            test.log = [];
            bar.rateApp.connect(() => test.log.push("rate"));
            bar.showTutorial.connect(() => test.log.push("tutorial"));
            bar.resetDots.connect(() => test.log.push("resetDots"));
            waitForRendering(bar);
            mouseClick(bar.menuButton);
            tryCompare(bar.menu, "opened", true);
            return bar;
        }

        function titles(menu) {
            return Array.from({ length: menu.count }, (_, i) => menu.itemAt(i).text);
        }

        function test_menuEntriesInOrder() {
            const bar = openMenu();
            compare(titles(bar.menu), ["Rate Murvane!", "Tutorial", "Reset Dots", "Themes"]);
            compare(titles(bar.themesMenu), ["Classic", "Gray", "Purple", "Blue", "Pink", "Green"]);
            // The menu opens above its button, inside the window.
            const top = bar.menu.contentItem.mapToItem(scene, 0, 0).y;
            verify(top >= 0 && top < bar.y, "menu top " + top);
        }

        function test_menuEntries_data() {
            return [
                { tag: "rate", index: 0, expected: ["rate"] },
                { tag: "tutorial", index: 1, expected: ["tutorial"] },
                { tag: "reset dots", index: 2, expected: ["resetDots"] },
            ];
        }

        function test_menuEntries(data) {
            const bar = openMenu();
            mouseClick(bar.menu.itemAt(data.index));
            compare(test.log, data.expected);
            tryCompare(bar.menu, "visible", false);
        }
    }
}
