#pragma once

class QUrl;

// Hands links to whatever the system opens them with. Views and the rating
// code reach it through this interface; tests plug in a recording double.
class UrlOpener
{
public:
    virtual ~UrlOpener();
    // Whether something on this system would open the link.
    virtual bool canOpen(const QUrl &url) const = 0;
    // Opens the link if something can; otherwise does nothing.
    virtual void open(const QUrl &url) = 0;
};
