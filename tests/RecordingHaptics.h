#pragma once

#include "platform/Haptics.h"

#include <QList>

// Test double for haptics: records what was played, in order.
class RecordingHaptics : public Haptics
{
public:
    enum class Event { lightImpact, successNotification };

    void lightImpact() override { events.append(Event::lightImpact); }
    void successNotification() override { events.append(Event::successNotification); }

    void clear() { events.clear(); }

    QList<Event> events;
};
