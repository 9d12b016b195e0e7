#include "report/ShortPaths.h"

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

std::string shortened(const char* line) { return withShortPaths(line, "/home/maria"); }

} // namespace

TEST(ShortPaths, KeepOnlyTheFileNamesOfPictures) {
    EXPECT_EQ(shortened("T Save to file: '/data/customer x/Grain 7.tif'\n"),
              "T Save to file: '.../Grain 7.tif'\n");
    EXPECT_EQ(shortened("t,picture,,,,,,,/srv/a/b.BMP\n"), "t,picture,,,,,,,.../b.BMP\n");
    EXPECT_EQ(shortened("t,picture,,,,,,,\"/srv/a,b/c.tiff\"\n"), "t,picture,,,,,,,\".../c.tiff\"\n");
    EXPECT_EQ(shortened("\"in\":[\"C:\\\\Users\\\\maria\\\\x.pic\"]"), "\"in\":[\".../x.pic\"]");
    EXPECT_EQ(shortened("'/a/one.tif' and '/b/two.tif'"), "'.../one.tif' and '.../two.tif'");
}

TEST(ShortPaths, TheHomeFolderIsATilde) {
    EXPECT_EQ(shortened("data folder: /home/maria/.local/share/Ocuva\n"),
              "data folder: ~/.local/share/Ocuva\n");
    EXPECT_EQ(shortened("Standard1=/home/maria/standards/Quartz.std"), "Standard1=~/standards/Quartz.std");
    EXPECT_EQ(shortened("/home/maria"), "~");
    EXPECT_EQ(shortened("/home/marianne/x"), "/home/marianne/x");
    EXPECT_EQ(withShortPaths("a C:\\Users\\maria\\b C:\\\\Users\\\\maria\\\\c", "C:/Users/maria"),
              "a ~\\b ~\\\\c");
}

TEST(ShortPaths, EverythingElseStays) {
    for (const char* line :
         {"", "\n", "VideoMag=400\n", "x.tif", "picture.tif is open", "a.tiffany/b", "/a/b.std"}) {
        EXPECT_EQ(shortened(line), line);
        EXPECT_EQ(withShortPaths(line, ""), line);
    }
}
