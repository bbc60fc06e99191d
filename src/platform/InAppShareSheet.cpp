#include "InAppShareSheet.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>

void InAppShareSheet::copyToClipboard(const QString &text)
{
    if (QClipboard *clipboard = QGuiApplication::clipboard())
        clipboard->setText(text);
}

void InAppShareSheet::openUrl(const QUrl &url)
{
    QDesktopServices::openUrl(url);
}
