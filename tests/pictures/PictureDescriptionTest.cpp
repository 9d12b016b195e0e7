#include "pictures/PictureDescription.h"

#include <fstream>
#include <gmock/gmock.h>
#include <iterator>

using namespace ocuva;
using testing::AllOf;
using testing::HasSubstr;

namespace {

const CalibrationPoints threePoints{
    false, {{{0, 0, -320, 240, 5}, {10000, 0, 320, 240, -2147483647 - 1}, {-5, 10000, 0, -1, 7}}}};

const std::string threePointText =
    "\"#Pic File Version\"\r\n\"1.0\"\r\n\"#Zoom\"\r\n1\r\n\"#TwoPoints\"\r\n#FALSE#\r\n"
    "\"#Image position 1 to 3\"\r\n0,0\r\n10000,0\r\n-5,10000\r\n"
    "\"#Stage position 1 to 3\"\r\n-320,240,5\r\n320,240,-2147483648\r\n0,-1,7\r\n";

const std::string twoPointText =
    "\"#Pic File Version\"\r\n\"1.0\"\r\n\"#Zoom\"\r\n1\r\n\"#TwoPoints\"\r\n#TRUE#\r\n"
    "\"#Image position 1 to 3\"\r\n0,0\r\n10000,0\r\n"
    "\"#Stage position 1 to 3\"\r\n-320,240,5\r\n320,240,-2147483648\r\n";

std::string errorOf(const std::string& text) {
    try {
        parseDescription(text);
        return "";
    } catch (const PictureDescriptionError& error) {
        return error.what();
    }
}

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    return text.replace(text.find(what), what.size(), by);
}

struct PictureFolder : testing::Test {
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() /
        ("ocuva-pictures-" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));

    void SetUp() override {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
    }
    void TearDown() override { std::filesystem::remove_all(folder); }
    std::string path(const char* name) const { return (folder / name).string(); }
    static std::string content(const std::string& name) {
        std::ifstream file(name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
};

} // namespace

TEST(PictureDescription, HasFourteenLinesForThreePointsToTheByte) {
    EXPECT_EQ(descriptionText(threePoints), threePointText);
}

TEST(PictureDescription, OfATwoPointCalibrationHasNoThirdLines) {
    CalibrationPoints points = threePoints;
    points.twoPoints = true;
    EXPECT_EQ(descriptionText(points), twoPointText);
    points.points[2] = {};
    EXPECT_EQ(parseDescription(twoPointText), points);
    EXPECT_THAT(errorOf(twoPointText + "0,-1,7\r\n"), HasSubstr("Line 13"));
}

TEST(PictureDescription, AlwaysSaysZoomOneAndRefusesAnyOther) {
    EXPECT_THAT(descriptionText(threePoints), HasSubstr("\"#Zoom\"\r\n1\r\n"));
    EXPECT_THAT(errorOf(replaced(threePointText, "\r\n1\r\n", "\r\n2\r\n")), HasSubstr("Line 4"));
}

TEST(PictureDescription, ComesBackAsItWasWritten) {
    EXPECT_EQ(parseDescription(threePointText), threePoints);
}

TEST(PictureDescription, IsReadWithPlainLineFeedsAndBlanksRoundItsItems) {
    std::string text = threePointText;
    for (std::size_t at = 0; (at = text.find('\r', at)) != std::string::npos;) {
        text.erase(at, 1);
    }
    EXPECT_EQ(parseDescription(text), threePoints);
    EXPECT_EQ(parseDescription(replaced(text, "-320,240,5", " -320 ,\t240,5 ")), threePoints);
}

TEST(PictureDescription, CutOffInsideItsLastLineIsRefusedWithThatLinesNumber) {
    const std::size_t lastLine = threePointText.rfind("0,-1,7");
    for (std::size_t length = lastLine + 1; length < threePointText.size(); ++length) {
        EXPECT_THAT(errorOf(threePointText.substr(0, length)), HasSubstr("Line 14 ")) << length;
    }
    const std::string longNumber = replaced(threePointText, "0,-1,7", "0,-1,1234567");
    EXPECT_THAT(errorOf(longNumber.substr(0, longNumber.size() - 5)),
                AllOf(HasSubstr("Line 14 "), HasSubstr("the end of the line was expected")));
    EXPECT_THAT(errorOf(twoPointText.substr(0, twoPointText.size() - 2)), HasSubstr("Line 12 "));
}

TEST(PictureDescription, NamesTheLineThatDoesNotParse) {
    EXPECT_THAT(errorOf(""), HasSubstr("Line 1 "));
    EXPECT_THAT(errorOf("x"), HasSubstr("Line 1 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "1.0", "2.0")), HasSubstr("Line 2 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "#FALSE#", "FALSE")), HasSubstr("Line 6 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "10000,0", "32768,0")), HasSubstr("Line 9 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "-5,10000", "-5")), HasSubstr("Line 10 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "-5,10000", "-5,10000,1")), HasSubstr("Line 10 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "-320,240,5", "-320,240,5.5")), HasSubstr("Line 12 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "-2147483648", "-2147483649")), HasSubstr("Line 13 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "0,-1,7", "")), HasSubstr("Line 14 "));
    EXPECT_THAT(errorOf(threePointText.substr(0, threePointText.size() - 8)), HasSubstr("Line 14 "));
    EXPECT_THAT(errorOf(threePointText + "\r\n"), HasSubstr("Line 15 "));
    EXPECT_THAT(errorOf(replaced(threePointText, "#Zoom", "#zoom")), HasSubstr("Line 3 "));
}

TEST(PictureDescription, IsNextToItsPictureWithTheLastThreeCharactersReplaced) {
    EXPECT_EQ(descriptionName("Video.tif"), "Video.pic");
    EXPECT_EQ(descriptionName("a/b.c/Video.BMP"), "a/b.c/Video.pic");
    EXPECT_EQ(descriptionName("ab"), "");
}

TEST_F(PictureFolder, KeepsADescriptionNextToThePictureAndReadsItBack) {
    writeDescription(path("Video.tif"), threePoints);
    EXPECT_EQ(content(path("Video.pic")), threePointText);
    EXPECT_EQ(readDescription(path("Video.tif")), threePoints);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(PictureFolder, GetsNoDescriptionForAnEmptyName) {
    writeDescription("", threePoints);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(PictureFolder, KeepsAnExistingDescriptionWholeWhenTheNewOneCannotBeWritten) {
    writeDescription(path("Video.tif"), threePoints);
    std::filesystem::permissions(path("Video.pic"), std::filesystem::perms::owner_read);
    CalibrationPoints others = threePoints;
    others.twoPoints = true;
    EXPECT_THROW(writeDescription(path("Video.tif"), others), PictureDescriptionError);
    EXPECT_EQ(content(path("Video.pic")), threePointText);
    EXPECT_THROW(writeDescription(path("no/such/folder/Video.tif"), others), PictureDescriptionError);
}

TEST_F(PictureFolder, ThatLacksTheDescriptionOrHoldsAHugeOneSaysSo) {
    EXPECT_THROW(readDescription(path("Video.tif")), PictureDescriptionError);
    std::ofstream(path("Video.pic"), std::ios::binary) << std::string(1 << 20, 'x');
    EXPECT_THROW(readDescription(path("Video.tif")), PictureDescriptionError);
}
