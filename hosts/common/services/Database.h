#pragma once
// The host's database as far as standards are kept in it: handles onto ".std" files. Files are only read.

#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/Standards.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string_view>

namespace hosts {

/// One thread at a time.
class Database {
public:
    /// The log outlives it; the folder need not be there.
    Database(std::filesystem::path standardsFolder, HostLog& log);

    /// A handle onto an empty object, above 0; 0 for any type but "OCUVASTD" (with a log line).
    ocuva::Long objectNew(std::string_view type);

    /// Reads the file of that name, a relative one in the standards folder, into the object. False, with a
    /// log line and an empty object, when the file is no standard (Standards.h); false when the handle is not
    /// open.
    bool objectRead(ocuva::Long handle, std::string_view name);

    /// Closes the handle, which no later object gets again soon; false when it was not open.
    bool objectDelete(ocuva::Long handle);

    /// False, and the outputs untouched, before a successful read and for a standard without position.
    bool stagePos(ocuva::Long handle, ocuva::Long* x, ocuva::Long* y, ocuva::Long* z) const;

private:
    std::filesystem::path m_standardsFolder;
    HostLog& m_log;
    ocuva::Long m_lastHandle = 0;
    std::map<ocuva::Long, std::optional<ocuva::StagePosition>> m_objects;
};

} // namespace hosts
