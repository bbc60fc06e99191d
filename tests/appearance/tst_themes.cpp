#include "appearance/ThemeCatalogue.h"
#include "platform/MemoryPreferencesStore.h"
#include "platform/PreferencesStore.h"

#include <QTest>
#include <thread>
#include <vector>

Q_DECLARE_METATYPE(Theme)

namespace {

// RGBA in 0..1, the way a colour picker or a design table writes it.
struct Rgba
{
    double r, g, b, a = 1.0;
};

void compareColour(const QColor &actual, Rgba expected, const char *field)
{
    // QColor keeps 16 bits per channel; one 8-bit step is far coarser.
    const double tolerance = 0.5 / 255.0;
    const bool ok = qAbs(actual.redF() - expected.r) <= tolerance && qAbs(actual.greenF() - expected.g) <= tolerance
        && qAbs(actual.blueF() - expected.b) <= tolerance && qAbs(actual.alphaF() - expected.a) <= tolerance;
    QVERIFY2(ok,
             qPrintable(QStringLiteral("%1: got (%2, %3, %4, %5), expected (%6, %7, %8, %9)")
                            .arg(QLatin1String(field))
                            .arg(actual.redF())
                            .arg(actual.greenF())
                            .arg(actual.blueF())
                            .arg(actual.alphaF())
                            .arg(expected.r)
                            .arg(expected.g)
                            .arg(expected.b)
                            .arg(expected.a)));
}

// The standard HSB to RGB rule, written out independently of QColor.
Rgba fromHsb(double h, double s, double v, double a = 1.0)
{
    const double h6 = h * 6.0;
    const int sector = int(h6) % 6;
    const double f = h6 - int(h6);
    const double p = v * (1 - s), q = v * (1 - s * f), t = v * (1 - s * (1 - f));
    switch (sector) {
    case 0: return {v, t, p, a};
    case 1: return {q, v, p, a};
    case 2: return {p, v, t, a};
    case 3: return {p, q, v, a};
    case 4: return {t, p, v, a};
    default: return {v, p, q, a};
    }
}

const Rgba systemGreen{52 / 255.0, 199 / 255.0, 89 / 255.0};

} // namespace

class TestThemes : public QObject
{
    Q_OBJECT

private slots:
    void casesRawValuesAndLabels()
    {
        const QStringList raw = {"green", "pink", "blue", "gray", "purple", "classic"};
        const QStringList labels = {"Green", "Pink", "Blue", "Gray", "Purple", "Classic"};
        QCOMPARE(Themes::allCases.size(), size_t(6));
        for (size_t i = 0; i < Themes::allCases.size(); ++i) {
            const Theme theme = Themes::allCases[i];
            QCOMPARE(int(theme), int(i));
            QCOMPARE(Themes::rawValue(theme), raw[int(i)]);
            QCOMPARE(Themes::label(theme), labels[int(i)]);
            QCOMPARE(Themes::fromRawValue(raw[int(i)]), std::optional<Theme>(theme));
        }
    }

    void fromRawValueIsExact_data()
    {
        QTest::addColumn<QString>("raw");
        for (const char *raw : {"Green", "GREEN", "red", "", " green", "green ", "Classic", "grey"})
            QTest::newRow(raw) << QString::fromLatin1(raw);
        QTest::newRow("null") << QString();
    }
    void fromRawValueIsExact()
    {
        QFETCH(QString, raw);
        QVERIFY(!Themes::fromRawValue(raw).has_value());
    }

    // Fields chosen per theme to cover every way a colour is built.
    void spotChecks()
    {
        const ThemeDefinition &green = ThemeCatalogue::definition(Theme::green);
        compareColour(green.darkStart, {0, 0, 0, 0.9}, "green.darkStart");
        compareColour(green.darkEnd, {systemGreen.r, systemGreen.g, systemGreen.b, 0.25}, "green.darkEnd");
        compareColour(green.lightStart, {systemGreen.r, systemGreen.g, systemGreen.b, 0.4}, "green.lightStart");
        compareColour(green.accentDark, fromHsb(0.33, 0.9, 0.7), "green.accentDark");
        compareColour(green.accentLight, fromHsb(0.35, 0.35, 0.9), "green.accentLight");
        compareColour(green.selectedHeaderBackgroundLight, fromHsb(0.35, 0.45, 0.87, 0.8), "green.shbLight");
        compareColour(green.completeFillDark, {50 / 255.0, 205 / 255.0, 50 / 255.0}, "green.completeFillDark");
        compareColour(green.completeFillLight, fromHsb(0.35, 0.6, 0.5), "green.completeFillLight");
        compareColour(green.listRowBackgroundLight, {1, 1, 1}, "green.listRowBackgroundLight");
        // An HSB colour stays HSB; the sRGB ones of the other themes do not.
        QCOMPARE(green.completeFillLight, QColor::fromHsvF(0.35f, 0.6f, 0.5f)); // equality includes the colour model

        const ThemeDefinition &pink = ThemeCatalogue::definition(Theme::pink);
        compareColour(pink.darkEnd, {1.0, 0.2, 0.7, 0.25}, "pink.darkEnd");
        compareColour(pink.accentDark, fromHsb(0.9, 0.9, 0.7), "pink.accentDark");
        compareColour(pink.selectedHeaderBackgroundLight, fromHsb(0.9, 0.45, 1.0, 0.4), "pink.shbLight");
        compareColour(pink.completeFillLight, {0.9, 0.21, 0.51}, "pink.completeFillLight");
        compareColour(pink.ballButton, {210 / 255.0, 80 / 255.0, 160 / 255.0}, "pink.ballButton");
        // The pink theme's light accent is the green theme's light green.
        QCOMPARE(pink.accentLight, green.accentLight);

        const ThemeDefinition &blue = ThemeCatalogue::definition(Theme::blue);
        compareColour(blue.lightStart, {0.35, 0.55, 1.0, 0.4}, "blue.lightStart");
        compareColour(blue.selectedHeaderStrokeColorDark, fromHsb(0.58, 0.9, 0.7, 0.8), "blue.shsDark");
        compareColour(blue.completeFillLight, {35 / 255.0, 106 / 255.0, 150 / 255.0}, "blue.completeFillLight");
        compareColour(blue.outlineLight, {0.0, 0.4, 0.75}, "blue.outlineLight");

        const ThemeDefinition &gray = ThemeCatalogue::definition(Theme::gray);
        compareColour(gray.darkEnd, {0.3, 0.3, 0.3, 0.4}, "gray.darkEnd");
        compareColour(gray.lightStart, {0.7, 0.7, 0.7, 0.4}, "gray.lightStart");
        compareColour(gray.selectedHeaderBackgroundDark, {0.7, 0.7, 0.7, 0.3}, "gray.shbDark");
        compareColour(gray.ballButton, {0.55, 0.55, 0.55}, "gray.ballButton");
        compareColour(gray.textCompleteFillDark, {0.99, 0.99, 0.99}, "gray.textCompleteFillDark");

        const ThemeDefinition &purple = ThemeCatalogue::definition(Theme::purple);
        compareColour(purple.lightEnd, {0, 0, 0, 0.15}, "purple.lightEnd");
        compareColour(purple.accentLight, fromHsb(0.75, 0.35, 0.9), "purple.accentLight");
        compareColour(purple.selectedHeaderBackgroundLight, fromHsb(0.75, 0.45, 0.95, 0.5), "purple.shbLight");
        compareColour(purple.pinSwipe, {0.6, 0.4, 0.9}, "purple.pinSwipe");
        compareColour(purple.outlineDark, {0.15, 0.1, 0.2}, "purple.outlineDark");
    }

    void classicIsGreenWithAPlainGradient()
    {
        ThemeDefinition classic = ThemeCatalogue::definition(Theme::classic);
        compareColour(classic.darkStart, {0, 0, 0}, "classic.darkStart");
        compareColour(classic.darkEnd, {0, 0, 0}, "classic.darkEnd");
        compareColour(classic.lightStart, {1, 1, 1}, "classic.lightStart");
        compareColour(classic.lightEnd, {1, 1, 1}, "classic.lightEnd");
        const ThemeDefinition &green = ThemeCatalogue::definition(Theme::green);
        QVERIFY(classic.darkStart != green.darkStart);
        classic.darkStart = green.darkStart;
        classic.darkEnd = green.darkEnd;
        classic.lightStart = green.lightStart;
        classic.lightEnd = green.lightEnd;
        QVERIFY(classic == green);
    }

    void everyThemeIsDistinctAndComplete_data()
    {
        QTest::addColumn<Theme>("theme");
        for (Theme theme : Themes::allCases)
            QTest::newRow(qPrintable(Themes::rawValue(theme))) << theme;
    }
    void everyThemeIsDistinctAndComplete()
    {
        QFETCH(Theme, theme);
        const ThemeDefinition &t = ThemeCatalogue::definition(theme);
        QCOMPARE(t.selectedHeaderStrokeWidth, 0.9);
        const QMetaObject &meta = ThemeDefinition::staticMetaObject;
        QCOMPARE(meta.propertyCount(), 21);
        for (int i = 0; i < meta.propertyCount(); ++i) {
            const QVariant value = meta.property(i).readOnGadget(&t);
            if (value.typeId() == QMetaType::QColor)
                QVERIFY2(value.value<QColor>().isValid(), meta.property(i).name());
        }
        for (Theme other : Themes::allCases) {
            if (other != theme)
                QVERIFY(ThemeCatalogue::definition(other) != t);
        }
    }

    void tableIsBuiltOnceAcrossThreads()
    {
        std::vector<const ThemeDefinition *> seen(8);
        std::vector<std::thread> threads;
        for (size_t i = 0; i < seen.size(); ++i)
            threads.emplace_back([&seen, i] { seen[i] = &ThemeCatalogue::definition(Theme::purple); });
        for (auto &thread : threads)
            thread.join();
        for (const ThemeDefinition *p : seen)
            QCOMPARE(p, &ThemeCatalogue::definition(Theme::purple));
    }

    void currentDefinitionFromTheStore_data()
    {
        QTest::addColumn<QVariant>("stored"); // invalid: never written
        QTest::addColumn<Theme>("expected");
        QTest::newRow("absent") << QVariant() << Theme::green;
        QTest::newRow("classic") << QVariant(QStringLiteral("classic")) << Theme::classic;
        QTest::newRow("gray") << QVariant(QStringLiteral("gray")) << Theme::gray;
        QTest::newRow("Green") << QVariant(QStringLiteral("Green")) << Theme::green;
        QTest::newRow("red") << QVariant(QStringLiteral("red")) << Theme::green;
        QTest::newRow("empty") << QVariant(QString()) << Theme::green;
        QTest::newRow("wrong type") << QVariant(qint64(3)) << Theme::green;
    }
    void currentDefinitionFromTheStore()
    {
        QFETCH(QVariant, stored);
        QFETCH(Theme, expected);
        MemoryPreferencesStore store;
        if (stored.isValid())
            store.setRawForTest(PreferenceKeys::selectedThemeKey, stored);
        QCOMPARE(ThemeCatalogue::currentTheme(store), expected);
        QCOMPARE(&ThemeCatalogue::currentDefinition(store), &ThemeCatalogue::definition(expected));
        // A stale value is left for the user's next choice to replace.
        QCOMPARE(store.writeCount(), 0);
        if (stored.isValid())
            QCOMPARE(store.contains(PreferenceKeys::selectedThemeKey), true);
        else
            QVERIFY(!store.contains(PreferenceKeys::selectedThemeKey));
        if (stored.typeId() == QMetaType::QString)
            QCOMPARE(store.string(PreferenceKeys::selectedThemeKey), std::optional<QString>(stored.toString()));
    }

    void darkIsExactlyDark_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<bool>("dark");
        QTest::newRow("dark") << QVariant(QStringLiteral("dark")) << true;
        QTest::newRow("light") << QVariant(QStringLiteral("light")) << false;
        QTest::newRow("Dark") << QVariant(QStringLiteral("Dark")) << false;
        QTest::newRow("empty") << QVariant(QString()) << false;
        QTest::newRow("dark with space") << QVariant(QStringLiteral("dark ")) << false;
        QTest::newRow("absent") << QVariant() << false;
    }
    void darkIsExactlyDark()
    {
        QFETCH(QVariant, stored);
        QFETCH(bool, dark);
        MemoryPreferencesStore store;
        if (stored.isValid())
            store.setRawForTest(PreferenceKeys::appColorScheme, stored);
        QCOMPARE(ThemeCatalogue::isDark(store), dark);
        QCOMPARE(store.writeCount(), 0);
    }
};

QTEST_GUILESS_MAIN(TestThemes)
#include "tst_themes.moc"
