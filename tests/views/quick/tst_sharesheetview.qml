import QtQuick
import QtTest
import Murvane

Item {
    id: root

    width: 390
    height: 844

    ScreenState {
        id: screen
    }

    ShareSheetView {
        id: view

        sheet: screen.shareSheet
    }

    TestCase {
        name: "ShareSheetView"
        when: windowShown

        function initTestCase() {
            screen.onAppear();
            screen.newItem = "Milk";
            screen.addOrUpdateAction();
        }

        function shareAndWait() {
            screen.share();
            verify(!view.visible, "presented on the next turn, not during the tap");
            tryCompare(view, "opened", true);
        }

        function test_copyCloses() {
            shareAndWait();
            verify(screen.shareSheet.text.indexOf("\u2022 Milk ") > 0);
            mouseClick(view.copyButton);
            tryCompare(view, "visible", false);
            verify(!screen.shareSheet.isPresented);
        }

        function test_cancelCloses() {
            shareAndWait();
            mouseClick(view.cancelButton);
            tryCompare(view, "visible", false);
            verify(!screen.shareSheet.isPresented);
        }

        function test_tapOutsideCloses() {
            shareAndWait();
            mouseClick(root, 20, 20);
            tryCompare(view, "visible", false);
            verify(!screen.shareSheet.isPresented);
            // And it comes back the next time.
            shareAndWait();
            mouseClick(view.cancelButton);
            tryCompare(view, "visible", false);
        }

        function test_sitsAtTheBottom() {
            shareAndWait();
            compare(view.y + view.height, root.height - 8);
            verify(view.width <= root.width - 16);
            verify(view.copyButton.height >= 44 && view.emailButton.height >= 44);
            mouseClick(view.cancelButton);
            tryCompare(view, "visible", false);
        }
    }
}
