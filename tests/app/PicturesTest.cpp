#include "app/Pictures.h"

#include "pictures/PictureDescription.h"
#include "pictures/PictureFile.h"
#include "pictures/TiffFile.h"
#include "tests/support/PictureSamples.h"
#include "tests/support/WindowRig.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

using namespace ocuva;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const CalibrationPoints live{true, {{{0, 0, 100, 200, 3}, {10000, 10000, 740, 680, 3}, {}}}};
const CalibrationPoints storedPoints{true, {{{0, 0, -320, 240, 0}, {10000, 10000, 320, -240, 0}, {}}}};

/// A host whose board writes a picture when it is asked for one, and an operator who chooses files.
struct PicturesOnTheWindow : WindowRig {
    QTemporaryDir folder;
    QImage camera = sampleImage(768, 576, QImage::Format_Grayscale8);
    QImage other = sampleImage(120, 90, QImage::Format_RGB888);
    QString chosen; // empty: cancelled
    QString askedIn;

    void SetUp() override { begin(); }
    void begin() {
        host.position = {{axisX, -320}, {axisY, 1250}, {axisZ, 7}};
        host.onCall = [this](const std::string& name) {
            if (name == "TarnVideoBoardFunction" && host.savedFiles.size() > m_written) {
                m_written = host.savedFiles.size();
                if (!camera.isNull()) {
                    writeTiffFile(host.savedFiles.back(), {camera, {}, {}, {}});
                }
            }
        };
        start();
        QCoreApplication::processEvents();
        const auto choose = [this](const QString& startIn) {
            askedIn = startIn;
            return chosen;
        };
        window().ask.choosePictureToOpen = choose;
        window().ask.choosePictureToSave = choose;
        host.planSolution = {0.0, 0.0, 12.0};
        window().calibration().points = live;
        window().calibration().ComputeStagePlan();
        window().calibration().ComputePicturePlan();
        host.calls.clear();
        host.logLines.clear();
    }
    void restartWith(const std::function<void()>& change) {
        change();
        inter.reset();
        begin();
    }
    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }
    std::filesystem::path file(const char* name) const { return {path(name).toStdU16String()}; }
    void store(const char* name, const CalibrationPoints& points = storedPoints) const {
        savePicture(file(name), samplePicture(other), points);
    }
    void save(const char* name) {
        chosen = path(name);
        action("mnuSaveAs")->trigger();
    }
    void open(const char* name) {
        chosen = path(name);
        action("mmuOpen")->trigger();
    }
    // Runs an action; the text of the message box that comes up meanwhile, empty when none does.
    std::string boxText(const std::function<void()>& act) {
        std::string text;
        QTimer::singleShot(0, &window(), [&text] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                text = box->text().toStdString();
                box->accept();
            }
        });
        act();
        QCoreApplication::processEvents();
        return text;
    }
    std::vector<std::string> position() { return {panel("X"), panel("Y"), panel("Z")}; }
    void pointAt(float partX, float partY) {
        const QSize twips = window().panels().milDisp->size() * 15;
        Q_EMIT window().panels().milDisp->mouseMoved(Qt::NoButton, 0,
                                                     partX * static_cast<float>(twips.width()),
                                                     partY * static_cast<float>(twips.height()));
    }
    bool showsStored() { return window().panels().milDisp->showsPicture(); }
    std::string title() { return window().windowTitle().toStdString(); }

private:
    std::size_t m_written = 0;
};

using SavingAPicture = PicturesOnTheWindow;
using OpeningAPicture = PicturesOnTheWindow;
using AStoredPicture = PicturesOnTheWindow;
using PictureDialogs = PicturesOnTheWindow;

} // namespace

TEST_F(SavingAPicture, HasTheSameEffectFromItsItemItsShortcutAndItsToolbarKey) {
    const std::vector<std::function<void()>> ways{
        [this] { action("mnuSaveAs")->trigger(); },
        [this] { QTest::keyClick(&window(), Qt::Key_S, Qt::ControlModifier); },
        [this] { toolbar("Save"); },
    };
    chosen = path("Video.tif");
    for (const auto& way : ways) {
        way();
        EXPECT_TRUE(std::filesystem::remove(file("Video.tif")));
        EXPECT_TRUE(std::filesystem::remove(file("Video.pic")));
    }
}

TEST_F(SavingAPicture, TakesTheBoardsImageAtItsFullSizeWithTheCalibrationOfTheProgram) {
    save("Video.tif");
    EXPECT_EQ(openPicture(file("Video.tif")).image, camera);
    EXPECT_EQ(readDescription(file("Video.tif")), live);
}

TEST_F(SavingAPicture, IsALineOfTheJournal) {
    save("Video.tif");
    ASSERT_EQ(journal.size(), 1u);
    EXPECT_EQ(journal[0].what, "picture");
    EXPECT_EQ(journal[0].result, file("Video.tif").string());
}

TEST_F(SavingAPicture, StoresStagePositionAndFieldAtTheTimeOfTheSave) {
    window().ask.choosePictureToSave = [this](const QString&) {
        host.position = {
            {axisX, 11}, {axisY, 22}, {axisZ, -33}}; // the stage moves while the operator chooses
        host.settings["TARN.INI|tn_video|VideoMag"] = "400";
        return path("Video.tif");
    };
    action("mnuSaveAs")->trigger();
    const Picture saved = openPicture(file("Video.tif"));
    EXPECT_NEAR(saved.scale.pixelsPerCmX, 768 / 640.0 * 10000.0, 1e-2);
    EXPECT_NEAR(saved.scale.pixelsPerCmY, 576 / 480.0 * 10000.0, 1e-2);
    EXPECT_EQ(saved.notes, cameraNotes({11, 22, -33}, {400, 2560.0F, 1920.0F}));
    EXPECT_TRUE(saved.taken.isValid());
}

TEST_F(SavingAPicture, LeavesNoTemporaryFileOfTheBoard) {
    save("Video.tif");
    ASSERT_EQ(host.savedFiles.size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(host.savedFiles.front()));
}

TEST_F(SavingAPicture, IsLoggedWithItsFullNameAndShownOnThePanelWithItsBareOne) {
    save("Video.tif");
    EXPECT_THAT(host.logLines, ElementsAre("Save to file: '" + path("Video.tif").toStdString() + "'\n"));
    EXPECT_THAT(panel("Info"), HasSubstr("Save to file: 'Video.tif'"));
}

TEST_F(SavingAPicture, ThatTheOperatorCancelsCallsNoHostFunction) {
    action("mnuSaveAs")->trigger();
    EXPECT_THAT(host.calls, IsEmpty());
    EXPECT_THAT(host.logLines, IsEmpty());
}

TEST_F(SavingAPicture, BeforeTheFirstFrameSaysThatThereIsNoImage) {
    camera = {};
    EXPECT_THAT(boxText([this] { save("Video.tif"); }),
                AllOf(HasSubstr("There is no image to save"), HasSubstr("(F7)")));
    EXPECT_FALSE(std::filesystem::exists(file("Video.tif")));
    EXPECT_FALSE(std::filesystem::exists(file("Video.pic")));
    EXPECT_THAT(panel("Info"), Not(HasSubstr("Save")));
}

TEST_F(SavingAPicture, AfterAShutDownNamesTheBoardsPageAndNotTheLiveImage) {
    window().cxvbBoard().Shutdown();
    camera = QImage();
    EXPECT_THAT(boxText([this] { save("Video.tif"); }),
                AllOf(HasSubstr("There is no image to save"), HasSubstr("tab Board"), Not(HasSubstr("F7"))));
}

TEST_F(SavingAPicture, ThatFailsIsReportedInABoxAndInTheLog) {
    EXPECT_THAT(boxText([this] { save("gone/Video.tif"); }), HasSubstr("no such folder"));
    EXPECT_THAT(host.logLines, Contains(HasSubstr("no such folder")));
    EXPECT_THAT(boxText([this] { save("Video.png"); }), HasSubstr("must end in .tif or .bmp"));
}

TEST_F(SavingAPicture, RemembersItsFolderForTheNextTimeAndTheNextStart) {
    save("Video.tif");
    open("Video.tif");
    EXPECT_EQ(askedIn, folder.path());
    restartWith([] {});
    save("Video2.tif");
    EXPECT_EQ(askedIn, folder.path());
    restartWith([this] { folder.remove(); });
    chosen.clear();
    action("mnuSaveAs")->trigger();
    EXPECT_NE(askedIn, folder.path());
    EXPECT_TRUE(QFileInfo(askedIn).isDir());
}

TEST_F(SavingAPicture, WhileAStoredOneIsShownSavesThatOneWithItsOwnScaleAndNotes) {
    store("Stored.tif");
    open("Stored.tif");
    save("Copy.tif");
    EXPECT_THAT(host.savedFiles, IsEmpty());
    const Picture copy = openPicture(file("Copy.tif"));
    EXPECT_EQ(copy.image, other);
    EXPECT_EQ(copy.notes, samplePicture(other).notes);
    EXPECT_EQ(readDescription(file("Copy.tif")), storedPoints);
}

TEST_F(SavingAPicture, ThatReplacesAnotherPicturesDescriptionAsksFirst) {
    store("Right.tif");
    std::string said;
    DescriptionChoice answer = DescriptionChoice::Cancel;
    window().ask.askBeforeSave = [&](const SaveQuestion& question) {
        said = question.losses.join(u'\n').toStdString();
        return answer;
    };
    save("Right.bmp");
    EXPECT_THAT(said, HasSubstr("Right.pic"));
    EXPECT_FALSE(std::filesystem::exists(file("Right.bmp")));
    EXPECT_EQ(readDescription(file("Right.tif")), storedPoints);
    EXPECT_THAT(host.logLines, IsEmpty()) << "nothing was saved";
    answer = DescriptionChoice::Write;
    save("Right.bmp");
    EXPECT_TRUE(std::filesystem::exists(file("Right.bmp")));
    EXPECT_EQ(host.logLines.size(), 1U);
}

TEST_F(SavingAPicture, ShowsThatItIsBusyWhileTheHostWritesItAndNoLonger) {
    std::string said;
    bool busyPointer = false;
    const auto board = host.onCall;
    host.onCall = [&](const std::string& name) {
        if (name == "TarnVideoBoardFunction") {
            said = panel("Info");
            busyPointer = QGuiApplication::overrideCursor() != nullptr;
        }
        if (board) {
            board(name);
        }
    };
    save("Video.tif");
    EXPECT_EQ(said, "Saving the picture…");
    EXPECT_TRUE(busyPointer);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SavingAPicture, ThatFailsIsNoLongerBusyWhenItsMessageOpens) {
    bool busyPointer = true;
    QTimer::singleShot(0, &window(), [&] {
        busyPointer = QGuiApplication::overrideCursor() != nullptr;
        QApplication::activeModalWidget()->close();
    });
    save("no/Video.tif");
    EXPECT_FALSE(busyPointer);
}

TEST_F(SavingAPicture, AnswersItsQuestionByEnterWithCancel) {
    store("Right.tif");
    bool asked = false;
    QTimer::singleShot(0, &window(), [&asked] {
        if (QWidget* box = QApplication::activeModalWidget()) {
            asked = true;
            QTest::keyClick(box, Qt::Key_Return);
        }
    });
    save("Right.bmp");
    EXPECT_TRUE(asked);
    EXPECT_FALSE(std::filesystem::exists(file("Right.bmp")));
}

TEST_F(OpeningAPicture, ShowsItInPlaceOfTheLiveImageAndSaysSoInTitlePanelAndFrame) {
    store("Stored.tif");
    open("Stored.tif");
    EXPECT_TRUE(showsStored());
    EXPECT_EQ(title(), "Stored.tif - Ocuva (test)");
    EXPECT_THAT(panel("Info"), HasSubstr("Picture Stored.tif   calibrated"));
    EXPECT_EQ(window().panels().frMonitor->caption(), QStringLiteral("Stored picture: Stored.tif"));
    EXPECT_THAT(host.logLines, ElementsAre("Open file: '" + path("Stored.tif").toStdString() + "'\n"));
    const QImage seen = window().panels().milDisp->grab().toImage();
    const QImage wanted = other.scaled(seen.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_EQ(seen.pixel(5, 5), wanted.pixel(5, 5)); // away from cross and marker
    EXPECT_EQ(seen.pixel(seen.width() - 5, 5), wanted.pixel(wanted.width() - 5, 5));
}

TEST_F(OpeningAPicture, HaltsARunningGrabAndLiveBringsTheLiveImageBack) {
    action("mnuAcq")->trigger();
    store("Stored.tif");
    host.calls.clear();
    open("Stored.tif");
    EXPECT_EQ(host.callsOf("TarnVideoBoardHaltGrab").size(), 1U);
    EXPECT_FALSE(action("mnuAcq")->isChecked());
    QTest::keyClick(&window(), Qt::Key_F7);
    EXPECT_TRUE(window().cxvbBoard().IsGrabbing());
    EXPECT_FALSE(showsStored());
    EXPECT_EQ(title(), "Ocuva (test)");
    EXPECT_THAT(panel("Info"), HasSubstr("Live"));
    EXPECT_EQ(window().panels().frMonitor->caption(), QString());
}

TEST_F(OpeningAPicture, ShowsThatItIsBusyMeanwhileAndNoLonger) {
    store("Other.tif");
    action("mnuAcq")->trigger();
    std::string said;
    host.onCall = [&](const std::string& name) {
        if (name == "TarnVideoBoardHaltGrab" && QGuiApplication::overrideCursor() != nullptr) {
            said = panel("Info");
        }
    };
    open("Other.tif");
    EXPECT_EQ(said, "Opening the picture…");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_THAT(panel("Info"), HasSubstr("Picture Other.tif"));
}

TEST_F(OpeningAPicture, StaysOnTheMonitorWhenTheBoardRefusesToGrab) {
    store("Stored.tif");
    open("Stored.tif");
    host.startGrabResult = 0;
    action("mnuAcq")->trigger();
    EXPECT_TRUE(showsStored());
    EXPECT_EQ(title(), "Stored.tif - Ocuva (test)");
}

TEST_F(OpeningAPicture, PutsThePointsOfItsDescriptionIntoTheCalibrationWhereTheyStay) {
    store("Stored.tif");
    open("Stored.tif");
    EXPECT_EQ(window().calibration().points, storedPoints);
    EXPECT_THAT(host.callsOf("TarnSolvePlan"), Not(IsEmpty()));
    action("mnuAcq")->trigger();
    EXPECT_EQ(window().calibration().points, storedPoints);
}

TEST_F(OpeningAPicture, ShowsThePointsThatWereReadInTheCalibrationDialogThatIsOpen) {
    frmSetupStage& dialog = window().pictureOnStage().dialog();
    const auto shown = [&dialog](std::size_t point, PointField field) {
        return dialog.FramePoint->box(point, field)->text().toStdString();
    };
    action("Picture")->trigger();
    dialog.optThreePoints->setChecked(true);
    EXPECT_EQ(shown(0, PointField::XS), "100");
    store("Stored.tif");
    open("Stored.tif");
    EXPECT_EQ(shown(0, PointField::XS), "-320");
    EXPECT_EQ(shown(1, PointField::YS), "-240");
    EXPECT_TRUE(dialog.optTwoPoints->isChecked());
    EXPECT_THAT(dialog.LabelHint->text().toStdString(), HasSubstr("points of the picture"));
}

TEST_F(OpeningAPicture, WithoutUsablePointsLeavesTheOpenCalibrationDialogAsItIs) {
    frmSetupStage& dialog = window().pictureOnStage().dialog();
    action("Picture")->trigger();
    dialog.FramePoint->box(0, PointField::XS)->setText(QStringLiteral("typed"));
    store("Stored.tif", {});
    open("Stored.tif");
    EXPECT_EQ(dialog.FramePoint->box(0, PointField::XS)->text(), QStringLiteral("typed"));
}

TEST_F(OpeningAPicture, WithADescriptionThatDoesNotParseNamesTheLineAndKeepsTheCalibration) {
    store("Stored.tif");
    QFile description(path("Stored.pic"));
    ASSERT_TRUE(description.open(QIODevice::ReadWrite));
    const QByteArray text = description.readAll();
    description.resize(0);
    description.seek(0);
    description.write(QByteArray(text).replace("\"#Zoom\"", "\"#Zoo\""));
    description.close();
    const std::string said = boxText([this] { open("Stored.tif"); });
    EXPECT_THAT(said, HasSubstr("\"Stored.tif\" is shown without calibration"));
    EXPECT_THAT(said, HasSubstr("Line 3 "));
    EXPECT_TRUE(showsStored());
    EXPECT_THAT(panel("Info"), HasSubstr("no calibration"));
    EXPECT_EQ(window().calibration().points, live);
    EXPECT_EQ(window().calibration().ComputeStagePosition(0.0F, 0.0F).x, 100);
}

TEST_F(OpeningAPicture, WithPointsThatGiveNoPlanSaysSoAndKeepsTheCalibrationWithItsPlans) {
    CalibrationPoints equal = storedPoints;
    equal.points[1].XI = 0; // both on one vertical line
    store("Stored.tif", equal);
    host.planSolution = {9.0, 9.0, 9.0};
    host.calls.clear();
    EXPECT_THAT(boxText([this] { open("Stored.tif"); }), HasSubstr("shown without calibration"));
    EXPECT_EQ(host.callsOf("TarnSolvePlan").size(), 1U) << "the stage's plan comes before the picture's";
    EXPECT_EQ(window().calibration().points, live);
    EXPECT_EQ(window().calibration().ComputeStagePosition(0.0F, 0.0F).z, 12);
    EXPECT_EQ(window().calibration().ComputeStagePosition(10000.0F, 0.0F).x, 740);
}

TEST_F(OpeningAPicture, WithoutADescriptionOrWithPointsNeverPickedShowsItWithoutCalibrationAndNoBox) {
    store("Stored.tif", {});
    EXPECT_EQ(boxText([this] { open("Stored.tif"); }), "");
    EXPECT_THAT(panel("Info"), HasSubstr("no calibration"));
    std::filesystem::remove(file("Stored.pic"));
    EXPECT_EQ(boxText([this] { open("Stored.tif"); }), "");
    EXPECT_THAT(panel("Info"), HasSubstr("no calibration"));
    EXPECT_EQ(window().calibration().points, live);
}

TEST_F(OpeningAPicture, ThatCannotBeOpenedSaysWhyAndChangesNothing) {
    action("mnuAcq")->trigger();
    EXPECT_THAT(boxText([this] { open("Missing.tif"); }), HasSubstr("no such file"));
    EXPECT_TRUE(window().cxvbBoard().IsGrabbing());
    EXPECT_FALSE(showsStored());
    QFile garbage(path("garbage.tif"));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    garbage.write("II*\0garbage", 11);
    garbage.close();
    EXPECT_THAT(boxText([this] { open("garbage.tif"); }), HasSubstr("cannot be opened as a TIFF"));
    EXPECT_FALSE(showsStored());
    EXPECT_EQ(title(), "Ocuva (test)");
    store("Stored.tif");
    open("Stored.tif");
    EXPECT_THAT(boxText([this] { open("garbage.tif"); }), HasSubstr("cannot be opened as a TIFF"));
    EXPECT_EQ(title(), "Stored.tif - Ocuva (test)"); // the one before stays
}

TEST_F(AStoredPicture, ShowsTheStagePositionUnderThePointerOutsideVgaModeToo) {
    store("Stored.tif");
    open("Stored.tif");
    pointAt(0.25F, 0.5F);
    EXPECT_THAT(position(), ElementsAre("-160", "0", "12"));
    action("mnuAcq")->trigger();
    EXPECT_THAT(position(), ElementsAre("-320", "1250", "7")); // where the stage stands
    pointAt(0.25F, 0.5F);
    EXPECT_THAT(position(), ElementsAre("-320", "1250", "7"));
}

TEST_F(AStoredPicture, WithoutCalibrationShowsNoPositionsFromTheLiveImagesCalibration) {
    for (const char* vgaMode : {"0", "1"}) {
        restartWith([this, vgaMode] { host.settings["TARN|tn_video|VGAMode"] = vgaMode; });
        store("Stored.tif", {});
        open("Stored.tif");
        pointAt(0.25F, 0.5F);
        EXPECT_THAT(position(), ElementsAre("-320", "1250", "7"));
    }
}

TEST_F(AStoredPicture, NeverMovesTheStageByAClickAndSaysWhy) {
    store("Stored.tif");
    open("Stored.tif");
    host.calls.clear();
    click({10, 20});
    EXPECT_THAT(host.calls, IsEmpty());
    EXPECT_THAT(panel("Info"), HasSubstr("Live (F7) before a move"));
    EXPECT_THAT(child<QWidget>("Info")->toolTip().toStdString(), HasSubstr("does not move the stage"));
    action("mnuAcq")->trigger();
    click({10, 20});
    EXPECT_THAT(host.callsOf("TarnLoadStageRelSecure"), Not(IsEmpty()));
}

TEST_F(AStoredPicture, IsNotDisplacedByFramesThatComeAndFollowsTheSizeOfTheWindow) {
    store("Stored.tif");
    open("Stored.tif");
    auto frame = std::make_shared<Frame>();
    frame->width = 2;
    frame->height = 2;
    frame->pixels.assign(4, 0xffff0000U);
    windows.deliver(window().panels().milDisp->hWnd(), frame);
    QCoreApplication::processEvents();
    EXPECT_NE(window().panels().milDisp->grab().toImage().pixel(5, 5), 0xffff0000U);
    window().resize(window().width() + 60, window().height() + 40);
    QCoreApplication::processEvents();
    const QImage seen = window().panels().milDisp->grab().toImage();
    const QImage wanted = other.scaled(seen.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_EQ(seen.pixel(seen.width() - 5, 5), wanted.pixel(wanted.width() - 5, 5));
}

TEST_F(AStoredPicture, HasTheMicroMarkerOfItsOwnScaleAndNoneWithoutAScale) {
    store("Stored.tif");
    host.settings["TARN.INI|tn_video|VideoMag"] = "100"; // the microscope is set to something else meanwhile
    open("Stored.tif");
    ASSERT_TRUE(window().panels().frMicroMarker->isVisible());
    EXPECT_THAT(window().panels().frMicroMarker->lbMicroMarker->text().toStdString(), HasSubstr(" 100 "));
    savePicture(file("Bitmap.bmp"), samplePicture(other), storedPoints);
    open("Bitmap.bmp");
    EXPECT_FALSE(window().panels().frMicroMarker->isVisible());
    EXPECT_THAT(host.logLines, Not(Contains(HasSubstr("ERROR"))));
    action("mnuAcq")->trigger();
    EXPECT_TRUE(window().panels().frMicroMarker->isVisible());
}

TEST_F(AStoredPicture, HasNoGreyLevelsOfTheCameraOnItsPanel) {
    store("Stored.tif");
    open("Stored.tif");
    host.calls.clear();
    Q_EMIT window().sbMain->informationClicked();
    EXPECT_THAT(host.callsOf("TarnVideoBufferComputeStatistics"), IsEmpty());
}

TEST_F(PictureDialogs, OfferBothTypesSuggestVideoAndFollowTheChosenTypeWithTheExtension) {
    QStringList filters;
    QString suggested;
    QString suffix;
    QString suffixOfBmp;
    QTimer::singleShot(0, &window(), [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        filters = dialog->nameFilters();
        suggested = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
        suffix = dialog->defaultSuffix();
        dialog->selectNameFilter(filters.at(1));
        Q_EMIT dialog->filterSelected(filters.at(1));
        suffixOfBmp = dialog->defaultSuffix();
        static_cast<QDialog*>(dialog)->accept();
    });
    const QString name = choosePictureToSave(window(), folder.path());
    EXPECT_EQ(filters, (QStringList{QStringLiteral("TIFF (*.tif)"), QStringLiteral("BMP (*.bmp)")}));
    EXPECT_EQ(suggested, QStringLiteral("Video"));
    EXPECT_EQ(suffix, QStringLiteral("tif"));
    EXPECT_EQ(suffixOfBmp, QStringLiteral("bmp"));
    EXPECT_EQ(name, QDir::toNativeSeparators(path("Video.bmp")));
}

TEST_F(PictureDialogs, GiveNoNameWhenTheyAreCancelled) {
    QTimer::singleShot(0, &window(),
                       [] { qobject_cast<QFileDialog*>(QApplication::activeModalWidget())->reject(); });
    EXPECT_EQ(choosePictureToOpen(window(), folder.path()), QString());
}
