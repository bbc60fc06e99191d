#include "RatingPrompt.h"

#include "QmlServices.h"
#include "UrlOpener.h"
#include "WriteReviewLink.h"

#include <QGuiApplication>

RatingPrompt::RatingPrompt(UrlOpener &opener, ForegroundCheck isForeground, QObject *parent)
    : QObject(parent)
    , m_opener(&opener)
    , m_isForeground(std::move(isForeground))
{
    if (!m_isForeground) {
        m_isForeground = [] {
            return qobject_cast<QGuiApplication *>(QCoreApplication::instance())
                && QGuiApplication::applicationState() == Qt::ApplicationActive;
        };
    }
}

RatingPrompt *RatingPrompt::create(QQmlEngine *, QJSEngine *engine)
{
    return QmlServices::provided<RatingPrompt>(engine);
}

void RatingPrompt::requestReview()
{
    // Like a system review sheet, it may decline: never over another app,
    // and never with a rate button that could lead nowhere.
    if (!m_isForeground() || !m_opener->canOpen(WriteReviewLink::current()))
        return;
    setShown(true);
}

void RatingPrompt::rate()
{
    setShown(false);
    const QUrl url = WriteReviewLink::current();
    if (url.isValid())
        m_opener->open(url);
}

void RatingPrompt::dismiss()
{
    setShown(false);
}

void RatingPrompt::setShown(bool shown)
{
    if (m_shown == shown)
        return;
    m_shown = shown;
    emit shownChanged();
}
