#include "QuickTestSetup.h"
#include "appearance/Appearance.h"
#include "model/ItemsCodec.h"
#include "model/ListItem.h"
#include "platform/PreferencesStore.h"

#include <QQmlEngine>
#include <QVariantMap>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(MurvanePlugin)

// Lets the tests start every case from a known store: `TestStore` in QML.
class TestStore : public QObject
{
    Q_OBJECT

public:
    // Empties the standard store and puts theme and scheme back to their
    // defaults, so the next screen starts as on a first launch.
    Q_INVOKABLE void reset()
    {
        PreferencesStore &store = PreferencesStore::standard();
        for (const QString &key : {PreferenceKeys::listNames, PreferenceKeys::items, PreferenceKeys::selectedListIndex,
                                   PreferenceKeys::appColorScheme, PreferenceKeys::selectedThemeKey})
            store.remove(key);
        Appearance::instance()->setThemeKey(PreferenceKeys::defaultSelectedThemeKey);
        Appearance::instance()->setSchemeKey(PreferenceKeys::defaultAppColorScheme);
    }

    // Writes lists as the app stores them: `lists` holds one array per name
    // of items {text, done, pinned}.
    Q_INVOKABLE void seed(const QStringList &names, const QVariantList &lists, int selected)
    {
        QList<ItemList> items;
        for (const QVariant &list : lists) {
            ItemList entries;
            for (const QVariant &value : list.toList()) {
                const QVariantMap map = value.toMap();
                ListItem item = ListItem::create(map.value(QStringLiteral("text")).toString());
                item.state = map.value(QStringLiteral("done")).toBool() ? ListItemState::done : ListItemState::toDo;
                item.isPinned = map.value(QStringLiteral("pinned")).toBool();
                entries.append(item);
            }
            items.append(entries);
        }
        PreferencesStore &store = PreferencesStore::standard();
        store.setStringList(PreferenceKeys::listNames, names);
        store.setData(PreferenceKeys::items, ItemsCodec::encode(items));
        store.setInteger(PreferenceKeys::selectedListIndex, selected);
    }

    Q_INVOKABLE QStringList storedListNames() const
    {
        return PreferencesStore::standard().stringList(PreferenceKeys::listNames).value_or(QStringList());
    }
};

class ScreenQuickSetup : public QuickTestSetup
{
    Q_OBJECT

public slots:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        QuickTestSetup::qmlEngineAvailable(engine);
        qmlRegisterSingletonInstance("MurvaneTest", 1, 0, "TestStore", &m_store);
    }

private:
    TestStore m_store;
};

QUICK_TEST_MAIN_WITH_SETUP(screen_quick, ScreenQuickSetup)

#include "quick_main.moc"
