#pragma once

#include <QObject>
#include <memory>

class QQmlApplicationEngine;
class QWindow;
class RatingManager;

// The application: its one window, whose whole content is the main screen,
// and the one RatingManager, kept for the life of the process. Each time
// the app comes back to the front it considers asking for a review.
class MurvaneApp : public QObject
{
    Q_OBJECT

public:
    // Over the standard services; follows QGuiApplication's state.
    explicit MurvaneApp(QObject *parent = nullptr);
    // With a given rating manager (tests); takes ownership.
    explicit MurvaneApp(std::unique_ptr<RatingManager> ratingManager, QObject *parent = nullptr);
    ~MurvaneApp() override;

    RatingManager &ratingManager() const { return *m_ratingManager; }

    // Builds the window; false when it could not be made.
    bool showWindow();
    // The window, once shown.
    QWindow *window() const;

    // The life-cycle handler: called with each new application state. The
    // state the app first shows itself in does not count as a change; each
    // later change to active runs the review flow.
    void applicationStateChanged(Qt::ApplicationState state);

private:
    void considerReview();

    std::unique_ptr<RatingManager> m_ratingManager;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    bool m_shownInitially = false;
};
