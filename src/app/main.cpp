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

#include <QGuiApplication>
#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

int main(int argc, char *argv[])
{
    // Decides where the data lives: $XDG_DATA_HOME/murvane (~/.local/share/murvane).
    QCoreApplication::setOrganizationName(QString());
    QCoreApplication::setApplicationName(QStringLiteral("murvane"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Murvane"));
    // Also the Wayland app id, which phone shells match to the desktop file.
    QGuiApplication::setDesktopFileName(AppIdentity::appId);
    QGuiApplication app(argc, argv);
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
    if (!murvane.showWindow(appearance, ratingPrompt, screen, placement))
        return 1;
    return app.exec();
}
