#pragma once

#include "UrlOpener.h"

// Opens links with the desktop's handlers (QDesktopServices). On Linux a
// link of a custom scheme (appstream:, ...) is only handed on when an
// installed application declares it handles that scheme, so a missing
// software centre costs nothing, not even a warning.
class DesktopUrlOpener : public UrlOpener
{
public:
    bool canOpen(const QUrl &url) const override;
    void open(const QUrl &url) override;
};
