#pragma once

#include "platform/WindowMode.h"

#include <QList>
#include <QObject>
#include <QRect>
#include <QTimer>
#include <optional>

class PreferencesStore;
class QWindow;

// Where and how big the app's window opens. On a desktop it opens at phone
// size the first time and afterwards where the user left it: size,
// position and maximised state, kept in the preferences store and brought
// back onto the screens there are now. On a phone shell it fills the
// screen and remembers nothing.
class WindowPlacement : public QObject
{
    Q_OBJECT

public:
    static constexpr QSize phoneSize{390, 844};
    // The smallest window the layout is made for.
    static constexpr QSize minimumSize{320, 560};

    struct Geometry
    {
        // Frame position and content size of the window when neither
        // maximised nor full screen.
        QRect normal;
        bool maximized = false;
        friend bool operator==(const Geometry &, const Geometry &) = default;
    };

    WindowPlacement(PreferencesStore &store, WindowMode mode, QObject *parent = nullptr);
    ~WindowPlacement() override;

    // The rule: the stored rectangle (none on the first run) fitted onto
    // the screens' available areas, the primary screen first. At least the
    // minimum size unless a screen is smaller, at most the screen it goes
    // on, and wholly on it: the screen it overlaps most, else the primary,
    // centred. The first run centres the phone size on the primary screen.
    static QRect placed(const std::optional<QRect> &stored, const QList<QRect> &availableScreens);

    // What the store holds; none when any value is missing or unusable.
    std::optional<Geometry> stored() const;
    void store(const Geometry &geometry);

    // Shows the window as the mode and the stored geometry say, then keeps
    // the store up to date as the user moves, resizes, maximises it.
    void show(QWindow &window);

private:
    void track();
    void saveNow();

    PreferencesStore &m_store;
    WindowMode m_mode;
    QWindow *m_window = nullptr;
    // Wayland tells a client neither where its window is nor lets it
    // choose; there only the size and the maximised state are kept.
    bool m_positionsKnown = true;
    Geometry m_current;
    bool m_dirty = false;
    // Moving or resizing sends a stream of changes; write once it rests.
    QTimer m_saveTimer;
};
