#pragma once

// Touch feedback. The app plays two kinds: a light impact and a success
// notification. Views and the screen reach it through this interface; the
// platform implementation and a recording double plug in behind it.
class Haptics
{
public:
    virtual ~Haptics();
    virtual void lightImpact() = 0;
    virtual void successNotification() = 0;

    // The process-wide instance; does nothing until the app installs one.
    static Haptics &standard();
    static void setStandard(Haptics *haptics);
};
