// Starts the app twice on one data folder, as a user launching it again
// would, with and without a session bus (this test runs under a private one).
#include "platform/AppIdentity.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class TestTwoInstances : public QObject
{
    Q_OBJECT

private slots:
    // With a bus the second launch asks the first to come forward and
    // leaves at once; without one it finds the lock and says the app is
    // already open. Either way the first runs on.
    void secondLaunchLeavesTheFirstAlone_data()
    {
        QTest::addColumn<bool>("bus");
        QTest::newRow("session bus") << true;
        QTest::newRow("no bus") << false;
    }
    void secondLaunchLeavesTheFirstAlone()
    {
        QFETCH(bool, bus);
        QTemporaryDir home;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("XDG_DATA_HOME", home.path());
        env.insert("QT_QPA_PLATFORM", "offscreen");
        if (!bus)
            env.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        // Should a check fail, each is killed as it goes out of scope.
        QProcess first, second;
        for (QProcess *process : {&first, &second})
            process->setProcessEnvironment(env);

        first.start(QStringLiteral(MURVANE_BINARY), {});
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(home.filePath("murvane/instance.lock")), 60000);
        if (bus)
            QTRY_VERIFY(QDBusConnection::sessionBus().interface()->isServiceRegistered(AppIdentity::appId));

        second.start(QStringLiteral(MURVANE_BINARY), {});
        if (bus) {
            QVERIFY2(second.waitForFinished(5000), "the second launch did not end within 5 s");
            QCOMPARE(second.exitStatus(), QProcess::NormalExit);
            QCOMPARE(second.exitCode(), 0);
        } else {
            QByteArray said;
            QTRY_VERIFY2_WITH_TIMEOUT((said += second.readAllStandardError()).contains("Murvane is already open."),
                                      said.constData(), 5000);
        }
        QCOMPARE(first.state(), QProcess::Running);
    }
};

QTEST_GUILESS_MAIN(TestTwoInstances)
#include "tst_twoinstances.moc"
