// Pictures on disks that are full or cannot be written.
#include "pictures/CameraImage.h"
#include "pictures/PictureDescription.h"
#include "pictures/PictureFile.h"
#include "tests/support/PictureSamples.h"
#include "tests/support/Processes.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/StubHost.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::AllOf;
using testing::AnyOf;
using testing::HasSubstr;

namespace {

const CalibrationPoints points{true, {{{0, 0, -320, 240, 5}, {10000, 10000, 320, -240, 5}, {}}}};

/// A folder on a disk of 64 KiB that holds a small picture with its description.
struct PictureDisk {
    TempFolder folder;
    SmallDisk disk{folder.path()};
    QImage old = sampleImage(40, 30, QImage::Format_Grayscale8);
    QImage large = sampleImage(400, 300, QImage::Format_Grayscale8);

    std::filesystem::path name(const char* extension) const {
        return folder / (std::string("Video.") + extension);
    }
    std::string errorOfSaving(const std::filesystem::path& name, const QImage& image) const {
        try {
            savePicture(name, samplePicture(image), points);
            return "";
        } catch (const PictureFileError& error) {
            return error.what();
        }
    }
    void expectOldPictureWhole(const char* extension) const {
        EXPECT_EQ(openPicture(name(extension)).image, old);
        EXPECT_EQ(readDescription(name(extension)), points);
        for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
            EXPECT_NE(entry.path().extension(), ".aside") << "a useless piece takes room on a full disk";
        }
    }
};

/// The checks run in a process of their own, whose disk and limits end with it.
void runApart(const std::function<void(const PictureDisk&)>& checks) {
    EXPECT_TRUE(succeeded(startProcess([&checks] {
        const PictureDisk rig;
        checks(rig);
        return !testing::Test::HasFailure();
    })));
}

} // namespace

TEST(PictureDiskTrouble, APictureThatDoesNotFitOnTheDiskIsReportedAndTheOldOneStays) {
    for (const char* extension : {"tif", "bmp"}) {
        runApart([extension](const PictureDisk& rig) {
            ASSERT_EQ(rig.errorOfSaving(rig.name(extension), rig.old), "");
            rig.disk.fill();
            EXPECT_THAT(rig.errorOfSaving(rig.name(extension), rig.large),
                        AllOf(HasSubstr("could not be saved"),
                              AnyOf(HasSubstr("No space left"), HasSubstr("File too large"))));
            rig.expectOldPictureWhole(extension);
        });
    }
}

TEST(PictureDiskTrouble, ADescriptionThatDoesNotFitOnTheDiskLeavesTheOldPictureToo) {
    runApart([](const PictureDisk& rig) {
        ASSERT_EQ(rig.errorOfSaving(rig.name("tif"), rig.old), "");
        rig.disk.fill();
        rig.disk.leave(8192);
        // Fills what is left but for less than the description's page.
        const QImage justFits = sampleImage(60, 100, QImage::Format_Grayscale8);
        const std::string error = rig.errorOfSaving(rig.name("tif"), justFits);
        if (error.empty()) { // where files are only bounded in size, there is room
            EXPECT_EQ(openPicture(rig.name("tif")).image, justFits);
            return;
        }
        EXPECT_THAT(error, AllOf(HasSubstr("could not be saved"), HasSubstr(".pic")));
        rig.expectOldPictureWhole("tif");
    });
}

TEST(PictureDiskTrouble, AReadOnlyFolderIsReportedAndTheOldPictureStays) {
    for (const char* extension : {"tif", "bmp"}) {
        runApart([extension](const PictureDisk& rig) {
            ASSERT_EQ(rig.errorOfSaving(rig.name(extension), rig.old), "");
            rig.disk.protect();
            EXPECT_THAT(rig.errorOfSaving(rig.name(extension), rig.large),
                        AllOf(HasSubstr("could not be saved"),
                              AnyOf(HasSubstr("Read-only"), HasSubstr("Permission denied"))));
            rig.expectOldPictureWhole(extension);
        });
    }
}

TEST(PictureDiskTrouble, AFullTemporaryFolderIsNamedWhenTheCamerasImageDoesNotFitIntoIt) {
    for (const bool hostLeavesAPiece : {false, true}) {
        runApart([hostLeavesAPiece](const PictureDisk& rig) {
            ASSERT_EQ(::setenv("TMPDIR", rig.folder.path().c_str(), 1), 0);
            StubHost host;
            NoAutomation automation;
            CTnVideoImage image(host.tn_video(), host.tn_vduti(), automation);
            const CTnStage stage(host.tn_lib_proxy(), host.tn_micro_proxy());
            host.onCall = [&](const std::string& name) {
                if (name == "TarnVideoBoardFunction" && hostLeavesAPiece) {
                    std::ofstream(host.savedFiles.back(), std::ios::binary) << "II*";
                }
            };
            std::string said;
            try {
                cameraImage(image, stage, {400, 2560.0F, 1920.0F}, QString());
            } catch (const PictureFileError& error) {
                said = error.what();
            }
            EXPECT_THAT(said, AllOf(HasSubstr("temporary folder"), HasSubstr(rig.folder.path().string()),
                                    AnyOf(HasSubstr("No space left"), HasSubstr("File too large"))));
        });
    }
}
