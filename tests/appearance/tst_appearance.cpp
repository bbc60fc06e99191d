#include "appearance/Appearance.h"
#include "appearance/ThemeCatalogue.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QSignalSpy>
#include <QTest>

namespace {

// RGBA in 0..1, the way a colour picker or a design table writes it.
struct Rgba
{
    double r, g, b, a = 1.0;
};

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

const Rgba systemGreen{52 / 255.0, 199 / 255.0, 89 / 255.0, 0.25};

} // namespace

Q_DECLARE_METATYPE(Rgba)

class TestAppearance : public QObject
{
    Q_OBJECT

private slots:
    // One field per theme, chosen to cover every way a colour is built.
    // Rows are named <theme>.<field>.
    void spotChecks_data()
    {
        QTest::addColumn<Rgba>("expected");
        QTest::newRow("green.darkEnd") << systemGreen;
        QTest::newRow("green.accentDark") << fromHsb(0.33, 0.9, 0.7);
        QTest::newRow("pink.ballButton") << Rgba{210 / 255.0, 80 / 255.0, 160 / 255.0};
        QTest::newRow("blue.selectedHeaderStrokeColorDark") << fromHsb(0.58, 0.9, 0.7, 0.8);
        QTest::newRow("gray.darkEnd") << Rgba{0.3, 0.3, 0.3, 0.4};
        QTest::newRow("purple.lightEnd") << Rgba{0, 0, 0, 0.15};
        QTest::newRow("classic.darkStart") << Rgba{0, 0, 0};
    }
    void spotChecks()
    {
        QFETCH(Rgba, expected);
        const QList<QByteArray> name = QByteArray(QTest::currentDataTag()).split('.');
        const auto theme = Themes::fromRawValue(QString::fromLatin1(name[0]));
        QVERIFY(theme.has_value());
        const QMetaObject &meta = ThemeDefinition::staticMetaObject;
        const int index = meta.indexOfProperty(name[1].constData());
        QVERIFY(index >= 0);
        const ThemeDefinition &definition = ThemeCatalogue::definition(*theme);
        const QColor c = meta.property(index).readOnGadget(&definition).value<QColor>();
        // QColor keeps 16 bits per channel; one 8-bit step is far coarser.
        const double e = 0.5 / 255.0;
        const bool close = qAbs(c.redF() - expected.r) <= e && qAbs(c.greenF() - expected.g) <= e
            && qAbs(c.blueF() - expected.b) <= e && qAbs(c.alphaF() - expected.a) <= e;
        QVERIFY2(close, qPrintable(c.name(QColor::HexArgb)));
    }

    void sharedColoursAndColourModels()
    {
        const ThemeDefinition &green = ThemeCatalogue::definition(Theme::green);
        // An HSB colour stays HSB (equality includes the colour model).
        QCOMPARE(green.completeFillLight, QColor::fromHsvF(0.35f, 0.6f, 0.5f));
        QCOMPARE(ThemeCatalogue::definition(Theme::pink).accentLight, green.accentLight);

        // Classic is green with a plain black or white gradient.
        ThemeDefinition classic = ThemeCatalogue::definition(Theme::classic);
        QVERIFY(classic.darkStart != green.darkStart);
        classic.darkStart = green.darkStart;
        classic.darkEnd = green.darkEnd;
        classic.lightStart = green.lightStart;
        classic.lightEnd = green.lightEnd;
        QVERIFY(classic == green);
    }

    void everyThemeIsDistinctAndComplete()
    {
        const QMetaObject &meta = ThemeDefinition::staticMetaObject;
        for (Theme theme : Themes::allCases) {
            QCOMPARE(Themes::fromRawValue(Themes::rawValue(theme)), std::optional<Theme>(theme));
            const ThemeDefinition &t = ThemeCatalogue::definition(theme);
            for (int i = 0; i < meta.propertyCount(); ++i) {
                const QVariant value = meta.property(i).readOnGadget(&t);
                QVERIFY2(value.typeId() != QMetaType::QColor || value.value<QColor>().isValid(),
                         meta.property(i).name());
            }
            for (Theme other : Themes::allCases)
                QVERIFY(other == theme || ThemeCatalogue::definition(other) != t);
        }
    }

    void unknownOrMissingThemeKeyPaintsGreen()
    {
        MemoryPreferencesStore store;
        QCOMPARE(ThemeCatalogue::currentTheme(store), Theme::green);
        for (const QVariant &stored : {QVariant(QStringLiteral("Classic")), QVariant(QStringLiteral("grey ")),
                                       QVariant(QString()), QVariant(qint64(3))}) {
            store.setRawForTest(PreferenceKeys::selectedThemeKey, stored);
            QCOMPARE(&ThemeCatalogue::currentDefinition(store), &ThemeCatalogue::definition(Theme::green));
        }
        store.setString(PreferenceKeys::selectedThemeKey, QStringLiteral("classic"));
        QCOMPARE(&ThemeCatalogue::currentDefinition(store), &ThemeCatalogue::definition(Theme::classic));
        // Reading leaves a stale value for the user's next choice to replace.
        QCOMPARE(store.writeCount(), 1);
    }

    void darkIsExactlyDark()
    {
        MemoryPreferencesStore store;
        QVERIFY(!ThemeCatalogue::isDark(store));
        for (const char *scheme : {"dark", "light", "Dark", "dark ", ""}) {
            store.setString(PreferenceKeys::appColorScheme, QString::fromLatin1(scheme));
            QCOMPARE(ThemeCatalogue::isDark(store), qstrcmp(scheme, "dark") == 0);
        }
    }

    void readsTheStoreWithoutWriting()
    {
        MemoryPreferencesStore store;
        Appearance fresh(store);
        QCOMPARE(fresh.themeKey(), QStringLiteral("green"));
        QCOMPARE(fresh.schemeKey(), QStringLiteral("light"));
        QCOMPARE(fresh.foreground(), QColor(Qt::black));
        QCOMPARE(store.writeCount(), 0);
    }

    void themeKeyIsWrittenAsGivenAndSignalledEveryTime()
    {
        MemoryPreferencesStore store;
        Appearance appearance(store);
        QSignalSpy themeSpy(&appearance, &Appearance::themeChanged);
        QSignalSpy schemeSpy(&appearance, &Appearance::schemeChanged);
        appearance.setThemeKey(QStringLiteral("pink"));
        appearance.setThemeKey(QStringLiteral("pink"));
        QCOMPARE(store.writeCount(), 2);
        QCOMPARE(themeSpy.count(), 2);
        QVERIFY(appearance.theme() == ThemeCatalogue::definition(Theme::pink));

        // An unknown key is kept as given and paints green.
        appearance.setThemeKey(QStringLiteral("red"));
        QCOMPARE(*store.string(PreferenceKeys::selectedThemeKey), QStringLiteral("red"));
        QVERIFY(appearance.theme() == ThemeCatalogue::definition(Theme::green));
        QCOMPARE(schemeSpy.count(), 0);
    }

    void schemeToggleWritesDarkOrLight()
    {
        MemoryPreferencesStore store;
        Appearance appearance(store);
        QSignalSpy themeSpy(&appearance, &Appearance::themeChanged);
        const QColor darkColour(Qt::red), lightColour(Qt::blue);
        appearance.setDark(true);
        QCOMPARE(*store.string(PreferenceKeys::appColorScheme), QStringLiteral("dark"));
        QCOMPARE(appearance.foreground(), QColor(Qt::white));
        QCOMPARE(appearance.pick(darkColour, lightColour), darkColour);
        appearance.setDark(false);
        QCOMPARE(*store.string(PreferenceKeys::appColorScheme), QStringLiteral("light"));
        QCOMPARE(appearance.pick(darkColour, lightColour), lightColour);
        // Colour pairs are read through the theme, so it is signalled too.
        QCOMPARE(themeSpy.count(), 2);
    }

    void themeMenuOrder()
    {
        MemoryPreferencesStore store;
        QStringList entries;
        for (const QVariant &entry : Appearance(store).themeMenu())
            entries << entry.toMap().value(QStringLiteral("label")).toString() + QLatin1Char('=')
                    + entry.toMap().value(QStringLiteral("rawValue")).toString();
        const QStringList expected = {"Classic=classic", "Gray=gray", "Purple=purple",
                                      "Blue=blue", "Pink=pink", "Green=green"};
        QCOMPARE(entries, expected);
    }
};

QTEST_GUILESS_MAIN(TestAppearance)
#include "tst_appearance.moc"
