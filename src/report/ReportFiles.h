#pragma once
// Which files a report is made of.

#include <filesystem>
#include <string>
#include <vector>

namespace ocuva {

/// A file on the disk, and what it is called in the report: ASCII, with "/" between folders.
struct ReportFile {
    std::filesystem::path path; ///< on the disk
    std::string name;           ///< in the report, unique there
};

/// Who keeps the log and the settings that the program has been running on.
enum class Keeper {
    program,      ///< they lie in the program's data folder
    hostLibraries ///< wherever the host keeps them; what lies in the data folder is of some other run
};

/// The files of the data folder that belong into a report: the journal and, unless the host's libraries keep
/// their own, the log and the settings, each followed by those that were moved away before it (name.1,
/// name.2 ...; base/FileRotation.h). One that should be there is listed whether it is or not; nothing else of
/// the folder is.
std::vector<ReportFile> dataFiles(const std::filesystem::path& dataFolder, Keeper keeper);

/// A trace and those before it, as "trace.jsonl", "trace.jsonl.1" ... whatever the file is called; none for
/// an empty path.
std::vector<ReportFile> traceFiles(const std::filesystem::path& trace);

} // namespace ocuva
