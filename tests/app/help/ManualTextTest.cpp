#include "app/help/ManualText.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace ocuva {

namespace {

using testing::HasSubstr;

void write(const QDir& folder, const char* name, const char* text) {
    QFile file(folder.filePath(QString::fromLatin1(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

} // namespace

TEST(ManualText, IsTheManualThenTheKeysThenTheChapterForTrainers) {
    const QTemporaryDir place;
    const QDir folder(place.path());
    write(folder, "manual.md", "# Manual\n");
    write(folder, "training.md", "# Lessons\n");
    const QString text = helpText(folder, {});
    EXPECT_LT(text.indexOf(QStringLiteral("# Manual")), text.indexOf(QStringLiteral("# Keys")));
    EXPECT_LT(text.indexOf(QStringLiteral("# Keys")), text.indexOf(QStringLiteral("# Lessons")));
}

TEST(ManualText, SaysWhichPageIsMissingAndHasTheOthers) {
    const QTemporaryDir place;
    const QDir folder(place.path());
    write(folder, "training.md", "# Lessons\n");
    const std::string text = helpText(folder, {}).toStdString();
    EXPECT_THAT(text, HasSubstr("manual.md` cannot be read"));
    EXPECT_THAT(text, HasSubstr("# Keys"));
    EXPECT_THAT(text, HasSubstr("# Lessons"));
}

TEST(ManualText, HasAnIntactRowForEachKey) {
    const std::string text =
        keysPage({{QStringLiteral("F7"), QStringLiteral("Live"), QStringLiteral("View")},
                  {QStringLiteral("Ctrl+|"), QStringLiteral("Bar"), QStringLiteral("File")}})
            .toStdString();
    EXPECT_THAT(text, HasSubstr("| **F7** | Live | View |\n"));
    EXPECT_THAT(text, HasSubstr("| **Ctrl+\\|** | Bar | File |\n"));
}

TEST(ManualText, IsInTheShareFolderNextToTheProgramsFolder) {
#ifdef _WIN32
    const char* const place = "/opt/lab/bin/manual";
#else
    const char* const place = "/opt/lab/share/ocuva/manual";
#endif
    EXPECT_EQ(manualFolder(QStringLiteral("/opt/lab/bin")).path().toStdString(), place);
}

} // namespace ocuva
