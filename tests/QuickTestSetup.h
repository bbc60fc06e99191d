#pragma once

#include "RecordingHaptics.h"
#include "RecordingUrlOpener.h"
#include "appearance/Appearance.h"
#include "platform/FontLoader.h"
#include "platform/QmlServices.h"
#include "platform/RatingPrompt.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QObject>
#include <QQmlEngine>
#include <QQuickStyle>

// Shared set-up of the Qt Quick test runners, and their composition root:
// the app's module, fonts and style, and services over a fresh in-memory
// store and recording doubles, so no test touches the user's data.
class QuickTestSetup : public QObject
{
    Q_OBJECT

public slots:
    void applicationAvailable()
    {
        // Frames drawn on the test's own thread, one per event-loop turn,
        // keep waits and grabs in step with what the test just did.
        if (qEnvironmentVariableIsEmpty("QSG_RENDER_LOOP"))
            qputenv("QSG_RENDER_LOOP", "basic");
        FontLoader::loadBundledFonts();
        QQuickStyle::setStyle(QStringLiteral("Basic"));
    }
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        QmlServices::provide(*engine, m_appearance);
        QmlServices::provide(*engine, m_ratingPrompt);
    }

protected:
    MemoryPreferencesStore m_preferences;
    RecordingHaptics m_haptics;
    RecordingUrlOpener m_urlOpener;
    Appearance m_appearance{m_preferences};
    RatingPrompt m_ratingPrompt{m_urlOpener};
};
