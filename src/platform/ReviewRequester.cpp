#include "ReviewRequester.h"

ReviewRequester::~ReviewRequester() = default;
