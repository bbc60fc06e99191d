#include "decor/TutorialContent.h"

#include <QTest>

class TestTutorialContent : public QObject
{
    Q_OBJECT

private slots:
    void textsAreExact()
    {
        QCOMPARE(TutorialContent::navigationTitle(), u"Tutorial");
        QCOMPARE(TutorialContent::doneLabel(), u"Done");
        QCOMPARE(TutorialContent::title(), u"Welcome to Murvane!");
        QCOMPARE(TutorialContent::intro(), u"Here’s a quick guide to help you get started:");
    }

    // Every section; straight quotes in 1, 3 and 4, typographic ones elsewhere.
    void sectionsAreExact_data()
    {
        QTest::addColumn<QString>("icon");
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QString>("text");
        const QStringList table[] = {
            {"plus.circle", "Creating a New List", "Tap the \"+\" button at the top-right to create a brand new list. You can keep multiple lists for different areas of your life."},
            {"square.and.pencil", "Renaming a List", "Need a better name? Tap the list’s title at the top to edit it in place, then press return to confirm."},
            {"text.badge.plus", "Adding Items", "Use the input bar at the bottom to add items to your selected list. Type the item’s name, then tap \"Add\" to save."},
            {"highlighter", "Editing an Existing Item", "To correct or rename an item, tap its text in the list. The input bar will pre-fill that item’s text. Make your changes, then tap \"Update\" to save."},
            {"pin", "Pin & Unpin", "Swipe an item from left to right to reveal “Pin.” Pinned items float to the top. Swipe again to unpin."},
            {"largecircle.fill.circle", "Mark Items as Done", "Tap the circle on the right to mark an item as completed. Tap again to switch it back to “To-Do.”"},
            {"trash", "Delete Items", "Swipe any item from right to left to remove it. This is great for clearing out tasks you no longer need."},
            {"arrow.left.and.right.circle", "Reordering Entire Lists", "Tap the “<<” or “>>” arrow buttons at the top to move the current list left or right in your list header row."},
            {"arrow.up.arrow.down.circle", "Sort & Rearrange Items", "Use “ABC” or “↑↓” at the bottom to sort items by text or status. You can also long-press and drag items to reorder them manually."},
            {"paintbrush", "Themes & Appearance", "Use the Murvane menu button at the bottom to pick a theme, or toggle dark/light mode with the moon icon."},
            {"minus.circle", "Deleting an Entire List", "Tap the minus button in the top bar. After confirming, the currently selected list will be removed completely."},
            {"square.and.arrow.up", "Share a List", "Want to send your list to family or friends? Tap the share icon at the bottom right to export it."},
            {"arrow.uturn.backward.circle", "Undo Actions", "Need to revert a deletion or list sort? Tap the arrow icon on the input bar. It restores deleted items, whole lists, or reverts sorts."},
            {"star.bubble", "We Value Your Feedback", "We’d love to hear from you! Use the “Rate Murvane!” option or send us suggestions anytime."},
            {"party.popper", "Have Fun!", "That’s it! We hope Murvane makes your life simpler. Thank you for using it!"},
        };
        QCOMPARE(TutorialContent::sections().size(), qsizetype(std::size(table)));
        for (int i = 0; i < int(std::size(table)); ++i)
            QTest::addRow("%d", i + 1) << table[i][0] << table[i][1] << table[i][2];
    }
    void sectionsAreExact()
    {
        QFETCH(QString, icon);
        QFETCH(QString, heading);
        QFETCH(QString, text);
        const TutorialContent::Section &section = TutorialContent::sections().at(QString(QTest::currentDataTag()).toInt() - 1);
        QCOMPARE(section.icon, icon);
        QCOMPARE(section.heading, heading);
        QCOMPARE(section.text, text);
    }
};

QTEST_GUILESS_MAIN(TestTutorialContent)
#include "tst_tutorialcontent.moc"
