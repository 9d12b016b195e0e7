#include "hosts/simulated/faults/FaultPlan.h"

#include "hostlink/Host.h"
#include "hosts/common/services/Numerals.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace hosts::simulated {

namespace {

using Faults = FaultPlan::Faults;

bool isOff(std::string_view value) {
    return value.empty() || value == "0" || equalIgnoringCase(value, "off");
}

/// A word of a list, by its place; "off" is place 0.
template <typename Word, std::size_t count>
bool takeWord(std::string_view value, const std::string_view (&words)[count], Word& word) {
    for (std::size_t i = 0; i < count; ++i) {
        if (equalIgnoringCase(value, words[i])) {
            word = static_cast<Word>(i + 1);
            return true;
        }
    }
    return false;
}

bool takeFlag(std::string_view value, bool& flag) {
    flag = value == "1";
    return flag;
}

bool takeNumber(std::string_view value, double lowest, double highest, double& result) {
    const std::optional<double> found = number(value);
    const bool usable = found && *found >= lowest && *found <= highest;
    if (usable) {
        result = *found;
    }
    return usable;
}

bool failFunction(Faults& faults, const char* name) {
    faults.functions[name].fails = true;
    return true;
}

constexpr std::string_view cameraWords[] = {"frozen", "stuck", "black", "late", "torn"};
constexpr std::string_view stageWords[] = {"refusing", "stalling", "lying"};

/// The faults of devices: what a value that is not "off" does. False for a value that it cannot be.
struct DeviceRow {
    std::string_view key;
    bool (*take)(std::string_view value, Faults& faults);
    bool offIsNought = false; ///< 0 is a value like any other
};

constexpr DeviceRow deviceRows[] = {
    {"BoardRefuses", [](std::string_view v, Faults& f) { return takeFlag(v, f.devices.boardRefuses); }},
    {"GrabStopsByItself",
     [](std::string_view v, Faults& f) {
         const std::optional<ocuva::Long> frames = wholeNumber(v);
         const bool usable = frames && *frames >= 1 && *frames <= FaultPlan::mostFrames;
         f.devices.grabStopsAfter = usable ? *frames : 0;
         return usable;
     }},
    {"Camera", [](std::string_view v, Faults& f) { return takeWord(v, cameraWords, f.devices.camera); }},
    {"Stage", [](std::string_view v, Faults& f) { return takeWord(v, stageWords, f.devices.stage); }},
    {"StageLie",
     [](std::string_view v, Faults& f) {
         return takeNumber(v, -FaultPlan::greatestLie, FaultPlan::greatestLie, f.devices.stageLie);
     },
     true},
    {"Focus",
     [](std::string_view v, Faults& f) {
         f.devices.focusFindsNothing = equalIgnoringCase(v, "nothing");
         return f.devices.focusFindsNothing;
     }},
    {"DbObject",
     [](std::string_view v, Faults& f) {
         return (equalIgnoringCase(v, "missing") && failFunction(f, "TarnDbObjectRead")) ||
                (equalIgnoringCase(v, "noposition") && failFunction(f, "TarnDbGetStagePos"));
     }},
    {"StoreNotWritable",
     [](std::string_view v, Faults& f) {
         return v == "1" && failFunction(f, "TarnRegisterSetString") &&
                failFunction(f, "TarnSetVideoMag100Factors");
     }},
    {"Lamp",
     [](std::string_view v, Faults& f) {
         double lamp = 1.0;
         const bool usable = takeNumber(v, 0.0, 1.0, lamp);
         f.devices.lamp *= lamp;
         return usable;
     },
     true},
};

/// The host function of that name in any letter case; empty if there is none.
std::string_view hostFunction(std::string_view name) {
    const auto& names = ocuva::hostFunctionNames;
    const auto* const found = std::find_if(
        names.begin(), names.end(), [name](std::string_view each) { return equalIgnoringCase(each, name); });
    return found == names.end() ? std::string_view() : *found;
}

/// "<function>=fail" and "<function>.SlowMs=<number>"; nothing when the key names no function.
std::optional<bool> takeFunction(std::string_view key, std::string_view value, Faults& faults) {
    constexpr std::string_view slow = ".SlowMs";
    const bool isSlow =
        key.size() > slow.size() && equalIgnoringCase(key.substr(key.size() - slow.size()), slow);
    const std::string_view function = hostFunction(isSlow ? key.substr(0, key.size() - slow.size()) : key);
    if (function.empty()) {
        return std::nullopt;
    }
    if (isOff(value)) {
        return true;
    }
    FunctionFault fault;
    const bool usable = isSlow ? takeNumber(value, 0.0, FaultPlan::slowestMs, fault.slowMs)
                               : (fault.fails = equalIgnoringCase(value, "fail"));
    if (usable) {
        FunctionFault& kept = faults.functions[std::string(function)];
        kept.fails = kept.fails || fault.fails;
        kept.slowMs = std::max(kept.slowMs, fault.slowMs);
    }
    return usable;
}

std::optional<bool> takeDevice(std::string_view key, std::string_view value, Faults& faults) {
    for (const DeviceRow& row : deviceRows) {
        if (equalIgnoringCase(row.key, key)) {
            const bool off =
                row.offIsNought ? value.empty() || equalIgnoringCase(value, "off") : isOff(value);
            return off || row.take(value, faults);
        }
    }
    return std::nullopt;
}

} // namespace

FaultPlan::FaultPlan(Stores& stores, HostLog& log, std::string store)
    : m_stores(stores)
    , m_log(log)
    , m_store(std::move(store)) {}

FunctionFault FaultPlan::function(std::string_view name) {
    const std::lock_guard lock(m_mutex);
    const Faults& faults = refreshed();
    const auto found = faults.functions.find(name);
    return found == faults.functions.end() ? FunctionFault() : found->second;
}

DeviceFaults FaultPlan::devices() {
    const std::lock_guard lock(m_mutex);
    return refreshed().devices;
}

const FaultPlan::Faults& FaultPlan::refreshed() {
    const std::uint64_t revision = m_stores.revision(m_store);
    if (m_known && revision == m_revision) {
        return m_faults;
    }
    Faults faults;
    std::string told;
    const ocuva::Long count = m_stores.entryCount(section, m_store);
    for (ocuva::Long i = 1; i <= count; ++i) {
        take(m_stores.entry(section, i, m_store), faults, told);
    }
    takeLamp(faults);
    m_faults = std::move(faults);
    m_revision = revision;
    m_known = true;
    if (told != m_told) {
        m_log.line(told.empty() ? "faults: none any more" : "faults:" + told);
        m_told = told;
    }
    return m_faults;
}

void FaultPlan::take(const std::string& entry, Faults& faults, std::string& told) {
    const std::size_t equals = entry.find('=');
    if (equals == std::string::npos) {
        return;
    }
    const std::string_view key = trimmed(std::string_view(entry).substr(0, equals));
    const std::string_view value = trimmed(std::string_view(entry).substr(equals + 1));
    std::optional<bool> taken = takeFunction(key, value, faults);
    if (!taken) {
        taken = takeDevice(key, value, faults);
    }
    if (!taken) {
        complain("there is no fault \"" + std::string(key) + "\"");
    } else if (!*taken) {
        complain(entry + " is not a usable fault, it is off");
    } else if (!isOff(value) || equalIgnoringCase(key, "Lamp")) {
        told += ' ' + entry;
    }
}

void FaultPlan::takeLamp(Faults& faults) {
    const std::string text = m_stores.getString("Camera", "Lamp", "", m_store);
    double lamp = 1.0;
    if (!text.empty() && !takeNumber(text, 0.0, 1.0, lamp)) {
        complain("[Camera] Lamp=" + text + " is not a usable value, 1 is used");
    }
    faults.devices.lamp *= lamp;
}

void FaultPlan::complain(const std::string& sentence) {
    if (m_reported.insert(sentence).second) {
        m_log.line("Configuration " + m_store + ": " + sentence);
    }
}

} // namespace hosts::simulated
