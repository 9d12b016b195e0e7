#include "hosts/common/services/Standards.h"

#include "hosts/common/services/Database.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

using namespace hosts;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct DatabaseRig {
    TempFolder folder;
    HostLog log{folder / "log"};
    Database database{folder / "standards", log};

    std::string standard(const std::string& name, const std::string& text) const {
        folder.write("standards/" + name, text);
        return (folder / ("standards/" + name)).string();
    }
    std::vector<std::string> logLines() const { return folder.lines("log"); }
};

const std::string quartz = "[OCUVASTD]\nName=Quartz\nX=-9000\nY=4000\nZ=-22\n";

} // namespace

TEST(Standards, AFolderIsReadByFileName) {
    const DatabaseRig rig;
    rig.standard("b.STD", "[OCUVASTD]\r\nX=1\r\nY=2\r\nZ=3");
    rig.standard("a.std", quartz);
    rig.standard("a.txt", quartz);
    HostLog log(rig.folder / "log");
    const auto mounts = readStandards(rig.folder / "standards", log);
    ASSERT_EQ(mounts.size(), 2u);
    EXPECT_EQ(mounts[0].name, "Quartz");
    EXPECT_EQ(mounts[0].position.z, -22);
    EXPECT_EQ(mounts[1].name, "b");
    EXPECT_EQ(mounts[1].position.x, 1);
    EXPECT_THAT(rig.logLines(), IsEmpty());
}

TEST(Standards, WhatCannotBeMountedIsLeftOutWithALogLineEach) {
    DatabaseRig rig;
    rig.standard("binary.std", std::string("\0\xff\xd8", 3));
    rig.standard("empty.std", "");
    rig.standard("huge.std", quartz + std::string(maxStandardBytes, '\n'));
    rig.standard("no-z.std", "[OCUVASTD]\nX=1\nY=2\n");
    rig.standard("rounded.std", "[OCUVASTD]\nX=1e3\nY=2\nZ=3\n");
    std::filesystem::create_directory(rig.folder / "standards/folder.std");
    EXPECT_THAT(readStandards(rig.folder / "standards", rig.log), IsEmpty());
    EXPECT_THAT(rig.logLines(), ElementsAre(HasSubstr("binary.std is left out: it holds binary data"),
                                            HasSubstr("empty.std is left out: it has no entries"),
                                            HasSubstr("folder.std is left out"),
                                            HasSubstr("huge.std is left out: it is larger than 1 MiB"),
                                            HasSubstr("no-z.std is left out: it is without position"),
                                            HasSubstr("rounded.std is left out: it is without position")));
}

TEST(Standards, AMissingFolderGivesNoneAndALogLine) {
    DatabaseRig rig;
    EXPECT_THAT(readStandards(rig.folder / "nowhere", rig.log), IsEmpty());
    EXPECT_EQ(rig.logLines().size(), 1u);
}

TEST(Standards, WrittenTextReadsBack) {
    const DatabaseRig rig;
    const StandardFile standard =
        readStandardFile(rig.standard("o.std", standardText("Olivine", {9000, 4000, 14})));
    EXPECT_EQ(standard.name, "Olivine");
    EXPECT_EQ(standard.position, (ocuva::StagePosition{9000, 4000, 14}));
}

TEST(Database, AStandardIsReadByItsFullPathOrByItsNameInTheFolder) {
    DatabaseRig rig;
    const std::string path = rig.standard("Quartz.std", quartz);
    for (const std::string& name : {path, std::string("Quartz.std")}) {
        const auto handle = rig.database.objectNew("OCUVASTD");
        ASSERT_GT(handle, 0);
        ocuva::Long x = 1;
        ocuva::Long y = 1;
        ocuva::Long z = 1;
        EXPECT_FALSE(rig.database.stagePos(handle, &x, &y, &z));
        EXPECT_TRUE(rig.database.objectRead(handle, name));
        EXPECT_TRUE(rig.database.stagePos(handle, &x, &y, &z));
        EXPECT_THAT((std::vector{x, y, z}), ElementsAre(-9000, 4000, -22));
        EXPECT_TRUE(rig.database.objectDelete(handle));
        EXPECT_FALSE(rig.database.stagePos(handle, &x, &y, &z));
        EXPECT_FALSE(rig.database.objectDelete(handle));
    }
    EXPECT_TRUE(rig.folder.has("standards/Quartz.std"));
}

TEST(Database, OtherTypesHaveNoObjects) {
    DatabaseRig rig;
    EXPECT_EQ(rig.database.objectNew("OCUVAIMG"), 0);
    EXPECT_EQ(rig.database.objectNew(""), 0);
    EXPECT_EQ(rig.logLines().size(), 2u);
}

TEST(Database, AStandardWithoutPositionIsReadAndLeavesTheOutputsAlone) {
    DatabaseRig rig;
    rig.standard("flat.std", "[OCUVASTD]\nName=Flat\nX=1\nY=2\nZ=\n");
    const auto handle = rig.database.objectNew("OCUVASTD");
    EXPECT_TRUE(rig.database.objectRead(handle, "flat.std"));
    ocuva::Long x = 7;
    ocuva::Long y = 7;
    ocuva::Long z = 7;
    EXPECT_FALSE(rig.database.stagePos(handle, &x, &y, &z));
    EXPECT_THAT((std::vector{x, y, z}), ElementsAre(7, 7, 7));
}

TEST(Database, AFailedReadEmptiesTheObject) {
    DatabaseRig rig;
    rig.standard("Quartz.std", quartz);
    const auto handle = rig.database.objectNew("OCUVASTD");
    EXPECT_TRUE(rig.database.objectRead(handle, "Quartz.std"));
    for (const char* name : {"none.std", "", "..", "/dev/zero"})
        EXPECT_FALSE(rig.database.objectRead(handle, name)) << name;
    ocuva::Long x = 0;
    ocuva::Long y = 0;
    ocuva::Long z = 0;
    EXPECT_FALSE(rig.database.stagePos(handle, &x, &y, &z));
    EXPECT_EQ(rig.logLines().size(), 4u);
}

TEST(Database, HandlesThatAreNotOpenAreRefused) {
    DatabaseRig rig;
    rig.standard("Quartz.std", quartz);
    for (const ocuva::Long handle : {0, 1, -1, 2147483647})
        EXPECT_FALSE(rig.database.objectRead(handle, "Quartz.std"));
}

TEST(Database, HandlesAreIndependent) {
    DatabaseRig rig;
    rig.standard("Quartz.std", quartz);
    const auto first = rig.database.objectNew("OCUVASTD");
    const auto second = rig.database.objectNew("OCUVASTD");
    EXPECT_NE(first, second);
    EXPECT_TRUE(rig.database.objectRead(first, "Quartz.std"));
    EXPECT_TRUE(rig.database.objectDelete(second));
    ocuva::Long x = 0;
    EXPECT_TRUE(rig.database.stagePos(first, &x, &x, &x));
}
