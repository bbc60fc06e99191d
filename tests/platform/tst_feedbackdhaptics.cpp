#include "platform/AppIdentity.h"
#include "platform/FeedbackdHaptics.h"

#include <QDBusConnection>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

// Stands in for feedbackd on a private bus and records every trigger.
class FakeFeedbackd : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.sigxcpu.Feedback")

public:
    QStringList calls; // "app id, event, profile, timeout"

public slots:
    uint TriggerFeedback(const QString &appId, const QString &event, const QVariantMap &hints, int timeout)
    {
        calls << QStringLiteral("%1, %2, %3, %4").arg(appId, event, hints.value("profile").toString()).arg(timeout);
        return uint(calls.size());
    }
};

class TestFeedbackdHaptics : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_address;

private slots:
    // A bus of the test's own: a session bus would start an installed feedbackd.
    void initTestCase()
    {
        const QString config = m_dir.filePath(QStringLiteral("bus.conf"));
        QFile file(config);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QStringLiteral("<busconfig><type>session</type><listen>unix:dir=%1</listen>"
                                  "<auth>EXTERNAL</auth><policy context=\"default\">"
                                  "<allow send_destination=\"*\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/>"
                                  "</policy></busconfig>")
                       .arg(m_dir.path())
                       .toUtf8());
        file.close();
        const QStringList arguments{"--config-file=" + config, "--nofork", "--print-address=1"};
        m_daemon.start(QStringLiteral("dbus-daemon"), arguments);
        QVERIFY2(m_daemon.waitForReadyRead(5000), "dbus-daemon did not start");
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }

    void cleanupTestCase()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    // Without the daemon, or without a bus, the first haptic finds out, once
    // and quietly, and nothing more goes out; once it starts, each event
    // reaches it.
    void eventsReachTheDaemonWhenThereIsOne()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        FeedbackdHaptics offline(QDBusConnection(QStringLiteral("never connected")));
        offline.lightImpact();
        QVERIFY(!offline.isAvailable());
        QCOMPARE(offline.pendingCalls(), 0);

        FeedbackdHaptics haptics(QDBusConnection::connectToBus(m_address, QStringLiteral("client")));
        haptics.lightImpact();
        QTRY_VERIFY(!haptics.isAvailable());
        QTRY_COMPARE(haptics.pendingCalls(), 0);
        haptics.successNotification();
        QCOMPARE(haptics.pendingCalls(), 0);

        FakeFeedbackd daemon;
        QDBusConnection service = QDBusConnection::connectToBus(m_address, QStringLiteral("service"));
        QVERIFY(service.registerObject(FeedbackdHaptics::objectPath, &daemon, QDBusConnection::ExportAllSlots));
        QVERIFY(service.registerService(FeedbackdHaptics::serviceName));
        QTRY_VERIFY(haptics.isAvailable());
        haptics.lightImpact();
        haptics.successNotification();
        const QString app = AppIdentity::appId;
        QTRY_COMPARE(daemon.calls, QStringList({app + QStringLiteral(", button-pressed, quiet, -1"),
                                                app + QStringLiteral(", message-sent-instant, quiet, -1")}));
        QTRY_COMPARE(haptics.pendingCalls(), 0);
    }
};

QTEST_GUILESS_MAIN(TestFeedbackdHaptics)
#include "tst_feedbackdhaptics.moc"
