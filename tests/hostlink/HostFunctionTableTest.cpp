// The table of host functions against the C header that host libraries are written by.
#include "hostlink/Host.h"
#include "hostlink/LibraryHost.h"

#include <algorithm>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>
#include <regex>

namespace ocuva {
namespace {

TEST(HostFunctionTable, ListsTheFunctionsOfTheCHeaderInTheirOrder) {
    std::ifstream file(TARN_ABI_HEADER, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    const std::regex declaration("\\n[A-Za-z]+ TARN_CALL (Tarn[A-Za-z0-9]+)\\(");
    std::vector<std::string> declared;
    for (std::sregex_iterator found(text.begin(), text.end(), declaration), end; found != end; ++found) {
        declared.push_back((*found)[1]);
    }
    EXPECT_EQ(declared, std::vector<std::string>(hostFunctionNames.begin(), hostFunctionNames.end()));
}

TEST(HostFunctionTable, NamesTheLibrariesThatAreLoaded) {
#define FILE_NAME(Class, library, file, FUNCTIONS) #file,
    std::vector<std::string> files{TARN_LIBRARIES(FILE_NAME)};
#undef FILE_NAME
    files.erase(std::unique(files.begin(), files.end()), files.end());
    EXPECT_THAT(files, testing::ElementsAreArray(LibraryHost::names));
}

} // namespace
} // namespace ocuva
