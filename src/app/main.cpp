#include "MurvaneApp.h"
#include "platform/AppIdentity.h"
#include "platform/FeedbackdHaptics.h"
#include "platform/preferences/FilePreferencesStore.h"
#include "platform/FontLoader.h"
#include "platform/Haptics.h"
#include "platform/RatingPrompt.h"
#include "platform/ReviewRequester.h"

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

    // Every platform service is in place before the first view is made.
    FilePreferencesStore preferences(FilePreferencesStore::defaultDirectory());
    PreferencesStore::setStandard(&preferences);
    FeedbackdHaptics haptics;
    Haptics::setStandard(&haptics);
    ReviewRequester::setStandard(RatingPrompt::instance());

    FontLoader::loadBundledFonts();
    QQuickStyle::setStyle(QStringLiteral("Basic"));

    int code = 1;
    {
        MurvaneApp murvane;
        if (murvane.showWindow())
            code = app.exec();
    }
    ReviewRequester::setStandard(nullptr);
    Haptics::setStandard(nullptr);
    PreferencesStore::setStandard(nullptr);
    return code;
}
