#include "decor/TutorialContent.h"

#include <QVariantMap>

TutorialContent::TutorialContent(QObject *parent)
    : QObject(parent)
{
}

QString TutorialContent::navigationTitle()
{
    return QStringLiteral("Tutorial");
}

QString TutorialContent::doneLabel()
{
    return QStringLiteral("Done");
}

QString TutorialContent::title()
{
    return QStringLiteral("Welcome to Murvane!");
}

QString TutorialContent::intro()
{
    return QStringLiteral("Here\u2019s a quick guide to help you get started:");
}

// \u2019 is the typographic apostrophe, \u201C and \u201D the typographic
// double quotes, \u2191 and \u2193 the up and down arrows. The straight
// quotes of sections 1, 3 and 4 are meant.
const QList<TutorialContent::Section> &TutorialContent::sections()
{
    static const QList<Section> all{
        {QStringLiteral("plus.circle"), QStringLiteral("Creating a New List"),
         QStringLiteral("Tap the \"+\" button at the top-right to create a brand new list. You can keep multiple "
                        "lists for different areas of your life.")},
        {QStringLiteral("square.and.pencil"), QStringLiteral("Renaming a List"),
         QStringLiteral("Need a better name? Tap the list\u2019s title at the top to edit it in place, then press "
                        "return to confirm.")},
        {QStringLiteral("text.badge.plus"), QStringLiteral("Adding Items"),
         QStringLiteral("Use the input bar at the bottom to add items to your selected list. Type the item\u2019s "
                        "name, then tap \"Add\" to save.")},
        {QStringLiteral("highlighter"), QStringLiteral("Editing an Existing Item"),
         QStringLiteral("To correct or rename an item, tap its text in the list. The input bar will pre-fill that "
                        "item\u2019s text. Make your changes, then tap \"Update\" to save.")},
        {QStringLiteral("pin"), QStringLiteral("Pin & Unpin"),
         QStringLiteral("Swipe an item from left to right to reveal \u201CPin.\u201D Pinned items float to the top. "
                        "Swipe again to unpin.")},
        {QStringLiteral("largecircle.fill.circle"), QStringLiteral("Mark Items as Done"),
         QStringLiteral("Tap the circle on the right to mark an item as completed. Tap again to switch it back to "
                        "\u201CTo-Do.\u201D")},
        {QStringLiteral("trash"), QStringLiteral("Delete Items"),
         QStringLiteral("Swipe any item from right to left to remove it. This is great for clearing out tasks you "
                        "no longer need.")},
        {QStringLiteral("arrow.left.and.right.circle"), QStringLiteral("Reordering Entire Lists"),
         QStringLiteral("Tap the \u201C<<\u201D or \u201C>>\u201D arrow buttons at the top to move the current list "
                        "left or right in your list header row.")},
        {QStringLiteral("arrow.up.arrow.down.circle"), QStringLiteral("Sort & Rearrange Items"),
         QStringLiteral("Use \u201CABC\u201D or \u201C\u2191\u2193\u201D at the bottom to sort items by text or "
                        "status. You can also long-press and drag items to reorder them manually.")},
        {QStringLiteral("paintbrush"), QStringLiteral("Themes & Appearance"),
         QStringLiteral("Use the Murvane menu button at the bottom to pick a theme, or toggle dark/light mode with "
                        "the moon icon.")},
        {QStringLiteral("minus.circle"), QStringLiteral("Deleting an Entire List"),
         QStringLiteral("Tap the minus button in the top bar. After confirming, the currently selected list will be "
                        "removed completely.")},
        {QStringLiteral("square.and.arrow.up"), QStringLiteral("Share a List"),
         QStringLiteral("Want to send your list to family or friends? Tap the share icon at the bottom right to "
                        "export it.")},
        {QStringLiteral("arrow.uturn.backward.circle"), QStringLiteral("Undo Actions"),
         QStringLiteral("Need to revert a deletion or list sort? Tap the arrow icon on the input bar. It restores "
                        "deleted items, whole lists, or reverts sorts.")},
        {QStringLiteral("star.bubble"), QStringLiteral("We Value Your Feedback"),
         QStringLiteral("We\u2019d love to hear from you! Use the \u201CRate Murvane!\u201D option or send us "
                        "suggestions anytime.")},
        {QStringLiteral("party.popper"), QStringLiteral("Have Fun!"),
         QStringLiteral("That\u2019s it! We hope Murvane makes your life simpler. Thank you for using it!")},
    };
    return all;
}

QVariantList TutorialContent::sectionList()
{
    QVariantList list;
    for (const Section &section : sections()) {
        list.append(QVariantMap{{QStringLiteral("icon"), section.icon},
                                {QStringLiteral("heading"), section.heading},
                                {QStringLiteral("text"), section.text}});
    }
    return list;
}
