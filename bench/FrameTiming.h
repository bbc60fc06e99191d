#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QQuickWindow>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <memory>
#include <cstdio>
#include <vector>

// Frame timing for the benchmarks that drive the main screen: each figure
// runs from the input to the next frame presented.

// One turn of the event loop, as the app's own loop would run it: it sleeps
// until something happens, at most `maxWaitMs`. A waiter that spun instead
// would hold one of the cores the software rasteriser draws with, and every
// frame it timed would come later than the app's. Objects released with
// deleteLater() (the list's rows, among others) go now too: processEvents()
// alone never deletes what was released outside an event loop, and a
// benchmark that never enters one would keep every row it ever made, with
// its script objects, for the garbage collector to walk.
inline void runEventLoopOnce(int maxWaitMs = 5)
{
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(maxWaitMs);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Notes, from the render thread, when the window presents a frame, and wakes
// the GUI thread each time so that its waiting ends at once. The state is
// shared with the connection: a frame presented while the watch ends still
// has somewhere to write.
class FrameWatch
{
public:
    explicit FrameWatch(QQuickWindow *window)
    {
        m_state->clock.start();
        m_connection = QObject::connect(
                window, &QQuickWindow::frameSwapped, window,
                [window, state = m_state] {
                    const qint64 now = state->clock.nsecsElapsed();
                    qint64 none = -1;
                    state->first.compare_exchange_strong(none, now);
                    state->last.store(now);
                    QMetaObject::invokeMethod(window, [] {}, Qt::QueuedConnection);
                },
                Qt::DirectConnection);
    }
    ~FrameWatch() { QObject::disconnect(m_connection); }
    FrameWatch(const FrameWatch &) = delete;
    FrameWatch &operator=(const FrameWatch &) = delete;

    // Nanoseconds since the watch began; the first and the newest frame
    // seen, on that clock, or -1 while there is none.
    qint64 now() const { return m_state->clock.nsecsElapsed(); }
    qint64 firstFrame() const { return m_state->first.load(); }
    qint64 lastFrame() const { return m_state->last.load(); }

private:
    struct State
    {
        QElapsedTimer clock;
        std::atomic<qint64> first = -1;
        std::atomic<qint64> last = -1;
    };
    std::shared_ptr<State> m_state = std::make_shared<State>();
    QMetaObject::Connection m_connection;
};

// Waits until the watch has seen a frame; false on time-out.
inline bool waitForFrame(const FrameWatch &watch, int timeoutMs = 3000)
{
    const qint64 timeoutNs = qint64(timeoutMs) * 1000000;
    while (watch.firstFrame() < 0 && watch.now() < timeoutNs)
        runEventLoopOnce();
    return watch.firstFrame() >= 0;
}

// Lets animations finish: returns once no frame came for `quietMs`.
inline void settle(QQuickWindow *window, int quietMs = 150, int capMs = 4000)
{
    const FrameWatch watch(window);
    const qint64 quietNs = qint64(quietMs) * 1000000;
    const qint64 capNs = qint64(capMs) * 1000000;
    while (watch.now() - std::max<qint64>(0, watch.lastFrame()) < quietNs && watch.now() < capNs)
        runEventLoopOnce();
}

// Milliseconds from `input` to the frame that shows it.
template<class F>
double timeToFrame(QQuickWindow *window, F &&input, int timeoutMs = 3000)
{
    const FrameWatch watch(window);
    input();
    if (!waitForFrame(watch, timeoutMs)) {
        std::fprintf(stderr, "no frame within %d ms\n", timeoutMs);
        return double(watch.now()) / 1e6;
    }
    return double(watch.firstFrame()) / 1e6;
}

// The value at fraction `p` of the sorted samples (0.5: the median).
inline double percentile(std::vector<double> v, double p)
{
    std::sort(v.begin(), v.end());
    return v[std::min(v.size() - 1, size_t(p * double(v.size() - 1) + 0.5))];
}
