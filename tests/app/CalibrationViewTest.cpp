// A calibration belongs to the view on which its points were picked.

#include "app/Pictures.h"
#include "pictures/PictureDescription.h"
#include "pictures/PictureFile.h"
#include "tests/support/PictureSamples.h"
#include "tests/support/WindowRig.h"

#include <QMessageBox>
#include <QTimer>

using namespace ocuva;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

// What a message box said.
struct AnsweredBox {
    std::string title;
    std::string text;
    std::string more;
};

struct CalibrationOfAView : WindowRig {
    QTemporaryDir folder;
    QString chosen;

    void SetUp() override { begin(); }
    void begin() {
        host.onCall = [this](const std::string& name) {
            if (name == "TarnVideoBoardFunction" && host.savedFiles.size() > m_written) {
                m_written = host.savedFiles.size();
                writeTiffFile(host.savedFiles.back(),
                              {sampleImage(768, 576, QImage::Format_Grayscale8), {}, {}, {}});
            }
        };
        start();
        QCoreApplication::processEvents();
        window().ask.choosePictureToOpen = [this](const QString&) { return chosen; };
        window().ask.choosePictureToSave = [this](const QString&) { return chosen; };
        host.planSolution = {0.0, 0.0, 12.0};
    }
    void restart(const char* vgaMode = "0") {
        host.settings["TARN|tn_video|VGAMode"] = vgaMode;
        inter.reset();
        begin();
    }
    void stageAt(Long x, Long y, Long z = 0) {
        host.position = {{axisX, x}, {axisY, y}, {axisZ, z}};
        window().UpdateStagePos();
    }
    frmSetupStage& dialog() { return window().pictureOnStage().dialog(); }
    void typePoints(Long left = -320, Long top = -240) {
        const auto type = [this](std::size_t point, Long xi, Long yi, Long x, Long y) {
            dialog().FramePoint->setPoint(
                point, pointTexts({static_cast<Integer>(xi), static_cast<Integer>(yi), x, y, 12}));
        };
        type(0, 0, 0, left, top);
        type(1, 10000, 0, left + 640, top);
        type(2, 0, 10000, left, top + 480);
    }
    void acceptPoints() { QTest::mouseClick(dialog().OKPicture, Qt::LeftButton); }
    // A calibration whose points are picked while the stage stands at 100, 200.
    void calibrateAt100And200() {
        stageAt(100, 200, 5);
        action("Picture")->trigger();
        typePoints(-220, -40);
        acceptPoints();
    }
    QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }
    std::filesystem::path file(const char* name) const { return {path(name).toStdU16String()}; }
    bool isThere(const char* name) const { return QFileInfo::exists(path(name)); }
    // Runs an action and answers the box that comes up meanwhile; empty texts when none does.
    AnsweredBox answer(QMessageBox::ButtonRole role, const std::function<void()>& act) {
        AnsweredBox seen;
        QTimer::singleShot(0, &window(), [&seen, role] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                seen = {box->windowTitle().toStdString(), box->text().toStdString(),
                        box->informativeText().toStdString()};
                for (QAbstractButton* button : box->buttons()) {
                    if (box->buttonRole(button) == role) {
                        button->click();
                        return;
                    }
                }
                box->reject();
            }
        });
        act();
        QCoreApplication::processEvents();
        return seen;
    }
    AnsweredBox save(const char* name, QMessageBox::ButtonRole role = QMessageBox::RejectRole) {
        chosen = path(name);
        return answer(role, [this] { action("mnuSaveAs")->trigger(); });
    }
    AnsweredBox open(const char* name) {
        chosen = path(name);
        return answer(QMessageBox::AcceptRole, [this] { action("mmuOpen")->trigger(); });
    }
    // A picture of 640 x 480 units taken somewhere, as this program saved it before it knew of views.
    void store(const char* name, Long x, Long y, Long magnification = 400) const {
        Picture picture = samplePicture(sampleImage(120, 90, QImage::Format_Grayscale8));
        picture.notes = cameraNotes({x, y, 7}, {magnification, 2560.0F, 1920.0F});
        savePictureAlone(file(name), picture);
    }
    void pointAt(float partX, float partY) {
        const QSize twips = window().panels().milDisp->size() * 15;
        Q_EMIT window().panels().milDisp->mouseMoved(Qt::NoButton, 0,
                                                     partX * static_cast<float>(twips.width()),
                                                     partY * static_cast<float>(twips.height()));
    }
    std::vector<std::string> position() { return {panel("X"), panel("Y"), panel("Z")}; }

private:
    std::size_t m_written = 0;
};

} // namespace

TEST_F(CalibrationOfAView, APictureSavedElsewhereGetsNoDescriptionWithoutAQuestion) {
    calibrateAt100And200();
    stageAt(5100, 1200, 5);
    const AnsweredBox box = save("Video.tif", QMessageBox::AcceptRole);
    EXPECT_THAT(box.text, HasSubstr("another view"));
    EXPECT_TRUE(isThere("Video.tif"));
    EXPECT_FALSE(isThere("Video.pic"));
}

TEST_F(CalibrationOfAView, ADescriptionOfAnotherViewIsWrittenIfTheOperatorWantsItAndCancelSavesNothing) {
    calibrateAt100And200();
    stageAt(5100, 1200, 5);
    EXPECT_NE(save("Video.tif", QMessageBox::RejectRole).text, "");
    EXPECT_FALSE(isThere("Video.tif"));
    save("Video.tif", QMessageBox::DestructiveRole);
    EXPECT_EQ(readDescription(file("Video.tif")), window().calibration().points);
}

TEST_F(CalibrationOfAView, ASaveCancelledAtTheQuestionLeavesNoLineThatItWasSaved) {
    calibrateAt100And200();
    stageAt(5100, 1200, 5);
    host.logLines.clear();
    EXPECT_NE(save("Video.tif", QMessageBox::RejectRole).text, "");
    EXPECT_THAT(host.logLines, IsEmpty());
    save("Video.tif", QMessageBox::AcceptRole);
    EXPECT_EQ(host.logLines.size(), 1U);
}

TEST_F(CalibrationOfAView, AndASharedDescriptionAreAskedAboutInOneQuestionThatEnterCancels) {
    store("Video.bmp", 0, 0);
    calibrateAt100And200();
    stageAt(5100, 1200, 5);
    int boxes = 0;
    QTimer::singleShot(0, &window(), [&boxes] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            ++boxes;
            EXPECT_THAT(box->text().toStdString(), AllOf(HasSubstr("Video.bmp"), HasSubstr("another view")));
            QTest::keyClick(box, Qt::Key_Return);
        }
    });
    chosen = path("Video.tif");
    action("mnuSaveAs")->trigger();
    EXPECT_EQ(boxes, 1);
    EXPECT_FALSE(isThere("Video.tif"));
    EXPECT_EQ(save("Video.tif", QMessageBox::DestructiveRole).title, "Save As");
    EXPECT_TRUE(isThere("Video.tif")) << "and no second question";
}

TEST_F(CalibrationOfAView, APictureOfTheViewIsSavedWithoutAQuestion) {
    calibrateAt100And200();
    stageAt(5100, 1200, 5);
    stageAt(101, 199, 30); // back to within a unit, focused elsewhere
    EXPECT_EQ(save("Video.tif").text, "");
    EXPECT_TRUE(isThere("Video.pic"));
    open("Video.tif");
    EXPECT_THAT(panel("Info"), HasSubstr("Video.tif   calibrated"));
}

TEST_F(CalibrationOfAView, WithoutADescriptionTheFormerOneIsGone) {
    calibrateAt100And200();
    save("Video.tif");
    ASSERT_TRUE(isThere("Video.pic"));
    stageAt(5100, 1200, 5);
    save("Video.tif", QMessageBox::AcceptRole);
    EXPECT_FALSE(isThere("Video.pic"));
}

TEST_F(CalibrationOfAView, APickBelongsToWhereTheStageIsEvenIfTheHostHasDrivenItMeanwhile) {
    stageAt(100, 200);
    action("Picture")->trigger();
    host.position = {{axisX, 700}, {axisY, 800}};
    QTest::mouseClick(dialog().FramePoint->row(0).ButI, Qt::LeftButton);
    click({96, 72});
    dialog().FramePoint->setPoint(0, {"2500", "2500", "1", "2", "3"});
    dialog().FramePoint->setPoint(1, {"10000", "0", "641", "2", "3"});
    dialog().FramePoint->setPoint(2, {"0", "10000", "1", "482", "3"});
    acceptPoints();
    ASSERT_TRUE(window().calibration().view);
    EXPECT_EQ(window().calibration().view->place, (ViewPlace{{700, 800, 0}, 400}));
}

TEST_F(CalibrationOfAView, PointsPickedOnDifferentViewsBelongToNone) {
    stageAt(100, 200);
    action("Picture")->trigger();
    typePoints();
    stageAt(900, 200);
    dialog().FramePoint->box(1, PointField::XI)->setText(QStringLiteral("9000"));
    EXPECT_THAT(dialog().verdict->LabelRemarks->text().toStdString(), HasSubstr("different views"));
    acceptPoints();
    EXPECT_THAT(panel("Info"), HasSubstr("calibrated elsewhere"));
    EXPECT_NE(save("Video.tif").text, "");
}

TEST_F(CalibrationOfAView, AtAnotherMagnificationDoesNotHold) {
    calibrateAt100And200();
    host.settings["TARN.INI|tn_video|VideoMag"] = "100";
    EXPECT_THAT(save("Video.tif", QMessageBox::AcceptRole).more,
                AllOf(HasSubstr("at 400x"), HasSubstr("at 100x")));
    EXPECT_FALSE(isThere("Video.pic"));
}

TEST_F(CalibrationOfAView, AStoredPictureTakenElsewhereHasItsPositionsMovedAndSaysSo) {
    calibrateAt100And200();
    stageAt(1100, 1200, 5);
    save("Moved.tif", QMessageBox::DestructiveRole);
    open("Moved.tif");
    EXPECT_THAT(panel("Info"), HasSubstr("calibration moved by 1000, 1000"));
    pointAt(0.5F, 0.5F);
    EXPECT_THAT(position(), ElementsAre("1100", "1200", "12"));
}

TEST_F(CalibrationOfAView, AStoredPictureWithoutADescriptionTakesTheLiveOneIfItsPlaceIsKnown) {
    calibrateAt100And200();
    store("Other.tif", 600, 200);
    open("Other.tif");
    EXPECT_THAT(panel("Info"), HasSubstr("calibration moved by 500, 0"));
    pointAt(0.5F, 0.5F);
    EXPECT_THAT(position(), ElementsAre("600", "200", "12"));
}

TEST_F(CalibrationOfAView, AStoredPictureThatItDoesNotBelongToHasNoPositions) {
    calibrateAt100And200();
    stageAt(1100, 1200, 5);
    host.settings["TARN.INI|tn_video|VideoMag"] = "100";
    save("Other.tif", QMessageBox::DestructiveRole);
    open("Other.tif");
    EXPECT_THAT(panel("Info"), HasSubstr("not its calibration"));
    EXPECT_THAT(child<QWidget>("Info")->toolTip().toStdString(), HasSubstr("does not belong"));
    pointAt(0.5F, 0.5F);
    EXPECT_THAT(position(), ElementsAre("1100", "1200", "5")); // where the stage is
}

TEST_F(CalibrationOfAView, ADescriptionThatWasReplacedSinceDoesNotBelongToThePicture) {
    calibrateAt100And200();
    save("Video.tif");
    const CalibrationPoints others{true, {{{0, 0, 1, 2, 3}, {10000, 10000, 4, 5, 6}, {}}}};
    writeDescription(file("Video.bmp"), others);
    open("Video.tif");
    EXPECT_THAT(panel("Info"), HasSubstr("not its calibration"));
    EXPECT_EQ(window().calibration().points, others) << "reading a description puts its points in";
}

TEST_F(CalibrationOfAView, AStoredPictureThatHasNoneOpensTheDialogEmpty) {
    calibrateAt100And200();
    writeTiffFile(file("Foreign.tif"), {sampleImage(120, 90, QImage::Format_Grayscale8), {}, {}, {}});
    open("Foreign.tif");
    action("Picture")->trigger();
    EXPECT_EQ(dialog().FramePoint->box(0, PointField::XS)->text(), QString());
}

TEST_F(CalibrationOfAView, ADescriptionWhoseStagePointsSpanNoPlaneIsNamedWhenItIsOpened) {
    const CalibrationPoints line{false,
                                 {{{0, 0, 0, 0, 5}, {10000, 0, 100, 100, 5}, {0, 10000, 200, 200, 5}}}};
    const CalibrationPoints same{true, {{{0, 0, 7, 8, 5}, {10000, 10000, 7, 8, 5}, {}}}};
    for (const auto& [points, sentence] :
         {std::pair{line, "on one line of the stage"}, std::pair{same, "at the same place of the stage"}}) {
        writeTiffFile(file("Weak.tif"), {sampleImage(120, 90, QImage::Format_Grayscale8), {}, {}, {}});
        writeDescription(file("Weak.tif"), points);
        host.logLines.clear();
        EXPECT_EQ(open("Weak.tif").text, "");
        EXPECT_THAT(panel("Info"), HasSubstr("every Z is 0"));
        EXPECT_THAT(child<QWidget>("Info")->toolTip().toStdString(), HasSubstr(sentence));
        EXPECT_THAT(host.logLines, testing::Contains(HasSubstr(sentence)));
    }
}

TEST_F(CalibrationOfAView, ThePanelSaysHowFarAwayItWasMade) {
    calibrateAt100And200();
    stageAt(5100, 1200, 5);
    EXPECT_THAT(panel("Info"), HasSubstr("calibrated elsewhere: 5000, 1000 away"));
}

TEST_F(CalibrationOfAView, IsKnownToBeElsewhereAfterARestart) {
    calibrateAt100And200();
    stageAt(5100, 1200, 5);
    restart();
    const AnsweredBox box = save("Video.tif", QMessageBox::AcceptRole);
    EXPECT_THAT(box.text, HasSubstr("another view"));
    EXPECT_FALSE(isThere("Video.pic"));
}

TEST_F(CalibrationOfAView, TheSecondClickInVgaModeSaysThatTheStageHasMovedSince) {
    restart("1");
    calibrateAt100And200();
    stageAt(260, 320, 5);
    const AnsweredBox box = answer(QMessageBox::NoRole, [this] { click({96, 72}); });
    EXPECT_EQ(box.text, " Move Stage to X:-60 Y:80 Z:12 ? ");
    EXPECT_THAT(box.more, AllOf(HasSubstr("100"), HasSubstr("200"), HasSubstr("260"), HasSubstr("320")));
}

TEST_F(CalibrationOfAView, AForeignPictureDoesNotGetTheLiveOneWithoutAQuestion) {
    calibrateAt100And200();
    Picture foreign{sampleImage(120, 90, QImage::Format_Grayscale8), {}, {}, {}};
    writeTiffFile(file("Foreign.tif"), foreign);
    open("Foreign.tif");
    EXPECT_THAT(panel("Info"), HasSubstr("no calibration"));
    const AnsweredBox box = save("Copy.tif", QMessageBox::AcceptRole);
    EXPECT_THAT(box.text, HasSubstr("does not belong"));
    EXPECT_FALSE(isThere("Copy.pic"));
}

TEST_F(CalibrationOfAView, AStoredPictureCanBeGivenOneOfItsOwnAndSavingKeepsIt) {
    calibrateAt100And200();
    writeTiffFile(file("Foreign.tif"), {sampleImage(120, 90, QImage::Format_Grayscale8), {}, {}, {}});
    open("Foreign.tif");
    action("Picture")->trigger();
    typePoints(1000, 2000);
    acceptPoints();
    EXPECT_THAT(panel("Info"), AllOf(HasSubstr("calibrated"), Not(HasSubstr("no calibration"))));
    pointAt(0.5F, 0.5F);
    EXPECT_THAT(position(), ElementsAre("1320", "2240", "12"));
    EXPECT_EQ(save("Copy.tif").text, "");
    action("mnuAcq")->trigger();
    open("Copy.tif");
    pointAt(0.25F, 0.5F);
    EXPECT_THAT(position(), ElementsAre("1160", "2240", "12"));
}
