// The real main screen as a screen reader sees it, in process: every control
// has a role and a name, every action it offers changes something, nothing
// decorative is in the tree, and focus moves in visual order.

#include "CountingReviewOpener.h"
#include "MarkedItems.h"
#include "RecordingHaptics.h"
#include "RecordingShareSheet.h"
#include "appearance/Appearance.h"
#include "model/ItemsCodec.h"
#include "platform/QmlServices.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "screen/InputBar.h"
#include "screen/ListNavigation.h"
#include "screen/ScreenState.h"
#include "screen/SortAndUndo.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QSet>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>
#include <memory>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

class TestAccessibility : public QObject
{
    Q_OBJECT

    MemoryPreferencesStore m_prefs;
    RecordingHaptics m_haptics;
    Appearance m_appearance{m_prefs};
    RecordingShareSheet m_sheet;
    CountingReviewOpener m_opener;
    std::unique_ptr<ScreenState> m_screen;
    std::unique_ptr<QQuickView> m_view; // one window; each screen in it is fresh
    // What the plain screen holds, which a scene over it need not act on again.
    QSet<QString> m_plainKeys;

    // The tree's nodes, each keyed by what it is and which of its kind in
    // tree order.
    QList<std::pair<QString, QAccessibleInterface *>> tree()
    {
        QList<std::pair<QString, QAccessibleInterface *>> out;
        QHash<QString, int> seen;
        const std::function<void(QAccessibleInterface *)> walk = [&](QAccessibleInterface *iface) {
            const QString what = QStringLiteral("%1 \"%2\" %3")
                                     .arg(QMetaEnum::fromType<QAccessible::Role>().valueToKey(iface->role()),
                                          iface->text(QAccessible::Name), iface->object()->objectName());
            out.append({what + " #" + QString::number(seen[what]++), iface});
            for (int i = 0; i < iface->childCount(); ++i)
                if (QAccessibleInterface *child = iface->child(i))
                    walk(child);
        };
        walk(QAccessible::queryAccessibleInterface(m_view.get()));
        return out;
    }

    // Everything an action could change: the screen's state, what was
    // played, the focus, and the tree (popups open and shut, the lists).
    QString snapshot()
    {
        QStringList parts;
        const QObject *services[] = {m_screen.get(), m_screen->lists(), m_screen->inputBar(),
                                     m_screen->sortAndUndo(), &m_appearance, &m_sheet};
        for (const QObject *part : services)
            for (int i = QObject::staticMetaObject.propertyCount(); i < part->metaObject()->propertyCount(); ++i)
                parts << part->metaObject()->property(i).read(part).toString();
        parts << QString::number(m_haptics.events.size()) << QString::number(quintptr(m_view->activeFocusItem()));
        for (const auto &[key, iface] : tree())
            parts << key;
        return parts.join('|');
    }

    // Waits until no popup is on its way in or out, and the tree holds still.
    void settle()
    {
        const auto moving = [this] {
            for (const QObject *o : m_view->rootObject()->findChildren<QObject *>())
                if (o->inherits("QQuickPopup") && o->property("visible") != o->property("opened"))
                    return true;
            return false;
        };
        QString last;
        for (int i = 0; i < 40 && (moving() || snapshot() != last); ++i) {
            last = snapshot();
            QTest::qWait(50);
        }
    }

    // A fresh screen in the same window over three lists: "Home" holds a
    // pinned, done Eggs and Milk; "Work" is empty; "Trip" holds Tea. Then
    // the control named `press` pressed, which must change something.
    bool open(const QString &press = {})
    {
        m_view->setSource({});
        QTest::qWait(1); // a share asked for shows on the next turn: before the dismiss
        m_appearance.setSchemeKey(PreferenceKeys::defaultAppColorScheme);
        m_prefs.remove(PreferenceKeys::selectedListIndex);
        m_prefs.setStringList(PreferenceKeys::listNames, {"Home", "Work", "Trip"});
        m_prefs.setData(PreferenceKeys::items,
                        ItemsCodec::encode({markedItems({"*+Eggs", "Milk"}), {}, markedItems({"Tea"})}));
        m_sheet.dismiss();
        m_screen = std::make_unique<ScreenState>(m_prefs, m_haptics,
                                                 ScreenState::Services{m_appearance, m_sheet, m_opener});
        m_view->setInitialProperties({{"screen", QVariant::fromValue(m_screen.get())}});
        m_view->setSource(QUrl("qrc:/qt/qml/Murvane/ContentView.qml"));
        if (m_view->status() != QQuickView::Ready)
            return false;
        settle();
        if (press.isEmpty())
            return true;
        QAccessibleInterface *button = find(press);
        return button && acts(button, QAccessibleActionInterface::pressAction());
    }
    // The node of that key, or else the first acting one of that name.
    QAccessibleInterface *find(const QString &keyOrName)
    {
        for (const auto &[key, iface] : tree())
            if (key == keyOrName || (iface->text(QAccessible::Name) == keyOrName && iface->actionInterface()))
                return iface;
        return nullptr;
    }
    // Does the action, waits for it to change something and to settle.
    bool acts(QAccessibleInterface *iface, const QString &action)
    {
        const QString before = snapshot();
        iface->actionInterface()->doAction(action);
        const bool changed = QTest::qWaitFor([&] { return snapshot() != before; }, 2000);
        settle();
        return changed;
    }

private slots:
    void initTestCase()
    {
        qputenv("QSG_RENDER_LOOP", "basic");
        // Controls give themselves roles once assistive technology is on.
        QAccessible::setActive(true);
        QQuickStyle::setStyle("Basic");
        auto *engine = new QQmlEngine(this);
        engine->addImportPath("qrc:/qt/qml");
        QmlServices::provide(*engine, m_appearance);
        m_view = std::make_unique<QQuickView>(engine, nullptr);
        m_view->setResizeMode(QQuickView::SizeRootObjectToView);
        m_view->resize(390, 844);
        // A screen first shown in a window that was already up reads with
        // no names (Qt 6.4): the first one comes before the window.
        QVERIFY(open());
        m_view->show();
        m_view->requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        QVERIFY(open());
        for (const auto &[key, iface] : tree())
            m_plainKeys.insert(key);
    }

    // Each scene is reached by pressing a control by name on a fresh screen.
    void everyControlNamedAndActing_data()
    {
        QTest::addColumn<QString>("press");
        QTest::newRow("screen") << QString();
        QTest::newRow("menu") << "Menu";
        QTest::newRow("share sheet") << "Share";
    }
    void everyControlNamedAndActing()
    {
        QFETCH(QString, press);
        QVERIFY2(open(press), "the scene could not be reached");
        QStringList failures;
        // What to act on is taken down first: each action gets a new screen.
        QList<std::pair<QString, QString>> targets; // key, action
        QHash<QString, bool> acted;
        for (const auto &[key, iface] : tree()) {
            const QString name = iface->text(QAccessible::Name);
            const QObject *object = iface->object();
            // What offers an action is acted on, so it says what it is. Scroll
            // bars go unnamed, and have nowhere to go over these short lists.
            const bool actionable = iface->actionInterface() && iface->role() != QAccessible::ScrollBar;
            const QStringList actions = actionable ? iface->actionInterface()->actionNames() : QStringList();
            if (!actions.isEmpty() && name.trimmed().isEmpty())
                failures << "no name: " + key;
            if (iface->role() == QAccessible::NoRole || (iface->role() == QAccessible::Client && !actions.isEmpty()))
                failures << "no role: " + key;
            // Icon glyphs and decoration say nothing read aloud.
            if (std::any_of(name.begin(), name.end(),
                            [](QChar c) { return c.category() == QChar::Other_PrivateUse || c.isSurrogate(); }))
                failures << "an icon glyph: " + key;
            if (object->objectName().contains("globe", Qt::CaseInsensitive) || object->objectName() == "bullet")
                failures << "decoration: " + key;
            // Qt 6.4 tells no disabled state; the item knows.
            if ((!press.isEmpty() && m_plainKeys.contains(key)) || !object->property("enabled").toBool())
                continue;
            // Each action once; a part repeated under one object name (the
            // rows) acts alike, so once for all of them. Focus already
            // there has nothing to do.
            const QString part = object->objectName().isEmpty() ? key : object->objectName();
            for (const QString &action : actions)
                if (!(action == QAccessibleActionInterface::setFocusAction() && iface->state().focused)
                    && !std::exchange(acted[part + action], true))
                    targets.append({key, action});
        }
        QVERIFY2(failures.isEmpty(), qPrintable(failures.join('\n')));
        QVERIFY(!targets.isEmpty());

        // Every action of every enabled control the scene adds, each on a fresh screen.
        for (const auto &[key, action] : std::as_const(targets)) {
            QVERIFY(open(press));
            QAccessibleInterface *same = find(key);
            QVERIFY2(same, qPrintable(key));
            QVERIFY2(acts(same, action), qPrintable(action + " changes nothing: " + key));
        }
    }

    // Tab walks the screen top to bottom, wraps, and Shift+Tab walks back.
    void tabOrder()
    {
        QVERIFY(open());
        const auto focusedName = [this] {
            return QAccessible::queryAccessibleInterface(m_view->activeFocusItem())->text(QAccessible::Name);
        };
        // "Move List Left" is disabled on the first list.
        const QStringList order = {"Delete List", "List Name", "New List", "Move List Right", "Home", "Work", "Trip",
                                   "Eggs", "Undo", "New Item", "Add", "Dark or Light", "Sort by Status", "Menu",
                                   "Sort by Text", "Share", "Delete List"};
        QStringList reached;
        for (int i = 0; i < order.size(); ++i) {
            QTest::keyClick(m_view.get(), Qt::Key_Tab);
            reached << focusedName();
        }
        QCOMPARE(reached, order);
        QTest::keyClick(m_view.get(), Qt::Key_Backtab);
        QTest::keyClick(m_view.get(), Qt::Key_Backtab);
        QCOMPARE(focusedName(), QStringLiteral("Sort by Text"));
    }
};

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
