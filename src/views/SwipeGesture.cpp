#include "SwipeGesture.h"

#include <cmath>

SwipeGesture::Rest SwipeGesture::restFor(double offset, double velocity, double rowWidth)
{
    if (offset == 0 || !(rowWidth > 0))
        return Closed;
    const bool leading = offset > 0;
    const double reach = std::abs(offset);
    // Positive while the row moves further open.
    const double outwards = leading ? velocity : -velocity;
    if (reach >= kFullSwipeShare * rowWidth || (outwards >= kFlickSpeed && reach > kButtonWidth))
        return leading ? LeadingAction : TrailingAction;
    if (outwards <= -kFlickSpeed / 2 || reach < kButtonWidth / 2)
        return Closed;
    return leading ? LeadingOpen : TrailingOpen;
}
