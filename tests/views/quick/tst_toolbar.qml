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

        function makeToolbar() {
            const bar = createTemporaryObject(toolbarComponent, scene);
            verify(bar);
            test.log = [];
            bar.toggleColorScheme.connect(() => test.log.push("scheme"));
            bar.sortToggle.connect(() => test.log.push("sortByStatus"));
            bar.sortByText.connect(() => test.log.push("sortByText"));
            bar.rateApp.connect(() => test.log.push("rate"));
            bar.showTutorial.connect(() => test.log.push("tutorial"));
            bar.resetDots.connect(() => test.log.push("resetDots"));
            bar.chooseTheme.connect(raw => test.log.push("theme:" + raw));
            bar.share.connect(() => test.log.push("share"));
            waitForRendering(bar);
            return bar;
        }

        function test_buttons_data() {
            return [
                { tag: "scheme", name: "schemeButton", expected: "scheme" },
                { tag: "status", name: "sortStatusButton", expected: "sortByStatus" },
                { tag: "text", name: "sortTextButton", expected: "sortByText" },
                { tag: "share", name: "shareButton", expected: "share" },
            ];
        }

        function test_buttons(data) {
            const bar = makeToolbar();
            mouseClick(findChild(bar, data.name));
            compare(test.log, [data.expected]);
        }

        function menuTitles(menu) {
            const titles = [];
            for (let i = 0; i < menu.count; ++i)
                titles.push(menu.itemAt(i).text);
            return titles;
        }

        function test_menuEntriesInOrder() {
            const bar = makeToolbar();
            mouseClick(bar.menuButton);
            tryCompare(bar.menu, "opened", true);
            compare(menuTitles(bar.menu), ["Rate Murvane!", "Tutorial", "Reset Dots", "Themes"]);
            compare(menuTitles(bar.themesMenu), ["Classic", "Gray", "Purple", "Blue", "Pink", "Green"]);
            // The menu opens above its button, inside the window.
            const top = bar.menu.contentItem.mapToItem(scene, 0, 0).y;
            verify(top >= 0 && top < bar.y, "menu top " + top);
            bar.menu.close();
        }

        function test_menuEntries_data() {
            return [
                { tag: "rate", index: 0, expected: ["rate"] },
                { tag: "tutorial", index: 1, expected: ["tutorial"] },
                { tag: "reset dots", index: 2, expected: ["resetDots"] },
            ];
        }

        function test_menuEntries(data) {
            const bar = makeToolbar();
            mouseClick(bar.menuButton);
            tryCompare(bar.menu, "opened", true);
            mouseClick(bar.menu.itemAt(data.index));
            compare(test.log, data.expected);
            tryCompare(bar.menu, "visible", false);
        }

        function test_themeSubmenu() {
            const bar = makeToolbar();
            mouseClick(bar.menuButton);
            tryCompare(bar.menu, "opened", true);
            mouseClick(bar.menu.itemAt(3));
            tryCompare(bar.themesMenu, "opened", true);
            mouseClick(bar.themesMenu.itemAt(1));
            compare(test.log, ["theme:gray"]);
            tryCompare(bar.menu, "visible", false);
        }

        function test_moonTurnsHalfWay() {
            const bar = makeToolbar();
            const icon = findChild(bar, "schemeButton").contentItem.children[0];
            compare(icon.rotation, 0);
            bar.rotateMoon = true;
            wait(60);
            verify(icon.rotation > 0 && icon.rotation < 180);
            tryCompare(icon, "rotation", 180);
            bar.rotateMoon = false;
            tryCompare(icon, "rotation", 0);
        }
    }
}
