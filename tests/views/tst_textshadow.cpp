#include "views/TextShadow.h"

#include <QTest>

namespace {

// The total and the strongest coverage of a shadow picture, and the
// strongest on its outermost pixels.
struct Weight {
    qint64 total = 0;
    int peak = 0;
    int border = 0;
};

Weight weigh(const QImage &image)
{
    Weight w;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int a = image.constScanLine(y)[x];
            w.total += a;
            w.peak = std::max(w.peak, a);
            if (x == 0 || y == 0 || x == image.width() - 1 || y == image.height() - 1)
                w.border = std::max(w.border, a);
        }
    }
    return w;
}

} // namespace

class TestTextShadow : public QObject
{
    Q_OBJECT

private slots:
    void blurSpreadsTheGlyphsWithinTheMargin()
    {
        QFont font;
        font.setPixelSize(15);
        const QString text = QStringLiteral("Groceries 🏡");
        QVERIFY(TextShadow::render(QString(), font, 5, 1).isNull());
        QVERIFY(TextShadow::render(text, font, qQNaN(), 1).isNull());

        // Unblurred at two pixels a point; blurred at one, where a wide
        // blur leaves nothing finer to show.
        const QImage sharp = TextShadow::render(text, font, 0, 1);
        const QImage soft = TextShadow::render(text, font, 5, 2);
        QCOMPARE(TextShadow::margin(5), 15.0);
        QCOMPARE(soft.devicePixelRatio(), 1.0);
        QCOMPARE(soft.size(), sharp.size() + QSize(30, 30));
        const Weight before = weigh(sharp);
        const Weight after = weigh(soft);
        QCOMPARE(before.peak, 255);
        // Spread out, yet none of it lost past the picture's edges.
        QVERIFY2(after.peak < 160, qPrintable(QString::number(after.peak)));
        QVERIFY(qAbs(after.total - before.total) < before.total / 30);
        QCOMPARE(after.border, 0);
        // A narrow blur keeps every pixel.
        QCOMPARE(TextShadow::render(text, font, 1, 2).devicePixelRatio(), 2.0);
    }
};

QTEST_MAIN(TestTextShadow)
#include "tst_textshadow.moc"
