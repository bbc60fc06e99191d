#pragma once

// Opens the app's write-a-review page. The toolbar's "Rate Murvane!" entry
// reaches it through this interface; the app installs the real opener at
// start and tests install a recording one.
class WriteReviewOpener
{
public:
    virtual ~WriteReviewOpener();
    virtual void openWriteReviewPage() = 0;

    // The process-wide instance; does nothing until the app installs one.
    static WriteReviewOpener &standard();
    static void setStandard(WriteReviewOpener *opener);
};
