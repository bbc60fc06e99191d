#include "views/AccessibleText.h"
#include "views/ItemRowText.h"
#include "views/TextWrapping.h"

#include <QTest>
#include <QTextBoundaryFinder>

namespace {

const QChar ellipsis(0x2026);

QString times(const QString &unit, qsizetype n)
{
    return unit.repeated(n);
}

} // namespace

class TestItemRowText : public QObject
{
    Q_OBJECT

private slots:
    // What a screen reader hears of a row's state and of a list's name.
    void spokenForScreenReaders()
    {
        QCOMPARE(AccessibleText::rowState(false, false), QStringLiteral("to do"));
        QCOMPARE(AccessibleText::rowState(true, false), QStringLiteral("done"));
        QCOMPARE(AccessibleText::rowState(false, true), QStringLiteral("to do, pinned"));
        QCOMPARE(AccessibleText::rowState(true, true), QStringLiteral("done, pinned"));
        QCOMPARE(AccessibleText::pinAction(false), QStringLiteral("Pin"));
        QCOMPARE(AccessibleText::pinAction(true), QStringLiteral("Unpin"));
        for (const QString &blank : {QString(), QStringLiteral("  "), QStringLiteral("\n")})
            QCOMPARE(AccessibleText::listName(blank), QStringLiteral("Unnamed List"));
        // A name is said as it is, spaces and all.
        QCOMPARE(AccessibleText::listName(QStringLiteral(" Home 🏡")), QStringLiteral(" Home 🏡"));
    }

    void cutsAtTheFirstBoundReached_data()
    {
        QTest::addColumn<QString>("text");
        // Code units of the text that the row keeps before the ellipsis; -1
        // when the text is shown whole.
        QTest::addColumn<qsizetype>("kept");

        using namespace ItemRowText;
        const QString e = QStringLiteral("e\u0301");                 // e with a combining acute: one character
        const QString flag = QStringLiteral("\U0001F1EB\U0001F1F7"); // a flag, 4 units
        const QString family = QStringLiteral("\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466"); // 11 units

        QTest::newRow("empty") << QString() << qsizetype(-1);
        QTest::newRow("at the character bound") << times("x", maxCharacters) << qsizetype(-1);
        QTest::newRow("one past it") << times("x", maxCharacters + 1) << maxCharacters;
        QTest::newRow("at the line bound") << times("line\n", maxLines - 1) + "last" << qsizetype(-1);
        QTest::newRow("one line past it") << times("line\n", maxLines) + "more" << maxLines * 5 - 1;
        QTest::newRow("windows line ends") << times("ab\r\n", maxLines + 5) << maxLines * 4 - 2;
        // Marks, flags and surrogate pairs count as one character each.
        QTest::newRow("marks within the bound") << times(e, maxCharacters) << qsizetype(-1);
        QTest::newRow("marks past it") << times(e, maxCharacters + 1) << maxCharacters * 2;
        QTest::newRow("flags past the character bound") << times(flag, maxCharacters + 1) << maxCharacters * 4;
        // Long emoji sequences reach the code-unit bound first; never split one.
        QTest::newRow("family emoji") << times(family, 400) << (maxCodeUnits / 11) * 11;
        QTest::newRow("spaces before the cut are dropped")
            << times("x", maxCharacters - 3) + times(" ", 10) << maxCharacters - 3;
        // One character longer than the bound is cut inside, not dropped.
        QTest::newRow("a letter under a pile of marks") << "a" + times("\u0301", 5000) << maxCodeUnits;
        QTest::newRow("a megabyte without a break") << times("w", 1 << 20) << maxCharacters;
    }

    void cutsAtTheFirstBoundReached()
    {
        QFETCH(QString, text);
        QFETCH(qsizetype, kept);
        const QString shown = ItemRowText::shown(text);
        if (kept < 0) {
            QCOMPARE(shown, text);
            return;
        }
        QCOMPARE(shown, text.left(kept) + ellipsis);
    }

    // Whatever is cut: a prefix of the text within every bound, ending
    // between two characters of the full text.
    void everyCutIsWithinTheBoundsAtACharacterBoundary()
    {
        const QStringList pieces{"a", " ", "\n", "\u0301", "\U0001F600", "\u200D", "\r\n", "\U0001F1EB", "z "};
        quint32 seed = 7;
        for (int round = 0; round < 200; ++round) {
            QString text;
            for (int i = int(seed % 3000); i > 0; --i) {
                seed = seed * 1664525u + 1013904223u;
                text += pieces[(seed >> 16) % pieces.size()];
            }
            const QString shown = ItemRowText::shown(text);
            if (shown == text)
                continue;
            const QString kept = shown.chopped(1);
            QVERIFY(shown.endsWith(ellipsis) && text.startsWith(kept));
            QVERIFY(kept.size() <= ItemRowText::maxCodeUnits);
            QVERIFY(kept.count(QLatin1Char('\n')) < ItemRowText::maxLines);
            QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
            finder.setPosition(kept.size());
            QVERIFY2(finder.isAtBoundary() || kept.isEmpty(), qPrintable(QString::number(round)));
            QTextBoundaryFinder counter(QTextBoundaryFinder::Grapheme, kept);
            qsizetype characters = 0;
            while (counter.toNextBoundary() != -1)
                ++characters;
            QVERIFY(characters <= ItemRowText::maxCharacters);
        }
    }

    // Past a run this long without a break, text wraps anywhere.
    void longUnbrokenRunsWrapAnywhere()
    {
        const QString run(TextWrapping::maxUnbrokenRun, QLatin1Char('w'));
        const struct {
            QString text;
            bool anywhere;
        } cases[] = {{QString(), false}, {run, false}, {run + "w", true}, {(run + " ").repeated(50), false},
                     {run + "\n" + run, false}, {QStringLiteral("a b ").repeated(100) + run + "w", true},
                     {QString(1 << 20, QLatin1Char('w')), true}};
        for (const auto &[text, anywhere] : cases)
            QVERIFY2(TextWrapping::needsWrapAnywhere(text) == anywhere, qPrintable(text.left(40)));
    }
};

QTEST_APPLESS_MAIN(TestItemRowText)
#include "tst_itemrowtext.moc"
