#include "UrlOpener.h"

UrlOpener::~UrlOpener() = default;
