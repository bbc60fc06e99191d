#pragma once

#include "platform/Haptics.h"
#include "platform/WriteReviewOpener.h"

// The screen's other services, doing nothing: the benchmarks' figures are
// the screen's, and a screenshot plays no sound.
class NoHaptics : public Haptics
{
public:
    void lightImpact() override {}
    void successNotification() override {}
};

class NoReviewPage : public WriteReviewOpener
{
public:
    void openWriteReviewPage() override {}
};
