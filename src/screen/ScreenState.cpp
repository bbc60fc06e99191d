#include "ScreenState.h"

#include "DisplayedItemsModel.h"
#include "InputBar.h"
#include "KeyCommands.h"
#include "ListNavigation.h"
#include "RowActions.h"
#include "ScreenContext.h"
#include "SortAndUndo.h"
#include "appearance/Appearance.h"
#include "model/ListItems.h"
#include "platform/Haptics.h"
#include "platform/KeyboardResponder.h"
#include "platform/ShareSheet.h"
#include "platform/WriteReviewOpener.h"
#include "views/ShareText.h"

ScreenState::ScreenState(PreferencesStore &preferences, Haptics &haptics, const Services &services, QObject *parent)
    : QObject(parent)
    , m_haptics(haptics)
    , m_appearance(services.appearance)
    , m_reviewOpener(services.reviewOpener)
    , m_shareSheet(&services.shareSheet)
    , m_store(new ListItems(preferences, this))
    , m_displayed(new DisplayedItemsModel(m_store, this))
    , m_keyboard(new KeyboardResponder(this))
{
    const ScreenContext context{preferences, *m_store, *m_displayed, haptics};
    m_sortAndUndo = new SortAndUndo(context, [this] { return m_lists->selectedListIndex(); }, this);
    m_lists = new ListNavigation(context, *m_sortAndUndo, this);
    m_input = new InputBar(context, *m_lists, this);
    m_rows = new RowActions(context, *m_lists, *m_sortAndUndo, *m_input, this);
    m_keys = new KeyCommands(*this, this);
    // Choosing a list leaves the input field.
    connect(m_lists, &ListNavigation::listChosen, m_input, [this] { m_input->setNewItemFieldIsFocused(false); });

    m_themeKey = m_appearance.themeKey();
    // Whoever changes the theme, the content is rebuilt once per change.
    connect(&m_appearance, &Appearance::themeChanged, this, &ScreenState::followTheme);
}

ScreenState::~ScreenState() = default;

void ScreenState::followTheme()
{
    const QString key = m_appearance.themeKey();
    if (key == m_themeKey)
        return;
    m_themeKey = key;
    m_themeRefreshId = QUuid::createUuid();
    emit themeRefreshIDChanged();
}

void ScreenState::setShowTutorial(bool show)
{
    if (show == m_showTutorial)
        return;
    m_showTutorial = show;
    emit showTutorialChanged();
}

QString ScreenState::themeRefreshID() const
{
    return ScreenContext::idText(m_themeRefreshId);
}

void ScreenState::appear()
{
    m_store->setAppColorScheme(m_appearance.isDark() ? ListItems::Dark : ListItems::Light);
    m_lists->appear();
}

void ScreenState::toggleColorScheme()
{
    m_rotateMoon = !m_rotateMoon;
    emit rotateMoonChanged();
    m_appearance.setDark(!m_appearance.isDark());
    m_store->setAppColorScheme(m_appearance.isDark() ? ListItems::Dark : ListItems::Light);
    m_haptics.lightImpact();
}

void ScreenState::chooseTheme(const QString &rawValue)
{
    m_appearance.setThemeKey(rawValue);
    followTheme();
    m_haptics.lightImpact();
}

void ScreenState::openWriteReviewPage()
{
    m_reviewOpener.openWriteReviewPage();
}

void ScreenState::openTutorial()
{
    setShowTutorial(true);
}

void ScreenState::share()
{
    m_haptics.lightImpact();
    if (const auto text = ShareText::build(*m_store, m_lists->selectedListIndex()))
        m_shareSheet->present(*text);
}

#include "moc_ScreenState.cpp"
