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
    // forward; the desktop's Open call does the same (there are no actions).
    void secondLaunchOrDesktopOpenHandsOver()
    {
        SingleInstance first(busNamed("first"), name, m_dir.path());
        QCOMPARE(first.claim(), SingleInstance::Claim::First);
        QSignalSpy activated(&first, &SingleInstance::activated);

        SingleInstance second(busNamed("second"), name, m_dir.path());
        QCOMPARE(second.claim({{"activation-token", "token-1"}}), SingleInstance::Claim::HandedOver);
        QDBusMessage open = QDBusMessage::createMethodCall(name, QStringLiteral("/io/murvane/test"),
                                                           QStringLiteral("org.freedesktop.Application"), "Open");
        open.setArguments({QStringList{"file:///tmp/x"}, QVariantMap{{"desktop-startup-id", "id-7"}}});
        QCOMPARE(busNamed("second").call(open, QDBus::BlockWithGui, 3000).type(), QDBusMessage::ReplyMessage);
        QCOMPARE(activated.size(), 2);
        QCOMPARE(SingleInstance::activationToken(activated.at(0).at(0).toMap()), QStringLiteral("token-1"));
        QCOMPARE(SingleInstance::activationToken(activated.at(1).at(0).toMap()), QStringLiteral("id-7"));
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

    // A lock is stale when its holder is gone, never merely because it is
    // old. The folder it makes and the lock are the user's alone.
    void aPrivateLockGoesStaleOnlyWithItsHolder()
    {
        const QString folder = m_dir.filePath("data");
        {
            SingleInstance running(noBus(), name, folder);
            QCOMPARE(running.claim(), SingleInstance::Claim::First);
            const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther
                                | QFile::WriteOther | QFile::ExeOther;
            QCOMPARE(QFile::permissions(folder) & others, QFile::Permissions());
            QCOMPARE(QFile::permissions(running.lockFilePath()) & others, QFile::Permissions());
            QFile file(running.lockFilePath());
            QVERIFY(file.open(QIODevice::ReadWrite));
            QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-3600), QFileDevice::FileModificationTime));
            QCOMPARE(SingleInstance(noBus(), name, folder).claim(), SingleInstance::Claim::AlreadyOpen);
        }
        // A holder on this machine that died without cleaning up.
        QProcess gone;
        gone.start(QStringLiteral("true"));
        const qint64 gonePid = gone.processId();
        QVERIFY(gone.waitForFinished());
        SingleInstance next(noBus(), name, folder);
        QFile lock(next.lockFilePath());
        QVERIFY(lock.open(QIODevice::WriteOnly));
        lock.write(QByteArray::number(gonePid) + "\nmurvane\n\n");
        lock.close();
        QCOMPARE(next.claim(), SingleInstance::Claim::First);
    }

    // A launcher's tokens travel from the environment to the running app,
    // Wayland's first; a token of the wrong type is passed over.
    void launchTokens()
    {
        qputenv("XDG_ACTIVATION_TOKEN", "w-2");
        qputenv("DESKTOP_STARTUP_ID", "x-2");
        const QVariantMap both = SingleInstance::launchPlatformData();
        qunsetenv("XDG_ACTIVATION_TOKEN");
        const QVariantMap x11 = SingleInstance::launchPlatformData();
        qunsetenv("DESKTOP_STARTUP_ID");
        QCOMPARE(SingleInstance::activationToken(both), QStringLiteral("w-2"));
        QCOMPARE(SingleInstance::activationToken(x11), QStringLiteral("x-2"));
        QCOMPARE(SingleInstance::launchPlatformData(), QVariantMap());
        QCOMPARE(SingleInstance::activationToken({{"activation-token", 42}, {"desktop-startup-id", "x"}}),
                 QStringLiteral("x"));
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
