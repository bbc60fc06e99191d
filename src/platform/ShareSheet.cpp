#include "ShareSheet.h"

#include <QTimer>

ShareSheet::ShareSheet(QObject *parent)
    : QObject(parent)
{
}

ShareSheet::~ShareSheet() = default;

void ShareSheet::present(const QString &text)
{
    QTimer::singleShot(0, this, [this, text] { show(text); });
}

void ShareSheet::show(const QString &text)
{
    if (m_text != text) {
        m_text = text;
        emit textChanged();
    }
    if (!m_presented) {
        m_presented = true;
        emit isPresentedChanged();
    }
}

void ShareSheet::dismiss()
{
    if (!m_presented)
        return;
    m_presented = false;
    emit isPresentedChanged();
}

void ShareSheet::copyText()
{
    if (!m_presented)
        return;
    copyToClipboard(m_text);
    dismiss();
}

void ShareSheet::emailText()
{
    if (!m_presented)
        return;
    openUrl(mailtoUrl(m_text));
    dismiss();
}

QUrl ShareSheet::mailtoUrl(const QString &body)
{
    // Mail wants CRLF line breaks; every byte outside the unreserved set is
    // percent-encoded so '&', '+', '#' and '=' in the text stay text.
    QString crlf = body;
    crlf.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    crlf.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    return QUrl::fromEncoded("mailto:?body=" + QUrl::toPercentEncoding(crlf), QUrl::StrictMode);
}
