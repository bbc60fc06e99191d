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
    void init()
    {
        QVERIFY(m_home.isValid());
        m_data = m_home.filePath("murvane");
    }

    void cleanup()
    {
        for (QProcess *p : {&m_first, &m_second}) {
            if (p->state() != QProcess::NotRunning) {
                p->kill();
                p->waitForFinished();
            }
        }
        m_home.remove();
        m_home = QTemporaryDir();
    }

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
        start(m_first, environment(bus));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_data + "/instance.lock"), 60000);
        if (bus)
            QTRY_VERIFY(QDBusConnection::sessionBus().interface()->isServiceRegistered(AppIdentity::appId));
        const Snapshot before = settled(m_data);

        start(m_second, environment(bus));
        if (bus) {
            QVERIFY2(m_second.waitForFinished(5000), "the second launch did not end within 5 s");
            QCOMPARE(m_second.exitStatus(), QProcess::NormalExit);
            QCOMPARE(m_second.exitCode(), 0);
        } else {
            QByteArray said;
            QTRY_VERIFY2_WITH_TIMEOUT((said += m_second.readAllStandardError()).contains("Murvane is already open."),
                                      said.constData(), 5000);
            QTest::qWait(1000); // a moment to write, for a process that wrongly went on
        }
        QCOMPARE(snapshot(m_data), before);
        QCOMPARE(m_first.state(), QProcess::Running);
    }

private:
    QProcessEnvironment environment(bool bus) const
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("XDG_DATA_HOME", m_home.path());
        env.insert("QT_QPA_PLATFORM", "offscreen");
        if (!bus)
            env.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        return env;
    }

    static void start(QProcess &process, const QProcessEnvironment &env)
    {
        process.setProcessEnvironment(env);
        process.start(QStringLiteral(MURVANE_BINARY), {});
        QVERIFY(process.waitForStarted());
    }

    QTemporaryDir m_home;
    QString m_data;
    QProcess m_first;
    QProcess m_second;
};

QTEST_GUILESS_MAIN(TestTwoInstances)
#include "tst_twoinstances.moc"
