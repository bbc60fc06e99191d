import QtQuick
import QtTest
import Murvane

Item {
    id: root
    width: 390
    height: 844

    ScreenTestCase {
        id: test

        name: "AppearanceAndSharing"
        scene: root

        function test_themeFromTheMenuRebuildsTheScreen() {
            makeScreen(["Home"], [items(["a"])]);
            const before = layers;
            openMenu();
            const menu = layers.toolbar.menu;
            mouseClick(menu.itemAt(3));
            const themes = layers.toolbar.themesMenu;
            tryCompare(themes, "opened", true);
            let pink = null;
            for (let i = 0; i < themes.count; ++i) {
                if (themes.itemAt(i).text === "Pink")
                    pink = themes.itemAt(i);
            }
            verify(pink);
            mouseClick(pink);
            compare(Appearance.themeKey, "pink");
            tryVerify(() => layers !== null && layers !== before);
            waitForRendering(view);
            // The new layers paint with the new theme.
            const marker = findChild(row(0).content, "doneMarker");
            verify(marker);
            tapMarker(0);
            tryVerify(() => row(0).isDone);
            compare(String(findChild(row(0).content, "doneMarker").color), String(Appearance.theme.completeFillLight));
        }

        function test_schemeToggleTwice() {
            makeScreen(["Home"], [items(["a"])]);
            verify(!Appearance.isDark);
            const moon = button("schemeButton");
            const icon = moon.contentItem.children[0];
            mouseClick(moon);
            verify(Appearance.isDark);
            compare(Appearance.schemeKey, "dark");
            verify(screen.rotateMoon);
            tryCompare(icon, "rotation", 180);
            compare(String(row(0).content.foreground), String(Qt.color("white")));
            mouseClick(moon);
            verify(!Appearance.isDark);
            compare(Appearance.schemeKey, "light");
            tryCompare(icon, "rotation", 0);
            compare(String(row(0).content.foreground), String(Qt.color("black")));
        }

        function test_shareTextReachesTheSheet() {
            makeScreen(["Home"], [items(["Milk", { text: "Bread", done: true }])]);
            const sheetView = findChild(view, "shareSheetView");
            verify(sheetView);
            mouseClick(button("shareButton"));
            tryCompare(screen.shareSheet, "isPresented", true);
            compare(screen.shareSheet.text, "Home\n____\n\n\u2022 Milk \n\u2022 Bread \u2713");
            tryCompare(sheetView, "opened", true);
            mouseClick(findChild(sheetView.contentItem, "cancelButton"));
            tryCompare(sheetView, "visible", false);
            verify(!screen.shareSheet.isPresented);
        }
    }
}
