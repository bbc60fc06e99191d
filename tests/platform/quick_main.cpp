#include "QuickTestSetup.h"
#include "RecordingUrlOpener.h"
#include "platform/RatingPrompt.h"

#include <QQmlContext>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

// Lets the QML tests raise the rating prompt the way the app does and see
// which links it opened, with a software centre that is always "installed".
class PromptDriver : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QStringList opened READ opened)

public:
    RecordingUrlOpener opener;

    Q_INVOKABLE void requestReview() { RatingPrompt::instance()->requestReview(); }
    QStringList opened() const
    {
        QStringList urls;
        for (const QUrl &url : opener.opened)
            urls << url.toString();
        return urls;
    }
};

class PlatformTestSetup : public QuickTestSetup
{
    Q_OBJECT

public slots:
    void applicationAvailable()
    {
        QuickTestSetup::applicationAvailable();
        UrlOpener::setStandard(&m_driver.opener);
    }
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        QuickTestSetup::qmlEngineAvailable(engine);
        engine->rootContext()->setContextProperty(QStringLiteral("promptDriver"), &m_driver);
    }
    void cleanupTestCase()
    {
        UrlOpener::setStandard(nullptr);
        QuickTestSetup::cleanupTestCase();
    }

private:
    PromptDriver m_driver;
};

QUICK_TEST_MAIN_WITH_SETUP(platform_quick, PlatformTestSetup)
#include "quick_main.moc"
