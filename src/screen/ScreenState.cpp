#include "ScreenState.h"

#include "DisplayedItemsModel.h"
#include "app/KeyboardResponder.h"
#include "appearance/Appearance.h"
#include "platform/Haptics.h"
#include "platform/InAppShareSheet.h"
#include "platform/preferences/PreferencesStore.h"
#include "platform/ShareSheet.h"
#include "platform/WriteReviewOpener.h"
#include "views/Graphemes.h"
#include "views/ShareText.h"

#include <algorithm>

namespace {

// Durations of the header row's scroll, in milliseconds.
constexpr int kHeaderScrollOnSelect = 200;
constexpr int kHeaderScrollDefault = 350;
constexpr int kHeaderScrollToNewList = 500;
constexpr int kHeaderScrollAfterChipTap = 500;
constexpr int kHeaderScrollAfterMove = 200;
// The list move animates first; the header follows a moment later.
constexpr int kHeaderScrollDelayAfterMove = 10;

// The bullet flies out 300 points and comes back 0.35 s later.
constexpr double kBulletFlight = 300;
constexpr int kBulletReturnDelay = 350;

QString idText(const QUuid &id)
{
    return id.isNull() ? QString() : id.toString(QUuid::WithoutBraces).toUpper();
}

QUuid idFromText(const QString &text)
{
    return QUuid::fromString(text);
}

// Holds the displayed rows for the length of a list operation, so the view
// sees one change: the list as it stands once the selection has followed.
class RowsHeld
{
public:
    explicit RowsHeld(DisplayedItemsModel *model)
        : m_model(model)
    {
        m_model->holdUpdates();
    }
    ~RowsHeld() { m_model->releaseUpdates(); }
    RowsHeld(const RowsHeld &) = delete;
    RowsHeld &operator=(const RowsHeld &) = delete;

private:
    DisplayedItemsModel *m_model;
};

} // namespace

struct ScreenState::Private
{
    PreferencesStore *preferences = nullptr;
    Haptics *haptics = nullptr; // null: Haptics::standard() at the time of use
    Appearance *appearance = nullptr;
    WriteReviewOpener *reviewOpener = nullptr; // null: WriteReviewOpener::standard()
    ListItems *store = nullptr;
    KeyboardResponder *keyboard = nullptr;
    DisplayedItemsModel *displayed = nullptr;
    ShareSheet *shareSheet = nullptr;
    UndoStack undo;

    qint64 selected = PreferenceKeys::defaultSelectedListIndex;
    QString newItem;
    QUuid editingItemId;
    bool focused = false;
    bool titleEdited = false;
    bool showDefaultScreen = true;
    bool ascending = true;
    bool showDeletionConfirmation = false;
    bool rotateMoon = false;
    bool showBullet = false;
    double bulletOffset = 0;
    bool showTutorial = false;
    QUuid lastItemId;
    QUuid refreshId = QUuid::createUuid();
    QUuid themeRefreshId = QUuid::createUuid();
    QString themeKey;
    bool selectedEmpty = true;
    QHash<QUuid, double> rotations;

    Haptics &feedback() const { return haptics ? *haptics : Haptics::standard(); }
    bool validSelection() const { return selected >= 0 && selected < store->listCount(); }
    // The selected list's item with this id, by its first occurrence.
    std::optional<ListItems::Positioned> find(const QString &itemId) const
    {
        const QUuid id = idFromText(itemId);
        if (id.isNull() || !validSelection())
            return std::nullopt;
        const qsizetype p = store->positionOf(selected, id);
        if (p < 0)
            return std::nullopt;
        return ListItems::Positioned{p, store->items()[selected][p]};
    }
    QList<ListItems::Positioned> displayOrder() const
    {
        ListItems::Partition parts = store->partition(selected);
        parts.pinned.append(std::move(parts.unpinned));
        return std::move(parts.pinned);
    }
};

ScreenState::ScreenState(QObject *parent)
    : ScreenState(PreferencesStore::standard(), Haptics::standard(), Services{}, parent)
{
    // The app may install its haptics after the screen is built.
    d->haptics = nullptr;
}

ScreenState::ScreenState(PreferencesStore &preferences, Haptics &haptics, QObject *parent)
    : ScreenState(preferences, haptics, Services{}, parent)
{
}

ScreenState::ScreenState(PreferencesStore &preferences, Haptics &haptics, const Services &services,
                         QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    d->preferences = &preferences;
    d->haptics = &haptics;
    d->appearance = services.appearance ? services.appearance : Appearance::instance();
    d->reviewOpener = services.reviewOpener;
    d->store = new ListItems(preferences, this);
    d->keyboard = new KeyboardResponder(this);
    d->shareSheet = services.shareSheet ? services.shareSheet : new InAppShareSheet(this);
    d->selected = preferences.integer(PreferenceKeys::selectedListIndex).value_or(PreferenceKeys::defaultSelectedListIndex);
    d->displayed = new DisplayedItemsModel(d->store, this);
    d->displayed->setListIndex(d->selected);
    d->selectedEmpty = d->store->itemCount(d->selected) == 0;
    d->themeKey = d->appearance->themeKey();

    connect(d->store, &ListItems::listNamesChanged, this, [this] {
        emit currentListNameChanged();
        emit selectionOrListsChanged();
    });
    auto updateEmpty = [this] {
        const bool empty = d->store->itemCount(d->selected) == 0;
        if (empty == d->selectedEmpty)
            return;
        d->selectedEmpty = empty;
        emit isSelectedListEmptyChanged();
    };
    connect(d->store, &ListItems::listsRearranged, this, updateEmpty);
    connect(d->store, &ListItems::listChanged, this, [this, updateEmpty](qint64 listIndex) {
        if (listIndex == d->selected)
            updateEmpty();
    });
    connect(this, &ScreenState::selectedListIndexChanged, this, updateEmpty);
    // Whoever changes the theme, the content is rebuilt once per change.
    connect(d->appearance, &Appearance::themeChanged, this, &ScreenState::followTheme);
}

void ScreenState::followTheme()
{
    const QString key = d->appearance->themeKey();
    if (key == d->themeKey)
        return;
    d->themeKey = key;
    d->themeRefreshId = QUuid::createUuid();
    emit themeRefreshIDChanged();
}

ScreenState::~ScreenState() = default;

ListItems *ScreenState::store() const { return d->store; }
KeyboardResponder *ScreenState::keyboardResponder() const { return d->keyboard; }
DisplayedItemsModel *ScreenState::displayedItems() const { return d->displayed; }
ShareSheet *ScreenState::shareSheet() const { return d->shareSheet; }
UndoStack &ScreenState::undoStack() { return d->undo; }

// ---- selection ------------------------------------------------------------

qint64 ScreenState::selectedListIndex() const { return d->selected; }

void ScreenState::setSelectedListIndex(qint64 index)
{
    if (index == d->selected)
        return;
    d->selected = index;
    d->preferences->setInteger(PreferenceKeys::selectedListIndex, index);
    d->displayed->setListIndex(index);
    emit selectedListIndexChanged();
    emit currentListNameChanged();
    emit selectionOrListsChanged();
    if (d->validSelection() && d->store->itemCount(index) == 0 && !d->showDefaultScreen) {
        d->showDefaultScreen = true;
        emit showdefaultScreenChanged();
    }
    emit scrollHeaderToSelected(kHeaderScrollOnSelect);
}

QString ScreenState::currentListName() const { return d->store->listName(d->selected); }
bool ScreenState::canMoveListLeft() const { return d->selected >= 1; }
bool ScreenState::canMoveListRight() const { return d->selected < qint64(d->store->listCount()) - 1; }
bool ScreenState::isSelectedListEmpty() const { return d->selectedEmpty; }

// ---- view state -----------------------------------------------------------

QString ScreenState::newItem() const { return d->newItem; }

void ScreenState::setNewItem(const QString &text)
{
    if (text == d->newItem)
        return;
    d->newItem = text;
    emit newItemChanged();
}

QString ScreenState::editingItemId() const { return idText(d->editingItemId); }
bool ScreenState::newItemFieldIsFocused() const { return d->focused; }

void ScreenState::setNewItemFieldIsFocused(bool focused)
{
    if (focused == d->focused)
        return;
    d->focused = focused;
    emit newItemFieldIsFocusedChanged();
    // Losing focus ends editing, however it was lost.
    if (!focused)
        onEditingEnded();
}

bool ScreenState::titleEdited() const { return d->titleEdited; }
bool ScreenState::showdefaultScreen() const { return d->showDefaultScreen; }
bool ScreenState::isAscending() const { return d->ascending; }
bool ScreenState::showDeletionConfirmation() const { return d->showDeletionConfirmation; }

void ScreenState::setShowDeletionConfirmation(bool show)
{
    if (show == d->showDeletionConfirmation)
        return;
    d->showDeletionConfirmation = show;
    emit showDeletionConfirmationChanged();
}

bool ScreenState::rotateMoon() const { return d->rotateMoon; }
bool ScreenState::showBullet() const { return d->showBullet; }
double ScreenState::bulletOffset() const { return d->bulletOffset; }
bool ScreenState::showTutorial() const { return d->showTutorial; }

void ScreenState::setShowTutorial(bool show)
{
    if (show == d->showTutorial)
        return;
    d->showTutorial = show;
    emit showTutorialChanged();
}

QString ScreenState::lastItemId() const { return idText(d->lastItemId); }
QString ScreenState::refreshID() const { return idText(d->refreshId); }
QString ScreenState::themeRefreshID() const { return idText(d->themeRefreshId); }
bool ScreenState::canUndo() const { return !d->undo.isEmpty(); }

double ScreenState::rotationAngle(const QString &itemId) const
{
    return d->rotations.value(idFromText(itemId), 0.0);
}

int ScreenState::titlePointSize(const QString &title)
{
    const qsizetype n = Graphemes::count(title);
    if (n <= 11)
        return 21;
    if (n <= 14)
        return 20;
    return 18;
}

// ---- start-up ---------------------------------------------------------------

void ScreenState::onAppear()
{
    d->store->setAppColorScheme(d->appearance->isDark() ? ListItems::Dark : ListItems::Light);
    setSelectedListIndex(d->store->clampSelection(d->selected));
    emit scrollHeaderToSelected(0);
}

// ---- input bar --------------------------------------------------------------

void ScreenState::addOrUpdateAction()
{
    d->feedback().lightImpact();
    const QString text = d->newItem.trimmed();
    if (d->editingItemId.isNull()) {
        if (!text.isEmpty()) {
            const ListItem item = ListItem::create(text);
            d->store->addItem(item, d->selected);
            d->lastItemId = item.id;
            emit lastItemIdChanged();
            emit scrollToItem(idText(item.id));
            setNewItem(QString());
        }
        // The bullet flies even when nothing was added.
        d->showBullet = true;
        d->bulletOffset = kBulletFlight;
        emit bulletChanged();
        QTimer::singleShot(kBulletReturnDelay, this, [this] {
            d->showBullet = false;
            d->bulletOffset = 0;
            emit bulletChanged();
        });
    } else if (!text.isEmpty()) {
        d->store->updateItemText(d->editingItemId, d->selected, text);
        setNewItem(QString());
        d->editingItemId = QUuid();
        emit editingItemIdChanged();
        setNewItemFieldIsFocused(false);
        d->refreshId = QUuid::createUuid();
        emit refreshIDChanged();
    }
    if (!d->editingItemId.isNull()) {
        d->editingItemId = QUuid();
        emit editingItemIdChanged();
    }
    setNewItem(QString());
}

void ScreenState::undoAction()
{
    d->feedback().lightImpact();
    if (d->undo.isEmpty())
        return;
    UndoStack::Outcome outcome;
    {
        RowsHeld held(d->displayed);
        // The lists and the selection are saved together.
        PreferencesStore::Transaction together(*d->preferences);
        outcome = d->undo.undo(*d->store);
        if (outcome.selectList)
            setSelectedListIndex(d->store->clampSelection(*outcome.selectList));
    }
    emit undoStackChanged();
    if (outcome.selectList)
        emit scrollHeaderToSelected(kHeaderScrollDefault);
}

void ScreenState::onEditingEnded()
{
    if (d->validSelection() && d->store->itemCount(d->selected) == 0 && !d->showDefaultScreen) {
        d->showDefaultScreen = true;
        emit showdefaultScreenChanged();
    }
    setNewItem(QString());
    if (!d->editingItemId.isNull()) {
        d->editingItemId = QUuid();
        emit editingItemIdChanged();
    }
}

// ---- item rows ----------------------------------------------------------------

void ScreenState::onTapDone(const QString &itemId)
{
    const auto found = d->find(itemId);
    if (!found)
        return;
    const bool wasDone = found->item.isDone();
    // The marker turns another half turn on every tap; it never turns back.
    const double angle = d->rotations.value(found->item.id, 0.0) + 180.0;
    d->rotations.insert(found->item.id, angle);
    d->displayed->setRotationAngle(found->item.id, angle);
    emit rotationChanged(idText(found->item.id), angle);
    if (wasDone)
        d->feedback().lightImpact();
    else
        d->feedback().successNotification();
}

void ScreenState::toggleState(const QString &itemId)
{
    const auto found = d->find(itemId);
    if (!found)
        return;
    d->store->setState(found->item.isDone() ? ListItemState::toDo : ListItemState::done, found->item.id,
                       d->selected);
}

void ScreenState::editingAction(const QString &itemId)
{
    const auto found = d->find(itemId);
    if (!found)
        return;
    if (d->editingItemId != found->item.id) {
        d->editingItemId = found->item.id;
        emit editingItemIdChanged();
    }
    setNewItem(found->item.text);
    setNewItemFieldIsFocused(true);
}

void ScreenState::pinAction(const QString &itemId)
{
    const auto found = d->find(itemId);
    if (!found)
        return;
    d->store->setPinned(!found->item.isPinned, found->item.id, d->selected);
    d->feedback().lightImpact();
}

void ScreenState::deleteAction(const QString &itemId)
{
    const auto found = d->find(itemId);
    if (!found)
        return;
    d->undo.push(UndoActions::DeleteItem{d->selected, found->position, found->item});
    d->store->deleteItems({found->position}, d->selected);
    emit undoStackChanged();
    d->feedback().lightImpact();
}

void ScreenState::deleteDisplayedRows(const QList<int> &offsets)
{
    QList<int> ascending = offsets;
    std::sort(ascending.begin(), ascending.end());
    ascending.erase(std::unique(ascending.begin(), ascending.end()), ascending.end());
    bool pushed = false;
    for (int offset : ascending) {
        // Each offset is read against the rows as they stand after the
        // deletions before it. One that has run past the end is skipped.
        const QList<ListItems::Positioned> rows = d->displayOrder();
        if (offset < 0 || offset >= rows.size() || !d->validSelection())
            continue;
        const ListItem item = rows[offset].item;
        const qsizetype p = d->store->positionOf(d->selected, item.id);
        if (p < 0)
            continue;
        d->undo.push(UndoActions::DeleteItem{d->selected, p, item});
        d->store->deleteItems({p}, d->selected);
        pushed = true;
    }
    if (pushed)
        emit undoStackChanged();
}

void ScreenState::moveDisplayedRow(int from, int destination)
{
    if (!d->validSelection())
        return;
    const QList<ListItems::Positioned> rows = d->displayOrder();
    const int n = int(rows.size());
    if (from < 0 || from >= n || destination < 0 || destination > n)
        return;
    if (destination == from || destination == from + 1)
        return; // dropped where it was
    // The store moves by stored position and keeps pinned items at the head,
    // where the rows show them. A list that is not in that order (an undo
    // may put an item back inside the other block) is first stored in the
    // order shown, which the user cannot tell apart, so the drop lands
    // where it was aimed.
    bool inDisplayOrder = true;
    for (int k = 0; k < n && inDisplayOrder; ++k)
        inDisplayOrder = rows[k].position == k;
    if (!inDisplayOrder) {
        ItemList shown;
        shown.reserve(n);
        for (const ListItems::Positioned &row : rows)
            shown.append(row.item);
        d->store->replaceList(d->selected, shown);
    }
    d->store->moveItems({from}, destination, d->selected);
}

// ---- lists ------------------------------------------------------------------

void ScreenState::moveListLeft()
{
    const qint64 from = d->selected;
    const qint64 count = d->store->listCount();
    if (from >= 0 && from < count && from - 1 >= 0 && from - 1 < count) {
        {
            RowsHeld held(d->displayed);
            // The lists and the selection are saved together.
            PreferencesStore::Transaction together(*d->preferences);
            d->store->moveList(from, from - 1);
            setSelectedListIndex(from - 1);
            setSelectedListIndex(d->store->clampSelection(d->selected));
        }
        QTimer::singleShot(kHeaderScrollDelayAfterMove, this,
                           [this] { emit scrollHeaderToSelected(kHeaderScrollAfterMove); });
    }
    d->feedback().successNotification();
}

void ScreenState::moveListRight()
{
    const qint64 from = d->selected;
    const qint64 count = d->store->listCount();
    if (from >= 0 && from < count && from + 1 >= 0 && from + 1 < count) {
        {
            RowsHeld held(d->displayed);
            // The lists and the selection are saved together.
            PreferencesStore::Transaction together(*d->preferences);
            d->store->moveList(from, from + 1);
            setSelectedListIndex(from + 1);
            setSelectedListIndex(d->store->clampSelection(d->selected));
        }
        QTimer::singleShot(kHeaderScrollDelayAfterMove, this,
                           [this] { emit scrollHeaderToSelected(kHeaderScrollAfterMove); });
    }
    d->feedback().successNotification();
}

void ScreenState::requestDeleteList()
{
    setShowDeletionConfirmation(true);
    d->feedback().successNotification();
}

void ScreenState::confirmDeleteList()
{
    setShowDeletionConfirmation(false);
    // The last list stays, whatever is asked.
    if (d->store->listCount() < 2 || !d->validSelection())
        return;
    const qint64 index = d->selected;
    d->undo.push(UndoActions::DeleteList{index, d->store->listNames()[index], d->store->items()[index]});
    {
        RowsHeld held(d->displayed);
        // The lists and the selection are saved together.
        PreferencesStore::Transaction together(*d->preferences);
        d->store->deleteList(index);
        setSelectedListIndex(d->store->clampSelection(d->selected));
    }
    emit undoStackChanged();
    emit scrollHeaderToSelected(kHeaderScrollDefault);
}

void ScreenState::newList()
{
    {
        RowsHeld held(d->displayed);
        // The lists and the selection are saved together.
        PreferencesStore::Transaction together(*d->preferences);
        d->store->addList();
        setSelectedListIndex(d->store->clampSelection(0));
    }
    emit scrollHeaderToSelected(kHeaderScrollToNewList);
    d->feedback().successNotification();
}

void ScreenState::selectList(qint64 index)
{
    d->feedback().lightImpact();
    setSelectedListIndex(index);
    setNewItemFieldIsFocused(false);
    emit scrollHeaderToSelected(kHeaderScrollAfterChipTap);
}

void ScreenState::onTitleChange(const QString &text)
{
    if (d->validSelection())
        d->store->renameList(d->selected, text);
}

void ScreenState::onTitleEditingChanged(bool editing)
{
    if (editing == d->titleEdited)
        return;
    d->titleEdited = editing;
    emit titleEditedChanged();
}

void ScreenState::onTitleCommit()
{
    onTitleEditingChanged(false);
}

// ---- bottom toolbar ---------------------------------------------------------

void ScreenState::onSortToggle()
{
    sortSelected(false);
}

void ScreenState::onSortByText()
{
    sortSelected(true);
}

void ScreenState::sortSelected(bool byText)
{
    if (!d->validSelection())
        return;
    const ItemList before = d->store->items()[d->selected];
    d->store->sortItems(d->selected, d->ascending, byText);
    // One direction for both sorts: a text sort after a status sort runs the other way.
    d->ascending = !d->ascending;
    emit isAscendingChanged();
    d->feedback().lightImpact();
    d->undo.push(UndoActions::SortList{d->selected, before});
    emit undoStackChanged();
}

void ScreenState::toggleColorScheme()
{
    d->rotateMoon = !d->rotateMoon;
    emit rotateMoonChanged();
    d->appearance->setDark(!d->appearance->isDark());
    d->store->setAppColorScheme(d->appearance->isDark() ? ListItems::Dark : ListItems::Light);
    d->feedback().lightImpact();
}

void ScreenState::resetDots()
{
    const ItemList before = d->store->itemsAt(d->selected);
    d->store->setAllStates(d->selected, ListItemState::toDo);
    d->feedback().lightImpact();
    // Pushed whatever the selection, with an empty copy for no list.
    d->undo.push(UndoActions::MarkAll{d->selected, before});
    emit undoStackChanged();
}

void ScreenState::chooseTheme(const QString &rawValue)
{
    d->appearance->setThemeKey(rawValue);
    followTheme();
    d->feedback().lightImpact();
}

void ScreenState::openWriteReviewPage()
{
    (d->reviewOpener ? *d->reviewOpener : WriteReviewOpener::standard()).openWriteReviewPage();
}

void ScreenState::onShowTutorial()
{
    setShowTutorial(true);
}

void ScreenState::share()
{
    d->feedback().lightImpact();
    if (const auto text = ShareText::build(*d->store, d->selected))
        d->shareSheet->present(*text);
}

#include "moc_ScreenState.cpp"
