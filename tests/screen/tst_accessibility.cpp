// The real main screen as a screen reader sees it, in process: every control
// has a role and a name, every action it offers changes something, nothing
// decorative is in the tree, and focus moves in visual order and is told.

#include "CountingReviewOpener.h"
#include "MarkedItems.h"
#include "RecordingHaptics.h"
#include "RecordingShareSheet.h"
#include "appearance/Appearance.h"
#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "platform/FontLoader.h"
#include "platform/QmlServices.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "screen/InputBar.h"
#include "screen/ListNavigation.h"
#include "screen/ScreenState.h"
#include "screen/SortAndUndo.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QSet>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>
#include <memory>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

namespace {

// Roles a user acts on; each needs a name.
const QList<QAccessible::Role> interactive = {
    QAccessible::Button,   QAccessible::CheckBox, QAccessible::RadioButton, QAccessible::EditableText,
    QAccessible::PageTab,  QAccessible::MenuItem, QAccessible::ListItem,    QAccessible::ComboBox,
    QAccessible::SpinBox,  QAccessible::Slider,   QAccessible::Dialog,      QAccessible::PopupMenu,
    QAccessible::List,     QAccessible::ButtonMenu,
};

QString describe(QAccessibleInterface *iface);

struct Node
{
    QAccessibleInterface *iface;
    QString key; // what it is, and which of its kind in tree order
};

void walk(QAccessibleInterface *iface, QList<Node> &out, QHash<QString, int> &seen)
{
    const QString what = describe(iface);
    out.append({iface, what + QStringLiteral(" #") + QString::number(seen[what]++)});
    for (int i = 0; i < iface->childCount(); ++i)
        if (QAccessibleInterface *child = iface->child(i))
            walk(child, out, seen);
}

QString describe(QAccessibleInterface *iface)
{
    const QObject *object = iface->object();
    return QStringLiteral("%1 \"%2\" (%3 %4)")
        .arg(QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(iface->role())),
             iface->text(QAccessible::Name), object ? QString::fromLatin1(object->metaObject()->className()) : "?",
             object ? object->objectName() : QString());
}

QList<QAccessibleEvent *> focusEvents;

void recordFocus(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::Focus)
        focusEvents.append(new QAccessibleEvent(event->object(), QAccessible::Focus));
}

// What the screens talk to, one set for the test: the engine's singletons
// hold on to the appearance.
struct Services
{
    MemoryPreferencesStore prefs;
    RecordingHaptics haptics;
    Appearance appearance{prefs};
    RecordingShareSheet sheet;
    CountingReviewOpener opener;
};

// A fresh screen over three lists in a window: "Home" holds Milk and a
// pinned, done Eggs; "Work" is empty; "Trip" holds Tea.
struct Rig
{
    Rig(QQmlEngine &engine, Services &services)
        : s(services)
        , view(&engine, nullptr)
    {
        s.appearance.setThemeKey(PreferenceKeys::defaultSelectedThemeKey);
        s.appearance.setSchemeKey(PreferenceKeys::defaultAppColorScheme);
        s.prefs.remove(PreferenceKeys::selectedListIndex);
        s.prefs.setStringList(PreferenceKeys::listNames, {"Home", "Work", "Trip"});
        s.prefs.setData(PreferenceKeys::items,
                        ItemsCodec::encode({markedItems({"Milk", "*+Eggs"}), {}, markedItems({"Tea"})}));
        s.sheet.dismiss();
        s.sheet.copied.clear();
        s.sheet.opened.clear();
        s.opener.opened = 0;
        s.haptics.clear();
        screen = std::make_unique<ScreenState>(s.prefs, s.haptics,
                                               ScreenState::Services{s.appearance, s.sheet, s.opener});
        view.setInitialProperties({{"screen", QVariant::fromValue(screen.get())}});
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(390, 844);
        view.setSource(QUrl("qrc:/qt/qml/Murvane/ContentView.qml"));
        view.show();
        view.requestActivate();
        ok = view.status() == QQuickView::Ready && QTest::qWaitForWindowActive(&view);
        QTest::qWait(100);
    }
    ~Rig() { view.setSource({}); }

    QList<Node> tree()
    {
        QList<Node> nodes;
        QHash<QString, int> seen;
        walk(QAccessible::queryAccessibleInterface(&view), nodes, seen);
        return nodes;
    }
    QAccessibleInterface *find(const QString &name)
    {
        for (const Node &node : tree())
            if (node.iface->text(QAccessible::Name) == name && node.iface->actionInterface())
                return node.iface;
        return nullptr;
    }
    // Everything an action could change: the screen's state, what was
    // played and handed out, the focus, and the tree (popups open and shut).
    QString snapshot()
    {
        QStringList lists;
        for (int i = 0; i < screen->store()->listCount(); ++i)
            lists << markedTexts(screen->store()->itemsAt(i)).join(',');
        QStringList parts = {screen->store()->listNames().join(','),
                             lists.join(';'),
                             QString::number(screen->lists()->selectedListIndex()),
                             screen->inputBar()->newItem(),
                             screen->inputBar()->editingItemId(),
                             QString::number(screen->inputBar()->newItemFieldIsFocused()),
                             QString::number(screen->showTutorial()),
                             QString::number(screen->lists()->showDeletionConfirmation()),
                             QString::number(s.haptics.events.size()),
                             QString::number(s.sheet.isPresented()),
                             s.sheet.copied.join(','),
                             QString::number(s.sheet.opened.size()),
                             QString::number(s.opener.opened),
                             s.appearance.themeKey() + s.appearance.schemeKey(),
                             QString::number(screen->sortAndUndo()->canUndo()),
                             QString::number(quintptr(view.activeFocusItem()))};
        for (const Node &node : tree()) {
            parts << describe(node.iface);
            // Where a scroll bar stands.
            if (const QVariant position = node.iface->object()->property("position"); position.isValid())
                parts << position.toString();
        }
        return parts.join('|');
    }
    // Presses the actionable control of that name and waits for the change.
    bool press(const QString &name)
    {
        QAccessibleInterface *iface = find(name);
        if (!iface)
            return false;
        const QString before = snapshot();
        iface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        const bool changed = QTest::qWaitFor([&] { return snapshot() != before; }, 2000);
        settle();
        return changed;
    }
    // Waits out the popups' entrances and exits.
    void settle()
    {
        QString last;
        for (int i = 0; i < 30 && snapshot() != last; ++i) {
            last = snapshot();
            QTest::qWait(150);
        }
    }

    Services &s;
    std::unique_ptr<ScreenState> screen;
    QQuickView view;
    bool ok = false;
};

} // namespace

class TestAccessibility : public QObject
{
    Q_OBJECT

    Services m_services;
    QQmlEngine *m_engine = nullptr;

private slots:
    void initTestCase()
    {
        qputenv("QSG_RENDER_LOOP", "basic");
        // Controls give themselves roles once assistive technology is on.
        QAccessible::installUpdateHandler(recordFocus);
        QAccessible::setActive(true);
        // Qt's AT-SPI bridge comes up, as for a screen reader, once the
        // accessibility bus runs on the test's own session bus.
        qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
        QAccessible::isActive(); // makes the bridge, which waits for the bus
        QDBusConnection::sessionBus().call(
            QDBusMessage::createMethodCall("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress"));
        QVERIFY2(QTest::qWaitFor([] { return QAccessible::isActive(); }, 5000), "no AT-SPI bus (at-spi2-core)");
        FontLoader::loadBundledFonts();
        QQuickStyle::setStyle("Basic");
        m_engine = new QQmlEngine(this);
        m_engine->addImportPath("qrc:/qt/qml");
        QmlServices::provide(*m_engine, m_services.appearance);
    }

    // Each scene is reached by pressing controls by name from a fresh screen.
    void everyControlNamedAndActing_data()
    {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QStringList>("mustHave");
        QTest::newRow("screen") << QStringList() << QStringList{"List Name", "New Item", "Milk", "Done", "Unpin"};
        QTest::newRow("menu") << QStringList{"Menu"} << QStringList{"Menu", "Rate Murvane!", "Reset Dots"};
        QTest::newRow("themes") << QStringList{"Menu", "Themes"} << QStringList{"Classic", "Green"};
        QTest::newRow("alert") << QStringList{"Delete List"} << QStringList{"Confirm Deletion", "Yes", "No"};
        QTest::newRow("tutorial") << QStringList{"Menu", "Tutorial"} << QStringList{"Tutorial", "Done"};
        QTest::newRow("share sheet") << QStringList{"Share"} << QStringList{"Share List", "Copy", "Cancel"};
    }
    void everyControlNamedAndActing()
    {
        QFETCH(QStringList, steps);
        QFETCH(QStringList, mustHave);
        auto scene = [&](Rig &rig) {
            if (!rig.ok)
                return false;
            for (const QString &step : steps)
                if (!rig.press(step))
                    return false;
            return true;
        };
        // What the plain screen holds, which a scene over it need not act on again.
        QSet<QString> plainKeys;
        if (!steps.isEmpty()) {
            Rig plain(*m_engine, m_services);
            QVERIFY(plain.ok);
            for (const Node &node : plain.tree())
                plainKeys.insert(node.key);
        }
        Rig first(*m_engine, m_services);
        QVERIFY2(scene(first), "the scene could not be reached");
        const QList<Node> nodes = first.tree();
        QStringList names;
        QStringList failures;
        for (const Node &node : nodes) {
            QAccessibleInterface *iface = node.iface;
            const QString name = iface->text(QAccessible::Name);
            names << name;
            if (interactive.contains(iface->role()) && name.trimmed().isEmpty())
                failures << "no name: " + describe(iface);
            if (iface->role() == QAccessible::NoRole || (iface->role() == QAccessible::Client && iface->actionInterface()))
                failures << "no role: " + describe(iface);
            // Icon glyphs and decoration say nothing read aloud.
            for (const QChar c : name)
                if (c.category() == QChar::Other_PrivateUse || c.isSurrogate())
                    failures << "an icon glyph: " + describe(iface);
            const QString object = iface->object() ? iface->object()->objectName() : QString();
            if (object.contains("globe", Qt::CaseInsensitive) || object == "bullet")
                failures << "decoration: " + describe(iface);
        }
        QVERIFY2(failures.isEmpty(), qPrintable(failures.join('\n')));
        for (const QString &name : mustHave)
            QVERIFY2(names.contains(name), qPrintable(name + " is not in the tree"));

        // Every action of every enabled control the scene adds, each on a
        // fresh screen.
        // Other screens share the appearance, so a theme chosen there
        // rebuilds this one: what to act on is taken down first.
        QList<std::pair<QString, QString>> targets; // key, action
        for (const Node &node : nodes) {
            QAccessibleActionInterface *actions = node.iface->actionInterface();
            // Qt 6.4 tells no disabled state; the item knows.
            const QObject *object = node.iface->object();
            if (!actions || plainKeys.contains(node.key) || !object->property("enabled").toBool())
                continue;
            // Actions that have nothing to do: focus where it is, a scroll
            // bar at the end it would move towards.
            const qreal position = object->property("position").toReal();
            const qreal size = object->property("size").toReal();
            const bool scrollBar = node.iface->role() == QAccessible::ScrollBar;
            for (const QString &action : actions->actionNames())
                if (!(action == QAccessibleActionInterface::setFocusAction() && node.iface->state().focused)
                    && !(scrollBar && action == QAccessibleActionInterface::decreaseAction() && position <= 0)
                    && !(scrollBar && action == QAccessibleActionInterface::increaseAction() && position + size >= 1))
                    targets.append({node.key, action});
        }
        for (const auto &[key, action] : std::as_const(targets)) {
            Rig rig(*m_engine, m_services);
            QVERIFY(scene(rig));
            QAccessibleInterface *same = nullptr;
            for (const Node &other : rig.tree())
                if (other.key == key)
                    same = other.iface;
            QVERIFY2(same, qPrintable(key));
            const QString start = rig.snapshot();
            same->actionInterface()->doAction(action);
            QVERIFY2(QTest::qWaitFor([&] { return rig.snapshot() != start; }, 2000),
                     qPrintable(action + " changes nothing: " + key));
        }
        QVERIFY(targets.size() >= mustHave.size());
    }

    // Tab walks the screen top to bottom, wraps, and Shift+Tab walks back;
    // each control reached is announced, by a name.
    void tabOrderAndFocusAnnounced()
    {
        Rig rig(*m_engine, m_services);
        QVERIFY(rig.ok);
        qDeleteAll(focusEvents);
        focusEvents.clear();
        // "Move List Left" is disabled on the first list.
        const QStringList order = {"Delete List", "List Name", "New List", "Move List Right", "Home", "Work", "Trip",
                                   "Eggs", "Undo", "New Item", "Add", "Dark or Light", "Sort by Status", "Menu",
                                   "Sort by Text", "Share", "Delete List"};
        QStringList reached;
        QStringList announced;
        for (int i = 0; i < order.size(); ++i) {
            QTest::keyClick(&rig.view, Qt::Key_Tab);
            QQuickItem *focused = rig.view.activeFocusItem();
            QAccessibleInterface *iface = focused ? QAccessible::queryAccessibleInterface(focused) : nullptr;
            reached << (iface ? iface->text(QAccessible::Name) : QString());
        }
        QCOMPARE(reached, order);
        QTest::keyClick(&rig.view, Qt::Key_Backtab);
        QTest::keyClick(&rig.view, Qt::Key_Backtab);
        QCOMPARE(QAccessible::queryAccessibleInterface(rig.view.activeFocusItem())->text(QAccessible::Name),
                 QStringLiteral("Sort by Text"));
        for (QAccessibleEvent *event : std::as_const(focusEvents))
            if (QAccessibleInterface *iface = event->accessibleInterface())
                announced << iface->text(QAccessible::Name);
        for (const QString &name : order)
            QVERIFY2(announced.contains(name), qPrintable(name + " was not announced"));
    }
};

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
