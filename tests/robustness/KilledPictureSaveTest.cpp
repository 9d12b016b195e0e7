// The program is killed at each step of a save.
#include "pictures/PictureDescription.h"
#include "pictures/PictureFile.h"
#include "tests/support/PictureSamples.h"
#include "tests/support/Processes.h"
#include "tests/support/TempFolder.h"

#include <cerrno>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <string_view>

using namespace ocuva;

namespace {

constexpr int never = -1;
int stepsToLive = never; // of this process: files renamed and removed before it is killed

bool pictureFindsNoPlace = false;

void takeStep() {
    if (stepsToLive == 0) {
        ::_exit(1);
    }
    if (stepsToLive > 0) {
        --stepsToLive;
    }
}

template <typename Function> Function* next(Function* /*own*/, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" int rename(const char* from, const char* to) noexcept {
    takeStep();
    if (pictureFindsNoPlace && std::string_view(to).ends_with(".tif")) {
        errno = EACCES;
        return -1;
    }
    return next(rename, "rename")(from, to);
}

extern "C" int remove(const char* name) noexcept {
    takeStep();
    return next(remove, "remove")(name);
}

namespace {

const CalibrationPoints oldPoints{true, {{{0, 0, 1, 2, 3}, {10000, 10000, 4, 5, 6}, {}}}};
const CalibrationPoints newPoints{true, {{{0, 0, -320, 240, 5}, {10000, 10000, 320, -240, 5}, {}}}};

struct KilledSave : testing::Test {
    TempFolder folder;
    std::filesystem::path name = folder / "Video.tif";
    std::filesystem::path description = folder / "Video.pic";
    QImage before = sampleImage(40, 30, QImage::Format_Grayscale8);
    QImage after = sampleImage(50, 20, QImage::Format_Grayscale8);

    /// Whether the save came to its end before its last step.
    bool survives(int steps) const {
        return succeeded(startProcess([this, steps] {
            stepsToLive = steps;
            savePicture(name, samplePicture(after), newPoints);
            return true;
        }));
    }
};

using SaveThatFindsNoPlace = KilledSave;

} // namespace

TEST_F(KilledSave, LeavesAWholePictureAndNoDescriptionThatItDoesNotBelongTo) {
    int steps = 0;
    for (bool done = false; !done; ++steps) {
        savePicture(name, samplePicture(before), oldPoints);
        done = survives(steps);
        const QImage found = openPicture(name).image;
        ASSERT_TRUE(found == before || found == after) << "killed at step " << steps;
        if (std::filesystem::exists(description)) {
            EXPECT_EQ(readDescription(name), found == after ? newPoints : oldPoints)
                << "killed at step " << steps;
        }
        ASSERT_LT(steps, 20) << "the save never comes to its end";
    }
    EXPECT_GE(steps, 4); // or the steps were not counted
    EXPECT_EQ(openPicture(name).image, after);
    EXPECT_EQ(readDescription(name), newPoints);
}

TEST_F(KilledSave, IsFollowedByASaveThatLeavesNothingOfItBehind) {
    for (int steps = 0; steps < 4; ++steps) {
        savePicture(name, samplePicture(before), oldPoints);
        survives(steps);
        savePicture(name, samplePicture(after), newPoints);
        EXPECT_EQ(readDescription(name), newPoints);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2) << steps;
    }
}

TEST_F(SaveThatFindsNoPlace, LeavesTheOldPictureWithItsDescription) {
    savePicture(name, samplePicture(before), oldPoints);
    pictureFindsNoPlace = true;
    EXPECT_THROW(savePicture(name, samplePicture(after), newPoints), PictureFileError);
    pictureFindsNoPlace = false;
    EXPECT_EQ(openPicture(name).image, before);
    EXPECT_EQ(readDescription(name), oldPoints);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
}
