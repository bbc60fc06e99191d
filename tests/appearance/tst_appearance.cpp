#include "appearance/Appearance.h"
#include "appearance/ThemeCatalogue.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QSignalSpy>
#include <QTest>

namespace {

// Reads a colour as a design table writes it: black, white, green (the
// platform's green), grey(w), sRGB(r, g, b) with n/255 allowed, HSB(h, s, b),
// each optionally followed by "x o" for an opacity.
QColor parse(const QString &text)
{
    const QStringList parts = text.split(QStringLiteral(" x "));
    const QString base = parts[0] == "black" ? "grey(0)" : parts[0] == "white" ? "grey(1)" : parts[0];
    QList<float> n;
    for (const QString &arg : base.section(u'(', 1).section(u')', 0, 0).split(u',', Qt::SkipEmptyParts)) {
        const QStringList ratio = arg.trimmed().split(u'/');
        n << (ratio.size() == 2 ? ratio[0].toFloat() / ratio[1].toFloat() : ratio[0].toFloat());
    }
    QColor c = base == "green"    ? QColor(52, 199, 89)
        : n.size() == 1           ? QColor::fromRgbF(n[0], n[0], n[0])
        : base.startsWith("sRGB") ? QColor::fromRgbF(n[0], n[1], n[2])
                                  : QColor::fromHsvF(n[0], n[1], n[2]).toRgb();
    c.setAlphaF(parts.size() == 2 ? parts[1].toFloat() : 1.0f);
    return c;
}

// Every colour of every theme; with the stroke width, 0.9 in each, they make
// the 126 values of the six definitions. Columns: green, pink, blue, gray,
// purple, classic.
const QList<std::pair<const char *, QStringList>> themeTable = {
    {"darkStart", {"black x 0.9", "black x 0.9", "black x 0.9", "black x 0.9", "black x 0.9", "black"}},
    {"darkEnd", {"green x 0.25", "sRGB(1.0, 0.2, 0.7) x 0.25", "sRGB(0.35, 0.55, 1.0) x 0.25",
        "grey(0.3) x 0.4", "sRGB(0.6, 0.4, 0.9) x 0.25", "black"}},
    {"lightStart", {"green x 0.4", "sRGB(1.0, 0.2, 0.7) x 0.4", "sRGB(0.35, 0.55, 1.0) x 0.4",
        "grey(0.7) x 0.4", "sRGB(0.6, 0.4, 0.9) x 0.4", "white"}},
    {"lightEnd", {"black x 0.15", "black x 0.15", "black x 0.15", "black x 0.15", "black x 0.15", "white"}},
    {"accentDark", {"HSB(0.33, 0.9, 0.7)", "HSB(0.9, 0.9, 0.7)", "HSB(0.58, 0.9, 0.7)",
        "grey(0.7)", "HSB(0.75, 0.9, 0.7)", "HSB(0.33, 0.9, 0.7)"}},
    {"accentLight", {"HSB(0.35, 0.35, 0.9)", "HSB(0.35, 0.35, 0.9)", "HSB(0.58, 0.35, 0.9)",
        "grey(0.5)", "HSB(0.75, 0.35, 0.9)", "HSB(0.35, 0.35, 0.9)"}},
    {"selectedHeaderBackgroundDark",
     {"HSB(0.33, 0.9, 0.7) x 0.3", "HSB(0.9, 0.9, 0.7) x 0.3", "HSB(0.58, 0.9, 0.7) x 0.3",
      "grey(0.7) x 0.3", "HSB(0.75, 0.9, 0.7) x 0.3", "HSB(0.33, 0.9, 0.7) x 0.3"}},
    {"selectedHeaderBackgroundLight",
     {"HSB(0.35, 0.45, 0.87) x 0.8", "HSB(0.9, 0.45, 1.0) x 0.4", "HSB(0.58, 0.45, 0.95) x 0.8",
      "grey(0.7) x 0.8", "HSB(0.75, 0.45, 0.95) x 0.5", "HSB(0.35, 0.45, 0.87) x 0.8"}},
    {"selectedHeaderStrokeColorDark",
     {"HSB(0.33, 0.9, 0.7) x 0.8", "HSB(0.9, 0.9, 0.7) x 0.8", "HSB(0.58, 0.9, 0.7) x 0.8",
      "grey(0.7) x 0.8", "HSB(0.75, 0.9, 0.7) x 0.8", "HSB(0.33, 0.9, 0.7) x 0.8"}},
    {"selectedHeaderStrokeColorLight", {"sRGB(0.0, 0.6, 0.4)", "sRGB(0.6, 0.0, 0.4)", "sRGB(0.2, 0.4, 0.7)",
        "grey(0.3)", "sRGB(0.4, 0.2, 0.6)", "sRGB(0.0, 0.6, 0.4)"}},
    {"outlineDark", {"sRGB(0.1, 0.25, 0.1)", "sRGB(0.25, 0.1, 0.2)", "sRGB(0.1, 0.1, 0.25)",
        "grey(0.3)", "sRGB(0.15, 0.1, 0.2)", "sRGB(0.1, 0.25, 0.1)"}},
    {"outlineLight", {"sRGB(0.0, 0.55, 0.0)", "sRGB(0.75, 0.0, 0.4)", "sRGB(0.0, 0.4, 0.75)",
        "grey(0.5)", "sRGB(0.45, 0.3, 0.65)", "sRGB(0.0, 0.55, 0.0)"}},
    {"listRowBackgroundDark", QStringList(6, "sRGB(0.1, 0.1, 0.1)")},
    {"listRowBackgroundLight", QStringList(6, "white")},
    {"textCompleteFillDark", QStringList(6, "grey(0.99)")},
    {"textCompleteFillLight", QStringList(6, "grey(0.15)")},
    {"completeFillDark",
     {"sRGB(50/255, 205/255, 50/255)", "sRGB(1.0, 0.08, 0.58)", "sRGB(100/255, 149/255, 237/255)",
      "grey(0.7)", "sRGB(0.7, 0.4, 0.9)", "sRGB(50/255, 205/255, 50/255)"}},
    {"completeFillLight", {"HSB(0.35, 0.6, 0.5)", "sRGB(0.9, 0.21, 0.51)", "sRGB(35/255, 106/255, 150/255)",
        "grey(0.5)", "sRGB(0.6, 0.4, 0.8)", "HSB(0.35, 0.6, 0.5)"}},
    {"ballButton",
     {"sRGB(100/255, 160/255, 100/255)", "sRGB(210/255, 80/255, 160/255)", "sRGB(35/255, 106/255, 190/255)",
      "grey(0.55)", "sRGB(0.65, 0.3, 0.9)", "sRGB(100/255, 160/255, 100/255)"}},
    {"pinSwipe", {"sRGB(0.3, 0.6, 0.3)", "sRGB(0.7, 0.3, 0.5)", "sRGB(0.3, 0.4, 0.7)",
        "grey(0.5)", "sRGB(0.6, 0.4, 0.9)", "sRGB(0.3, 0.6, 0.3)"}},
};

} // namespace

class TestAppearance : public QObject
{
    Q_OBJECT

private slots:
    void everyThemeColour_data()
    {
        QTest::addColumn<QString>("theme");
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QString>("expected");
        const char *themes[] = {"green", "pink", "blue", "gray", "purple", "classic"};
        for (const auto &[field, colours] : themeTable)
            for (int t = 0; t < 6; ++t)
                QTest::addRow("%s.%s", themes[t], field) << QString::fromLatin1(themes[t]) << QByteArray(field) << colours[t];
        // The table covers every colour field.
        const QMetaObject &meta = ThemeDefinition::staticMetaObject;
        int count = 0;
        for (int i = 0; i < meta.propertyCount(); ++i)
            count += meta.property(i).metaType() == QMetaType::fromType<QColor>();
        QCOMPARE(count, int(themeTable.size()));
    }
    void everyThemeColour()
    {
        QFETCH(QString, theme);
        QFETCH(QByteArray, field);
        QFETCH(QString, expected);
        const auto key = Themes::fromRawValue(theme);
        QVERIFY(key.has_value());
        const QMetaObject &meta = ThemeDefinition::staticMetaObject;
        const ThemeDefinition &definition = ThemeCatalogue::definition(*key);
        const QColor c = meta.property(meta.indexOfProperty(field.constData())).readOnGadget(&definition).value<QColor>();
        const QColor e = parse(expected);
        // QColor keeps 16 bits per channel; one 8-bit step is far coarser.
        const double tolerance = 0.5 / 255.0;
        const bool close = qAbs(c.redF() - e.redF()) <= tolerance && qAbs(c.greenF() - e.greenF()) <= tolerance
            && qAbs(c.blueF() - e.blueF()) <= tolerance && qAbs(c.alphaF() - e.alphaF()) <= tolerance;
        QVERIFY2(close, qPrintable(c.name(QColor::HexArgb) + QStringLiteral(" against ") + e.name(QColor::HexArgb)));
        QCOMPARE(definition.selectedHeaderStrokeWidth, 0.9);
    }

    // Choices are written as given, and read exactly: an unknown theme
    // paints green, and only "dark" is dark.
    void choicesAreWrittenAsGivenAndReadExactly()
    {
        MemoryPreferencesStore store;
        Appearance appearance(store);
        QCOMPARE(appearance.themeKey(), QStringLiteral("green"));
        QVERIFY(!appearance.isDark());
        for (const QVariant &stored : {QVariant(QStringLiteral("Classic ")), QVariant(qint64(3))}) {
            store.setRawForTest(PreferenceKeys::selectedThemeKey, stored);
            QCOMPARE(&ThemeCatalogue::currentDefinition(store), &ThemeCatalogue::definition(Theme::green));
        }
        QCOMPARE(store.writeCount(), 0); // a stale value waits for the user's next choice
        for (const char *scheme : {"dark", "light", "Dark", "dark ", ""}) {
            store.setString(PreferenceKeys::appColorScheme, QString::fromLatin1(scheme));
            QCOMPARE(appearance.isDark(), qstrcmp(scheme, "dark") == 0);
        }

        // Every choice is signalled, even the same again.
        QSignalSpy themeSpy(&appearance, &Appearance::themeChanged);
        QSignalSpy schemeSpy(&appearance, &Appearance::schemeChanged);
        appearance.setThemeKey(QStringLiteral("pink"));
        appearance.setThemeKey(QStringLiteral("pink"));
        QVERIFY(appearance.theme() == ThemeCatalogue::definition(Theme::pink));
        appearance.setThemeKey(QStringLiteral("red"));
        QCOMPARE(*store.string(PreferenceKeys::selectedThemeKey), QStringLiteral("red"));

        appearance.setDark(true);
        QCOMPARE(*store.string(PreferenceKeys::appColorScheme), QStringLiteral("dark"));
        QCOMPARE(appearance.pick(Qt::red, Qt::blue), QColor(Qt::red));
        appearance.setDark(false);
        QCOMPARE(*store.string(PreferenceKeys::appColorScheme), QStringLiteral("light"));
        // Colour pairs are read through the theme, so it is signalled too.
        QCOMPARE(themeSpy.count(), 5);
        QCOMPARE(schemeSpy.count(), 2);
    }
};

QTEST_GUILESS_MAIN(TestAppearance)
#include "tst_appearance.moc"
