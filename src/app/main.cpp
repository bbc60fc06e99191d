#include "platform/FilePreferencesStore.h"
#include "platform/FontLoader.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

int main(int argc, char *argv[])
{
    // Decides where the data lives: $XDG_DATA_HOME/murvane (~/.local/share/murvane).
    QCoreApplication::setOrganizationName(QString());
    QCoreApplication::setApplicationName(QStringLiteral("murvane"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Murvane"));
    QGuiApplication::setDesktopFileName(QStringLiteral("murvane"));
    QGuiApplication app(argc, argv);

    FilePreferencesStore preferences(FilePreferencesStore::defaultDirectory());
    PreferencesStore::setStandard(&preferences);

    FontLoader::loadBundledFonts();
    QQuickStyle::setStyle(QStringLiteral("Basic"));

    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QObject::connect(
        &engine, &QQmlApplicationEngine::objectCreationFailed, &app, [] { QCoreApplication::exit(1); },
        Qt::QueuedConnection);
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Murvane/Main.qml")));
    const int code = app.exec();
    PreferencesStore::setStandard(nullptr);
    return code;
}
