import QtQuick
import QtTest
import Murvane

Item {
    id: root
    width: 390
    height: 844

    ScreenTestCase {
        name: "KeyboardFlows"
        scene: root

        function focusedRowText() {
            const item = view.Window.activeFocusItem as ItemRowView;
            return item ? item.itemText : null;
        }

        // Tab until the rows have the keyboard; false when they never do.
        function tabToRows() {
            for (let i = 0; i < 20 && focusedRowText() === null; ++i)
                keyClick(Qt.Key_Tab);
            return focusedRowText() !== null;
        }

        // Items with the keyboard alone: in the rows the arrows move,
        // Delete deletes, Space toggles, Ctrl+P pins, Enter edits; Ctrl+N
        // goes to the input bar, where Ctrl+Enter adds; Ctrl+Z undoes. A
        // key the text field takes itself stays with it.
        function test_items() {
            makeScreen(["Home", "Work"], [["Milk", "Bread"], []]);
            verify(tabToRows());
            compare(focusedRowText(), "Milk");
            keyClick(Qt.Key_Delete);
            expectRows("Bread");

            keyClick(Qt.Key_N, Qt.ControlModifier);
            tryVerify(() => screen.inputBar.newItemFieldIsFocused);
            typeText("Tea");
            // Ctrl+Z in the field undoes the typing, not the deletion.
            keyClick(Qt.Key_Z, Qt.ControlModifier);
            compare(screen.inputBar.newItem, "");
            expectRows("Bread");
            typeText("Tea");
            keyClick(Qt.Key_Return, Qt.ControlModifier);
            expectRows("Bread,Tea");
            keyClick(Qt.Key_Escape);
            tryVerify(() => !screen.inputBar.newItemFieldIsFocused);
            keyClick(Qt.Key_Z, Qt.ControlModifier);
            expectRows("Milk,Bread,Tea");

            verify(tabToRows());
            keyClick(Qt.Key_Up);
            keyClick(Qt.Key_Up);
            compare(focusedRowText(), "Milk");
            keyClick(Qt.Key_Down);
            compare(focusedRowText(), "Bread");
            keyClick(Qt.Key_Space);
            expectRows("Milk,+Bread,Tea");
            keyClick(Qt.Key_P, Qt.ControlModifier);
            expectRows("*+Bread,Milk,Tea");
            keyClick(Qt.Key_Up);
            compare(focusedRowText(), "Bread");
            keyClick(Qt.Key_Down);
            compare(focusedRowText(), "Milk");
            keyClick(Qt.Key_Delete);
            expectRows("*+Bread,Tea");

            // Enter takes the row up in the input bar, where Delete deletes
            // a character; Ctrl+Enter puts the row back.
            keyClick(Qt.Key_Up);
            compare(focusedRowText(), "Bread");
            keyClick(Qt.Key_Return);
            tryVerify(() => screen.inputBar.newItemFieldIsFocused);
            compare(layers.inputBar.submitButton.text, "Update");
            keyClick(Qt.Key_Home);
            keyClick(Qt.Key_Delete);
            keyClick(Qt.Key_Return, Qt.ControlModifier);
            expectRows("*+read,Tea");
        }

        // Lists and sheets: Ctrl+Page Down switches, Ctrl+Shift+Page Up
        // moves the list, F2 renames it, Ctrl+Shift+N adds one; F1 opens
        // the tutorial and Escape closes it; the alert answers Escape and
        // Enter on the focused button.
        function test_listsAndSheets() {
            makeScreen(["One", "Two", "Three"], [["a"], ["b"], ["c"]]);
            keyClick(Qt.Key_PageDown, Qt.ControlModifier);
            expectRows("b");
            keyClick(Qt.Key_PageUp, Qt.ControlModifier | Qt.ShiftModifier);
            compare(screen.store.listNames, ["Two", "One", "Three"]);
            compare(screen.lists.selectedListIndex, 0);

            keyClick(Qt.Key_F2);
            tryVerify(() => screen.lists.titleEdited);
            keyClick(Qt.Key_A, Qt.ControlModifier);
            typeText("Shop");
            keyClick(Qt.Key_Return);
            tryVerify(() => !screen.lists.titleEdited);
            compare(screen.store.listNames, ["Shop", "One", "Three"]);

            keyClick(Qt.Key_N, Qt.ControlModifier | Qt.ShiftModifier);
            compare(screen.store.listNames, ["New List", "Shop", "One", "Three"]);

            const sheet = findChild(view, "tutorialSheet");
            keyClick(Qt.Key_F1);
            tryCompare(sheet, "opened", true);
            // The page scrolls from the keyboard.
            const page = findChild(sheet.contentItem, "tutorialPage");
            keyClick(Qt.Key_PageDown);
            verify(page.contentY > 0);
            keyClick(Qt.Key_Escape);
            tryCompare(sheet, "visible", false);
            verify(!screen.showTutorial);

            const alert = layers.deleteAlert;
            mouseClick(layers.navigationBar.deleteButton);
            tryCompare(alert, "opened", true);
            keyClick(Qt.Key_Escape);
            tryCompare(alert, "visible", false);
            compare(screen.store.listNames.length, 4);
            mouseClick(layers.navigationBar.deleteButton);
            tryCompare(alert, "opened", true);
            // "No" has the keyboard first; Right reaches "Yes".
            keyClick(Qt.Key_Right);
            keyClick(Qt.Key_Return);
            tryCompare(alert, "visible", false);
            compare(screen.store.listNames, ["Shop", "One", "Three"]);
        }
    }
}
