#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QQuickWindow>
#include <algorithm>
#include <cstdio>
#include <vector>

// Frame timing for the benchmarks that drive the main screen: each figure
// runs from the input to the next frame presented.

// One turn of the event loop, as the app's own loop would run it. Objects
// released with deleteLater() (the list's rows, among others) go now too:
// processEvents() alone never deletes what was released outside an event
// loop, and a benchmark that never enters one would keep every row it ever
// made, with its script objects, for the garbage collector to walk.
inline void runEventLoopOnce()
{
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Waits for the next presented frame; returns false on time-out.
inline bool waitForFrame(QQuickWindow *window, int timeoutMs = 3000)
{
    bool swapped = false;
    const auto c = QObject::connect(window, &QQuickWindow::frameSwapped, window, [&] { swapped = true; },
                                    Qt::DirectConnection);
    QElapsedTimer t;
    t.start();
    while (!swapped && t.elapsed() < timeoutMs)
        runEventLoopOnce();
    QObject::disconnect(c);
    return swapped;
}

// Lets animations finish: returns once no frame came for `quietMs`.
inline void settle(QQuickWindow *window, int quietMs = 150, int capMs = 4000)
{
    QElapsedTimer total;
    total.start();
    QElapsedTimer quiet;
    quiet.start();
    const auto c = QObject::connect(window, &QQuickWindow::frameSwapped, window, [&] { quiet.restart(); },
                                    Qt::DirectConnection);
    while (quiet.elapsed() < quietMs && total.elapsed() < capMs)
        runEventLoopOnce();
    QObject::disconnect(c);
}

// Milliseconds from `input` to the frame that shows it.
template<class F>
double timeToFrame(QQuickWindow *window, F &&input, int timeoutMs = 3000)
{
    QElapsedTimer t;
    t.start();
    input();
    if (!waitForFrame(window, timeoutMs))
        std::fprintf(stderr, "no frame within %d ms\n", timeoutMs);
    return double(t.nsecsElapsed()) / 1e6;
}

// The value at fraction `p` of the sorted samples (0.5: the median).
inline double percentile(std::vector<double> v, double p)
{
    std::sort(v.begin(), v.end());
    return v[std::min(v.size() - 1, size_t(p * double(v.size() - 1) + 0.5))];
}
