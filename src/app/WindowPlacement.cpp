#include "WindowPlacement.h"

#include "platform/preferences/PreferencesStore.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <iterator>

namespace {

const QString keyX = QStringLiteral("windowX");
const QString keyY = QStringLiteral("windowY");
const QString keyWidth = QStringLiteral("windowWidth");
const QString keyHeight = QStringLiteral("windowHeight");
const QString keyMaximized = QStringLiteral("windowMaximized");

// Far beyond any screen, yet safe to add and subtract as int.
constexpr qint64 coordinateLimit = 1'000'000;

int bounded(qint64 value)
{
    return int(std::clamp(value, -coordinateLimit, coordinateLimit));
}

qint64 overlapArea(const QRect &a, const QRect &b)
{
    const QRect both = a.intersected(b);
    return both.isEmpty() ? 0 : qint64(both.width()) * both.height();
}

} // namespace

WindowPlacement::WindowPlacement(PreferencesStore &store, WindowMode mode, QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_mode(mode)
{
    m_saveTimer.setSingleShot(true);
    m_saveTimer.setInterval(500);
    connect(&m_saveTimer, &QTimer::timeout, this, &WindowPlacement::saveNow);
}

WindowPlacement::~WindowPlacement()
{
    saveNow();
}

QRect WindowPlacement::placed(const std::optional<QRect> &stored, const QList<QRect> &availableScreens)
{
    const bool usable = stored && stored->width() > 0 && stored->height() > 0;
    QSize size = usable ? stored->size() : phoneSize;
    // A screen that reports no area (being unplugged, say) cannot hold it.
    QList<QRect> screens;
    std::copy_if(availableScreens.cbegin(), availableScreens.cend(), std::back_inserter(screens),
                 [](const QRect &screen) { return !screen.isEmpty(); });
    if (screens.isEmpty())
        return QRect(usable ? stored->topLeft() : QPoint(0, 0), size.expandedTo(minimumSize));

    const QRect *screen = &screens.first();
    qint64 bestOverlap = 0;
    if (usable) {
        for (const QRect &candidate : screens) {
            const qint64 overlap = overlapArea(*stored, candidate);
            if (overlap > bestOverlap) {
                bestOverlap = overlap;
                screen = &candidate;
            }
        }
    }
    size = size.expandedTo(minimumSize).boundedTo(screen->size());
    QPoint topLeft = bestOverlap > 0 ? stored->topLeft()
                                     : screen->topLeft() + QPoint((screen->width() - size.width()) / 2,
                                                                  (screen->height() - size.height()) / 2);
    topLeft.setX(std::clamp(topLeft.x(), screen->left(), screen->left() + screen->width() - size.width()));
    topLeft.setY(std::clamp(topLeft.y(), screen->top(), screen->top() + screen->height() - size.height()));
    return QRect(topLeft, size);
}

std::optional<WindowPlacement::Geometry> WindowPlacement::stored() const
{
    const auto x = m_store.integer(keyX);
    const auto y = m_store.integer(keyY);
    const auto width = m_store.integer(keyWidth);
    const auto height = m_store.integer(keyHeight);
    const auto maximized = m_store.integer(keyMaximized);
    if (!x || !y || !width || !height || !maximized || *width <= 0 || *height <= 0)
        return std::nullopt;
    return Geometry{QRect(bounded(*x), bounded(*y), bounded(*width), bounded(*height)), *maximized != 0};
}

void WindowPlacement::store(const Geometry &geometry)
{
    m_store.setInteger(keyX, geometry.normal.x());
    m_store.setInteger(keyY, geometry.normal.y());
    m_store.setInteger(keyWidth, geometry.normal.width());
    m_store.setInteger(keyHeight, geometry.normal.height());
    m_store.setInteger(keyMaximized, geometry.maximized ? 1 : 0);
}

void WindowPlacement::show(QWindow &window)
{
    switch (m_mode) {
    case WindowMode::FullScreen:
        window.showFullScreen();
        return;
    case WindowMode::Maximized:
        window.showMaximized();
        return;
    case WindowMode::Window:
        break;
    }

    m_positionsKnown = !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    QList<QRect> screens;
    if (QScreen *primary = QGuiApplication::primaryScreen())
        screens.append(primary->availableGeometry());
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen != QGuiApplication::primaryScreen())
            screens.append(screen->availableGeometry());
    }

    const std::optional<Geometry> previous = stored();
    const QRect normal = placed(previous ? std::optional(previous->normal) : std::nullopt, screens);
    window.setMinimumSize(minimumSize.boundedTo(normal.size()));
    window.resize(normal.size());
    if (m_positionsKnown)
        window.setFramePosition(normal.topLeft());
    m_current = {normal, previous && previous->maximized};
    if (m_current.maximized)
        window.showMaximized();
    else
        window.showNormal();

    m_window = &window;
    const auto changed = [this] { track(); };
    connect(&window, &QWindow::xChanged, this, changed);
    connect(&window, &QWindow::yChanged, this, changed);
    connect(&window, &QWindow::widthChanged, this, changed);
    connect(&window, &QWindow::heightChanged, this, changed);
    connect(&window, &QWindow::windowStateChanged, this, changed);
    connect(&window, &QWindow::visibleChanged, this, [this](bool visible) {
        if (!visible)
            saveNow();
    });
    connect(&window, &QObject::destroyed, this, [this] {
        saveNow();
        m_window = nullptr;
    });
}

void WindowPlacement::track()
{
    // A hidden window reports no useful geometry; closing must not
    // overwrite what was seen last.
    if (!m_window || !m_window->isVisible())
        return;
    const Qt::WindowStates states = m_window->windowStates();
    Geometry next = m_current;
    next.maximized = states.testFlag(Qt::WindowMaximized);
    // The geometry to come back to is the one of the plain window.
    if (!(states & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized))) {
        const QPoint position = m_positionsKnown ? m_window->framePosition() : m_current.normal.topLeft();
        next.normal = QRect(position, m_window->size());
    }
    if (next == m_current)
        return;
    m_current = next;
    m_dirty = true;
    m_saveTimer.start();
}

void WindowPlacement::saveNow()
{
    m_saveTimer.stop();
    if (!m_dirty)
        return;
    m_dirty = false;
    store(m_current);
}
