#pragma once

#include <QObject>
#include <QUuid>
#include <QtQml/qqml.h>

class Appearance;
class DisplayedItemsModel;
class Haptics;
class InputBar;
class KeyCommands;
class KeyboardResponder;
class ListItems;
class ListNavigation;
class PreferencesStore;
class RowActions;
class ShareSheet;
class SortAndUndo;
class WriteReviewOpener;

// Everything the main screen decides, in parts: the lists, the input bar,
// sorting and undo, and the row actions. This object owns the store and
// the parts, and keeps what is left: the theme and scheme, the tutorial,
// the review page and sharing. ContentView.qml binds to it, draws and
// forwards input.
class ScreenState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the app and passed to ContentView")

    Q_PROPERTY(ListItems *store READ store CONSTANT)
    Q_PROPERTY(ListNavigation *lists READ lists CONSTANT)
    Q_PROPERTY(InputBar *inputBar READ inputBar CONSTANT)
    Q_PROPERTY(SortAndUndo *sortAndUndo READ sortAndUndo CONSTANT)
    Q_PROPERTY(RowActions *rows READ rows CONSTANT)
    Q_PROPERTY(KeyboardResponder *keyboardResponder READ keyboardResponder CONSTANT)
    Q_PROPERTY(KeyCommands *keys READ keys CONSTANT)
    // Rows of the selected list in display order (pinned first).
    Q_PROPERTY(DisplayedItemsModel *displayedItems READ displayedItems CONSTANT)
    // Where share() sends the list's text; ShareSheetView shows it.
    Q_PROPERTY(ShareSheet *shareSheet READ shareSheet CONSTANT)

    Q_PROPERTY(bool rotateMoon READ rotateMoon NOTIFY rotateMoonChanged)
    Q_PROPERTY(bool showTutorial READ showTutorial WRITE setShowTutorial NOTIFY showTutorialChanged)
    Q_PROPERTY(QString themeRefreshID READ themeRefreshID NOTIFY themeRefreshIDChanged)

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

    ListItems *store() const { return m_store; }
    ListNavigation *lists() const { return m_lists; }
    InputBar *inputBar() const { return m_input; }
    SortAndUndo *sortAndUndo() const { return m_sortAndUndo; }
    RowActions *rows() const { return m_rows; }
    KeyboardResponder *keyboardResponder() const { return m_keyboard; }
    KeyCommands *keys() const { return m_keys; }
    DisplayedItemsModel *displayedItems() const { return m_displayed; }
    ShareSheet *shareSheet() const { return m_shareSheet; }

    bool rotateMoon() const { return m_rotateMoon; }
    bool showTutorial() const { return m_showTutorial; }
    void setShowTutorial(bool show);
    QString themeRefreshID() const;

public slots:
    // Start-up: copy the scheme into the store, clamp the selection.
    void appear();
    void toggleColorScheme();
    void chooseTheme(const QString &rawValue);
    void openWriteReviewPage();
    void openTutorial();
    void share();

signals:
    void rotateMoonChanged();
    void showTutorialChanged();
    void themeRefreshIDChanged();

private:
    // Renews themeRefreshID when the stored theme differs from the one shown.
    void followTheme();

    Haptics &m_haptics;
    Appearance &m_appearance;
    WriteReviewOpener &m_reviewOpener;
    ShareSheet *m_shareSheet;
    ListItems *m_store;
    DisplayedItemsModel *m_displayed;
    KeyboardResponder *m_keyboard;
    SortAndUndo *m_sortAndUndo;
    ListNavigation *m_lists;
    InputBar *m_input;
    RowActions *m_rows;
    KeyCommands *m_keys;
    bool m_rotateMoon = false;
    bool m_showTutorial = false;
    QUuid m_themeRefreshId = QUuid::createUuid();
    QString m_themeKey;
};
