// "simulator.ini". Input: the file's text.
#include "Fuzz.h"
#include "hosts/common/services/Numerals.h"
#include "hosts/simulated/config/SimConfig.h"

#include <cmath>
#include <string>

using fuzz::require;
using namespace hosts;
using namespace hosts::simulated;

namespace {

bool inRange(double value, const SimSetting& setting) {
    return value >= setting.lowest && value <= setting.highest;
}

bool isWhole(double value) { return value == std::floor(value); }

/// Settings like a depth of 0.01 to 1000 are never asked for as whole numbers.
void checkWhole(SimConfig& config, const SimSetting& setting) {
    if (!isWhole(setting.defaultValue) || !isWhole(setting.lowest) || !isWhole(setting.highest))
        return;
    const ocuva::Long whole = config.getLong(setting);
    require(inRange(whole, setting), "a whole setting lies in its range");
    require(config.getLong(setting) == whole, "a whole setting reads the same every time");
}

void checkSetting(SimConfig& config, const IniText& ini, const SimSetting& setting) {
    const double value = config.getDouble(setting);
    const auto stored = ini.value(setting.section, setting.key);
    if (!stored) {
        require(value == setting.defaultValue, "a setting that is not there has its default");
        return;
    }
    const auto number = hosts::number(*stored);
    const bool usable = number && inRange(*number, setting);
    require(value == (usable ? *number : setting.defaultValue),
            "a setting is what is stored, or its default");
    require(config.getDouble(setting) == value, "a setting reads the same every time");
    checkWhole(config, setting);
}

/// For log lines that nobody reads, gone at the end of the run.
struct ScratchFile {
    ~ScratchFile() { std::filesystem::remove(path); }
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("ocuva-fuzz-" + std::to_string(processId()) + ".log");
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
    static const ScratchFile file;
    static HostLog log(file.path, [] { return std::string(); });
    FileReading reading;
    reading.state = FileReading::State::read;
    reading.text = fuzz::textOf(bytes, count);
    const IniText ini = IniText::parse(reading.text).value_or(IniText());

    SimConfig config(std::move(reading), "simulator.ini", log);
    for (const SimSetting* setting : simSettings)
        checkSetting(config, ini, *setting);
    const SurfaceShape surface = config.surface();
    require(std::isfinite(surface.at(25000.0, -25000.0)), "the sample has a height everywhere");
    return 0;
}
