#pragma once

#include "platform/ShareSheet.h"

#include <QList>
#include <QUrl>

// A share sheet that records what it would hand to the system.
class RecordingShareSheet : public ShareSheet
{
public:
    QStringList copied;
    QList<QUrl> opened;

protected:
    void copyToClipboard(const QString &text) override { copied << text; }
    void openUrl(const QUrl &url) override { opened << url; }
};
