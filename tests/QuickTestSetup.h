#pragma once

#include "platform/FontLoader.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "platform/preferences/PreferencesStore.h"

#include <QObject>
#include <QQmlEngine>
#include <QQuickStyle>

// Shared set-up of the Qt Quick test runners: the app's module, fonts and
// style, and a fresh in-memory preferences store so no test touches the
// user's data.
class QuickTestSetup : public QObject
{
    Q_OBJECT

public slots:
    void applicationAvailable()
    {
        // The app renders on its main thread; so do its tests.
        if (qEnvironmentVariableIsEmpty("QSG_RENDER_LOOP"))
            qputenv("QSG_RENDER_LOOP", "basic");
        PreferencesStore::setStandard(&m_preferences);
        FontLoader::loadBundledFonts();
        QQuickStyle::setStyle(QStringLiteral("Basic"));
    }
    void qmlEngineAvailable(QQmlEngine *engine) { engine->addImportPath(QStringLiteral("qrc:/qt/qml")); }
    void cleanupTestCase() { PreferencesStore::setStandard(nullptr); }

private:
    MemoryPreferencesStore m_preferences;
};
