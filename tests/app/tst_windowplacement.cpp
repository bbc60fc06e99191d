#include "app/WindowPlacement.h"
#include "platform/WindowMode.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

using Geometry = WindowPlacement::Geometry;

class TestWindowPlacement : public QObject
{
    Q_OBJECT

private slots:
    void placed_data()
    {
        QTest::addColumn<bool>("hasStored");
        QTest::addColumn<QRect>("stored");
        QTest::addColumn<QList<QRect>>("screens");
        QTest::addColumn<QRect>("expected");

        // Full HD above a 40 px panel, and a second screen to its right.
        const QRect hd(0, 0, 1920, 1040);
        const QRect right(1920, 0, 1280, 1024);
        const QList<QRect> two{hd, right};
        QTest::newRow("first run: phone size, centred") << false << QRect() << two << QRect(765, 98, 390, 844);
        QTest::newRow("first run on a short screen") << false << QRect() << QList<QRect>{QRect(0, 0, 1366, 728)}
                                                     << QRect(488, 0, 390, 728);
        QTest::newRow("first run, no screen known") << false << QRect() << QList<QRect>{} << QRect(0, 0, 390, 844);
        QTest::newRow("a screen without area is passed over") << false << QRect() << QList<QRect>{QRect(), hd}
                                                               << QRect(765, 98, 390, 844);
        QTest::newRow("unusable size counts as first run") << true << QRect(5, 5, 0, -4) << two << QRect(765, 98, 390, 844);
        QTest::newRow("on the primary: kept") << true << QRect(100, 50, 500, 700) << two << QRect(100, 50, 500, 700);
        QTest::newRow("straddling: onto the screen it covers most") << true << QRect(1800, 100, 400, 900) << two
                                                                    << QRect(1920, 100, 400, 900);
        QTest::newRow("past the top left: pulled in") << true << QRect(-50, -30, 400, 900) << two << QRect(0, 0, 400, 900);
        QTest::newRow("its screen is gone: centred on the primary") << true << QRect(4000, 100, 400, 900) << two
                                                                    << QRect(760, 70, 400, 900);
        QTest::newRow("smaller than the layout allows: grown") << true << QRect(10, 10, 100, 100) << two
                                                               << QRect(10, 10, 320, 560);
        QTest::newRow("larger than its screen: shrunk onto it") << true << QRect(0, 0, 2500, 1500) << two << hd;
        QTest::newRow("a screen below the minimum: fills it") << true << QRect(0, 0, 390, 844)
                                                              << QList<QRect>{QRect(0, 0, 300, 500)} << QRect(0, 0, 300, 500);
    }

    void placed()
    {
        QFETCH(bool, hasStored);
        QFETCH(QRect, stored);
        QFETCH(QList<QRect>, screens);
        QFETCH(QRect, expected);
        QCOMPARE(WindowPlacement::placed(hasStored ? std::optional(stored) : std::nullopt, screens), expected);
    }

    void storedValues()
    {
        const auto row = [](qint64 x, qint64 y, qint64 w, qint64 h, qint64 m) {
            return QVariantList{QVariant(x), QVariant(y), QVariant(w), QVariant(h), QVariant(m)};
        };
        QVariantList missing = row(0, 0, 500, 700, 0), text = missing;
        missing[1] = QVariant();
        text[3] = QStringLiteral("700");
        const qint64 huge = qint64(1) << 40;
        // x, y, width, height, maximised as stored (invalid: absent), and what is read back.
        const std::pair<QVariantList, std::optional<Geometry>> cases[] = {
            {row(-20, 30, 500, 700, 0), Geometry{QRect(-20, 30, 500, 700), false}},
            {row(0, 0, 390, 844, 1), Geometry{QRect(0, 0, 390, 844), true}},
            {row(huge, -huge, huge, 600, 7), Geometry{QRect(1'000'000, -1'000'000, 1'000'000, 600), true}},
            {row(0, 0, 0, 700, 0), std::nullopt},
            {missing, std::nullopt},
            {text, std::nullopt},
        };
        const QStringList keys{QStringLiteral("windowX"), QStringLiteral("windowY"), QStringLiteral("windowWidth"),
                               QStringLiteral("windowHeight"), QStringLiteral("windowMaximized")};
        for (const auto &[values, read] : cases) {
            MemoryPreferencesStore store;
            for (int i = 0; i < keys.size(); ++i) {
                if (values[i].isValid())
                    store.setRawForTest(keys[i], values[i]);
            }
            QCOMPARE(WindowPlacement(store, WindowMode::Window).stored(), read);
        }
    }

    // Through a real window: the first run opens at phone size; what the
    // user then does is what the next start brings back.
    void desktopWindowComesBackAsLeft()
    {
        MemoryPreferencesStore store;
        const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
        const QRect moved(available.topLeft() + QPoint(30, 40), QSize(400, 580));
        {
            WindowPlacement placement(store, WindowMode::Window);
            QWindow window;
            placement.show(window);
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            QCOMPARE(window.size(), QSize(390, std::min(844, available.height())));
            QCOMPARE(window.minimumSize(), WindowPlacement::minimumSize.boundedTo(window.size()));
            QSignalSpy movedX(&window, &QWindow::xChanged);
            QSignalSpy resized(&window, &QWindow::widthChanged);
            window.setFramePosition(moved.topLeft());
            window.resize(moved.size());
            // The window system reports the change back, as after a drag.
            QTRY_VERIFY(!movedX.isEmpty() && !resized.isEmpty());
            window.hide();
        }
        QCOMPARE(WindowPlacement(store, WindowMode::Window).stored(), (Geometry{moved, false}));
        {
            WindowPlacement placement(store, WindowMode::Window);
            QWindow window;
            placement.show(window);
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            QCOMPARE(QRect(window.framePosition(), window.size()), moved);
            window.showMaximized();
            QTRY_VERIFY(window.windowStates().testFlag(Qt::WindowMaximized));
        }
        // Maximised, with the plain geometry kept for when it is restored.
        QCOMPARE(WindowPlacement(store, WindowMode::Window).stored(), (Geometry{moved, true}));
        WindowPlacement placement(store, WindowMode::Window);
        QWindow window;
        placement.show(window);
        QVERIFY(window.windowStates().testFlag(Qt::WindowMaximized));
    }

    void phoneShellFillsTheScreenAndKeepsNothing()
    {
        // A phone shell, then Android or iOS.
        for (const auto &[mode, state] : {std::pair{WindowMode::Maximized, Qt::WindowMaximized},
                                          {WindowMode::FullScreen, Qt::WindowFullScreen}}) {
            MemoryPreferencesStore store;
            {
                WindowPlacement placement(store, mode);
                QWindow window;
                placement.show(window);
                QVERIFY(window.windowStates().testFlag(state));
                window.resize(500, 600);
                window.showNormal();
                window.hide();
            }
            QCOMPARE(store.writeCount(), 0);
        }
    }

    void windowModeFromTheSession()
    {
        // Variables set, space separated; whether the shell is a phone's.
        const std::pair<const char *, bool> sessions[] = {
            {"XDG_CURRENT_DESKTOP=GNOME", false},
            {"XDG_CURRENT_DESKTOP=Phosh:GNOME", true},
            {"XDG_CURRENT_DESKTOP=lomiri", true}, // any case
            {"XDG_CURRENT_DESKTOP=NotPhosh", false},
            {"XDG_CURRENT_DESKTOP=KDE PLASMA_PLATFORM=phone:handset", true},
            {"XDG_CURRENT_DESKTOP=KDE PLASMA_PLATFORM=desktop", false},
            {"QT_QUICK_CONTROLS_MOBILE=1", true},
        };
        for (const auto &[variables, phone] : sessions) {
            QProcessEnvironment env;
            for (const QString &entry : QString::fromLatin1(variables).split(u' ', Qt::SkipEmptyParts))
                env.insert(entry.section(u'=', 0, 0), entry.section(u'=', 1));
            QVERIFY2(WindowModes::forEnvironment(env) == (phone ? WindowMode::Maximized : WindowMode::Window), variables);
        }
    }
};

QTEST_MAIN(TestWindowPlacement)
#include "tst_windowplacement.moc"
