#include "pictures/ViewNotes.h"

#include "pictures/PictureNotes.h"

#include <gmock/gmock.h>

using namespace ocuva;

namespace {

const CalibrationPoints notedPoints{true, {{{0, 0, 1, 2, 3}, {10000, 10000, 4, 5, 6}, {}}}};
const CalibrationView taken{{}, ViewPlace{{100, 200, 5}, 400}};
const CalibrationView elsewhere{{}, ViewPlace{{900, 200, 5}, 400}};
const CalibrationView stored{"/pictures/a.tif", {}};

std::vector<PictureNote> notesOf(const std::optional<CalibrationView>& view, const CalibrationView& shown) {
    std::vector<PictureNote> notes = cameraNotes({100, 200, 5}, {400, 2560.0F, 1920.0F});
    noteCalibration(notes, notedPoints, view, shown);
    return notes;
}

} // namespace

TEST(ViewNotes, TellWhereThePictureWasTaken) {
    EXPECT_EQ(placeOf(cameraNotes({100, 200, 5}, {400, 2560.0F, 1920.0F})), taken.place);
    EXPECT_EQ(placeOf({}), std::nullopt);
    EXPECT_EQ(placeOf({{QStringLiteral("stageX"), QStringLiteral("1")},
                       {QStringLiteral("stageY"), QStringLiteral("x")},
                       {QStringLiteral("magnification"), QStringLiteral("400")}}),
              std::nullopt);
}

TEST(ViewNotes, ComeBackThroughTheFormInWhichAPictureCarriesThem) {
    const Picture picture{{}, {}, notesOf(elsewhere, taken), {}};
    EXPECT_EQ(viewOfPoints(notedPoints, readImageDescription(imageDescription(picture)).notes, stored),
              elsewhere);
}

TEST(ViewNotes, OfItsOwnViewOrOfNoneBelongToThePicture) {
    EXPECT_EQ(viewOfPoints(notedPoints, notesOf(taken, taken), stored), stored);
    EXPECT_EQ(viewOfPoints(notedPoints, {}, stored), stored);
    EXPECT_EQ(viewOfPoints(notedPoints, notesOf({}, taken), stored), stored);
}

TEST(ViewNotes, OfAnUnknownViewOrOfOtherPointsHaveNoKnownPlace) {
    EXPECT_EQ(viewOfPoints(notedPoints, notesOf(CalibrationView{}, taken), stored), CalibrationView{});
    CalibrationPoints others = points;
    others.points[0].XS = 77;
    EXPECT_EQ(viewOfPoints(others, notesOf(taken, taken), stored), CalibrationView{});
}

TEST(ViewNotes, AreReplacedAndNotAddedTo) {
    std::vector<PictureNote> notes = notesOf(elsewhere, taken);
    const std::size_t count = notes.size();
    noteCalibration(notes, notedPoints, taken, taken);
    EXPECT_EQ(notes.size(), count);
    EXPECT_EQ(viewOfPoints(notedPoints, notes, stored), stored);
    noteCalibration(notes, {}, taken, taken);
    EXPECT_EQ(notes, cameraNotes({100, 200, 5}, {400, 2560.0F, 1920.0F}));
}
