// Shows the turning dot globe in a phone-sized window and measures how
// smoothly and how cheaply it animates: the time between presented frames
// and the CPU time the whole process spends per second of animation.
//
//   bench_globe [--seconds N] [--screenshot file.png]

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMutex>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <vector>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

namespace {
double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

double percentile(std::vector<double> sorted, double p)
{
    if (sorted.empty())
        return 0;
    const auto rank = static_cast<size_t>(std::max(0.0, std::ceil(p * double(sorted.size())) - 1));
    return sorted[std::min(rank, sorted.size() - 1)];
}

const char *const scene = R"(
import QtQuick
import Murvane
Rectangle {
    readonly property alias dotCount: globe.dotCount
    gradient: Gradient {
        GradientStop { position: 0; color: "#e6efe6" }
        GradientStop { position: 1; color: "#b4cdb4" }
    }
    GlobeView {
        id: globe
        dotColor: Qt.rgba(100 / 255, 160 / 255, 100 / 255, 1)
    }
}
)";
} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption secondsOption("seconds", "Length of the measurement.", "seconds", "10");
    const QCommandLineOption screenshotOption("screenshot", "Save the last frame to a PNG file.", "file");
    parser.addOptions({secondsOption, screenshotOption});
    parser.process(app);
    const double seconds = parser.value(secondsOption).toDouble();

    QQmlEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QQmlComponent component(&engine);
    component.setData(scene, QUrl());
    QScopedPointer<QObject> root(component.create());
    auto *item = qobject_cast<QQuickItem *>(root.get());
    if (!item) {
        fprintf(stderr, "%s\n", qPrintable(component.errorString()));
        return 1;
    }

    QQuickWindow window;
    window.resize(390, 844);
    item->setParentItem(window.contentItem());
    item->setSize(QSizeF(390, 844));
    window.show();

    // Frames are stamped on the render thread; the first second, which pays
    // for pipeline and shader set-up, is not measured.
    QElapsedTimer clock;
    clock.start();
    QMutex mutex;
    std::vector<qint64> swaps;
    swaps.reserve(4096);
    // What each frame costs the render thread, from its sync to its swap:
    // the time between frames also holds the wait for the next vsync tick.
    std::vector<double> costMs;
    costMs.reserve(4096);
    qint64 syncStart = 0;
    bool measuring = false;
    QObject::connect(
        &window, &QQuickWindow::beforeSynchronizing, &window, [&] { syncStart = clock.nsecsElapsed(); },
        Qt::DirectConnection);
    QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window,
        [&] {
            const QMutexLocker lock(&mutex);
            if (measuring) {
                swaps.push_back(clock.nsecsElapsed());
                costMs.push_back(double(swaps.back() - syncStart) / 1e6);
            }
        },
        Qt::DirectConnection);

    double cpuStart = 0;
    qint64 wallStart = 0;
    QTimer::singleShot(1000, [&] {
        const QMutexLocker lock(&mutex);
        measuring = true;
        cpuStart = cpuSeconds();
        wallStart = clock.nsecsElapsed();
    });
    QTimer::singleShot(1000 + int(seconds * 1000), [&] {
        {
            const QMutexLocker lock(&mutex);
            measuring = false;
        }
        const double cpu = cpuSeconds() - cpuStart;
        const double wall = double(clock.nsecsElapsed() - wallStart) / 1e9;

        std::vector<double> frameMs;
        for (size_t i = 1; i < swaps.size(); ++i)
            frameMs.push_back(double(swaps[i] - swaps[i - 1]) / 1e6);
        std::sort(frameMs.begin(), frameMs.end());
        std::sort(costMs.begin(), costMs.end());
        const int dots = item->property("dotCount").toInt();
        printf("globe: 390x844, %.1f s measured, %d dots\n", wall, dots);
        printf("%-14s %8s %10s %10s %10s\n", "measure", "frames", "median-ms", "p95-ms", "worst-ms");
        printf("%-14s %8zu %10.2f %10.2f %10.2f\n", "frame-interval", swaps.size(), percentile(frameMs, 0.5),
               percentile(frameMs, 0.95), frameMs.empty() ? 0.0 : frameMs.back());
        printf("%-14s %8zu %10.2f %10.2f %10.2f\n", "frame-cost", costMs.size(), percentile(costMs, 0.5),
               percentile(costMs, 0.95), costMs.empty() ? 0.0 : costMs.back());
        printf("globe-frame-p95-ms: %.2f\n", percentile(frameMs, 0.95));
        printf("globe-cpu-per-s: %.3f\n", wall > 0 ? cpu / wall : 0.0);
        fflush(stdout);

        if (parser.isSet(screenshotOption))
            window.grabWindow().save(parser.value(screenshotOption));
        app.quit();
    });
    return app.exec();
}
