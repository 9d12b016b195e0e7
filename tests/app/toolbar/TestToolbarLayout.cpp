// The layout as a value, its text, and the store that keeps it.

#include "ToolbarRig.h"
#include "app/toolbar/ToolbarLayout.h"
#include "app/toolbar/ToolbarLayoutStore.h"
#include "tests/support/OwnRegistry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

using namespace ocuva;

namespace {

std::string restored(const char* from) {
    const auto layout = ToolbarLayout::fromText(text(from), commandButtons());
    return layout ? layout->text().toStdString() : "refused";
}

} // namespace

TEST(ToolbarLayout, TheDesignHasAllButtonsAndFourSeparatorsInOrder) {
    EXPECT_EQ(ToolbarLayout::design(commandButtons()).text().toStdString(), designText);
    EXPECT_TRUE(ToolbarLayout::design(commandButtons()).available().isEmpty());
}

TEST(ToolbarLayout, ItsTextReadsBackAsTheSameLayout) {
    EXPECT_EQ(restored(designText), designText);
    EXPECT_EQ(restored("Setup,Sep3,Save"), "Setup,Sep3,Save");
    EXPECT_EQ(restored("Setup,Sep99"), "Setup,Sep99");
}

TEST(ToolbarLayout, UnknownAndRepeatedKeysAreLeftOut) {
    EXPECT_EQ(restored("Print,Setup,save,Setup,,Sep2,Sep2,Acq"), "Setup,Sep2,Acq");
    EXPECT_EQ(restored(" Save ,\tGrid\n"), "Save,Grid");
    EXPECT_EQ(restored("Save,Sep,Sep0,Sep01,Sep+1,Sep100,Sep-1,Sep 1,Sep1x"), "Save");
}

TEST(ToolbarLayout, ATextThatNamesNoButtonIsRefused) {
    for (const char* const nothing : {"", ",,,", "rubbish", "Sep1,Sep2", "\x01\x02;Save;Acq"}) {
        EXPECT_EQ(restored(nothing), "refused") << nothing;
    }
}

TEST(ToolbarLayout, AButtonTakenOffBecomesAvailableInDesignOrder) {
    ToolbarLayout layout = ToolbarLayout::design(commandButtons());
    EXPECT_TRUE(layout.remove(layout.indexOf(text("Setup"))));
    EXPECT_TRUE(layout.remove(layout.indexOf(text("Acq"))));
    EXPECT_TRUE(layout.remove(layout.indexOf(text("Sep1"))));
    EXPECT_EQ(layout.available(), QStringList({text("Acq"), text("Setup")}));
}

TEST(ToolbarLayout, AnItemMovesToTheGapItIsSentTo) {
    const auto after = [](int index, int gap) {
        auto layout = *ToolbarLayout::fromText(text("Save,Acq,Zoom"), commandButtons());
        const bool moved = layout.move(index, gap);
        return (moved ? "" : "stays ") + layout.text().toStdString();
    };
    EXPECT_EQ(after(0, 3), "Acq,Zoom,Save");
    EXPECT_EQ(after(0, 2), "Acq,Save,Zoom");
    EXPECT_EQ(after(2, 0), "Zoom,Save,Acq");
    EXPECT_EQ(after(1, 1), "stays Save,Acq,Zoom");
    EXPECT_EQ(after(1, 2), "stays Save,Acq,Zoom");
    EXPECT_EQ(after(3, 0), "stays Save,Acq,Zoom");
    EXPECT_EQ(after(-1, 0), "stays Save,Acq,Zoom");
    EXPECT_EQ(after(0, 4), "stays Save,Acq,Zoom");
}

TEST(ToolbarLayout, AButtonIsThereOnceButSeparatorsAsOftenAsWanted) {
    auto layout = *ToolbarLayout::fromText(text("Save,Sep2"), commandButtons());
    EXPECT_FALSE(layout.insertButton(0, text("Save")));
    EXPECT_FALSE(layout.insertButton(0, text("Nonsense")));
    EXPECT_FALSE(layout.insertButton(0, text("Sep4")));
    EXPECT_TRUE(layout.insertButton(-5, text("Grid")));
    EXPECT_TRUE(layout.insertSeparator(1));
    EXPECT_TRUE(layout.insertSeparator(1000));
    EXPECT_EQ(layout.text().toStdString(), "Grid,Sep1,Save,Sep2,Sep3");
    int added = 0;
    while (added < 1000 && layout.insertSeparator(0)) {
        ++added;
    }
    EXPECT_EQ(added, maxSeparators - 3);
    EXPECT_EQ(restored(layout.text().toLatin1().constData()), layout.text().toStdString());
}

TEST(ToolbarLayout, RemovingAMissingButtonIsRefused) {
    ToolbarLayout layout = ToolbarLayout::design(commandButtons());
    EXPECT_FALSE(layout.remove(-1));
    EXPECT_FALSE(layout.remove(layout.size()));
    EXPECT_EQ(layout, ToolbarLayout::design(commandButtons()));
}

TEST(ToolbarLayoutStore, ASavedLayoutIsLoadedByTheNextRun) {
    emptyRegistry();
    EXPECT_EQ(ToolbarLayoutStore().load(), QString());
    EXPECT_TRUE(ToolbarLayoutStore().save(text("Setup,Sep1,Save")));
    EXPECT_EQ(ToolbarLayoutStore().load(), text("Setup,Sep1,Save"));
}

TEST(ToolbarLayoutStore, TheLayoutIsStoredUnderTheRegistryKeysNames) {
    ASSERT_TRUE(ToolbarLayoutStore().save(text("Grid")));
    const QSettings key(QSettings::NativeFormat, QSettings::UserScope, text("Brem"), text("Ocuva"));
    EXPECT_EQ(key.value(text("CustomToolbar/MainToolbar")).toString(), text("Grid"));
    EXPECT_EQ(key.childGroups().count(text("CustomToolbar")), 1);
}

TEST(ToolbarLayoutStore, TitlesKeepTheirLayoutsApart) {
    ASSERT_TRUE(ToolbarLayoutStore(text("One")).save(text("Grid")));
    EXPECT_EQ(ToolbarLayoutStore(text("Two")).load(), QString());
}

#ifndef _WIN32 // a registry is no file that can be blocked or edited by hand

TEST(ToolbarLayoutStore, AWriteThatFailsIsReported) {
    const QString path =
        QSettings(QSettings::NativeFormat, QSettings::UserScope, text("Brem"), text("Unwritable")).fileName();
    ASSERT_TRUE(QDir().mkpath(path)); // a folder in the file's place
    EXPECT_FALSE(ToolbarLayoutStore(text("Unwritable")).save(text("Grid")));
}

TEST(ToolbarLayoutStore, AFileEditedByHandWithoutQuotesIsUnderstood) {
    const ToolbarLayoutStore edited(text("Edited"));
    ASSERT_TRUE(edited.save(text("Save")));
    const QString path =
        QSettings(QSettings::NativeFormat, QSettings::UserScope, text("Brem"), text("Edited")).fileName();
    // A title of its own, so that no copy in memory answers for the file.
    QFile file(
        QFileInfo(path).dir().filePath(QFileInfo(path).fileName().replace(text("Edited"), text("ByHand"))));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[CustomToolbar]\nMainToolbar=Setup, Sep1, Save\n");
    file.close();
    const auto layout = ToolbarLayout::fromText(ToolbarLayoutStore(text("ByHand")).load(), commandButtons());
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->text().toStdString(), "Setup,Sep1,Save");
}

#endif
