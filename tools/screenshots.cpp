// Renders the main screen with sample lists in every theme and scheme, once
// at tablet size, and in each of its passing states (an empty list with its
// globe, an open swipe action, the menu, the delete-list alert, the share
// sheet, the tutorial in both schemes, title editing and "Update" mode)
// into PNG files: `murvane_screenshots <directory>`. With `--more` it adds
// the smallest phone, the smallest and a full-HD desktop window and a
// landscape tablet, for checking the layout by eye.

#include "QuietServices.h"
#include "appearance/Appearance.h"
#include "model/ItemsCodec.h"
#include "model/ListItem.h"
#include "platform/FontLoader.h"
#include "platform/InAppShareSheet.h"
#include "platform/QmlServices.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "platform/preferences/PreferencesStore.h"
#include "platform/ShareSheet.h"
#include "screen/DisplayedItemsModel.h"
#include "screen/ListNavigation.h"
#include "screen/RowActions.h"
#include "screen/ScreenState.h"
#include "views/SwipeGesture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QTextStream>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>
#include <memory>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

namespace {

ListItem item(const QString &text, bool done = false, bool pinned = false)
{
    ListItem result = ListItem::create(text);
    result.state = done ? ListItemState::done : ListItemState::toDo;
    result.isPinned = pinned;
    return result;
}

// Several lists; the selected one has done, pinned, emoji and wrapping items.
void seed(PreferencesStore &store)
{
    const QStringList names = {QStringLiteral("Work"),       QStringLiteral("Groceries"), QStringLiteral("Home 🏡"),
                               QStringLiteral("Travel"),     QStringLiteral("Books"),     QStringLiteral("Ideas 💡"),
                               QStringLiteral("Weekend")};
    QList<ItemList> lists(names.size());
    lists[0] = {item(QStringLiteral("Send the report")), item(QStringLiteral("Team lunch"), true)};
    lists[1] = {
        item(QStringLiteral("Bread 🥖"), false, true),
        item(QStringLiteral("Olive oil"), true, true),
        item(QStringLiteral("Milk"), true),
        item(QStringLiteral("Eggs")),
        item(QStringLiteral("Coffee beans ☕")),
        item(QStringLiteral("Apples 🍎 and pears 🍐"), true),
        item(QStringLiteral("Ask at the deli whether they still have the smoked cheese from last week")),
        item(QStringLiteral("Tomatoes")),
        item(QStringLiteral("Rice")),
    };
    lists[2] = {item(QStringLiteral("Fix the tap")), item(QStringLiteral("Water the plants 🌱"))};
    store.setStringList(PreferenceKeys::listNames, names);
    store.setData(PreferenceKeys::items, ItemsCodec::encode(lists));
    store.setInteger(PreferenceKeys::selectedListIndex, 1);
}

// Waits for the view to settle (layout, the header's first scroll, fonts)
// and for a few frames to be presented.
void settle(QQuickView &view)
{
    int frames = 0;
    const auto connection = QObject::connect(&view, &QQuickWindow::frameSwapped, [&frames] { ++frames; });
    QElapsedTimer timer;
    timer.start();
    while ((frames < 3 || timer.elapsed() < 700) && timer.elapsed() < 10000) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        view.update();
    }
    QObject::disconnect(connection);
}

// What the screen is showing when it is grabbed.
enum class Scene { Plain, Menu, SwipeOpen, DeleteAlert, Share, Tutorial, TitleEditing, Update };

QQuickItem *part(QQuickItem *root, const char *name)
{
    QQuickItem *layers = root->property("layers").value<QQuickItem *>();
    return layers ? layers->property(name).value<QQuickItem *>() : nullptr;
}

// Opens the toolbar's menu before the grab.
void openMenus(QQuickItem *root)
{
    QQuickItem *toolbar = part(root, "toolbar");
    QObject *menu = toolbar ? toolbar->property("menu").value<QObject *>() : nullptr;
    if (!menu)
        return;
    QQuickItem *button = toolbar->property("menuButton").value<QQuickItem *>();
    QMetaObject::invokeMethod(button, "clicked");
}

// Leaves the first row swiped open on its trailing "Delete" button, as a
// short swipe leaves it.
void openSwipe(QQuickView &view)
{
    QQuickItem *list = part(view.rootObject(), "itemList");
    QQuickItem *row = nullptr;
    if (list)
        QMetaObject::invokeMethod(list, "itemAtIndex", Q_RETURN_ARG(QQuickItem *, row), Q_ARG(int, 0));
    if (row)
        row->setProperty("swipeOffset", -SwipeGesture::kButtonWidth);
}

// Puts the screen in `scene`, as the user's taps would.
void enter(Scene scene, QQuickView &view, ScreenState &screen)
{
    switch (scene) {
    case Scene::Plain:
        break;
    case Scene::Menu:
        openMenus(view.rootObject());
        break;
    case Scene::SwipeOpen:
        openSwipe(view);
        break;
    case Scene::DeleteAlert:
        screen.lists()->askToDeleteList();
        break;
    case Scene::Share:
        screen.share();
        break;
    case Scene::Tutorial:
        screen.openTutorial();
        break;
    case Scene::TitleEditing:
        if (QQuickItem *bar = part(view.rootObject(), "navigationBar"))
            if (auto *title = bar->property("titleEditor").value<QQuickItem *>())
                title->forceActiveFocus(Qt::MouseFocusReason);
        break;
    case Scene::Update:
        if (const ListItem *first = screen.displayedItems()->itemAt(0))
            screen.rows()->edit(first->id.toString(QUuid::WithoutBraces).toUpper());
        break;
    }
}

// Presses keys in the window, as a keyboard would.
void press(QQuickView &view, const QList<int> &keys)
{
    for (const int key : keys) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &down);
        QCoreApplication::sendEvent(&view, &up);
    }
}

bool shoot(QQmlEngine &engine, ScreenState &screen, const QSize &size, const QString &path, Scene scene,
           StoreStatus *notice = nullptr, const QList<int> &keys = {})
{
    QQuickView view(&engine, nullptr);
    view.setInitialProperties({{QStringLiteral("screen"), QVariant::fromValue(&screen)}});
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setColor(Qt::black);
    view.resize(size);
    view.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Murvane/ContentView.qml")));
    if (view.status() != QQuickView::Ready)
        return false;
    std::unique_ptr<QObject> noticeView;
    if (notice) {
        QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/qt/qml/Murvane/StoreNoticeView.qml")));
        noticeView.reset(component.createWithInitialProperties({{QStringLiteral("status"), QVariant::fromValue(notice)}}));
        if (auto *item = qobject_cast<QQuickItem *>(noticeView.get()))
            item->setParentItem(view.rootObject());
    }
    view.show();
    view.requestActivate();
    settle(view);
    if (scene != Scene::Plain) {
        enter(scene, view, screen);
        settle(view);
    }
    if (!keys.isEmpty()) {
        press(view, keys);
        settle(view);
    }
    const QImage image = view.grabWindow();
    screen.shareSheet()->dismiss();
    view.hide();
    view.setSource(QUrl());
    return !image.isNull() && image.save(path);
}

} // namespace

int main(int argc, char *argv[])
{
    // Drawn on the main thread, so a grab shows the frame just settled.
    if (qEnvironmentVariableIsEmpty("QSG_RENDER_LOOP"))
        qputenv("QSG_RENDER_LOOP", "basic");
    QGuiApplication app(argc, argv);
    QTextStream err(stderr);
    const bool more = argc == 3 && qstrcmp(argv[2], "--more") == 0;
    if (argc != 2 && !more) {
        err << "usage: murvane_screenshots <output directory> [--more]\n";
        return 2;
    }
    const QDir out(QString::fromLocal8Bit(argv[1]));
    if (!QDir().mkpath(out.path())) {
        err << "cannot create " << out.path() << "\n";
        return 1;
    }

    MemoryPreferencesStore preferences;
    NoHaptics haptics;
    InAppShareSheet shareSheet;
    NoReviewPage reviewPage;
    Appearance appearance(preferences);
    FontLoader::loadBundledFonts();
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    seed(preferences);

    QQmlEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    QmlServices::provide(engine, appearance);

    struct Shot
    {
        QString theme;
        QString scheme;
        QSize size;
        QString prefix;
        Scene scene = Scene::Plain;
        qint64 selected = 1;
        int notice = 0; // 1: data recovered, 2: saving fails
        QList<int> keys = {}; // pressed before the grab
    };
    QList<Shot> shots;
    for (const char *theme : {"green", "pink", "blue", "gray", "purple", "classic"})
        for (const char *scheme : {"light", "dark"})
            shots.append({QString::fromLatin1(theme), QString::fromLatin1(scheme), QSize(390, 844), QString()});
    shots.append({QStringLiteral("green"), QStringLiteral("light"), QSize(1024, 1366), QStringLiteral("tablet-")});
    const QSize phone(390, 844);
    shots.append({QStringLiteral("green"), QStringLiteral("dark"), phone, QStringLiteral("empty-"), Scene::Plain, 3});
    shots.append({QStringLiteral("blue"), QStringLiteral("light"), phone, QStringLiteral("swipe-"), Scene::SwipeOpen});
    shots.append({QStringLiteral("pink"), QStringLiteral("light"), phone, QStringLiteral("menu-"), Scene::Menu});
    shots.append({QStringLiteral("purple"), QStringLiteral("dark"), phone, QStringLiteral("alert-"), Scene::DeleteAlert});
    shots.append({QStringLiteral("green"), QStringLiteral("light"), phone, QStringLiteral("share-"), Scene::Share});
    shots.append({QStringLiteral("gray"), QStringLiteral("light"), phone, QStringLiteral("tutorial-"), Scene::Tutorial});
    shots.append({QStringLiteral("gray"), QStringLiteral("dark"), phone, QStringLiteral("tutorial-"), Scene::Tutorial});
    shots.append({QStringLiteral("classic"), QStringLiteral("light"), phone, QStringLiteral("title-"), Scene::TitleEditing});
    shots.append({QStringLiteral("blue"), QStringLiteral("dark"), phone, QStringLiteral("update-"), Scene::Update});
    // The keyboard on the third row, its focus ring showing: Tab past the
    // bar's four buttons, the title and the seven chips.
    shots.append({QStringLiteral("blue"), QStringLiteral("light"), phone, QStringLiteral("focus-"), Scene::Plain, 1, 0,
                  QList<int>(13, Qt::Key_Tab) << Qt::Key_Down << Qt::Key_Down});
    if (more) {
        shots.append({QStringLiteral("blue"), QStringLiteral("light"), QSize(360, 640), QStringLiteral("small-")});
        shots.append({QStringLiteral("green"), QStringLiteral("light"), QSize(320, 560), QStringLiteral("smallest-")});
        shots.append({QStringLiteral("gray"), QStringLiteral("dark"), QSize(1920, 1080), QStringLiteral("fullhd-")});
        shots.append({QStringLiteral("purple"), QStringLiteral("dark"), QSize(1366, 1024), QStringLiteral("landscape-")});
        shots.append({QStringLiteral("blue"), QStringLiteral("light"), phone, QStringLiteral("recovered-"), Scene::Plain, 1, 1});
        shots.append({QStringLiteral("classic"), QStringLiteral("dark"), phone, QStringLiteral("unsaved-"), Scene::Plain, 1, 2});
    }

    int failures = 0;
    for (const Shot &shot : shots) {
        appearance.setThemeKey(shot.theme);
        appearance.setSchemeKey(shot.scheme);
        preferences.setInteger(PreferenceKeys::selectedListIndex, shot.selected);
        if (shot.notice == 1)
            preferences.status().noteRecovered(QStringLiteral("the table \u201crecovered\u201d of ~/.local/share/murvane/murvane.sqlite"));
        if (shot.notice == 2) {
            preferences.setFailWrites(true);
            preferences.setInteger(PreferenceKeys::selectedListIndex, shot.selected);
        }
        // A fresh screen each time, as at start: it reads the selection.
        ScreenState screen(preferences, haptics, {appearance, shareSheet, reviewPage});
        const QString path = out.filePath(shot.prefix + shot.theme + QLatin1Char('-') + shot.scheme + QStringLiteral(".png"));
        if (shoot(engine, screen, shot.size, path, shot.scene, shot.notice ? &preferences.status() : nullptr,
                  shot.keys)) {
            QTextStream(stdout) << path << "\n";
        } else {
            err << "failed: " << path << "\n";
            ++failures;
        }
    }
    return failures == 0 ? 0 : 1;
}
