#include "WriteReviewOpener.h"

namespace {
class NoReviewPage final : public WriteReviewOpener
{
public:
    void openWriteReviewPage() override {}
};
WriteReviewOpener *g_standard = nullptr;
} // namespace

WriteReviewOpener::~WriteReviewOpener() = default;

WriteReviewOpener &WriteReviewOpener::standard()
{
    static NoReviewPage none;
    return g_standard ? *g_standard : none;
}

void WriteReviewOpener::setStandard(WriteReviewOpener *opener)
{
    g_standard = opener;
}
