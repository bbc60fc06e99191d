#include "MurvaneApp.h"

#include "RatingManager.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QWindow>

MurvaneApp::MurvaneApp(QObject *parent)
    : MurvaneApp(std::make_unique<RatingManager>(), parent)
{
}

MurvaneApp::MurvaneApp(std::unique_ptr<RatingManager> ratingManager, QObject *parent)
    : QObject(parent)
    , m_ratingManager(std::move(ratingManager))
{
    // The toolbar's "Rate Murvane!" opens the page through the one manager.
    WriteReviewOpener::setStandard(m_ratingManager.get());
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        // Already active when made (a platform that activates before the
        // first window): that is the initial state, not a change.
        m_shownInitially = QGuiApplication::applicationState() == Qt::ApplicationActive;
        connect(app, &QGuiApplication::applicationStateChanged, this, &MurvaneApp::applicationStateChanged);
    }
}

MurvaneApp::~MurvaneApp()
{
    if (&WriteReviewOpener::standard() == m_ratingManager.get())
        WriteReviewOpener::setStandard(nullptr);
}

bool MurvaneApp::showWindow()
{
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine->load(QUrl(QStringLiteral("qrc:/qt/qml/Murvane/Main.qml")));
    return !m_engine->rootObjects().isEmpty();
}

QWindow *MurvaneApp::window() const
{
    if (!m_engine || m_engine->rootObjects().isEmpty())
        return nullptr;
    return qobject_cast<QWindow *>(m_engine->rootObjects().constFirst());
}

void MurvaneApp::applicationStateChanged(Qt::ApplicationState state)
{
    if (state != Qt::ApplicationActive)
        return;
    // The first activation is the window appearing, not a return to the app.
    if (!m_shownInitially) {
        m_shownInitially = true;
        return;
    }
    considerReview();
}

void MurvaneApp::considerReview()
{
    RatingManager &rating = *m_ratingManager;
    if (!rating.shouldRequestReview())
        return;
    // Recorded before asking, whether or not anything is shown.
    rating.setLastPromptDateString(RatingManager::formatDate(rating.now()));
    rating.requestReview();
}
