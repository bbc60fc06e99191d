import QtQuick
import QtTest
import Murvane

Item {
    width: 390
    height: 844

    ScreenTestCase {
        name: "ListFlows"

        function chip(index) {
            return findChild(layers.header, "chip_" + index);
        }

        // Twelve lists, the stored selection beyond the last: it comes back
        // as the last, its chip at the strip's end. A chip tap selects and
        // centres; the arrows and "+" rearrange.
        function test_selectMoveAndAddLists() {
            const names = Array.from({ length: 12 }, (_, i) => "List number " + i);
            makeScreen(names, names.map(n => ["in " + n]), 20);
            const flick = layers.header.flickable;
            verify(chip(11).selected);
            compare(flick.contentX, flick.contentWidth - flick.width);
            flick.contentX = 0;

            // The capsule travels from the last chip to the tapped one.
            const capsule = findChild(layers.header, "capsule");
            mouseClick(chip(2));
            tryVerify(() => Math.abs(capsule.x - chip(2).x) < 0.5 && capsule.width === chip(2).width, 2000);
            expectRows("in List number 2");
            tryVerify(() => Math.abs(chip(2).mapToItem(flick, chip(2).width / 2, 0).x - flick.width / 2) < 1.5, 2000);

            mouseClick(findChild(view, "moveRightButton"));
            compare(screen.store.listNames.slice(2, 4), ["List number 3", "List number 2"]);
            tryVerify(() => chip(3).selected);

            mouseClick(findChild(view, "newListButton"));
            compare(screen.store.listNames[0], "New List");
            compare(layers.navigationBar.titleEditor.text, "New List");
            // The strip returns to its start, where the new chip is.
            tryCompare(flick, "contentX", 0, 2000);
        }

        function test_renameAndDelete() {
            makeScreen(["One", "Two", "Three"], [["a"], ["b"], ["c"]], 1);
            const title = layers.navigationBar.titleEditor;
            mouseClick(title);
            tryVerify(() => screen.lists.titleEdited);
            keyClick(Qt.Key_A, Qt.ControlModifier);
            keyClick(Qt.Key_Backspace);
            compare(screen.store.listNames[1], "");
            compare(title.placeholderText, "List Name");
            const kept = chip(1);
            typeText("Groceries for the week");
            // The same chip, renamed; its capsule grows with it.
            compare(kept.text, "Groceries for the week");
            waitForRendering(view);
            compare(findChild(layers.header, "capsule").width, kept.width);
            keyClick(Qt.Key_Return);
            tryVerify(() => !screen.lists.titleEdited);
            // The input bar made way while the title was edited.
            verify(layers.inputBar.visible);

            const alert = layers.deleteAlert;
            mouseClick(findChild(view, "deleteListButton"));
            tryCompare(alert, "opened", true);
            compare(["alertTitle", "alertMessage", "noButton", "yesButton"].map(
                        name => findChild(alert.contentItem, name).text),
                    ["Confirm Deletion", "Are you sure you want to delete this list?", "No", "Yes"]);
            mouseClick(findChild(alert.contentItem, "yesButton"));
            tryCompare(alert, "visible", false);
            compare(screen.store.listNames, ["One", "Three"]);
            expectRows("c");
        }
    }
}
