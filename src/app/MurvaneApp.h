#pragma once

#include <QObject>
#include <memory>

class Appearance;
class QQmlApplicationEngine;
class QWindow;
class RatingManager;
class RatingPrompt;
class ScreenState;
class WindowPlacement;
class StoreStatus;

// The application: its one window, whose whole content is the main screen,
// and its life cycle. Each time the app comes back to the front it
// considers asking for a review. The services are made by main() and
// outlive this object.
class MurvaneApp : public QObject
{
    Q_OBJECT

public:
    // Follows QGuiApplication's state when there is one.
    explicit MurvaneApp(RatingManager &ratingManager, QObject *parent = nullptr);
    ~MurvaneApp() override;

    RatingManager &ratingManager() const { return *m_ratingManager; }

    // What the window shows about the store; set before showWindow().
    void setStoreStatus(StoreStatus *status) { m_storeStatus = status; }
    // Builds the window over the screen, giving QML the app's appearance and
    // review prompt, and shows it where the placement says; false when it
    // could not be made.
    bool showWindow(Appearance &appearance, RatingPrompt &ratingPrompt, ScreenState &screen,
                    WindowPlacement &placement);
    // The window, once shown.
    QWindow *window() const;

    // The life-cycle handler: called with each new application state. The
    // state the app first shows itself in does not count as a change; each
    // later change to active runs the review flow.
    void applicationStateChanged(Qt::ApplicationState state);

private:
    void considerReview();

    RatingManager *m_ratingManager;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    StoreStatus *m_storeStatus = nullptr;
    bool m_shownInitially = false;
};
