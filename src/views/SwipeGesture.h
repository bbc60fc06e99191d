#pragma once

#include <QObject>
#include <QtQml/qqml.h>

// Where a swiped row comes to rest when let go, as a phone's list does it:
// a short swipe leaves the uncovered button open for a tap, a long one (past
// 60% of the row) or a quick flick past the button performs it, and a flick
// back closes the row.
class SwipeGesture : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(double buttonWidth READ buttonWidth CONSTANT)

public:
    enum Rest { Closed, LeadingOpen, TrailingOpen, LeadingAction, TrailingAction };
    Q_ENUM(Rest)

    // Width of an uncovered button, in points.
    static constexpr double kButtonWidth = 74;
    // Share of the row's width past which a release performs the action.
    static constexpr double kFullSwipeShare = 0.6;
    // Points per second: a flick this fast outwards performs once past the
    // button; half as fast inwards closes.
    static constexpr double kFlickSpeed = 1000;

    using QObject::QObject;

    double buttonWidth() const { return kButtonWidth; }

    // `offset`: how far the row is pushed aside, positive towards the
    // trailing edge (uncovering the leading button); `velocity`: its speed
    // at release in points per second, same sign convention.
    static Rest restFor(double offset, double velocity, double rowWidth);
    Q_INVOKABLE SwipeGesture::Rest rest(double offset, double velocity, double rowWidth) const
    {
        return restFor(offset, velocity, rowWidth);
    }
};
