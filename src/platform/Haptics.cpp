#include "Haptics.h"

Haptics::~Haptics() = default;
