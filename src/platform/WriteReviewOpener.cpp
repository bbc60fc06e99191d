#include "WriteReviewOpener.h"

WriteReviewOpener::~WriteReviewOpener() = default;
