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
        name: "BottomToolbarView"
        when: windowShown

        function titles(menu) {
            return Array.from({ length: menu.count }, (_, i) => menu.itemAt(i).text);
        }

        // Each entry, in order, sends its own signal and closes the menu,
        // which opens above its button, inside the window.
        function test_menuEntries() {
            const bar = createTemporaryObject(toolbarComponent, scene);
            const log = [];
            bar.rateApp.connect(() => log.push("rate"));
            bar.showTutorial.connect(() => log.push("tutorial"));
            bar.resetDots.connect(() => log.push("resetDots"));
            waitForRendering(bar);
            for (let index = 0; index < 3; ++index) {
                mouseClick(bar.menuButton);
                tryCompare(bar.menu, "opened", true);
                compare(titles(bar.menu), ["Rate Murvane!", "Tutorial", "Reset Dots", "Themes"]);
                compare(titles(bar.themesMenu), ["Classic", "Gray", "Purple", "Blue", "Pink", "Green"]);
                const top = bar.menu.contentItem.mapToItem(scene, 0, 0).y;
                verify(top >= 0 && top < bar.y, "menu top " + top);
                mouseClick(bar.menu.itemAt(index));
                tryCompare(bar.menu, "visible", false);
            }
            compare(log, ["rate", "tutorial", "resetDots"]);
        }
    }
}
