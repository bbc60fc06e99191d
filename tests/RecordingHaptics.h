#pragma once

#include "platform/Haptics.h"

#include <QList>

// Test double for haptics: records what was played, in order. While it
// lives it is the standard instance, so code under test that plays
// through Haptics::standard() lands here.
class RecordingHaptics : public Haptics
{
public:
    enum class Event { lightImpact, successNotification };

    RecordingHaptics() { Haptics::setStandard(this); }
    ~RecordingHaptics() override { Haptics::setStandard(nullptr); }
    RecordingHaptics(const RecordingHaptics &) = delete;
    RecordingHaptics &operator=(const RecordingHaptics &) = delete;

    void lightImpact() override { events.append(Event::lightImpact); }
    void successNotification() override { events.append(Event::successNotification); }

    int count(Event event) const { return int(events.count(event)); }
    void clear() { events.clear(); }

    QList<Event> events;
};
