// The table of commands by itself, without a window.

#include "app/Commands.h"

#include "app/toolbar/IconArt.h"

#include <QKeySequence>
#include <QSet>

#include <gtest/gtest.h>

namespace ocuva {

namespace {

bool isCommand(const Command& row) {
    return row.entry != MenuEntry::Menu && row.entry != MenuEntry::Separator;
}

} // namespace

TEST(TableOfCommands, GivesEveryCommandATipAndAnExplanation) {
    for (const Command& row : commands()) {
        EXPECT_EQ(*row.tip != '\0', isCommand(row)) << row.name;
        EXPECT_EQ(*row.explanation != '\0', isCommand(row)) << row.name;
    }
}

TEST(TableOfCommands, UsesNoNameAndNoKeyTwice) {
    QSet<QString> names;
    QSet<QString> keys;
    for (const Command& row : commands()) {
        EXPECT_FALSE(names.contains(QString::fromLatin1(row.name))) << row.name;
        names.insert(QString::fromLatin1(row.name));
        const QString key = QKeySequence(QString::fromLatin1(row.key)).toString();
        EXPECT_EQ(key.isEmpty(), *row.key == '\0') << row.name << ": " << row.key;
        EXPECT_TRUE(key.isEmpty() || !keys.contains(key)) << row.name << ": " << row.key;
        keys.insert(key);
    }
}

TEST(TableOfCommands, LeadsFromEveryButtonToItsCommandAndHasADrawingForIt) {
    for (const ToolbarButton& button : commandButtons()) {
        const Command* const found = commandOfButton(button.key);
        ASSERT_EQ(found == nullptr, button.style == ButtonStyle::Separator) << button.key.data();
        if (found != nullptr) {
            EXPECT_EQ(found->button.key, button.key);
            EXPECT_TRUE(iconKeys().contains(button.key)) << button.key.data();
        }
    }
}

TEST(TableOfCommands, KnowsNoOtherNames) {
    EXPECT_STREQ(command("mnuAcq").name, "mnuAcq");
    EXPECT_THROW((void)command("mnuPrint"), std::out_of_range);
    EXPECT_EQ(commandOfButton(QStringLiteral("Print")), nullptr);
    EXPECT_EQ(commandOfButton(QString()), nullptr);
}

} // namespace ocuva
