#pragma once

// Asks the user, in the platform's way, to review the app. The request may
// show nothing (the platform declines, or there is nowhere to review); the
// caller never learns which.
class ReviewRequester
{
public:
    virtual ~ReviewRequester();
    virtual void requestReview() = 0;
};
