#include "platform/SingleInstance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

// Runs under a private session bus (dbus-run-session, see CMakeLists).
namespace {

const QString name = QStringLiteral("io.murvane.test");

// A connection of its own, as another process would have.
QDBusConnection busNamed(const QString &connectionName)
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
}

QDBusConnection noBus()
{
    return QDBusConnection::connectToBus(QStringLiteral("unix:path=/nonexistent/bus"), QStringLiteral("none"));
}

} // namespace

class TestSingleInstance : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        for (const QString &c : {QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("silent")})
            QDBusConnection::disconnectFromBus(c);
        m_dir.remove();
        m_dir = QTemporaryDir();
    }

    // A second launch hands its token to the first, which is asked to come
    // forward.
    void secondLaunchHandsOver()
    {
        SingleInstance first(busNamed("first"), name, m_dir.path());
        QCOMPARE(first.claim(), SingleInstance::Claim::First);
        QSignalSpy activated(&first, &SingleInstance::activated);

        SingleInstance second(busNamed("second"), name, m_dir.path());
        QCOMPARE(second.claim({{"activation-token", "token-1"}}), SingleInstance::Claim::HandedOver);
        QCOMPARE(activated.size(), 1);
        QCOMPARE(activated.at(0).at(0).toMap().value("activation-token").toString(), QStringLiteral("token-1"));
    }

    // Without a bus, or with a name holder that does not answer, the lock
    // in the data folder decides.
    void theLockDecidesWithoutAnAnsweringBus_data()
    {
        QTest::addColumn<bool>("bus");
        QTest::addColumn<bool>("nameHeldBySilentHolder");
        QTest::addColumn<bool>("lockHeld");
        QTest::addColumn<SingleInstance::Claim>("expected");

        using C = SingleInstance::Claim;
        QTest::newRow("no bus, locked") << false << false << true << C::AlreadyOpen;
        QTest::newRow("silent holder, free") << true << true << false << C::First;
        QTest::newRow("silent holder, locked") << true << true << true << C::AlreadyOpen;
        // Holding the name is not enough: a process without the bus has the data.
        QTest::newRow("bus, locked") << true << false << true << C::AlreadyOpen;
    }

    void theLockDecidesWithoutAnAnsweringBus()
    {
        QFETCH(bool, bus);
        QFETCH(bool, nameHeldBySilentHolder);
        QFETCH(bool, lockHeld);
        QFETCH(SingleInstance::Claim, expected);

        QDBusConnection silent = busNamed("silent");
        if (nameHeldBySilentHolder)
            QVERIFY(silent.registerService(name));
        SingleInstance holder(noBus(), name, m_dir.path());
        if (lockHeld)
            QCOMPARE(holder.claim(), SingleInstance::Claim::First);

        SingleInstance instance(bus ? busNamed("first") : noBus(), name, m_dir.path());
        QCOMPARE(instance.claim(), expected);
        // Turned away, it gives the name back for the one that runs.
        if (bus && !nameHeldBySilentHolder) {
            const bool owned = QDBusConnection::sessionBus().interface()->isServiceRegistered(name);
            QCOMPARE(owned, expected == SingleInstance::Claim::First);
        }
    }

    // A lock is stale when its holder is gone, never merely because it is old.
    void aLockGoesStaleOnlyWithItsHolder()
    {
        {
            SingleInstance running(noBus(), name, m_dir.path());
            QCOMPARE(running.claim(), SingleInstance::Claim::First);
            QFile file(running.lockFilePath());
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-3600), QFileDevice::FileModificationTime));
            QCOMPARE(SingleInstance(noBus(), name, m_dir.path()).claim(), SingleInstance::Claim::AlreadyOpen);
        }
        // A holder on this machine that died without cleaning up.
        QProcess gone;
        gone.start(QStringLiteral("true"));
        const qint64 gonePid = gone.processId();
        QVERIFY(gone.waitForFinished());
        SingleInstance next(noBus(), name, m_dir.path());
        QFile lock(next.lockFilePath());
        QVERIFY(lock.open(QIODevice::WriteOnly));
        lock.write(QByteArray::number(gonePid) + "\nmurvane\n\n");
        lock.close();
        QCOMPARE(next.claim(), SingleInstance::Claim::First);
    }

    // The folder it makes and the lock it holds are the user's alone.
    void theLockIsPrivate()
    {
        const QString folder = m_dir.filePath("data");
        SingleInstance instance(noBus(), name, folder);
        QCOMPARE(instance.claim(), SingleInstance::Claim::First);
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther
                            | QFile::WriteOther | QFile::ExeOther;
        QCOMPARE(QFile::permissions(folder) & others, QFile::Permissions());
        QCOMPARE(QFile::permissions(instance.lockFilePath()) & others, QFile::Permissions());
    }

    // The desktop's calls: Open brings the app forward like Activate (see
    // the hand-over above); there are no actions, so ActivateAction does nothing.
    void desktopCalls_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QVariantList>("arguments");
        QTest::addColumn<int>("activations");

        const QVariantMap data{{"desktop-startup-id", "id-7"}};
        QTest::newRow("Open") << "Open" << QVariantList{QStringList{"file:///tmp/x"}, data} << 1;
        QTest::newRow("ActivateAction") << "ActivateAction" << QVariantList{"quit", QVariantList{}, data} << 0;
    }

    void desktopCalls()
    {
        QFETCH(QString, method);
        QFETCH(QVariantList, arguments);
        QFETCH(int, activations);

        SingleInstance app(busNamed("first"), name, m_dir.path());
        QCOMPARE(app.claim(), SingleInstance::Claim::First);
        QSignalSpy activated(&app, &SingleInstance::activated);
        QDBusMessage call = QDBusMessage::createMethodCall(name, QStringLiteral("/io/murvane/test"),
                                                           QStringLiteral("org.freedesktop.Application"), method);
        call.setArguments(arguments);
        const QDBusMessage reply = busNamed("second").call(call, QDBus::BlockWithGui, 3000);
        QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
        QCOMPARE(activated.size(), activations);
        if (activations)
            QCOMPARE(SingleInstance::activationToken(activated.at(0).at(0).toMap()), QStringLiteral("id-7"));
    }

    // A launcher's tokens travel from the environment to the running app.
    void launchTokens_data()
    {
        QTest::addColumn<QByteArray>("wayland");
        QTest::addColumn<QByteArray>("startupId");
        QTest::addColumn<QString>("token");

        QTest::newRow("none") << QByteArray() << QByteArray() << QString();
        QTest::newRow("x11") << QByteArray() << QByteArray("x-1") << "x-1";
        QTest::newRow("both: wayland's first") << QByteArray("w-2") << QByteArray("x-2") << "w-2";
    }

    void launchTokens()
    {
        QFETCH(QByteArray, wayland);
        QFETCH(QByteArray, startupId);
        QFETCH(QString, token);
        const auto set = [](const char *var, const QByteArray &value) {
            value.isEmpty() ? qunsetenv(var) : qputenv(var, value);
        };
        set("XDG_ACTIVATION_TOKEN", wayland);
        set("DESKTOP_STARTUP_ID", startupId);
        const QVariantMap data = SingleInstance::launchPlatformData();
        qunsetenv("XDG_ACTIVATION_TOKEN");
        qunsetenv("DESKTOP_STARTUP_ID");
        QCOMPARE(SingleInstance::activationToken(data), token);
        QCOMPARE(data.size(), int(!wayland.isEmpty()) + int(!startupId.isEmpty()));
        // A token of the wrong type is passed over.
        QCOMPARE(SingleInstance::activationToken({{"activation-token", 42}, {"desktop-startup-id", "x"}}),
                 QStringLiteral("x"));
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
