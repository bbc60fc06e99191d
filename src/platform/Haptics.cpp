#include "Haptics.h"

namespace {
class SilentHaptics final : public Haptics
{
public:
    void lightImpact() override {}
    void successNotification() override {}
};
Haptics *g_standard = nullptr;
} // namespace

Haptics::~Haptics() = default;

Haptics &Haptics::standard()
{
    static SilentHaptics silent;
    return g_standard ? *g_standard : silent;
}

void Haptics::setStandard(Haptics *haptics)
{
    g_standard = haptics;
}
