#include "app/PackReport.h"

#include "tests/support/Pattern.h"
#include "tests/support/WindowRig.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace ocuva {

namespace {

/// A window with a data folder whose files can be packed.
struct PackReportCommand : WindowRig {
    QTemporaryDir data;
    QTemporaryDir target;
    QStringList suggested;

    PackReportCommand() {
        QFile log(data.filePath(QStringLiteral("tarn.log")));
        EXPECT_TRUE(log.open(QIODevice::WriteOnly));
        log.write("a line\n");
        report = {data.path().toStdU16String(), Keeper::program, QStringLiteral("stub"), "-client", {}};
        start("-client");
    }
    void packAs(const QString& name) {
        window().chooseReport = [this, name](const QString& suggestion) {
            suggested << suggestion;
            return name;
        };
        action("mnuPackReport")->trigger();
    }
};

} // namespace

TEST_F(PackReportCommand, SuggestsADatedNamePacksIntoTheChosenFileAndSaysWhereItIs) {
    const QString name = target.filePath(QStringLiteral("a.zip"));
    packAs(name);
    EXPECT_THAT(QFileInfo(suggested.value(0)).fileName().toStdString(),
                HasForm("ocuva-report-[0-9]{8}-[0-9]{4}"));
    EXPECT_GT(QFileInfo(name).size(), 0);
    EXPECT_THAT(child<QWidget>("Info")->toolTip().toStdString(),
                testing::HasSubstr("Report saved: '" + name.toStdString() + "'"));
    EXPECT_EQ(host.callsOf("TarnGetUniqueObjectKey").size(), 1U);
    EXPECT_THAT(host.calls,
                testing::Contains(testing::HasSubstr("Pack report: '" + name.toStdString() + "'")));
}

TEST_F(PackReportCommand, ShowsThatItIsBusyMeanwhileAndNoLonger) {
    std::string said;
    host.onCall = [&](const std::string& name) {
        if (name == "TarnGetUniqueObjectKey" && QGuiApplication::overrideCursor() != nullptr) {
            said = panel("Info");
        }
    };
    packAs(target.filePath(QStringLiteral("a.zip")));
    EXPECT_EQ(said, "Packing the report…");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_THAT(panel("Info"), testing::HasSubstr("Report saved"));
}

TEST_F(PackReportCommand, BeginsTheNextTimeInTheFolderChosenLast) {
    packAs(target.filePath(QStringLiteral("a.zip")));
    packAs({});
    EXPECT_EQ(QFileInfo(suggested.value(1)).path(), target.path());
}

TEST_F(PackReportCommand, DoesNothingWhenTheOperatorCancels) {
    host.calls.clear();
    packAs({});
    EXPECT_THAT(host.calls, testing::IsEmpty());
}

TEST_F(PackReportCommand, ThatFailsIsLoggedWithTheReasonAndLeavesNoFile) {
    window().hide(); // nobody is there to answer a box
    packAs(target.filePath(QStringLiteral("no/a.zip")));
    EXPECT_THAT(host.calls, testing::Contains(testing::HasSubstr("could not be saved: ")));
    EXPECT_TRUE(QDir(target.path()).isEmpty());
}

TEST_F(PackReportCommand, ContainsVersionsHostAndOnlyTheProgramsEnvironmentVariables) {
    qputenv("OCUVA_OF_THIS_TEST", "ours");
    qputenv("SECRET_OF_THIS_TEST", "theirs");
    const std::string text = versionsText(window(), report, "KEY-7");
    qunsetenv("OCUVA_OF_THIS_TEST");
    qunsetenv("SECRET_OF_THIS_TEST");
    for (const char* line :
         {"report: KEY-7\n", "program: Ocuva ", "Qt: 6.", "system: ", "host: stub\n",
          "screen in use: ", "palette: ", "command line: -client\n", "trace: none is written\n",
          "log and settings: in this report\n", "OCUVA_OF_THIS_TEST: ours\n"}) {
        EXPECT_THAT(text, testing::HasSubstr(line));
    }
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("SECRET")));
    ReportSurroundings libraries = report;
    libraries.keeper = Keeper::hostLibraries;
    EXPECT_THAT(versionsText(window(), libraries, "KEY-7"),
                testing::HasSubstr("log and settings: kept by the host's libraries, not in this report\n"));
}

} // namespace ocuva
