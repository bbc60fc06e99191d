// The main screen on a list holding one item of a megabyte of text: the time
// to the first frame, against the same list without it in the same run, and
// what a toggle of another item and a scroll cost while the big item is there.
#include "appearance/Appearance.h"
#include "platform/FontLoader.h"
#include "platform/InAppShareSheet.h"
#include "platform/QmlServices.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "model/ItemsCodec.h"
#include "model/ListItems.h"
#include "screen/DisplayedItemsModel.h"
#include "screen/InputBar.h"
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
#include <memory>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

namespace {

// A megabyte of prose (words, a line break now and then), or of one
// unbroken word, which the text layout can only wrap character by character.
QString megabyteOfText(bool prose)
{
    if (!prose)
        return QString(1 << 20, QLatin1Char('w'));
    static const char *const words[] = {"lorem", "ipsum", "dolor", "sit", "amet", "consectetur",
                                        "adipiscing", "elit", "sed", "do", "eiusmod", "tempor"};
    QString text;
    text.reserve(1 << 20);
    for (int i = 0; text.size() < (1 << 20); ++i) {
        text += QLatin1String(words[i % 12]);
        text += i % 97 == 96 ? QLatin1Char('\n') : QLatin1Char(' ');
    }
    text.truncate(1 << 20);
    return text;
}

struct Figures
{
    double firstFrameMs = 0;
    double toggleMs = 0;
    double scrollWorstMs = 0;
    double editMs = 0; // taking the big item (or a short one) up in the editor
};

// Opens the main screen on a store of 30 short items, plus the big one when
// given, and measures it.
Figures measure(const QString &bigText)
{
    MemoryPreferencesStore prefs;
    prefs.setStringList(PreferenceKeys::listNames, ListItems::defaultListNames());
    QList<ItemList> lists(12);
    for (int i = 0; i < 30; ++i)
        lists[0].append(ListItem::create(QStringLiteral("Short list item %1").arg(i)));
    if (!bigText.isEmpty())
        lists[0].insert(2, ListItem::create(bigText));
    prefs.setData(PreferenceKeys::items, ItemsCodec::encode(lists));
    prefs.setInteger(PreferenceKeys::selectedListIndex, 0);
    NoHaptics haptics;
    InAppShareSheet shareSheet;
    NoReviewPage reviewPage;
    Appearance appearance(prefs);

    Figures f;
    {
        ScreenState screenState(prefs, haptics, {appearance, shareSheet, reviewPage});
        ScreenState *screen = &screenState;
        QQuickView view;
        view.engine()->addImportPath(QStringLiteral("qrc:/qt/qml"));
        QmlServices::provide(*view.engine(), appearance);
        view.setInitialProperties({{QStringLiteral("screen"), QVariant::fromValue(screen)}});
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(390, 844);
        f.firstFrameMs = timeToFrame(&view, [&] {
            view.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Murvane/ContentView.qml")));
            view.show();
        }, 120000);
        settle(&view, 300);
        std::vector<double> toggles;
        // The rows above the big one (row 2), which stay on screen.
        for (const int row : {0, 1, 0, 1, 0, 1, 0}) {
            const QString id = ItemsCodec::uuidText(screen->displayedItems()->itemAt(row)->id);
            toggles.push_back(timeToFrame(&view, [&] {
                screen->rows()->turnDoneMarker(id);
                screen->rows()->toggleState(id);
            }));
            settle(&view);
        }
        f.toggleMs = percentile(toggles, 0.5);
        // Row 2 is the big item when there is one.
        const QString editedId = ItemsCodec::uuidText(screen->displayedItems()->itemAt(2)->id);
        f.editMs = timeToFrame(&view, [&] { screen->rows()->edit(editedId); }, 120000);
        settle(&view);
        screen->inputBar()->setNewItem(QString());
        screen->inputBar()->setNewItemFieldIsFocused(false);
        settle(&view);
        auto *list = view.rootObject()->findChild<QQuickItem *>(QStringLiteral("itemList"));
        for (int guard = 0; guard < 2000 && !list->property("atYEnd").toBool(); ++guard) {
            const double y = list->property("contentY").toDouble();
            f.scrollWorstMs = std::max(f.scrollWorstMs,
                                       timeToFrame(&view, [&] { list->setProperty("contentY", y + 120); }));
        }
    }
    return f;
}

} // namespace

int main(int argc, char **argv)
{
    // The app's own render loop, as in the other benchmarks.
    QGuiApplication app(argc, argv);
    FontLoader::loadBundledFonts();
    QQuickStyle::setStyle(QStringLiteral("Basic"));

    // The first view pays for loading the module and the fonts; measure a
    // throw-away one first so the two runs below compare like with like.
    measure(QString());
    const Figures plain = measure(QString());
    const Figures prose = measure(megabyteOfText(true));
    const Figures word = measure(megabyteOfText(false));

    std::printf("%-22s %12s %10s %14s %10s\n", "store", "first-frame", "toggle", "scroll-worst", "edit");
    const auto row = [](const char *name, const Figures &f) {
        std::printf("%-22s %12.1f %10.1f %14.1f %10.1f\n", name, f.firstFrameMs, f.toggleMs, f.scrollWorstMs,
                    f.editMs);
    };
    row("30 items", plain);
    row("+ 1 MB of prose", prose);
    row("+ 1 MB unbroken word", word);
    const Figures worst{std::max(prose.firstFrameMs, word.firstFrameMs), std::max(prose.toggleMs, word.toggleMs),
                        std::max(prose.scrollWorstMs, word.scrollWorstMs), std::max(prose.editMs, word.editMs)};
    std::printf("ui-first-frame-1mb-item-ms: %.1f\n", worst.firstFrameMs);
    std::printf("ui-first-frame-1mb-item-vs-plain: %.2f\n", worst.firstFrameMs / plain.firstFrameMs);
    std::printf("ui-toggle-beside-1mb-item-ms: %.1f\n", worst.toggleMs);
    std::printf("ui-scroll-past-1mb-item-worst-frame-ms: %.1f\n", worst.scrollWorstMs);
    std::printf("ui-edit-1mb-item-ms: %.1f\n", worst.editMs);
    return 0;
}
