import QtQuick
import QtTest
import Murvane
import MurvaneTest

Item {
    width: 390
    height: 844

    ScreenTestCase {
        name: "ItemFlows"

        // The mouse adds the first item to an empty list and the keyboard
        // stays for the next; while the keyboard is up a tap on a row only
        // puts it away; a finger edits and updates.
        function test_addEditAndUpdate() {
            makeScreen(["Home"], [[]]);
            const bar = layers.inputBar;
            // The entry grows with its text, up to 150.
            screen.inputBar.newItem = Array(30).fill("line").join("\n");
            tryCompare(bar.entry, "height", 150);
            screen.inputBar.newItem = "";

            mouseClick(bar.entry);
            typeText("Milk");
            mouseClick(bar.submitButton);
            expectRows("Milk");
            tryCompare(layers.emptyArea, "visible", false);
            verify(bar.entry.entryActiveFocus);
            screen.keyboardResponder.keyboardWillShow();
            tap(row(0).content.textBox);
            tryVerify(() => !screen.inputBar.newItemFieldIsFocused);
            compare(screen.inputBar.editingItemId, "");
            screen.keyboardResponder.keyboardWillHide();

            tap(row(0).content.textBox, true);
            compare(bar.entry.textArea.text, "Milk");
            tryVerify(() => bar.entry.entryActiveFocus);
            // The cursor waits at the end of the text.
            typeText(" tea");
            tap(bar.submitButton, true);
            expectRows("Milk tea");
        }

        // A tap on the marker switches fill, dimming and marker at once, the
        // marker turning; "Reset Dots" fades them back.
        function test_toggleAndResetDots() {
            makeScreen(["Home"], [["Eggs", "+b"]]);
            const content = row(0).content;
            const marker = findChild(content, "doneMarker");
            const seen = [];
            content.doneAmountChanged.connect(() => seen.push(content.doneAmount));
            tap(content.marker, true);
            expectRows("+Eggs,+b");
            compare(seen, [1]);
            compare(marker.name, "largecircle.fill.circle");
            fuzzyCompare(content.textBox.color.a, 0.2, 0.01);
            tryCompare(marker, "rotation", 180, 3000);

            seen.length = 0;
            chooseMenuEntry(2);
            expectRows("Eggs,b");
            tryCompare(content, "doneAmount", 0);
            verify(seen.some(v => v > 0.1 && v < 0.9), seen);
            compare(seen, seen.slice().sort((a, b) => b - a)); // only falling
            compare(marker.name, "circle");
            compare(content.textBox.color.a, 0);
        }

        function test_swipeAndDrag_data() {
            return pointers;
        }

        // Swipes pin and delete; a row dropped into the pinned block is
        // pinned.
        function test_swipeAndDrag(data) {
            makeScreen(["Home"], [["A", "B", "C"]]);
            swipeRow(2, true, data.touch);
            expectRows("*C,A,B");
            verify(Array.from(row(0).content.children).some(child => child.name === "pin.fill" && child.visible));
            swipeRow(1, false, data.touch);
            expectRows("*C,B");
            // Held until it lifts, it drops with its middle at the top row.
            settleRows();
            const start = row(1).mapToItem(layers.itemList, 60, row(1).height / 2);
            stroke(layers.itemList, start, Qt.point(start.x, row(0).y + 4), data.touch, 1000);
            expectRows("*B,*C");
        }

        function test_swipeOpensAButton_data() {
            return pointers;
        }

        // A short swipe leaves its button open for a tap; a tap elsewhere
        // only closes the open row, and outside the list still lands.
        function test_swipeOpensAButton(data) {
            makeScreen(["Home"], [["A", "B", "C"]]);
            const open = () => {
                const r = row(1);
                stroke(r, Qt.point(r.width - 30, r.height / 2), Qt.point(r.width - 130, r.height / 2), data.touch);
                tryCompare(r, "swipeOffset", -SwipeGesture.buttonWidth);
                return r;
            };
            const b = open();
            tap(row(0).content.textBox, data.touch);
            tryCompare(b, "swipeOffset", 0);
            compare(screen.inputBar.editingItemId, "");
            open();
            tap(layers.inputBar.entry, data.touch);
            tryCompare(b, "swipeOffset", 0);
            tryVerify(() => layers.inputBar.entry.entryActiveFocus);
            open();
            const onDelete = b.mapToItem(view, b.width - SwipeGesture.buttonWidth / 2, b.height / 2);
            stroke(view, onDelete, onDelete, data.touch);
            expectRows("A,C");
        }

        // An edit under way outlasts the window going to the background.
        function test_editOutlastsWindowSwitch() {
            makeScreen(["Home"], [["Tea"]]);
            const bar = layers.inputBar;
            tap(row(0).content.textBox);
            tryVerify(() => bar.entry.entryActiveFocus);
            typeText(" green");
            verify(TestStore.activateOtherWindow());
            tryVerify(() => !view.Window.active && !bar.entry.entryActiveFocus);
            TestStore.closeOtherWindow();
            view.Window.window.requestActivate();
            tryVerify(() => view.Window.active && bar.entry.entryActiveFocus);

            compare(bar.entry.textArea.text, "Tea green");
            typeText(" tea");
            mouseClick(bar.submitButton);
            expectRows("Tea green tea");
        }

        // Ten thousand rows sort where the list stands; a new item at the
        // end is scrolled into view.
        function test_longSortKeepsScrollPosition() {
            const texts = Array.from({ length: 10000 }, (_, i) => "Item " + String(9999 - i).padStart(5, "0"));
            makeScreen(["Home"], [texts]);
            const list = layers.itemList;
            list.positionViewAtIndex(5000, ListView.Beginning);
            const top = list.contentY;
            verify(top > 1000);
            mouseClick(findChild(view, "sortTextButton"));
            tryVerify(() => row(5000) && row(5000).itemText === "Item 05000");
            compare(list.contentY, top);
            mouseClick(layers.inputBar.entry);
            typeText("Last one");
            mouseClick(layers.inputBar.submitButton);
            tryVerify(() => {
                const r = list.itemAtIndex(10000);
                return r && r.y >= list.contentY && r.y + r.height <= list.contentY + list.height + 1;
            });
        }

        // Rows move to their places: each keeps its item.
        function test_sortsKeepEachRowsItem() {
            makeScreen(["Home"], [["+b", "c", "+a", "d"]]);
            // A tap between a short text and the marker does nothing.
            tap(row(0));
            compare(screen.inputBar.editingItemId, "");
            const c = row(1);
            mouseClick(findChild(view, "sortStatusButton"));
            expectRows("c,d,+b,+a");
            verify(row(0) === c);
        }
    }
}
