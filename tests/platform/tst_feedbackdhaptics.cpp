#include "platform/AppIdentity.h"
#include "platform/FeedbackdHaptics.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
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
        const QString profile = hints.value(QStringLiteral("profile")).toString();
        calls << QStringLiteral("%1, %2, %3, %4").arg(appId, event, profile).arg(timeout);
        return uint(calls.size());
    }
};

class TestFeedbackdHaptics : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QString daemon = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
        if (daemon.isEmpty())
            QSKIP("dbus-daemon is not installed");
        QVERIFY(m_dir.isValid());
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
        m_daemon.start(daemon, {QStringLiteral("--config-file=") + config, QStringLiteral("--nofork"),
                                QStringLiteral("--print-address=1")});
        QVERIFY(m_daemon.waitForStarted());
        QVERIFY(m_daemon.waitForReadyRead(5000));
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        QVERIFY(!m_address.isEmpty());
    }

    void cleanupTestCase()
    {
        if (m_daemon.state() != QProcess::NotRunning) {
            m_daemon.terminate();
            m_daemon.waitForFinished(3000);
        }
    }

    void cleanup()
    {
        // Each test starts without the service on the bus.
        QDBusConnection service = QDBusConnection::connectToBus(m_address, QStringLiteral("service"));
        service.unregisterService(FeedbackdHaptics::serviceName);
        service.unregisterObject(FeedbackdHaptics::objectPath);
    }

    void eventsReachTheDaemon()
    {
        FakeFeedbackd daemon;
        publish(daemon);
        FeedbackdHaptics haptics(QDBusConnection::connectToBus(m_address, QStringLiteral("client1")));
        haptics.lightImpact();
        haptics.successNotification();
        QTRY_COMPARE(daemon.calls.size(), 2);
        const QString app = AppIdentity::appId;
        QCOMPARE(daemon.calls, QStringList({app + QStringLiteral(", button-pressed, quiet, -1"),
                                            app + QStringLiteral(", message-sent-instant, quiet, -1")}));
        QTRY_COMPARE(haptics.pendingCalls(), 0);
        QVERIFY(haptics.isAvailable());
    }

    void missingDaemonOrBusIsNoticedOnceAndQuietly()
    {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        FeedbackdHaptics offline(QDBusConnection(QStringLiteral("never connected")));
        offline.lightImpact();
        QVERIFY(!offline.isAvailable());
        QCOMPARE(offline.pendingCalls(), 0);

        FeedbackdHaptics haptics(QDBusConnection::connectToBus(m_address, QStringLiteral("client2")));
        haptics.lightImpact();
        QTRY_VERIFY(!haptics.isAvailable());
        QTRY_COMPARE(haptics.pendingCalls(), 0);
        // Known absent: later haptics do not even go out.
        for (int i = 0; i < 5; ++i)
            haptics.successNotification();
        QCOMPARE(haptics.pendingCalls(), 0);

        // The daemon starts: haptics come back.
        FakeFeedbackd daemon;
        publish(daemon);
        QTRY_VERIFY(haptics.isAvailable());
        haptics.lightImpact();
        QTRY_COMPARE(daemon.calls.size(), 1);
        QVERIFY(daemon.calls[0].contains(QStringLiteral("button-pressed")));
    }

private:
    void publish(FakeFeedbackd &daemon)
    {
        QDBusConnection service = QDBusConnection::connectToBus(m_address, QStringLiteral("service"));
        QVERIFY(service.isConnected());
        QVERIFY(service.registerObject(FeedbackdHaptics::objectPath, &daemon, QDBusConnection::ExportAllSlots));
        QVERIFY(service.registerService(FeedbackdHaptics::serviceName));
    }

    QTemporaryDir m_dir;
    QProcess m_daemon;
    QString m_address;
};

QTEST_GUILESS_MAIN(TestFeedbackdHaptics)
#include "tst_feedbackdhaptics.moc"
