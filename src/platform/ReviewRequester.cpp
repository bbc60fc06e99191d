#include "ReviewRequester.h"

namespace {
class SilentReviewRequester final : public ReviewRequester
{
public:
    void requestReview() override {}
};
ReviewRequester *g_standard = nullptr;
} // namespace

ReviewRequester::~ReviewRequester() = default;

ReviewRequester &ReviewRequester::standard()
{
    static SilentReviewRequester silent;
    return g_standard ? *g_standard : silent;
}

void ReviewRequester::setStandard(ReviewRequester *requester)
{
    g_standard = requester;
}
