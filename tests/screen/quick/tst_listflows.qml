import QtQuick
import QtTest
import Murvane
import MurvaneTest

Item {
    id: root
    width: 390
    height: 844

    ScreenTestCase {
        id: test

        name: "ListFlows"
        scene: root

        function chip(index) {
            return findChild(layers.header, "chip_" + index);
        }

        function test_moveButtonsAndTheirEnds() {
            makeScreen(["One", "Two", "Three"], [items(["a"]), items(["b"]), items(["c"])], 1);
            const left = button("moveLeftButton");
            const right = button("moveRightButton");
            verify(left.enabled && right.enabled);

            mouseClick(left);
            compare(screen.store.listNames, ["Two", "One", "Three"]);
            compare(screen.selectedListIndex, 0);
            verify(!left.enabled);
            compare(rowTexts(), ["b"]);

            mouseClick(right);
            mouseClick(right);
            compare(screen.store.listNames, ["One", "Three", "Two"]);
            compare(screen.selectedListIndex, 2);
            verify(!right.enabled);
            verify(left.enabled);
            compare(TestStore.storedListNames(), ["One", "Three", "Two"]);
            // The moved list's chip is the selected one.
            tryVerify(() => chip(2) && chip(2).selected);
        }

        function test_newListAtTheFront() {
            makeScreen(["One", "Two"], [items(["a"]), items(["b"])], 1);
            mouseClick(button("newListButton"));
            compare(screen.store.listNames, ["New List", "One", "Two"]);
            compare(screen.selectedListIndex, 0);
            compare(layers.navigationBar.titleEditor.text, "New List");
            tryCompare(layers.emptyArea, "opacity", 1);
            // The strip returns to its start, where the new chip is.
            tryCompare(layers.header.flickable, "contentX", 0, 2000);
        }

        function test_renameInPlace() {
            makeScreen(["One", "Two"], [[], []]);
            const title = layers.navigationBar.titleEditor;
            mouseClick(title);
            tryVerify(() => screen.titleEdited);
            // The input bar makes way while the title is edited.
            verify(!layers.inputBar.visible);
            keyClick(Qt.Key_A, Qt.ControlModifier);
            typeText("Groceries for the week");
            compare(screen.store.listNames[0], "Groceries for the week");
            compare(chip(0).text, "Groceries for the week");
            // Long names step down to 18 points.
            compare(title.font.pixelSize, 18);
            keyClick(Qt.Key_Return);
            tryVerify(() => !screen.titleEdited);
            verify(layers.inputBar.visible);
            verify(!title.activeFocus);

            // Clearing the name is allowed; the placeholder shows.
            mouseClick(title);
            keyClick(Qt.Key_A, Qt.ControlModifier);
            keyClick(Qt.Key_Backspace);
            compare(screen.store.listNames[0], "");
            compare(title.placeholderText, "List Name");
            compare(title.font.pixelSize, 21);
            compare(TestStore.storedListNames()[0], "");
        }

        function test_deleteListAfterConfirmationThenUndo() {
            makeScreen(["One", "Two", "Three"], [items(["a"]), items(["b"]), items(["c"])], 1);
            const alert = layers.deleteAlert;
            mouseClick(button("deleteListButton"));
            tryCompare(alert, "opened", true);
            mouseClick(findChild(alert.contentItem, "noButton"));
            tryCompare(alert, "visible", false);
            compare(screen.store.listNames, ["One", "Two", "Three"]);
            verify(!screen.showDeletionConfirmation);

            mouseClick(button("deleteListButton"));
            tryCompare(alert, "opened", true);
            mouseClick(findChild(alert.contentItem, "yesButton"));
            tryCompare(alert, "visible", false);
            compare(screen.store.listNames, ["One", "Three"]);
            compare(screen.selectedListIndex, 1);
            compare(rowTexts(), ["c"]);

            mouseClick(layers.inputBar.undoButton);
            compare(screen.store.listNames, ["One", "Two", "Three"]);
            compare(screen.selectedListIndex, 1);
            tryVerify(() => rowTexts().join() === "b");
            tryVerify(() => chip(1).selected);
        }

        function test_theLastListStays() {
            makeScreen(["Only"], [items(["a"])]);
            const alert = layers.deleteAlert;
            mouseClick(button("deleteListButton"));
            tryCompare(alert, "opened", true);
            mouseClick(findChild(alert.contentItem, "yesButton"));
            tryCompare(alert, "visible", false);
            compare(screen.store.listNames, ["Only"]);
            verify(!screen.canUndo);
        }

        function test_chipTapSelectsAndCentres() {
            const names = [];
            const lists = [];
            for (let i = 0; i < 12; ++i) {
                names.push("List number " + i);
                lists.push(items(["item of " + i]));
            }
            makeScreen(names, lists, 0);
            const flick = layers.header.flickable;
            compare(flick.contentX, 0);
            mouseClick(layers.inputBar.entry);
            tryVerify(() => screen.newItemFieldIsFocused);
            mouseClick(chip(2));
            compare(screen.selectedListIndex, 2);
            compare(rowTexts(), ["item of 2"]);
            // The keyboard goes away with the switch.
            tryVerify(() => !screen.newItemFieldIsFocused);
            // The chip ends up in the middle of the strip.
            tryVerify(() => {
                const c = chip(2).mapToItem(flick, chip(2).width / 2, 0).x;
                return Math.abs(c - flick.width / 2) < 1.5;
            }, 2000);
        }

        function test_wheelScrollsTheStrip() {
            const names = [];
            for (let i = 0; i < 12; ++i)
                names.push("List number " + i);
            makeScreen(names, names.map(() => []), 0);
            const flick = layers.header.flickable;
            mouseWheel(flick, 100, 20, 0, -120);
            tryVerify(() => flick.contentX > 0);
            for (let i = 0; i < 100; ++i)
                mouseWheel(flick, 100, 20, 0, -120);
            // Never past the end.
            compare(flick.contentX, flick.contentWidth - flick.width);
            mouseWheel(flick, 100, 20, 0, 120);
            verify(flick.contentX < flick.contentWidth - flick.width);
        }

        function test_selectionIsRestoredAndClamped() {
            makeScreen(["One", "Two"], [items(["a"]), items(["b"])], 7);
            compare(screen.selectedListIndex, 1);
            compare(layers.navigationBar.titleEditor.text, "Two");
            tryVerify(() => chip(1).selected);
            verify(!chip(0).selected);
        }
    }
}
