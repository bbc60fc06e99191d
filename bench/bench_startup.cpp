// Cold start and memory of the app against a bare Qt Quick window: each is
// started in turn, five times, with a fresh home folder every time. Start-up
// runs from launching the process to its first presented frame (the scene
// graph's own frame log); memory is the resident set 5 s after launch.
//
//   bench_startup [--runs N]

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {
struct Run
{
    double firstFrameMs = -1;
    double rssMiB = -1;
};

double median(std::vector<double> v)
{
    if (v.empty())
        return 0;
    std::sort(v.begin(), v.end());
    const size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

double residentMiB(qint64 pid)
{
    QFile status(QStringLiteral("/proc/%1/status").arg(pid));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
    }
    return -1;
}

Run measure(const QString &program)
{
    Run run;
    QTemporaryDir home;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), home.path());
    env.insert(QStringLiteral("XDG_DATA_HOME"), home.filePath(QStringLiteral("data")));
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), home.filePath(QStringLiteral("config")));
    env.insert(QStringLiteral("XDG_CACHE_HOME"), home.filePath(QStringLiteral("cache")));
    env.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("qt.scenegraph.time.renderloop.debug=true"));

    QProcess process;
    process.setProcessEnvironment(env);
    process.setProgram(program);
    process.setStandardOutputFile(QProcess::nullDevice());
    QElapsedTimer clock;
    QByteArray pending;
    double lastFrameMs = -1;
    // The threaded loop renders an empty frame before the first sync; the
    // frame with content is the last one rendered before the GUI thread
    // reports its first prepared frame. The basic loop logs no such line, so
    // its first rendered frame counts.
    bool threaded = false;
    QObject::connect(&process, &QProcess::readyReadStandardError, [&] {
        pending += process.readAllStandardError();
        const double now = double(clock.nsecsElapsed()) / 1e6;
        qsizetype end;
        while ((end = pending.indexOf('\n')) >= 0) {
            const QByteArray line = pending.left(end);
            pending.remove(0, end + 1);
            if (line.contains("render thread"))
                threaded = true;
            if (line.contains("frame rendered in")) {
                lastFrameMs = now;
                if (!threaded && run.firstFrameMs < 0)
                    run.firstFrameMs = now;
            } else if (line.contains("Frame prepared") && run.firstFrameMs < 0 && lastFrameMs >= 0) {
                run.firstFrameMs = lastFrameMs;
            }
        }
    });
    clock.start();
    process.start();
    if (!process.waitForStarted(5000))
        return run;
    // Sleeps in an event loop: polling would take a core from the program
    // being measured.
    QEventLoop wait;
    QTimer::singleShot(std::max<qint64>(0, 5000 - clock.elapsed()), &wait, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::finished, &wait, &QEventLoop::quit);
    if (process.state() == QProcess::Running)
        wait.exec();
    run.rssMiB = residentMiB(process.processId());
    process.terminate();
    if (!process.waitForFinished(3000))
        process.kill();
    process.waitForFinished(1000);
    return run;
}
} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption runsOption("runs", "Cold starts of each program.", "n", "5");
    parser.addOption(runsOption);
    parser.process(app);
    const int runs = std::max(1, parser.value(runsOption).toInt());

    const QString murvane = QStringLiteral(MURVANE_APP_PATH);
    const QString bare = QStringLiteral(BARE_WINDOW_PATH);
    std::vector<double> appMs, bareMs, appMiB, bareMiB;
    // Round-robin, so a busy spell of the machine hits both alike.
    for (int i = 0; i < runs; ++i) {
        for (const bool isApp : {true, false}) {
            const Run run = measure(isApp ? murvane : bare);
            if (run.firstFrameMs < 0 || run.rssMiB < 0) {
                std::fprintf(stderr, "%s: no frame or no memory figure\n", qPrintable(isApp ? murvane : bare));
                return 1;
            }
            (isApp ? appMs : bareMs).push_back(run.firstFrameMs);
            (isApp ? appMiB : bareMiB).push_back(run.rssMiB);
        }
    }
    std::printf("%-12s %8s %16s %12s\n", "program", "runs", "first-frame-ms", "rss-5s-MiB");
    std::printf("%-12s %8d %16.0f %12.1f\n", "murvane", runs, median(appMs), median(appMiB));
    std::printf("%-12s %8d %16.0f %12.1f\n", "bare-window", runs, median(bareMs), median(bareMiB));
    std::printf("startup-first-frame-vs-bare-window: %.2f\n", median(appMs) / median(bareMs));
    std::printf("rss-vs-bare-window: %.2f\n", median(appMiB) / median(bareMiB));
    return 0;
}
