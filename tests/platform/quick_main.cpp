#include "QuickTestSetup.h"
#include "RecordingUrlOpener.h"
#include "platform/RatingPrompt.h"

#include <QQmlContext>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

// Also lets the QML tests raise the rating prompt the way the app does (as
// "promptDriver") and see which links it opened, with a software centre
// that is always "installed".
class PlatformTestSetup : public QuickTestSetup
{
    Q_OBJECT
    Q_PROPERTY(QStringList opened READ opened)

public:
    Q_INVOKABLE void requestReview() { RatingPrompt::instance()->requestReview(); }
    QStringList opened() const
    {
        QStringList urls;
        for (const QUrl &url : m_opener.opened)
            urls << url.toString();
        return urls;
    }

public slots:
    void applicationAvailable()
    {
        QuickTestSetup::applicationAvailable();
        UrlOpener::setStandard(&m_opener);
    }
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        QuickTestSetup::qmlEngineAvailable(engine);
        engine->rootContext()->setContextProperty(QStringLiteral("promptDriver"), this);
    }
    void cleanupTestCase()
    {
        UrlOpener::setStandard(nullptr);
        QuickTestSetup::cleanupTestCase();
    }

private:
    RecordingUrlOpener m_opener;
};

QUICK_TEST_MAIN_WITH_SETUP(platform_quick, PlatformTestSetup)
#include "quick_main.moc"
