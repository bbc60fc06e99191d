import QtQuick
import QtTest
import Murvane

Item {
    id: root
    width: 390
    height: 844

    ScreenTestCase {
        id: test

        name: "ItemFlows"
        scene: root

        function test_addEditAndUpdate() {
            makeScreen(["Home"], [[]]);
            const bar = layers.inputBar;
            mouseClick(bar.entry);
            tryVerify(() => screen.newItemFieldIsFocused);
            typeText("Milk");
            compare(screen.newItem, "Milk");
            mouseClick(bar.submitButton);
            tryCompare(layers.itemList, "count", 1);
            compare(rowTexts(), ["Milk"]);
            compare(bar.entry.textArea.text, "");
            // The bullet flies out and the keyboard stays for the next item.
            tryVerify(() => bar.bullet.opacity > 0.5);
            verify(bar.entry.entryActiveFocus);
            tryCompare(bar.bullet, "opacity", 0, 2000);

            // Only white space: nothing is added.
            typeText("   ");
            mouseClick(bar.submitButton);
            compare(layers.itemList.count, 1);

            tapText(0);
            compare(screen.editingItemId, row(0).itemId);
            compare(bar.submitButton.text, "Update");
            compare(bar.entry.textArea.text, "Milk");
            tryVerify(() => bar.entry.entryActiveFocus);
            keyClick(Qt.Key_A, Qt.ControlModifier);
            typeText("Oat milk");
            mouseClick(bar.submitButton);
            tryVerify(() => rowTexts().join() === "Oat milk");
            compare(bar.submitButton.text, "Add");
        }

        function test_updateWithTouch() {
            makeScreen(["Home"], [items(["Tea"])]);
            tapText(0, true);
            compare(layers.inputBar.submitButton.text, "Update");
            tryVerify(() => layers.inputBar.entry.entryActiveFocus);
            keyClick(Qt.Key_End);
            typeText(" leaves");
            tapItem(layers.inputBar.submitButton, true);
            tryVerify(() => rowTexts()[0] === "Tea leaves");
            compare(layers.inputBar.submitButton.text, "Add");
            compare(layers.itemList.count, 1);
        }

        function test_toggleTwiceTurnsAFullCircle() {
            makeScreen(["Home"], [items(["Eggs"])]);
            const marker = findChild(row(0).content, "doneMarker");
            tapMarker(0);
            tryVerify(() => row(0).isDone);
            compare(row(0).rotationAngle, 180);
            tapMarker(0, true);
            tryVerify(() => !row(0).isDone);
            compare(row(0).rotationAngle, 360);
            compare(screen.rotationAngle(row(0).itemId), 360);
            tryCompare(marker, "rotation", 360, 3000);
        }

        function test_swipeToPinAndToDeleteThenUndo_data() {
            return [{ tag: "mouse", touch: false }, { tag: "touch", touch: true }];
        }

        function test_swipeToPinAndToDeleteThenUndo(data) {
            makeScreen(["Home"], [items(["A", "B", "C"])]);
            swipeRow(2, true, data.touch);
            tryVerify(() => rowTexts().join() === "C,A,B");
            tryVerify(() => row(0).isPinned);
            settle();

            swipeRow(1, false, data.touch);
            tryVerify(() => rowTexts().join() === "C,B");
            verify(screen.canUndo);

            mouseClick(layers.inputBar.undoButton);
            tryVerify(() => rowTexts().join() === "C,A,B");
            verify(!row(1).isPinned);
        }

        function test_dragAcrossThePinnedBoundary_data() {
            return [{ tag: "mouse", touch: false }, { tag: "touch", touch: true }];
        }

        function test_dragAcrossThePinnedBoundary(data) {
            makeScreen(["Home"], [items([{ text: "P", pinned: true }, "A", "B"])]);
            compare(rowTexts(), ["P", "A", "B"]);
            // B dropped above the pinned P becomes pinned.
            dragRow(2, row(0).y + 4, data.touch);
            tryVerify(() => rowTexts().join() === "B,P,A");
            verify(row(0).isPinned);
            settle();
            // P dropped below A leaves the pinned block.
            dragRow(1, row(2).y + row(2).height - 4, data.touch);
            tryVerify(() => rowTexts().join() === "B,A,P");
            verify(!row(2).isPinned);
            verify(row(0).isPinned);
        }

        function test_dragWithinTheListKeepsPins() {
            makeScreen(["Home"], [items(["A", "B", "C", "D"])]);
            dragRow(0, row(2).y + row(2).height * 0.75);
            tryVerify(() => rowTexts().join() === "B,C,A,D");
            settle();
            // A held row let go where it was changes nothing.
            dragRow(1, row(1).y + row(1).height / 2);
            wait(100);
            compare(rowTexts().join(), "B,C,A,D");
        }

        function test_sortByTextThenStatusThenUndo() {
            makeScreen(["Home"], [items([{ text: "b", done: true }, "c", { text: "a", done: true }, "d"])]);
            mouseClick(button("sortTextButton"));
            tryVerify(() => rowTexts().join() === "a,b,c,d");
            mouseClick(button("sortStatusButton"));
            tryVerify(() => rowTexts().join() === "c,d,a,b");
            mouseClick(layers.inputBar.undoButton);
            tryVerify(() => rowTexts().join() === "a,b,c,d");
            mouseClick(layers.inputBar.undoButton);
            tryVerify(() => rowTexts().join() === "b,c,a,d");
        }

        function test_resetDotsThenUndo() {
            makeScreen(["Home"], [items([{ text: "X", done: true }, { text: "Y", done: true }, "Z"])]);
            chooseMenuEntry("Reset Dots");
            tryVerify(() => !row(0).isDone && !row(1).isDone && !row(2).isDone);
            mouseClick(layers.inputBar.undoButton);
            tryVerify(() => row(0).isDone && row(1).isDone && !row(2).isDone);
        }

        // While the keyboard is up a tap on the list only puts it away; once
        // it is down, taps reach the rows again.
        function test_listTapLayerFollowsTheKeyboard() {
            makeScreen(["Home"], [items(["A"])]);
            mouseClick(layers.inputBar.entry);
            tryVerify(() => screen.newItemFieldIsFocused);
            screen.keyboardResponder.keyboardWillShow();
            tapText(0);
            tryVerify(() => !screen.newItemFieldIsFocused);
            compare(screen.editingItemId, "");
            screen.keyboardResponder.keyboardWillHide();
            tapText(0);
            verify(screen.editingItemId !== "");
        }

        function test_emptyAreaTapPutsTheKeyboardAway() {
            makeScreen(["Home", "Empty"], [items(["A"]), []], 1);
            const area = layers.emptyArea;
            tryCompare(area, "opacity", 1);
            verify(!layers.itemList.visible);
            mouseClick(layers.inputBar.entry);
            tryVerify(() => screen.newItemFieldIsFocused);
            mouseClick(area, area.width / 2, area.height / 2);
            tryVerify(() => !screen.newItemFieldIsFocused);
            verify(!layers.inputBar.entry.entryActiveFocus);

            // Adding the first item fades the list in.
            mouseClick(layers.inputBar.entry);
            typeText("First");
            mouseClick(layers.inputBar.submitButton);
            tryCompare(layers.itemList, "opacity", 1);
            tryCompare(area, "visible", false);
        }

        function test_newItemIsScrolledIntoView() {
            const many = [];
            for (let i = 0; i < 40; ++i)
                many.push("Item " + i);
            makeScreen(["Home"], [items(many)]);
            mouseClick(layers.inputBar.entry);
            typeText("Last one");
            mouseClick(layers.inputBar.submitButton);
            const list = layers.itemList;
            tryVerify(() => {
                const r = list.itemAtIndex(40);
                return r && r.y + r.height <= list.contentY + list.height + 1 && r.y >= list.contentY;
            });
        }
    }
}
