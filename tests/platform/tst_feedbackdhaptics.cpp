#include "platform/AppIdentity.h"
#include "platform/FeedbackdHaptics.h"

#include <QDBusConnection>
#include <QRegularExpression>
#include <QTest>

// Stands in for feedbackd on the private session bus the test runs under
// (dbus-run-session, see CMakeLists) and records every trigger.
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
    void cleanup()
    {
        // Each test starts without the service on the bus.
        QDBusConnection service = bus(QStringLiteral("service"));
        service.unregisterService(FeedbackdHaptics::serviceName);
        service.unregisterObject(FeedbackdHaptics::objectPath);
    }

    void eventsReachTheDaemon()
    {
        FakeFeedbackd daemon;
        publish(daemon);
        FeedbackdHaptics haptics(bus(QStringLiteral("client1")));
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

        FeedbackdHaptics haptics(bus(QStringLiteral("client2")));
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
        QDBusConnection service = bus(QStringLiteral("service"));
        QVERIFY(service.isConnected());
        QVERIFY(service.registerObject(FeedbackdHaptics::objectPath, &daemon, QDBusConnection::ExportAllSlots));
        QVERIFY(service.registerService(FeedbackdHaptics::serviceName));
    }

    // A connection of its own, as another process would have.
    static QDBusConnection bus(const QString &name)
    {
        return QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
    }
};

QTEST_GUILESS_MAIN(TestFeedbackdHaptics)
#include "tst_feedbackdhaptics.moc"
