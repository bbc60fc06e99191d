#include "appearance/Appearance.h"
#include "appearance/ThemeCatalogue.h"
#include "platform/MemoryPreferencesStore.h"
#include "platform/PreferencesStore.h"

#include <QSignalSpy>
#include <QTest>

class TestAppearance : public QObject
{
    Q_OBJECT

private slots:
    void freshStoreReadsGreenAndLightWithoutWriting()
    {
        MemoryPreferencesStore store;
        Appearance appearance(store);
        QCOMPARE(appearance.themeKey(), QStringLiteral("green"));
        QCOMPARE(appearance.schemeKey(), QStringLiteral("light"));
        QVERIFY(!appearance.isDark());
        QVERIFY(appearance.theme() == ThemeCatalogue::definition(Theme::green));
        QCOMPARE(appearance.foreground(), QColor(Qt::black));
        QCOMPARE(store.writeCount(), 0);
    }

    void themeWritesTheRawStringAndSignalsEveryTime()
    {
        MemoryPreferencesStore store;
        Appearance appearance(store);
        QSignalSpy themeSpy(&appearance, &Appearance::themeChanged);
        QSignalSpy schemeSpy(&appearance, &Appearance::schemeChanged);

        appearance.setThemeKey(QStringLiteral("pink"));
        QCOMPARE(store.string(PreferenceKeys::selectedThemeKey), std::optional<QString>(QStringLiteral("pink")));
        QVERIFY(appearance.theme() == ThemeCatalogue::definition(Theme::pink));
        QCOMPARE(themeSpy.count(), 1);

        // Choosing the selected theme again still stores it and notifies.
        appearance.setThemeKey(QStringLiteral("pink"));
        QCOMPARE(store.writeCount(), 2);
        QCOMPARE(themeSpy.count(), 2);

        // An unknown key is kept as given and paints green.
        appearance.setThemeKey(QStringLiteral("red"));
        QCOMPARE(appearance.themeKey(), QStringLiteral("red"));
        QVERIFY(appearance.theme() == ThemeCatalogue::definition(Theme::green));
        QCOMPARE(schemeSpy.count(), 0);
    }

    void schemeToggleWritesDarkOrLight()
    {
        MemoryPreferencesStore store;
        Appearance appearance(store);
        QSignalSpy schemeSpy(&appearance, &Appearance::schemeChanged);
        QSignalSpy themeSpy(&appearance, &Appearance::themeChanged);
        const QColor darkColour(Qt::red), lightColour(Qt::blue);

        appearance.setDark(true);
        QCOMPARE(store.string(PreferenceKeys::appColorScheme), std::optional<QString>(QStringLiteral("dark")));
        QVERIFY(appearance.isDark());
        QCOMPARE(appearance.foreground(), QColor(Qt::white));
        QCOMPARE(appearance.pick(darkColour, lightColour), darkColour);

        appearance.setDark(false);
        QCOMPARE(store.string(PreferenceKeys::appColorScheme), std::optional<QString>(QStringLiteral("light")));
        QCOMPARE(appearance.pick(darkColour, lightColour), lightColour);

        appearance.setSchemeKey(QStringLiteral("Dark"));
        QVERIFY(!appearance.isDark());
        QCOMPARE(appearance.schemeKey(), QStringLiteral("Dark"));
        QCOMPARE(schemeSpy.count(), 3);
        // Colour pairs are read through the theme, so it is signalled too.
        QCOMPARE(themeSpy.count(), 3);
    }

    void seesValuesWrittenBeforeIt()
    {
        MemoryPreferencesStore store;
        store.setString(PreferenceKeys::selectedThemeKey, QStringLiteral("classic"));
        store.setString(PreferenceKeys::appColorScheme, QStringLiteral("dark"));
        Appearance appearance(store);
        QVERIFY(appearance.isDark());
        QVERIFY(appearance.theme() == ThemeCatalogue::definition(Theme::classic));
    }

    void themeMenuOrder()
    {
        MemoryPreferencesStore store;
        Appearance appearance(store);
        QStringList labels, raws;
        for (const QVariant &entry : appearance.themeMenu()) {
            labels << entry.toMap().value(QStringLiteral("label")).toString();
            raws << entry.toMap().value(QStringLiteral("rawValue")).toString();
        }
        QCOMPARE(labels, QStringList({"Classic", "Gray", "Purple", "Blue", "Pink", "Green"}));
        QCOMPARE(raws, QStringList({"classic", "gray", "purple", "blue", "pink", "green"}));
    }

    void instanceUsesTheStandardStore()
    {
        MemoryPreferencesStore store;
        PreferencesStore::setStandard(&store);
        Appearance *appearance = Appearance::instance();
        QCOMPARE(Appearance::instance(), appearance);
        appearance->setThemeKey(QStringLiteral("blue"));
        QCOMPARE(store.string(PreferenceKeys::selectedThemeKey), std::optional<QString>(QStringLiteral("blue")));
        PreferencesStore::setStandard(nullptr);
    }
};

QTEST_GUILESS_MAIN(TestAppearance)
#include "tst_appearance.moc"
