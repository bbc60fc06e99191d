#pragma once

#include "platform/UrlOpener.h"

#include <QList>
#include <QUrl>

// Test double for the link opener: records every link it is asked to open
// and claims a handler exists unless told otherwise.
class RecordingUrlOpener : public UrlOpener
{
public:
    bool canOpen(const QUrl &url) const override { return handlerExists && url.isValid(); }
    void open(const QUrl &url) override { opened.append(url); }

    bool handlerExists = true;
    QList<QUrl> opened;
};
