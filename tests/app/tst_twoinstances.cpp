// Starts the app twice on one data folder, as a user launching it again
// would, with and without a session bus (this test runs under a private one).
#include "platform/AppIdentity.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
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

    // The second launch asks the first to come forward and leaves at once;
    // the first runs on, its data untouched.
    void withASessionBus()
    {
        start(m_first, environment(true));
        QDBusConnectionInterface *bus = QDBusConnection::sessionBus().interface();
        QVERIFY(bus);
        QTRY_VERIFY_WITH_TIMEOUT(bus->isServiceRegistered(AppIdentity::appId), 60000);
        const Snapshot before = settled(m_data);
        QVERIFY(!before.isEmpty());

        QElapsedTimer clock;
        clock.start();
        start(m_second, environment(true));
        QVERIFY2(m_second.waitForFinished(5000), "the second launch did not end within 5 s");
        QVERIFY(clock.elapsed() < 5000);
        QCOMPARE(m_second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(m_second.exitCode(), 0);

        QCOMPARE(m_first.state(), QProcess::Running);
        QCOMPARE(snapshot(m_data), before);
        // Still the one answering the desktop.
        QDBusMessage call = QDBusMessage::createMethodCall(AppIdentity::appId, QStringLiteral("/io/murvane/murvane"),
                                                           QStringLiteral("org.freedesktop.Application"),
                                                           QStringLiteral("Activate"));
        call << QVariantMap();
        QCOMPARE(QDBusConnection::sessionBus().call(call, QDBus::Block, 5000).type(), QDBusMessage::ReplyMessage);
    }

    // Without a bus the second launch finds the lock, says the app is
    // already open and writes nothing.
    void withoutASessionBus()
    {
        start(m_first, environment(false));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(m_data + "/instance.lock"), 60000);
        const Snapshot before = settled(m_data);

        start(m_second, environment(false));
        QByteArray said;
        QTRY_VERIFY2_WITH_TIMEOUT((said += m_second.readAllStandardError()).contains("Murvane is already open."),
                                  said.constData(), 5000);
        QCOMPARE(m_first.state(), QProcess::Running);
        // Give a process that wrongly went on a moment to write.
        QTest::qWait(1000);
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
