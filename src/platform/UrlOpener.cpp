#include "UrlOpener.h"

#include "DesktopUrlOpener.h"

namespace {
UrlOpener *g_standard = nullptr;
}

UrlOpener::~UrlOpener() = default;

UrlOpener &UrlOpener::standard()
{
    static DesktopUrlOpener desktop;
    return g_standard ? *g_standard : desktop;
}

void UrlOpener::setStandard(UrlOpener *opener)
{
    g_standard = opener;
}
