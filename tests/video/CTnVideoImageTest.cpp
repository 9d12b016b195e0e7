#include "video/CTnVideoImage.h"

#include "tests/support/StubHost.h"

#include <gmock/gmock.h>
#include <set>

using namespace ocuva;
using testing::ElementsAre;

namespace {

// Automation whose objects write down what happens to them.
class RecordingAutomation final : public Automation {
public:
    std::vector<std::string> events;
    std::set<std::string> unregistered;
    bool refuseProperties = false;

    std::unique_ptr<AutomationObject> create(const char* programIdentifier) override {
        if (unregistered.count(programIdentifier) != 0) {
            events.push_back(std::string("no ") + programIdentifier);
            return nullptr;
        }
        events.push_back(std::string("create ") + programIdentifier);
        return std::make_unique<Object>(*this, programIdentifier);
    }

private:
    class Object final : public AutomationObject {
    public:
        Object(RecordingAutomation& owner, std::string name)
            : m_owner(owner)
            , m_name(std::move(name)) {}
        ~Object() override { m_owner.events.push_back("release " + m_name); }
        bool setProperty(const char* name, const char* value) override {
            m_owner.events.push_back(m_name + " " + name + "=" + value);
            return !m_owner.refuseProperties;
        }

    private:
        RecordingAutomation& m_owner;
        std::string m_name;
    };
};

struct VideoImage : testing::Test {
    StubHost host;
    RecordingAutomation automation;
    CTnVideoImage image{host.tn_video(), host.tn_vduti(), automation};
};

} // namespace

TEST_F(VideoImage, MeanAndDeviationAreZeroBeforeTheFirstRefresh) {
    EXPECT_EQ(image.Mean(), 0.0F);
    EXPECT_EQ(image.StdDev(), 0.0F);
}

TEST_F(VideoImage, ACountOfZeroGivesMeanZeroAndANegativeVarianceDeviationZero) {
    host.pixelCount = 0;
    host.pixelSum = 1000;
    host.variance = -4.0;
    image.Refresh();
    EXPECT_EQ(image.Mean(), 0.0F);
    EXPECT_EQ(image.StdDev(), 0.0F);
}

TEST_F(VideoImage, MeanAndDeviationFollowFromCountSumAndVariance) {
    host.pixelCount = 4;
    host.pixelSum = 10;
    host.variance = 2.25;
    image.Refresh();
    EXPECT_EQ(image.Mean(), 2.5F);
    EXPECT_EQ(image.StdDev(), 1.5F);
}

TEST_F(VideoImage, SettingTheBufferDoesNotChangeWhatRefreshMeasures) {
    EXPECT_EQ(image.Buffer(), 0);
    image.Buffer(17);
    image.Refresh();
    EXPECT_EQ(image.Buffer(), 17);
    EXPECT_THAT(host.calls, ElementsAre("TarnVideoBufferComputeStatistics(0, 0, 0, -1, -1)"));
}

TEST_F(VideoImage, DumpLetsTheHostSaveTheFileEvenWithAnEmptyName) {
    image.Dump("picture.tif");
    image.Dump("");
    EXPECT_THAT(host.savedFiles, ElementsAre("picture.tif", ""));
}

TEST_F(VideoImage, DisplayInObjectMakesAndReleasesTheFourObjectsInOrder) {
    image.DisplayInObject(nullptr);
    EXPECT_THAT(automation.events,
                ElementsAre("create MILSYSTEM.System", "MILSYSTEM.System SystemType=Meteor2",
                            "create MILBUFFER.Buffer", "create MILDIGITIZER.Digitizer",
                            "create MILDISPLAY.Display", "release MILSYSTEM.System",
                            "release MILBUFFER.Buffer", "release MILDIGITIZER.Digitizer",
                            "release MILDISPLAY.Display"));
}

TEST_F(VideoImage, DisplayInObjectEndsQuietlyWhenAClassIsNotRegistered) {
    automation.unregistered = {"MILDIGITIZER.Digitizer"};
    image.DisplayInObject(nullptr);
    EXPECT_EQ(automation.events.back(), "no MILDIGITIZER.Digitizer");
    EXPECT_THAT(host.logLines, testing::IsEmpty());
}

TEST_F(VideoImage, DisplayInObjectEndsQuietlyWhenTheSystemRefusesItsType) {
    automation.refuseProperties = true;
    image.DisplayInObject(nullptr);
    EXPECT_EQ(automation.events.back(), "MILSYSTEM.System SystemType=Meteor2");
}

TEST_F(VideoImage, ObjectsLeftByAFailureAreReleasedBeforeTheNextAttempt) {
    automation.unregistered = {"MILBUFFER.Buffer"};
    image.DisplayInObject(nullptr);
    automation.events.clear();
    image.DisplayInObject(nullptr);
    EXPECT_THAT(automation.events, ElementsAre("release MILSYSTEM.System", "create MILSYSTEM.System",
                                               "MILSYSTEM.System SystemType=Meteor2", "no MILBUFFER.Buffer"));
}
