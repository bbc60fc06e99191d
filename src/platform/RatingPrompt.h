#pragma once

#include "ReviewRequester.h"

#include <QObject>
#include <QtQml/qqml.h>
#include <functional>

class UrlOpener;

// Linux has no system review sheet, so the app asks itself: a review
// request raises a small prompt (RatingPromptView) whose rate button opens
// the app's page in the software centre. The prompt only appears while the
// app is in front and when a software centre is there to take the user.
class RatingPrompt : public QObject, public ReviewRequester
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(bool shown READ isShown NOTIFY shownChanged)

public:
    using ForegroundCheck = std::function<bool()>;

    // By default the app is in front when its application state is active.
    explicit RatingPrompt(UrlOpener &opener, ForegroundCheck isForeground = {}, QObject *parent = nullptr);

    // The QML singleton: the prompt the app provided for the engine.
    static RatingPrompt *create(QQmlEngine *, QJSEngine *engine);

    bool isShown() const { return m_shown; }

    void requestReview() override;
    // The user chose to rate: the prompt closes and the review page opens.
    Q_INVOKABLE void rate();
    // The user declined or closed the prompt.
    Q_INVOKABLE void dismiss();

signals:
    void shownChanged();

private:
    void setShown(bool shown);

    UrlOpener *m_opener;
    ForegroundCheck m_isForeground;
    bool m_shown = false;
};
