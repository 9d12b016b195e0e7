#include "hosts/simulated/config/SimConfig.h"

#include "hosts/common/services/Numerals.h"
#include "hosts/simulated/config/MechanicsTable.h"

namespace hosts::simulated {

namespace {

// Shown but not set: a key that is set overrides its grade.
std::string mechanicsText() {
    std::string text = "\n[Mechanics]\n"
                       "; how worn the instrument is: ideal, static or dynamic; each key below overrides it\n"
                       "Grade=ideal\n";
    for (const GradedSetting* row : mechanicsSettings) {
        const SimSetting& setting = row->setting;
        text += "; " + std::string(setting.comment) + " (" + numberText(setting.lowest) + " to " +
                numberText(setting.highest) + "; static " + numberText(row->inStatic) + ", dynamic " +
                numberText(row->inDynamic) + ")\n;" + setting.key + "=" + numberText(setting.defaultValue) +
                "\n";
    }
    return text;
}

constexpr const char* faultsText =
    "\n[Faults]\n"
    "; read again while the host runs; take the semicolon away to break something, for example\n"
    ";TarnVideoBoardStartGrab=fail\n"
    ";TarnReadStageStatus.SlowMs=200\n"
    ";BoardRefuses=1\n;GrabStopsByItself=100\n;Camera=frozen\n;Stage=refusing\n;StageLie=10\n"
    ";Focus=nothing\n;DbObject=missing\n;StoreNotWritable=1\n;Lamp=0\n";

} // namespace

std::string defaultSimConfigText() {
    std::string text =
        "; The simulated host's own configuration. Every setting is shown with its default; delete a\n"
        "; line to return to it. Read when the host starts.\n";
    std::string_view section;
    for (const SimSetting* setting : simSettings) {
        if (section != setting->section)
            text += "\n[" + std::string(setting->section) + "]\n";
        section = setting->section;
        text += "; " + std::string(setting->comment) + " (" + numberText(setting->lowest) + " to " +
                numberText(setting->highest) + ")\n" + setting->key + "=" +
                numberText(setting->defaultValue) + "\n";
    }
    return text + mechanicsText() + faultsText;
}

SimConfig::SimConfig(const std::filesystem::path& file, HostLog& log)
    : SimConfig(readFile(file, IniText::maxBytes), file, log) {}

SimConfig::SimConfig(FileReading reading, std::filesystem::path file, HostLog& log)
    : m_file(std::move(file))
    , m_log(log) {
    std::string problem = reading.problem;
    if (reading.state == FileReading::State::tooLarge)
        problem = "it is larger than 16 MiB";
    if (reading.state == FileReading::State::read)
        if (auto ini = IniText::parse(std::move(reading.text), &problem))
            m_ini = std::move(*ini);
    if (!problem.empty())
        m_log.line("Configuration " + m_file.string() + " cannot be read, defaults hold: " + problem);
}

double SimConfig::getDouble(std::string_view section, std::string_view key, double defaultValue,
                            double lowest, double highest) {
    const auto text = m_ini.value(section, key);
    if (!text)
        return defaultValue;
    const auto value = number(*text);
    if (value && *value >= lowest && *value <= highest)
        return *value;
    complain(section, key, *text, numberText(defaultValue));
    return defaultValue;
}

ocuva::Long SimConfig::getLong(std::string_view section, std::string_view key, ocuva::Long defaultValue,
                               ocuva::Long lowest, ocuva::Long highest) {
    const auto text = m_ini.value(section, key);
    if (!text)
        return defaultValue;
    const auto value = wholeNumber(*text);
    if (value && *value >= lowest && *value <= highest)
        return *value;
    complain(section, key, *text, std::to_string(defaultValue));
    return defaultValue;
}

double SimConfig::getDouble(const SimSetting& setting) {
    return getDouble(setting.section, setting.key, setting.defaultValue, setting.lowest, setting.highest);
}

ocuva::Long SimConfig::getLong(const SimSetting& setting) {
    return getLong(setting.section, setting.key, static_cast<ocuva::Long>(setting.defaultValue),
                   static_cast<ocuva::Long>(setting.lowest), static_cast<ocuva::Long>(setting.highest));
}

SurfaceShape SimConfig::surface() {
    return {getDouble(settings::surfaceHeight), getDouble(settings::tiltX), getDouble(settings::tiltY),
            getDouble(settings::curvature)};
}

void SimConfig::complain(std::string_view section, std::string_view key, const std::string& value,
                         const std::string& used) {
    if (!m_reported.insert(std::string(section) + '/' + std::string(key)).second)
        return;
    m_log.line("Configuration " + m_file.string() + ": [" + std::string(section) + "] " + std::string(key) +
               "=\"" + value + "\" is not a usable value, " + used + " is used");
}

} // namespace hosts::simulated
