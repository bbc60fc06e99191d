#include "views/SwipeGesture.h"

#include <QTest>

using Rest = SwipeGesture::Rest;

class TestSwipeGesture : public QObject
{
    Q_OBJECT

private slots:
    // A row 400 wide; buttons are 74 wide. Leading and trailing mirror
    // each other, so every row runs both ways.
    void restAfterRelease_data()
    {
        QTest::addColumn<double>("offset");
        QTest::addColumn<double>("velocity");
        QTest::addColumn<Rest>("leading");

        QTest::newRow("not moved") << 0.0 << 0.0 << Rest::Closed;
        QTest::newRow("short of half the button") << 36.0 << 0.0 << Rest::Closed;
        QTest::newRow("half the button opens") << 37.0 << 0.0 << Rest::LeadingOpen;
        QTest::newRow("well past the button, slowly") << 230.0 << 300.0 << Rest::LeadingOpen;
        QTest::newRow("60% of the row performs") << 240.0 << 0.0 << Rest::LeadingAction;
        QTest::newRow("beyond the row performs") << 400.0 << -200.0 << Rest::LeadingAction;
        QTest::newRow("flick past the button performs") << 80.0 << 1000.0 << Rest::LeadingAction;
        QTest::newRow("flick short of the button opens") << 74.0 << 3000.0 << Rest::LeadingOpen;
        QTest::newRow("flick back closes") << 150.0 << -500.0 << Rest::Closed;
        QTest::newRow("slow drift back stays open") << 150.0 << -499.0 << Rest::LeadingOpen;
    }
    void restAfterRelease()
    {
        QFETCH(double, offset);
        QFETCH(double, velocity);
        QFETCH(Rest, leading);
        const auto mirrored = [](Rest r) {
            switch (r) {
            case Rest::LeadingOpen: return Rest::TrailingOpen;
            case Rest::LeadingAction: return Rest::TrailingAction;
            default: return r;
            }
        };
        QCOMPARE(SwipeGesture::restFor(offset, velocity, 400), leading);
        QCOMPARE(SwipeGesture::restFor(-offset, -velocity, 400), mirrored(leading));
        // A row not laid out yet never performs.
        QCOMPARE(SwipeGesture::restFor(offset, velocity, 0), Rest::Closed);
    }
};

QTEST_GUILESS_MAIN(TestSwipeGesture)
#include "tst_swipegesture.moc"
