#include "MurvaneApp.h"
#include "platform/AppIdentity.h"
#include "platform/FeedbackdHaptics.h"
#include "platform/preferences/FilePreferencesStore.h"
#include "platform/FontLoader.h"
#include "platform/Haptics.h"
#include "platform/RatingPrompt.h"
#include "platform/ReviewRequester.h"
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
    // Render on the main thread: Qt Quick 3D in Qt 6.4 can corrupt memory
    // when its views are made and released while a render thread draws.
    if (qEnvironmentVariableIsEmpty("QSG_RENDER_LOOP"))
        qputenv("QSG_RENDER_LOOP", "basic");
    QGuiApplication app(argc, argv);

    // One app per user: a second launch brings the first one forward and
    // leaves, before it has read or written anything.
    SingleInstance instance(QDBusConnection::sessionBus(), AppIdentity::appId,
                            FilePreferencesStore::defaultDirectory());
    switch (instance.claim(SingleInstance::launchPlatformData())) {
    case SingleInstance::Claim::HandedOver:
        return 0;
    case SingleInstance::Claim::AlreadyOpen:
        return reportAlreadyOpen(app);
    case SingleInstance::Claim::First:
        break;
    }

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
        QObject::connect(&instance, &SingleInstance::activated, &murvane, [&murvane](const QVariantMap &data) {
            SingleInstance::bringToFront(murvane.window(), data);
        });
        if (murvane.showWindow())
            code = app.exec();
    }
    ReviewRequester::setStandard(nullptr);
    Haptics::setStandard(nullptr);
    PreferencesStore::setStandard(nullptr);
    return code;
}
