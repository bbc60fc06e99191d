import QtQuick
import QtTest
import Murvane

Item {
    id: root
    width: 390
    height: 844

    ScreenTestCase {
        name: "AppearanceAndSharing"
        scene: root

        function test_schemeAndThemeSwitch() {
            makeScreen(["Home"], [["+a"]]);
            const moon = findChild(view, "schemeButton");
            mouseClick(moon);
            verify(Appearance.isDark);
            tryCompare(moon.contentItem.children[0], "rotation", 180);
            compare(String(row(0).content.foreground), String(Qt.color("white")));
            mouseClick(moon);
            verify(!Appearance.isDark);
            tryCompare(moon.contentItem.children[0], "rotation", 0);
            compare(String(row(0).content.foreground), String(Qt.color("black")));

            const before = layers;
            chooseMenuEntry(3, 4);
            compare(Appearance.themeKey, "pink");
            tryVerify(() => layers !== null && layers !== before);
            waitForRendering(view);
            // The new layers paint with the new theme.
            compare(String(findChild(row(0).content, "doneMarker").color), String(Appearance.theme.completeFillLight));
        }

        function test_shareTextReachesTheSheet_data() {
            return [
                { tag: "copy", button: "copyButton" },
                { tag: "cancel", button: "cancelButton" },
                { tag: "tap outside", button: "" },
            ];
        }

        function test_shareTextReachesTheSheet(data) {
            makeScreen(["Home"], [["Milk", "+Bread"]]);
            const sheet = findChild(view, "shareSheetView");
            mouseClick(findChild(view, "shareButton"));
            tryCompare(sheet, "opened", true);
            compare(screen.shareSheet.text, "Home\n____\n\n\u2022 Milk \n\u2022 Bread \u2713");
            // It settles at the bottom, inside the margins, with buttons a finger can hit.
            tryVerify(() => sheet.y + sheet.height === view.height - 8);
            verify(sheet.width <= view.width - 16);
            verify(sheet.copyButton.height >= 44 && sheet.emailButton.height >= 44);
            // Every choice closes it.
            mouseClick(data.button ? sheet[data.button] : view, 20, 20);
            tryCompare(sheet, "visible", false);
            verify(!screen.shareSheet.isPresented);
        }
    }
}
