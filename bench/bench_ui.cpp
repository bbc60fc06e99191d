// Main-screen benchmark on a 10,000-item list: switching to it, adding an
// item and toggling one, each from the input to the next frame presented;
// and a scripted fling from the top of the list to the bottom, frame by frame.
#include "appearance/Appearance.h"
#include "platform/FontLoader.h"
#include "platform/InAppShareSheet.h"
#include "platform/QmlServices.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "screen/DisplayedItemsModel.h"
#include "screen/InputBar.h"
#include "screen/ListNavigation.h"
#include "screen/RowActions.h"
#include "screen/ScreenState.h"
#include "FrameTiming.h"
#include "QuietServices.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickView>
#include <QtQml/qqmlextensionplugin.h>
#include <algorithm>
#include <cstdio>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

int main(int argc, char **argv)
{
    // The app's own render loop (threaded unless QSG_RENDER_LOOP says
    // otherwise): each figure runs from the input to the frame presented.
    QGuiApplication app(argc, argv);

    MemoryPreferencesStore prefs;
    prefs.setStringList(PreferenceKeys::listNames, ListItems::defaultListNames());
    QList<ItemList> lists(12);
    for (int i = 0; i < 5; ++i)
        lists[0].append(ListItem::create(QStringLiteral("Short list item %1").arg(i)));
    for (int i = 0; i < 10000; ++i) {
        ListItem item = ListItem::create(QStringLiteral("Item number %1 of the long list").arg(i));
        item.state = i % 3 == 0 ? ListItemState::done : ListItemState::toDo;
        item.isPinned = i < 20;
        lists[1].append(item);
    }
    prefs.setData(PreferenceKeys::items, ItemsCodec::encode(lists));
    prefs.setInteger(PreferenceKeys::selectedListIndex, 0);
    NoHaptics haptics;
    InAppShareSheet shareSheet;
    NoReviewPage reviewPage;
    Appearance appearance(prefs);
    ScreenState screenState(prefs, haptics, {appearance, shareSheet, reviewPage});
    ScreenState *screen = &screenState;

    FontLoader::loadBundledFonts();
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    QQuickView view;
    view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
    QmlServices::provide(*view.engine(), appearance);
    view.setInitialProperties({{QStringLiteral("screen"), QVariant::fromValue(screen)}});
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.resize(390, 844);
    view.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Murvane/ContentView.qml")));
    if (!view.rootObject()) {
        std::fprintf(stderr, "could not load the main screen\n");
        return 1;
    }
    view.show();
    settle(&view, 300);

    const int reps = 15;
    std::vector<double> switchMs, switchCallMs, toggleMs, addMs, idleMs;
    // What a frame costs when nothing changes: the floor under every figure.
    for (int i = 0; i < reps; ++i) {
        idleMs.push_back(timeToFrame(&view, [&] { view.update(); }));
        settle(&view, 50);
    }
    for (int i = 0; i < reps; ++i) {
        screen->lists()->chooseList(0);
        settle(&view);
        switchMs.push_back(timeToFrame(&view, [&] {
            QElapsedTimer call;
            call.start();
            screen->lists()->chooseList(1);
            switchCallMs.push_back(double(call.nsecsElapsed()) / 1e6);
        }));
        settle(&view);
    }
    for (int i = 0; i < reps; ++i) {
        const QString id = ItemsCodec::uuidText(screen->displayedItems()->itemAt(3 + i % 5)->id);
        toggleMs.push_back(timeToFrame(&view, [&] {
            screen->rows()->turnDoneMarker(id);
            screen->rows()->toggleState(id);
        }));
        settle(&view);
    }
    for (int i = 0; i < reps; ++i) {
        addMs.push_back(timeToFrame(&view, [&] {
            screen->inputBar()->setNewItem(QStringLiteral("Added while measuring %1").arg(i));
            screen->inputBar()->addOrUpdate();
        }));
        settle(&view, 150, 1500);
    }

    // The fling: from the top to the bottom, a fast finger's distance per frame.
    std::vector<double> frameMs;
    auto *list = view.rootObject()->findChild<QQuickItem *>(QStringLiteral("itemList"));
    if (!list) {
        std::fprintf(stderr, "no item list\n");
        return 1;
    }
    QMetaObject::invokeMethod(list, "positionViewAtBeginning");
    settle(&view);
    const double step = 240; // px per frame, about 14,000 px/s at 60 Hz
    for (int guard = 0; guard < 20000 && !list->property("atYEnd").toBool(); ++guard) {
        const double y = list->property("contentY").toDouble();
        frameMs.push_back(timeToFrame(&view, [&] { list->setProperty("contentY", y + step); }));
    }

    if (qEnvironmentVariableIsSet("MURVANE_BENCH_DETAIL")) {
        for (size_t i = 0; i < frameMs.size(); ++i)
            if (frameMs[i] > 50)
                std::printf("slow frame %zu: %.1f ms\n", i, frameMs[i]);
    }
    std::printf("%-22s %8s %8s %8s %8s\n", "measure", "samples", "median", "p95", "worst");
    const auto row = [](const char *name, const std::vector<double> &v) {
        std::printf("%-22s %8zu %8.2f %8.2f %8.2f\n", name, v.size(), percentile(v, 0.5), percentile(v, 0.95),
                    percentile(v, 1.0));
    };
    row("idle-frame", idleMs);
    row("switch-to-10k", switchMs);
    row("  of which the call", switchCallMs);
    row("toggle-in-10k", toggleMs);
    row("add-to-10k", addMs);
    row("fling-frame", frameMs);
    std::printf("ui-switch-10k-ms: %.2f\n", percentile(switchMs, 0.5));
    std::printf("ui-toggle-10k-ms: %.2f\n", percentile(toggleMs, 0.5));
    std::printf("ui-add-10k-ms: %.2f\n", percentile(addMs, 0.5));
    std::printf("ui-scroll-10k-worst-frame-ms: %.2f\n", percentile(frameMs, 1.0));
    return 0;
}
