import QtQuick
import QtTest
import Murvane

Item {
    width: 390
    height: 844

    ScreenTestCase {
        name: "KeyboardFlows"

        function focusedRowText() {
            const item = view.Window.activeFocusItem as ItemRowView;
            return item ? item.itemText : null;
        }

        // Items with the keyboard alone: Ctrl+N goes to the input bar, where
        // Ctrl+Enter adds and the field keeps Ctrl+Z; Tab reaches the rows,
        // where the arrows move, Space toggles, Alt+arrows move the row,
        // Ctrl+P pins, Delete deletes, Ctrl+Z undoes, Enter edits.
        function test_items() {
            makeScreen(["Home", "Work"], [["Milk", "Bread"], []]);
            keyClick(Qt.Key_N, Qt.ControlModifier);
            tryVerify(() => screen.inputBar.newItemFieldIsFocused);
            typeText("Tea");
            keyClick(Qt.Key_Z, Qt.ControlModifier);
            typeText("Tea");
            keyClick(Qt.Key_Return, Qt.ControlModifier);
            expectRows("Milk,Bread,Tea");
            keyClick(Qt.Key_Escape);

            for (let i = 0; i < 20 && focusedRowText() === null; ++i)
                keyClick(Qt.Key_Tab);
            compare(focusedRowText(), "Milk");
            // [key, modifiers, the rows after, the row with the keyboard after]
            const steps = [[Qt.Key_Down, 0, "Milk,Bread,Tea", "Bread"], [Qt.Key_Space, 0, "Milk,+Bread,Tea", "Bread"],
                           [Qt.Key_Up, Qt.AltModifier, "+Bread,Milk,Tea", "Bread"],
                           [Qt.Key_P, Qt.ControlModifier, "*+Bread,Milk,Tea", "Bread"],
                           [Qt.Key_Down, 0, "*+Bread,Milk,Tea", "Milk"], [Qt.Key_Delete, 0, "*+Bread,Tea", "Tea"],
                           [Qt.Key_Z, Qt.ControlModifier, "*+Bread,Milk,Tea", "Tea"]];
            for (const [key, modifiers, after, focused] of steps) {
                keyClick(key, modifiers);
                expectRows(after);
                compare(focusedRowText(), focused);
            }
            // Enter takes the row up in the input bar; Ctrl+Enter puts it back.
            keyClick(Qt.Key_Return);
            tryVerify(() => screen.inputBar.newItemFieldIsFocused);
            keyClick(Qt.Key_Home);
            keyClick(Qt.Key_Delete);
            keyClick(Qt.Key_Return, Qt.ControlModifier);
            expectRows("*+Bread,Milk,ea");
        }

        // Lists and sheets: Ctrl+Page Down switches, F2 takes the keyboard
        // to the title; F1 opens the tutorial, Page Down scrolls it and
        // Escape closes it; the alert answers Escape, and Enter on the
        // focused button.
        function test_listsAndSheets() {
            makeScreen(["One", "Two", "Three"], [["a"], ["b"], ["c"]]);
            keyClick(Qt.Key_PageDown, Qt.ControlModifier);
            expectRows("b");
            keyClick(Qt.Key_F2);
            keyClick(Qt.Key_A, Qt.ControlModifier);
            typeText("Shop");
            keyClick(Qt.Key_Return);
            tryVerify(() => !screen.lists.titleEdited);
            compare(screen.store.listNames, ["One", "Shop", "Three"]);

            const sheet = findChild(view, "tutorialSheet");
            keyClick(Qt.Key_F1);
            tryCompare(sheet, "opened", true);
            keyClick(Qt.Key_PageDown);
            verify(findChild(sheet.contentItem, "tutorialPage").contentY > 0);
            keyClick(Qt.Key_Escape);
            tryVerify(() => !sheet.visible && !screen.showTutorial);

            const alert = layers.deleteAlert;
            // "No" has the keyboard first; Right reaches "Yes".
            for (const keys of [[Qt.Key_Escape], [Qt.Key_Right, Qt.Key_Return]]) {
                mouseClick(layers.navigationBar.deleteButton);
                tryCompare(alert, "opened", true);
                keys.forEach(key => keyClick(key));
                tryCompare(alert, "visible", false);
            }
            compare(screen.store.listNames, ["One", "Three"]);
        }
    }
}
