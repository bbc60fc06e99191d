#pragma once

#include "platform/WriteReviewOpener.h"

// Test double for the write-review page: counts how often it was opened.
class CountingReviewOpener : public WriteReviewOpener
{
public:
    void openWriteReviewPage() override { ++opened; }
    int opened = 0;
};
