#pragma once

#include "ShareSheet.h"

// The desktop and Linux-phone share sheet: drawn by the app itself, copying
// through the system clipboard and handing mail drafts to the user's mail
// program.
class InAppShareSheet final : public ShareSheet
{
    Q_OBJECT

public:
    using ShareSheet::ShareSheet;

protected:
    void copyToClipboard(const QString &text) override;
    void openUrl(const QUrl &url) override;
};
