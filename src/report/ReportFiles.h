#pragma once
// The files of a report.

#include <filesystem>
#include <string>
#include <vector>

namespace ocuva {

/// A file on the disk, and its name in the report: ASCII, with "/" between folders.
struct ReportFile {
    std::filesystem::path path; ///< on the disk
    std::string name;           ///< in the report, unique there
};

/// Who keeps the log and the settings of this run.
enum class Keeper {
    program,      ///< they are in the program's data folder
    hostLibraries ///< the host keeps them; files in the data folder are from another run
};

/// The files of the data folder for a report: the journal and, unless the host's libraries keep their own,
/// the log and the settings, each followed by its older files (name.1, name.2 ...; base/FileRotation.h).
/// Expected files are listed even if they are missing. Nothing else in the folder is listed.
std::vector<ReportFile> dataFiles(const std::filesystem::path& dataFolder, Keeper keeper);

/// A trace and its older files, as "trace.jsonl", "trace.jsonl.1" ... whatever the file is called; none
/// for an empty path.
std::vector<ReportFile> traceFiles(const std::filesystem::path& trace);

} // namespace ocuva
