#include "hostlink/LibraryHost.h"

#include "hostlink/SharedLibrary.h"
#include "tests/support/TempFolder.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace ocuva {
namespace {

using testing::AllOf;
using testing::HasSubstr;

std::unique_ptr<Notifier> noNotifier() { return nullptr; }

std::string fileOf(const std::string& library) { return library + SharedLibrary::suffix; }

/// A folder with copies of the minimal host's libraries, which a test may spoil.
struct HostFolder : TempFolder {
    HostFolder() {
        for (const char* name : LibraryHost::names) {
            std::filesystem::copy(std::filesystem::path(MINIMAL_HOST_FOLDER) / fileOf(name), path());
        }
    }
    void remove(const std::string& library) const { std::filesystem::remove(path() / fileOf(library)); }
    std::string whyNot() const {
        try {
            LibraryHost host(path(), noNotifier);
            return "";
        } catch (const LibraryHostError& error) {
            return error.what();
        }
    }
};

TEST(LibraryHost, CallsTheFunctionsOfTheLibraries) {
    LibraryHost host(MINIMAL_HOST_FOLDER, noNotifier);
    EXPECT_EQ(host.tn_reg().TarnRegisterGetInt("section", "key", 42, "store"), 42);
    host.tn_micro_proxy().TarnLoadStageAbs(2, 1234.0F);
    host.tn_micro_proxy().TarnStartStage(0);
    TarnLong position = 0;
    host.tn_micro_proxy().TarnReadStagePos(2, &position);
    EXPECT_EQ(position, 1234);
}

TEST(LibraryHost, AMissingLibraryIsNamed) {
    for (const std::string name : LibraryHost::names) {
        const HostFolder folder;
        EXPECT_TRUE(LibraryHost::allIn(folder.path()));
        folder.remove(name);
        EXPECT_FALSE(LibraryHost::allIn(folder.path()));
        EXPECT_THAT(folder.whyNot(),
                    HasSubstr((folder.path() / fileOf(name)).string() + " cannot be loaded"));
    }
}

TEST(LibraryHost, AMissingFunctionIsNamedWithItsLibrary) {
    const HostFolder folder;
    std::filesystem::remove(folder.path() / fileOf("tn_vduti"));
    std::filesystem::copy(folder.path() / fileOf("tn_log"), folder.path() / fileOf("tn_vduti"));
    EXPECT_THAT(folder.whyNot(),
                HasSubstr(fileOf("tn_vduti") + " has no function TarnVideoBufferComputeStatistics"));
}

TEST(LibraryHost, AFileThatIsNotALibraryIsNamed) {
    const HostFolder folder;
    folder.write(fileOf("tn_video"), "no library");
    EXPECT_THAT(folder.whyNot(), HasSubstr(fileOf("tn_video") + " cannot be loaded"));
}

TEST(LibraryHost, ATruncatedLibraryIsNamedAndNotLoaded) {
    const HostFolder folder;
    const auto file = folder.path() / fileOf("tn_video");
    const std::string whole = folder.read(fileOf("tn_video"));
    for (std::size_t length = 64; length < whole.size() / 2; length += 512) {
        folder.write(fileOf("tn_video"), whole.substr(0, length));
        EXPECT_THAT(folder.whyNot(),
                    AllOf(HasSubstr(file.string() + " cannot be loaded: "), HasSubstr("is cut off")));
    }
}

#ifndef _WIN32
TEST(LibraryHost, APipeInPlaceOfALibraryIsNamedAndNotWaitedFor) {
    const HostFolder folder;
    folder.remove("tn_video");
    ASSERT_EQ(::mkfifo((folder.path() / fileOf("tn_video")).c_str(), 0600), 0);
    EXPECT_THAT(folder.whyNot(), HasSubstr(fileOf("tn_video") + " cannot be loaded: it is not a file"));
}
#endif

TEST(LibraryHost, MarksNothingBetweenTheCalls) {
    CallMark mark;
    LibraryHost host(MINIMAL_HOST_FOLDER, noNotifier, &mark);
    EXPECT_EQ(mark.current(), nullptr);
    host.tn_micro_proxy().TarnStartStage(0);
    EXPECT_EQ(mark.current(), nullptr);
}

TEST(LibraryHost, AnEmptyFolderSaysHowManyMoreAreMissing) {
    const TempFolder folder;
    EXPECT_THROW(
        try { LibraryHost(folder.path(), noNotifier); } catch (const LibraryHostError& error) {
            EXPECT_THAT(error.what(), HasSubstr("tn_reg"));
            EXPECT_THAT(error.what(), HasSubstr("6 more are missing"));
            throw;
        },
        LibraryHostError);
}

TEST(LibraryHost, AnUnterminatedTextIsCutToTheBufferSize) {
    LibraryHost host(LYING_HOST_FOLDER, noNotifier);
    for (const TarnLong size : {0, 1, 40, 128, 200}) {
        std::string buffer(static_cast<std::size_t>(size) + 8, '#');
        const std::string untouched = buffer.substr(static_cast<std::size_t>(size));
        EXPECT_EQ(host.tn_reg().TarnRegisterGetString("s", "k", "d", buffer.data(), size, "f"), size);
        EXPECT_EQ(buffer, std::string(static_cast<std::size_t>(size), 'x') + untouched);
        EXPECT_EQ(host.tn_lib_proxy().TarnGetDirStd(buffer.data(), size), size);
        EXPECT_EQ(host.Tn_log().TarnGetUniqueObjectKey(buffer.data(), size), size);
        EXPECT_EQ(host.tn_lib_proxy().TarnIniEnumString("s", 1, buffer.data(), size, "f"), size);
        EXPECT_EQ(buffer.substr(static_cast<std::size_t>(size)), untouched);
    }
}

TEST(LibraryHost, ATooLongRecordDoesNoHarm) {
    LibraryHost host(LYING_HOST_FOLDER, noNotifier);
    struct {
        TarnBufferDesc descriptor{sizeof(TarnBufferDesc), 0, 0, 0, 0};
        std::array<char, 128> behind{};
    } ours;
    EXPECT_NE(host.tn_video().TarnVideoGetBufferDesc(0, &ours.descriptor), 0);
    EXPECT_EQ(ours.descriptor.width, 0x5a5a5a5a) << "the numbers themselves are the caller's to judge";
    EXPECT_THAT(ours.behind, testing::Each(0));
}

TEST(LibraryHost, LibrariesAreUnloadedAtTheEnd) {
    const HostFolder folder;
    { LibraryHost host(folder.path(), noNotifier); }
    folder.remove("tn_vduti");
    EXPECT_THAT(folder.whyNot(), HasSubstr("tn_vduti"));
    std::filesystem::copy(std::filesystem::path(MINIMAL_HOST_FOLDER) / fileOf("tn_vduti"), folder.path());
    EXPECT_EQ(folder.whyNot(), "");
}

} // namespace
} // namespace ocuva
