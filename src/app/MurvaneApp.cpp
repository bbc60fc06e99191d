#include "MurvaneApp.h"

#include "RatingManager.h"
#include "WindowPlacement.h"
#include "appearance/Appearance.h"
#include "platform/QmlServices.h"
#include "platform/RatingPrompt.h"
#include "screen/ScreenState.h"
#include "platform/preferences/StoreStatus.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickWindow>

MurvaneApp::MurvaneApp(RatingManager &ratingManager, QObject *parent)
    : QObject(parent)
    , m_ratingManager(&ratingManager)
{
    if (auto *app = qobject_cast<QGuiApplication *>(QCoreApplication::instance())) {
        // Already active when made (a platform that activates before the
        // first window): that is the initial state, not a change.
        m_shownInitially = QGuiApplication::applicationState() == Qt::ApplicationActive;
        connect(app, &QGuiApplication::applicationStateChanged, this, &MurvaneApp::applicationStateChanged);
    }
}

MurvaneApp::~MurvaneApp() = default;

bool MurvaneApp::showWindow(Appearance &appearance, RatingPrompt &ratingPrompt, ScreenState &screen,
                            WindowPlacement &placement)
{
    m_engine = std::make_unique<QQmlApplicationEngine>();
    m_engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    QmlServices::provide(*m_engine, appearance);
    QmlServices::provide(*m_engine, ratingPrompt);
    QVariantMap initial{{QStringLiteral("screen"), QVariant::fromValue(&screen)}};
    if (m_storeStatus)
        initial.insert(QStringLiteral("storeStatus"), QVariant::fromValue(m_storeStatus));
    m_engine->setInitialProperties(initial);
    m_engine->load(QUrl(QStringLiteral("qrc:/qt/qml/Murvane/Main.qml")));
    const QList<QObject *> roots = m_engine->rootObjects();
    auto *window = roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow *>(roots.first());
    if (!window)
        return false;
    placement.show(*window);
    return true;
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
