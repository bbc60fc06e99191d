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
};
