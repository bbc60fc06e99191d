#include "CountingReviewOpener.h"
#include "MarkedItems.h"
#include "QuickTestSetup.h"
#include "RecordingShareSheet.h"
#include "appearance/Appearance.h"
#include "model/ItemsCodec.h"
#include "platform/preferences/PreferencesStore.h"
#include "screen/ScreenState.h"

#include <QQmlEngine>
#include <QTest>
#include <QWindow>
#include <memory>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

// The Qt Quick test set-up, also `TestStore` in QML: it lets the tests start
// every case from a known store, and makes the screens they show.
class ScreenQuickSetup : public QuickTestSetup
{
    Q_OBJECT

public:
    // The screens go before the services they use.
    ~ScreenQuickSetup() override { qDeleteAll(findChildren<ScreenState *>(Qt::FindDirectChildrenOnly)); }

    // Empties the standard store and puts theme and scheme back to their
    // defaults, so the next screen starts as on a first launch.
    Q_INVOKABLE void reset()
    {
        PreferencesStore &store = m_preferences;
        for (const QString &key : {PreferenceKeys::listNames, PreferenceKeys::items, PreferenceKeys::selectedListIndex,
                                   PreferenceKeys::appColorScheme, PreferenceKeys::selectedThemeKey})
            store.remove(key);
        m_appearance.setThemeKey(PreferenceKeys::defaultSelectedThemeKey);
        m_appearance.setSchemeKey(PreferenceKeys::defaultAppColorScheme);
    }

    // Writes lists as the app stores them: one array of texts per name,
    // "*" before a text pins the item, "+" marks it done.
    Q_INVOKABLE void seed(const QStringList &names, const QVariantList &lists, int selected)
    {
        QList<ItemList> items;
        for (const QVariant &list : lists)
            items.append(markedItems(list.toStringList()));
        PreferencesStore &store = m_preferences;
        store.setStringList(PreferenceKeys::listNames, names);
        store.setData(PreferenceKeys::items, ItemsCodec::encode(items));
        store.setInteger(PreferenceKeys::selectedListIndex, selected);
    }

    // A screen over the store as it stands, as the app makes one at start.
    // It lives as long as the set-up, past the view that shows it.
    Q_INVOKABLE ScreenState *newScreen()
    {
        auto *screen = new ScreenState(m_preferences, m_haptics, {m_appearance, m_shareSheet, m_reviewOpener}, this);
        QJSEngine::setObjectOwnership(screen, QJSEngine::CppOwnership);
        return screen;
    }

    // Shows another window of the app and moves the activation to it, as
    // a switch of windows does; false if the display would not.
    Q_INVOKABLE bool activateOtherWindow()
    {
        m_otherWindow = std::make_unique<QWindow>();
        m_otherWindow->resize(100, 100);
        m_otherWindow->show();
        if (!QTest::qWaitForWindowExposed(m_otherWindow.get()))
            return false;
        m_otherWindow->requestActivate();
        return QTest::qWaitForWindowActive(m_otherWindow.get());
    }
    Q_INVOKABLE void closeOtherWindow() { m_otherWindow.reset(); }

public slots:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        QuickTestSetup::qmlEngineAvailable(engine);
        qmlRegisterSingletonInstance("MurvaneTest", 1, 0, "TestStore", this);
    }

private:
    RecordingShareSheet m_shareSheet;
    CountingReviewOpener m_reviewOpener;
    std::unique_ptr<QWindow> m_otherWindow;
};

QUICK_TEST_MAIN_WITH_SETUP(screen_quick, ScreenQuickSetup)

#include "quick_main.moc"
