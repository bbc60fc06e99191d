#include "app/WindowPlacement.h"
#include "platform/WindowMode.h"
#include "platform/preferences/MemoryPreferencesStore.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <QWindow>

using Geometry = WindowPlacement::Geometry;

class TestWindowPlacement : public QObject
{
    Q_OBJECT

private slots:
    // What the store holds, fitted onto the screens there are now.
    void placed_data()
    {
        QTest::addColumn<QVariantList>("stored"); // x, y, width, height, maximised as stored; invalid: absent
        QTest::addColumn<QList<QRect>>("screens");
        QTest::addColumn<QRect>("expected");
        QTest::addColumn<bool>("maximized");

        // Full HD above a 40 px panel, and a second screen to its right.
        const QRect hd(0, 0, 1920, 1040);
        const QList<QRect> two{hd, QRect(1920, 0, 1280, 1024)};
        const QRect phone(765, 98, 390, 844);
        const auto row = [](QVariant x, QVariant y, QVariant w, QVariant h, QVariant m = qint64(0)) {
            return QVariantList{x, y, w, h, m};
        };
        const qint64 huge = qint64(1) << 40;
        QTest::newRow("first run: phone size, centred") << QVariantList() << two << phone << false;
        QTest::newRow("no width: first run") << row(5, 5, 0, 700) << two << phone << false;
        QTest::newRow("a value missing") << row(0, QVariant(), 500, 700) << two << phone << false;
        QTest::newRow("on the primary") << row(100, 50, 500, 700) << two << QRect(100, 50, 500, 700) << false;
        // Onto the screen it covers most, else centred on the primary.
        QTest::newRow("straddling") << row(1800, 100, 400, 900) << two << QRect(1920, 100, 400, 900) << false;
        QTest::newRow("off every screen, any flag")
            << row(huge, -huge, huge, 600, 7) << two << QRect(0, 220, 1920, 600) << true;
        // At least the minimum size, at most the screen.
        QTest::newRow("too small") << row(10, 10, 100, 100) << two << QRect(10, 10, 320, 560) << false;
    }

    void placed()
    {
        QFETCH(QVariantList, stored);
        QFETCH(QList<QRect>, screens);
        QFETCH(QRect, expected);
        QFETCH(bool, maximized);
        const QStringList keys{"windowX", "windowY", "windowWidth", "windowHeight", "windowMaximized"};
        MemoryPreferencesStore store;
        for (int i = 0; i < stored.size(); ++i)
            if (stored[i].isValid())
                store.setInteger(keys[i], stored[i].toLongLong());
        const std::optional<Geometry> read = WindowPlacement(store, WindowMode::Window).stored();
        QCOMPARE(WindowPlacement::placed(read ? std::optional(read->normal) : std::nullopt, screens), expected);
        QCOMPARE(read && read->maximized, maximized);
    }

    // Through a real window: the first run opens at phone size; what the
    // user then does is kept, and the next start brings it back.
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
            window.setFramePosition(moved.topLeft());
            window.resize(moved.size());
            // The window system reports the change back, as after a drag.
            QTRY_COMPARE(WindowPlacement(store, WindowMode::Window).stored(), (Geometry{moved, false}));
            window.showMaximized();
            QTRY_VERIFY(window.windowStates().testFlag(Qt::WindowMaximized));
        }
        // Maximised, with the plain geometry kept for when it is restored.
        QCOMPARE(WindowPlacement(store, WindowMode::Window).stored(), (Geometry{moved, true}));

        // A phone shell fills the screen whatever was kept, and keeps nothing itself.
        store.resetWriteLog();
        {
            WindowPlacement placement(store, WindowMode::Maximized);
            QWindow window;
            placement.show(window);
            QVERIFY(window.windowStates().testFlag(Qt::WindowMaximized));
            window.showNormal();
        }
        QCOMPARE(store.writeCount(), 0);
    }

    void windowModeFromTheSession()
    {
        // Variables set, space separated; whether the shell is a phone's.
        const std::pair<const char *, bool> sessions[] = {
            {"XDG_CURRENT_DESKTOP=Phosh:GNOME", true},
            {"XDG_CURRENT_DESKTOP=lomiri", true}, // any case
            {"XDG_CURRENT_DESKTOP=NotPhosh", false},
            {"XDG_CURRENT_DESKTOP=KDE PLASMA_PLATFORM=phone:handset", true},
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
