import QtQuick
import QtTest
import Murvane
import MurvaneTest

Item {
    id: root
    width: 390
    height: 844

    ScreenTestCase {
        name: "ItemFlows"
        scene: root

        // The mouse adds the first item to an empty list; while the keyboard
        // is up a tap on a row only puts it away; a finger edits and updates.
        function test_addEditAndUpdate() {
            makeScreen(["Home", "Empty"], [["Tea"], []], 1);
            const bar = layers.inputBar;
            tryCompare(layers.emptyArea, "opacity", 1);
            mouseClick(bar.entry);
            tryVerify(() => screen.inputBar.newItemFieldIsFocused);
            tap(layers.emptyArea);
            tryVerify(() => !bar.entry.entryActiveFocus);
            // The entry grows with its text, up to 150.
            screen.inputBar.newItem = Array(30).fill("line").join("\n");
            tryCompare(bar.entry, "height", 150);
            screen.inputBar.newItem = "";
            tryCompare(bar.entry, "height", 36);

            mouseClick(bar.entry);
            typeText("Milk");
            mouseClick(bar.submitButton);
            // The bullet flies out and back; the keyboard stays for the next item.
            tryVerify(() => bar.bullet.x > 150 && bar.bullet.opacity > 0.5, 500);
            expectRows("Milk");
            compare(bar.entry.textArea.text, "");
            tryCompare(layers.emptyArea, "visible", false);
            tryVerify(() => bar.bullet.x === 0 && bar.bullet.opacity === 0, 2000);
            verify(bar.entry.entryActiveFocus);
            screen.keyboardResponder.keyboardWillShow();
            tap(row(0).content.textBox);
            tryVerify(() => !screen.inputBar.newItemFieldIsFocused);
            compare(screen.inputBar.editingItemId, "");
            screen.keyboardResponder.keyboardWillHide();

            tap(row(0).content.textBox, true);
            compare(bar.submitButton.text, "Update");
            compare(bar.entry.textArea.text, "Milk");
            tryVerify(() => bar.entry.entryActiveFocus);
            // The cursor waits at the end of the text.
            typeText(" tea");
            tap(bar.submitButton, true);
            expectRows("Milk tea");
            compare(bar.submitButton.text, "Add");
        }

        // A tap on the marker switches fill, dimming and marker at once,
        // the marker turning on a spring; "Reset Dots" fades them back.
        function test_toggleAndResetDots() {
            const text = "Eggs, and a line too long for one line of a phone's row";
            makeScreen(["Home"], [[text, "+b"]]);
            const content = row(0).content;
            const marker = findChild(content, "doneMarker");
            const seen = [];
            content.doneAmountChanged.connect(() => seen.push(content.doneAmount));
            // Long text wraps short of the marker.
            verify(content.textBox.width < content.marker.x);
            tap(content.marker, true);
            expectRows("+" + text + ",+b");
            compare(seen, [1]);
            compare(marker.name, "largecircle.fill.circle");
            fuzzyCompare(content.textBox.color.a, 0.2, 0.01);
            tryVerify(() => marker.rotation > 0 && marker.rotation < 180);
            tryCompare(marker, "rotation", 180, 3000);

            seen.length = 0;
            chooseMenuEntry(2);
            expectRows(text + ",b");
            tryCompare(content, "doneAmount", 0);
            verify(seen.some(v => v > 0.1 && v < 0.9), seen);
            compare(seen, seen.slice().sort((a, b) => b - a)); // only falling
            compare(marker.name, "circle");
            compare(content.textBox.color.a, 0);
            verify(!content.textBox.children[0].font.strikeout);
        }

        function test_swipeAndDrag_data() {
            return pointers;
        }

        // Swipes pin and delete; a row dropped across the pinned block's
        // edge takes the pin state of where it lands.
        function test_swipeAndDrag(data) {
            makeScreen(["Home"], [["A", "B", "C"]]);
            swipeRow(2, true, data.touch);
            expectRows("*C,A,B");
            const pinned = row(0);
            tryCompare(pinned, "swipeOffset", 0);
            const mark = Array.from(pinned.content.children).find(child => child.name === "pin.fill");
            verify(mark.visible && mark.x + mark.width <= pinned.content.marker.x);
            swipeRow(1, false, data.touch);
            expectRows("*C,B");
            mouseClick(layers.inputBar.undoButton);
            expectRows("*C,A,B");
            wait(400);
            dragRow(2, row(0).y + 4, data.touch);
            expectRows("*B,*C,A");
            wait(400);
            dragRow(1, row(2).y + row(2).height - 4, data.touch);
            expectRows("*B,A,C");
        }

        // A short swipe leaves its button open for a tap; a tap elsewhere
        // only closes the open row.
        function test_swipeOpensAButton_data() {
            return pointers;
        }
        function test_swipeOpensAButton(data) {
            makeScreen(["Home"], [["A", "B", "C"]]);
            const y = row(0).height / 2;
            const open = (index, leading) => {
                const r = row(index);
                const from = leading ? 30 : r.width - 30;
                stroke(r, Qt.point(from, y), Qt.point(leading ? from + 100 : from - 100, y), data.touch);
                tryCompare(r, "swipeOffset", leading ? SwipeGesture.buttonWidth : -SwipeGesture.buttonWidth);
                return r;
            };
            const b = open(1, false);
            wait(300);
            compare(b.swipeOffset, -SwipeGesture.buttonWidth);
            tap(row(0).content.textBox, data.touch);
            tryCompare(b, "swipeOffset", 0);
            compare(screen.inputBar.editingItemId, "");
            expectRows("A,B,C");

            const c = open(2, true);
            const onPin = c.mapToItem(view, SwipeGesture.buttonWidth / 2, y);
            stroke(view, onPin, onPin, data.touch);
            expectRows("*C,A,B");
            tryCompare(c, "swipeOffset", 0);
            // A tap outside the list closes the row too, and still lands.
            open(1, false);
            tap(layers.inputBar.entry, data.touch);
            tryCompare(row(1), "swipeOffset", 0);
            tryVerify(() => layers.inputBar.entry.entryActiveFocus);
            const a = open(1, false);
            const onDelete = a.mapToItem(view, a.width - SwipeGesture.buttonWidth / 2, y);
            stroke(view, onDelete, onDelete, data.touch);
            expectRows("*C,B");
        }

        // A typed draft, and an edit under way, outlast the window going to
        // the background and the menu opening and closing.
        function test_draftOutlastsWindowAndMenu() {
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

            // The menu opens above its button, inside the window.
            const toolbar = layers.toolbar;
            mouseClick(toolbar.menuButton);
            tryCompare(toolbar.menu, "opened", true);
            verify(!bar.entry.entryActiveFocus);
            const titles = menu => Array.from({ length: menu.count }, (_, i) => menu.itemAt(i).text);
            compare(titles(toolbar.menu), ["Rate Murvane!", "Tutorial", "Reset Dots", "Themes"]);
            compare(titles(toolbar.themesMenu), ["Classic", "Gray", "Purple", "Blue", "Pink", "Green"]);
            const top = toolbar.menu.contentItem.mapToItem(view, 0, 0).y;
            verify(top >= 0 && top < toolbar.mapToItem(view, 0, 0).y, top);
            // Every icon on the screen and in the menu is one the table knows.
            const walk = item => {
                const icon = item as SymbolIcon;
                verify(!icon || icon.name === "" || Symbols.contains(icon.name), icon ? icon.name : "");
                Array.from(item.children).forEach(walk);
            };
            walk(view.Window.window.contentItem);
            keyClick(Qt.Key_Escape);
            tryCompare(toolbar.menu, "visible", false);
            tryVerify(() => bar.entry.entryActiveFocus);
            compare(bar.entry.textArea.text, "Tea green");
            compare(bar.submitButton.text, "Update");
            typeText(" tea");
            mouseClick(bar.submitButton);
            expectRows("Tea green tea");
        }

        // Ten thousand rows sort, and sort back, where the list stands; a
        // new item at the end is scrolled into view.
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
            mouseClick(layers.inputBar.undoButton);
            tryVerify(() => row(5000) && row(5000).itemText === "Item 04999");
            compare(list.contentY, top);
            mouseClick(layers.inputBar.entry);
            typeText("Last one");
            mouseClick(layers.inputBar.submitButton);
            tryVerify(() => {
                const r = list.itemAtIndex(10000);
                return r && r.y >= list.contentY && r.y + r.height <= list.contentY + list.height + 1;
            });
        }

        function test_sortsKeepEachRowsItem() {
            makeScreen(["Home"], [["+b", "c", "+a", "d"]]);
            // A tap between a short text and the marker does nothing.
            tap(row(0));
            compare(screen.inputBar.editingItemId, "");
            expectRows("+b,c,+a,d");
            // Rows move to their places: each keeps its item.
            const c = row(1);
            mouseClick(findChild(view, "sortTextButton"));
            expectRows("+a,+b,c,d");
            verify(row(2) === c);
            mouseClick(findChild(view, "sortStatusButton"));
            expectRows("c,d,+a,+b");
            verify(row(0) === c);
        }
    }
}
