import QtQuick
import QtTest
import Murvane

Item {
    width: 390
    height: 844

    ScreenTestCase {
        name: "AppearanceAndSharing"

        function test_schemeAndThemeSwitch() {
            makeScreen(["Home"], [["+a"]]);
            for (const dark of [true, false]) {
                mouseClick(findChild(view, "schemeButton"));
                compare(String(row(0).content.foreground), String(Qt.color(dark ? "white" : "black")));
            }

            const before = layers;
            chooseMenuEntry(3, 4);
            compare(Appearance.themeKey, "pink");
            tryVerify(() => layers !== null && layers !== before);
            waitForRendering(view);
            // The new layers paint with the new theme.
            compare(String(findChild(row(0).content, "doneMarker").color), String(Appearance.theme.completeFillLight));
        }

        // The tutorial is a new page at the top on each opening, in the
        // scheme's colours; the empty list's globe is a new one each time
        // the list empties.
        function test_tutorialAndGlobeStartAfresh() {
            makeScreen(["Home"], [["a"]]);
            const sheet = findChild(view, "tutorialSheet");
            for (const dark of [false, true]) {
                if (Appearance.isDark !== dark)
                    mouseClick(findChild(view, "schemeButton"));
                chooseMenuEntry(1);
                tryCompare(sheet, "opened", true);
                const page = findChild(sheet.page, "tutorialPage");
                compare(page.contentY, 0);
                compare(String(findChild(sheet.page, "tutorialTitle").color), dark ? "#ffffff" : "#000000");
                page.contentY = page.contentHeight - page.height;
                mouseClick(findChild(sheet.page, "doneButton"));
                tryCompare(sheet, "visible", false);
            }

            const empty = layers.emptyArea;
            const firstGlobe = () => findChild(empty, "globe");
            swipeRow(0, false, false);
            tryCompare(empty, "opacity", 1);
            const globe = firstGlobe();
            tryVerify(() => globe.spinAngle > 1, 2000);
            mouseClick(layers.inputBar.undoButton);
            expectRows("a");
            tryVerify(() => firstGlobe() === null);
            swipeRow(0, false, false);
            tryVerify(() => firstGlobe() !== null);
            verify(firstGlobe() !== globe && firstGlobe().spinAngle < 1, firstGlobe().spinAngle);
        }

        function test_shareTextReachesTheSheet_data() {
            return [{ tag: "copy", button: "copyButton" }, { tag: "tap outside", button: "" }];
        }

        function test_shareTextReachesTheSheet(data) {
            makeScreen(["Home"], [["Milk", "+Bread"]]);
            const sheet = findChild(view, "shareSheetView");
            mouseClick(findChild(view, "shareButton"));
            tryCompare(sheet, "opened", true);
            compare(screen.shareSheet.text, "Home\n____\n\n\u2022 Milk \n\u2022 Bread \u2713");
            // It settles at the bottom, inside the margins, with buttons a finger can hit.
            tryVerify(() => sheet.y + sheet.height === view.height - 8);
            verify(sheet.copyButton.height >= 44 && sheet.emailButton.height >= 44);
            // Every choice closes it.
            mouseClick(data.button ? sheet[data.button] : view, 20, 20);
            tryCompare(sheet, "visible", false);
            verify(!screen.shareSheet.isPresented);
        }
    }
}
