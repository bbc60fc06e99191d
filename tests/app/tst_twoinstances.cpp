// Starts the app twice on one data folder, as a user launching it again
// would, with and without a session bus (this test runs under a private one).
#include "platform/AppIdentity.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

using Snapshot = QMap<QString, QByteArray>;

// Every file of the data folder with its bytes.
Snapshot snapshot(const QString &dir)
{
    Snapshot files;
    QDirIterator it(dir, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (file.open(QIODevice::ReadOnly))
            files.insert(QDir(dir).relativeFilePath(file.fileName()), file.readAll());
    }
    return files;
}

// The folder as the first app left it once it has finished starting.
Snapshot settled(const QString &dir)
{
    Snapshot last = snapshot(dir);
    for (int i = 0; i < 100; ++i) {
        QTest::qWait(300);
        Snapshot now = snapshot(dir);
        if (now == last)
            return now;
        last = std::move(now);
    }
    return last;
}

} // namespace

class TestTwoInstances : public QObject
{
    Q_OBJECT

private slots:
    // With a bus the second launch asks the first to come forward and
    // leaves at once; without one it finds the lock and says the app is
    // already open. Either way the first runs on, its data untouched.
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
        const QString data = home.filePath("murvane");
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
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(data + "/instance.lock"), 60000);
        if (bus)
            QTRY_VERIFY(QDBusConnection::sessionBus().interface()->isServiceRegistered(AppIdentity::appId));
        const Snapshot before = settled(data);

        second.start(QStringLiteral(MURVANE_BINARY), {});
        if (bus) {
            QVERIFY2(second.waitForFinished(5000), "the second launch did not end within 5 s");
            QCOMPARE(second.exitStatus(), QProcess::NormalExit);
            QCOMPARE(second.exitCode(), 0);
        } else {
            QByteArray said;
            QTRY_VERIFY2_WITH_TIMEOUT((said += second.readAllStandardError()).contains("Murvane is already open."),
                                      said.constData(), 5000);
            QTest::qWait(1000); // a moment to write, for a process that wrongly went on
        }
        QCOMPARE(snapshot(data), before);
        QCOMPARE(first.state(), QProcess::Running);
        first.kill();
        first.waitForFinished();
    }
};

QTEST_GUILESS_MAIN(TestTwoInstances)
#include "tst_twoinstances.moc"
