#pragma once

// Opens the app's write-a-review page. The toolbar's "Rate Murvane!" entry
// reaches it through this interface; the app passes the real opener in
// and tests pass a recording one.
class WriteReviewOpener
{
public:
    virtual ~WriteReviewOpener();
    virtual void openWriteReviewPage() = 0;
};
