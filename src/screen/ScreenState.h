#pragma once

#include "model/ListItems.h"
#include "model/UndoStack.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUuid>
#include <memory>
#include <QtQml/qqml.h>

class Appearance;
class DisplayedItemsModel;
class Haptics;
class KeyboardResponder;
class ShareSheet;
class WriteReviewOpener;

// Everything the main screen decides. It owns the store, the keyboard
// observer and the undo stack; ContentView.qml binds to it, draws and
// forwards input. Item ids cross to QML as their upper-case text form.
class ScreenState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the app and passed to ContentView")

    Q_PROPERTY(ListItems *store READ store CONSTANT)
    Q_PROPERTY(KeyboardResponder *keyboardResponder READ keyboardResponder CONSTANT)
    // Rows of the selected list in display order (pinned first).
    Q_PROPERTY(DisplayedItemsModel *displayedItems READ displayedItems CONSTANT)
    // Where share() sends the list's text; ShareSheetView shows it.
    Q_PROPERTY(ShareSheet *shareSheet READ shareSheet CONSTANT)

    // Persisted ("selectedListIndex").
    Q_PROPERTY(qint64 selectedListIndex READ selectedListIndex WRITE setSelectedListIndex NOTIFY selectedListIndexChanged)
    Q_PROPERTY(QString currentListName READ currentListName NOTIFY currentListNameChanged)
    Q_PROPERTY(bool canMoveListLeft READ canMoveListLeft NOTIFY selectionOrListsChanged)
    Q_PROPERTY(bool canMoveListRight READ canMoveListRight NOTIFY selectionOrListsChanged)
    Q_PROPERTY(bool isSelectedListEmpty READ isSelectedListEmpty NOTIFY isSelectedListEmptyChanged)

    // View state.
    Q_PROPERTY(QString newItem READ newItem WRITE setNewItem NOTIFY newItemChanged)
    Q_PROPERTY(QString editingItemId READ editingItemId NOTIFY editingItemIdChanged) // "" = adding
    Q_PROPERTY(bool newItemFieldIsFocused READ newItemFieldIsFocused WRITE setNewItemFieldIsFocused NOTIFY newItemFieldIsFocusedChanged)
    Q_PROPERTY(bool titleEdited READ titleEdited NOTIFY titleEditedChanged)
    Q_PROPERTY(bool showdefaultScreen READ showdefaultScreen NOTIFY showdefaultScreenChanged)
    Q_PROPERTY(bool isAscending READ isAscending NOTIFY isAscendingChanged)
    Q_PROPERTY(bool showDeletionConfirmation READ showDeletionConfirmation WRITE setShowDeletionConfirmation NOTIFY showDeletionConfirmationChanged)
    Q_PROPERTY(bool rotateMoon READ rotateMoon NOTIFY rotateMoonChanged)
    Q_PROPERTY(bool showBullet READ showBullet NOTIFY bulletChanged)
    Q_PROPERTY(double bulletOffset READ bulletOffset NOTIFY bulletChanged)
    Q_PROPERTY(bool showTutorial READ showTutorial WRITE setShowTutorial NOTIFY showTutorialChanged)
    Q_PROPERTY(QString lastItemId READ lastItemId NOTIFY lastItemIdChanged)
    Q_PROPERTY(QString refreshID READ refreshID NOTIFY refreshIDChanged)
    Q_PROPERTY(QString themeRefreshID READ themeRefreshID NOTIFY themeRefreshIDChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY undoStackChanged)

public:
    // The services the screen talks to besides the store. Each must
    // outlive the screen.
    struct Services
    {
        Appearance &appearance;
        ShareSheet &shareSheet;
        WriteReviewOpener &reviewOpener;
    };

    ScreenState(PreferencesStore &preferences, Haptics &haptics, const Services &services,
                QObject *parent = nullptr);
    ~ScreenState() override;

    ListItems *store() const;
    KeyboardResponder *keyboardResponder() const;
    DisplayedItemsModel *displayedItems() const;
    ShareSheet *shareSheet() const;
    UndoStack &undoStack();

    qint64 selectedListIndex() const;
    void setSelectedListIndex(qint64 index);
    QString currentListName() const;
    bool canMoveListLeft() const;
    bool canMoveListRight() const;
    bool isSelectedListEmpty() const;

    QString newItem() const;
    void setNewItem(const QString &text);
    QString editingItemId() const;
    bool newItemFieldIsFocused() const;
    void setNewItemFieldIsFocused(bool focused);
    bool titleEdited() const;
    bool showdefaultScreen() const;
    bool isAscending() const;
    bool showDeletionConfirmation() const;
    void setShowDeletionConfirmation(bool show);
    bool rotateMoon() const;
    bool showBullet() const;
    double bulletOffset() const;
    bool showTutorial() const;
    void setShowTutorial(bool show);
    QString lastItemId() const;
    QString refreshID() const;
    QString themeRefreshID() const;
    bool canUndo() const;

    // Accumulated turn of an item's done-marker, in degrees (0 when never tapped).
    Q_INVOKABLE double rotationAngle(const QString &itemId) const;
    // Title font size in points for a list name, by user-perceived characters.
    Q_INVOKABLE static int titlePointSize(const QString &title);

public slots:
    // Start-up: copy the scheme into the store, clamp the selection.
    void onAppear();

    // Input bar.
    void addOrUpdateAction();
    void undoAction();
    void onEditingEnded();

    // Item rows (by item id).
    void onTapDone(const QString &itemId);
    void toggleState(const QString &itemId);
    void editingAction(const QString &itemId);
    void pinAction(const QString &itemId);
    void deleteAction(const QString &itemId);
    // The list's delete gesture: displayed row offsets, walked ascending.
    void deleteDisplayedRows(const QList<int> &offsets);
    // Drag and drop: a displayed row dropped before displayed gap `destination`.
    void moveDisplayedRow(int from, int destination);

    // Navigation bar and header row.
    void moveListLeft();
    void moveListRight();
    void requestDeleteList();  // minus button: shows the confirmation
    void confirmDeleteList();  // "Yes"
    void newList();
    void selectList(qint64 index); // chip tap
    void onTitleChange(const QString &text);
    void onTitleEditingChanged(bool editing);
    void onTitleCommit();

    // Bottom toolbar.
    void onSortToggle();  // by status
    void onSortByText();
    void toggleColorScheme();
    void resetDots();
    void chooseTheme(const QString &rawValue);
    void openWriteReviewPage();
    void onShowTutorial();
    void share();

signals:
    void selectedListIndexChanged();
    void currentListNameChanged();
    void selectionOrListsChanged();
    void isSelectedListEmptyChanged();
    void newItemChanged();
    void editingItemIdChanged();
    void newItemFieldIsFocusedChanged();
    void titleEditedChanged();
    void showdefaultScreenChanged();
    void isAscendingChanged();
    void showDeletionConfirmationChanged();
    void rotateMoonChanged();
    void bulletChanged();
    void showTutorialChanged();
    void lastItemIdChanged();
    void refreshIDChanged();
    void themeRefreshIDChanged();
    void undoStackChanged();
    void rotationChanged(const QString &itemId, double angle);
    // Requests to the views: bring an item row to the bottom of the visible
    // list; centre the selected chip in the header row over `durationMs`
    // (ease-in-out; a later request replaces a running one; 0 = jump, as on
    // appearing). Every change of the selection asks for 200 ms; flows that
    // need another pace ask again right after.
    void scrollToItem(const QString &itemId);
    void scrollHeaderToSelected(int durationMs);

private:
    void sortSelected(bool byText);
    // Renews themeRefreshID when the stored theme differs from the one shown.
    void followTheme();

    struct Private;
    std::unique_ptr<Private> d;
};
