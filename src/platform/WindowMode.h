#pragma once

#include <QProcessEnvironment>

// How the app's one window is shown on the system it runs on.
enum class WindowMode {
    // A desktop: a phone-sized window the user moves and resizes.
    Window,
    // A phone shell (Phosh, Plasma Mobile, Lomiri): the whole work area,
    // leaving the shell's status and home bars in place.
    Maximized,
    // Android and iOS: the whole screen.
    FullScreen,
};

namespace WindowModes {
// The mode for a Linux session with this environment. A phone shell is
// recognised by what it sets for its apps: QT_QUICK_CONTROLS_MOBILE=1
// (Plasma Mobile, and anyone who asks Qt for touch controls), "phone"
// among the form factors of PLASMA_PLATFORM (Plasma Mobile), or a Phosh
// or Lomiri entry in XDG_CURRENT_DESKTOP.
WindowMode forEnvironment(const QProcessEnvironment &environment);
// The mode for this process.
WindowMode current();
} // namespace WindowModes
