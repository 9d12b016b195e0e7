#include "hosts/common/services/Standards.h"

#include "hosts/common/services/IniText.h"
#include "hosts/common/services/Numerals.h"
#include "hosts/common/services/PlatformFiles.h"

#include <algorithm>

namespace hosts {

namespace {

StandardFile noStandard(std::string problem) {
    StandardFile result;
    result.problem = std::move(problem);
    return result;
}

/// Whole numbers only: "12.5" or "1e4" read by its first digits would send the stage to a wrong place.
std::optional<ocuva::Long> coordinate(const IniText& ini, const char* key) {
    const auto text = ini.value(standardType, key);
    return text ? wholeNumber(*text) : std::nullopt;
}

std::vector<std::filesystem::path> standardFiles(const std::filesystem::path& folder,
                                                 std::error_code& error) {
    std::vector<std::filesystem::path> files;
    std::filesystem::directory_iterator item(folder, error);
    for (; !error && item != std::filesystem::directory_iterator(); item.increment(error))
        if (equalIgnoringCase(item->path().extension().string(), ".std"))
            files.push_back(item->path());
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

StandardFile readStandardFile(const std::filesystem::path& file) {
    FileReading reading = readFile(file, maxStandardBytes);
    switch (reading.state) {
    case FileReading::State::absent:
        return noStandard("there is no such file");
    case FileReading::State::unreadable:
        return noStandard(reading.problem);
    case FileReading::State::tooLarge:
        return noStandard("it is larger than 1 MiB");
    case FileReading::State::read:
        break;
    }
    return standardOfText(std::move(reading.text), file.stem().string());
}

StandardFile standardOfText(std::string text, const std::string& defaultName) {
    StandardFile result;
    const auto ini = IniText::parse(std::move(text), &result.problem);
    if (!ini)
        return result;
    if (ini->entries(standardType).empty())
        return noStandard("it has no entries in section [OCUVASTD]");

    result.name = ini->value(standardType, "Name").value_or("");
    if (result.name.empty())
        result.name = defaultName;
    const auto x = coordinate(*ini, "X");
    const auto y = coordinate(*ini, "Y");
    const auto z = coordinate(*ini, "Z");
    if (x && y && z)
        result.position = ocuva::StagePosition{*x, *y, *z};
    return result;
}

std::string standardText(const std::string& name, const ocuva::StagePosition& position) {
    IniText ini;
    ini.setValue(standardType, "Name", name);
    ini.setValue(standardType, "X", std::to_string(position.x));
    ini.setValue(standardType, "Y", std::to_string(position.y));
    ini.setValue(standardType, "Z", std::to_string(position.z));
    return ini.text();
}

std::vector<StandardMount> readStandards(const std::filesystem::path& folder, HostLog& log) {
    std::vector<StandardMount> mounts;
    std::error_code error;
    for (const auto& file : standardFiles(folder, error)) {
        StandardFile standard = readStandardFile(file);
        if (!standard.problem.empty())
            log.line("Standard " + file.string() + " is left out: " + standard.problem);
        else if (!standard.position)
            log.line("Standard " + file.string() + " is left out: it is without position");
        else
            mounts.push_back({std::move(standard.name), *standard.position});
    }
    if (error)
        log.line("Standards folder " + folder.string() + " cannot be read: " + error.message());
    return mounts;
}

} // namespace hosts
