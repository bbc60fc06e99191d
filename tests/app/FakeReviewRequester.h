#pragma once

#include "platform/PreferencesStore.h"
#include "platform/ReviewRequester.h"

#include <QStringList>
#include <functional>

// Test double for the platform's review request: counts the requests and
// notes what the store held for the last prompt date at each one.
class FakeReviewRequester : public ReviewRequester
{
public:
    explicit FakeReviewRequester(const PreferencesStore &store)
        : m_store(store)
    {
    }

    void requestReview() override
    {
        lastPromptAtRequest.append(
            m_store.string(PreferenceKeys::lastPromptDateString).value_or(QStringLiteral("<absent>")));
    }

    int requests() const { return int(lastPromptAtRequest.size()); }

    QStringList lastPromptAtRequest;

private:
    const PreferencesStore &m_store;
};
