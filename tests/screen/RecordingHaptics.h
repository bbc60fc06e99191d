#pragma once

#include "platform/Haptics.h"

#include <QStringList>

// Remembers the haptics played, in order: "light" and "success".
class RecordingHaptics : public Haptics
{
public:
    void lightImpact() override { played << QStringLiteral("light"); }
    void successNotification() override { played << QStringLiteral("success"); }
    QStringList take() { return std::exchange(played, {}); }

    QStringList played;
};
