#pragma once
// Standards: reference samples whose stage positions the host keeps, one ".std" file each.
//
// A ".std" file is INI text (IniText.h) of at most 1 MiB:
//     [OCUVASTD]
//     Name=Quartz      shown to people; the file's name without ".std" where it is absent
//     X=-9000          stage position in whole stage units, 32 bits
//     Y=4000
//     Z=-22
// A file without that section is no standard. One in which X, Y or Z is absent or no whole number is a
// standard without position.

#include "base/StagePosition.h"
#include "base/Types.h"
#include "hosts/common/services/HostLog.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace hosts {

inline constexpr const char* standardType = "OCUVASTD"; ///< type name of the database object, and the section
inline constexpr std::size_t maxStandardBytes = 1024u * 1024u;

/// What one file holds.
struct StandardFile {
    std::string name;                             ///< from the file, otherwise the file's name
    std::optional<ocuva::StagePosition> position; ///< nothing if the file contains none
    std::string problem;                          ///< why the file is no standard; empty when it is one
};

StandardFile readStandardFile(const std::filesystem::path& file);

/// The standard in a file with that text; the default name is used if the text has none.
StandardFile standardOfText(std::string text, const std::string& defaultName);

/// The text of a ".std" file that reads back as exactly this. A name that no INI text can hold (a control
/// character) is left out.
std::string standardText(const std::string& name, const ocuva::StagePosition& position);

/// A standard that sits on the stage.
struct StandardMount {
    std::string name;              ///< of the standard
    ocuva::StagePosition position; ///< of its middle; Z is the focus there
};

/// All standards of a folder (files ending in ".std", in any letter case) by file name. Files that are not
/// standards or have no position are left out with a log line each; a missing folder has none, with a log
/// line.
std::vector<StandardMount> readStandards(const std::filesystem::path& folder, HostLog& log);

} // namespace hosts
