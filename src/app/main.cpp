#include "MurvaneApp.h"
#include "RatingManager.h"
#include "WindowPlacement.h"
#include "appearance/Appearance.h"
#include "platform/AppIdentity.h"
#include "platform/DesktopUrlOpener.h"
#include "platform/FeedbackdHaptics.h"
#include "platform/FontLoader.h"
#include "platform/InAppShareSheet.h"
#include "platform/RatingPrompt.h"
#include "platform/WindowMode.h"
#include "platform/preferences/SqlitePreferencesStore.h"
#include "screen/ScreenState.h"
#include "platform/SingleInstance.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <cstdio>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

namespace {

// A second launch that could not hand over to the running app says so, in a
// dialog and on the terminal, and ends when the dialog is closed.
int reportAlreadyOpen(QGuiApplication &app)
{
    std::fputs("Murvane is already open.\n", stderr);
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Murvane/AlreadyOpenView.qml")));
    if (!engine.rootObjects().isEmpty())
        app.exec();
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    // Decides where the data lives: $XDG_DATA_HOME/murvane (~/.local/share/murvane).
    QCoreApplication::setOrganizationName(QString());
    QCoreApplication::setApplicationName(QStringLiteral("murvane"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Murvane"));
    // Also the Wayland app id, which phone shells match to the desktop file.
    QGuiApplication::setDesktopFileName(AppIdentity::appId);
    QGuiApplication app(argc, argv);

    // One app per user: a second launch brings the first one forward and
    // leaves, before it has read or written anything.
    SingleInstance instance(QDBusConnection::sessionBus(), AppIdentity::appId,
                            SqlitePreferencesStore::defaultDirectory());
    switch (instance.claim(SingleInstance::launchPlatformData())) {
    case SingleInstance::Claim::HandedOver:
        return 0;
    case SingleInstance::Claim::AlreadyOpen:
        return reportAlreadyOpen(app);
    case SingleInstance::Claim::First:
        break;
    }

    FontLoader::loadBundledFonts();
    QQuickStyle::setStyle(QStringLiteral("Basic"));

    // Every service is made here, once, and handed to what uses it. Each is
    // declared before its users, so it outlives them.
    SqlitePreferencesStore preferences(SqlitePreferencesStore::defaultDirectory());
    FeedbackdHaptics haptics;
    DesktopUrlOpener urlOpener;
    InAppShareSheet shareSheet;
    Appearance appearance(preferences);
    RatingPrompt ratingPrompt(urlOpener);
    RatingManager ratingManager(preferences, &RatingManager::systemClock, ratingPrompt, urlOpener);
    ScreenState screen(preferences, haptics, {appearance, shareSheet, ratingManager});

    // Outlives the window, so the last move or resize is kept.
    WindowPlacement placement(preferences, WindowModes::current());

    MurvaneApp murvane(ratingManager);
    murvane.setStoreStatus(&preferences.status());
    QObject::connect(&instance, &SingleInstance::activated, &murvane, [&murvane](const QVariantMap &data) {
        SingleInstance::bringToFront(murvane.window(), data);
    });
    if (!murvane.showWindow(appearance, ratingPrompt, screen, placement))
        return 1;
    return app.exec();
}
