#pragma once
// Files packed into one archive, to be sent when you ask for help.

#include "report/ReportFiles.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace ocuva {

/// Why there is no report: one sentence for the operator, in the local encoding.
class ReportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What goes into an archive.
struct ReportContents {
    std::string folder;            ///< everything lies in it within the archive; ASCII
    std::vector<ReportFile> files; ///< one may be missing
    std::string versions;          ///< UTF-8, ends with a line feed; goes into "versions.txt"
    std::string home = {}; ///< the user's home folder, UTF-8 with slashes; no text in the report names it
};

/// Whether this program was built with what packing needs.
bool canPackReports();

/// Writes the archive aside and moves it to the target, whose name says which kind it is: .tar.gz or .zip, in
/// any letter case. On ReportError the target is as it was before, and nothing is left beside it.
///
/// The paths of pictures and the home folder are shortened in every line (ShortPaths.h).
///
/// A file is packed as long as it was when its turn came, whoever appends to it meanwhile. One that is
/// missing, locked or no regular file (a link is none, so that nothing comes in from elsewhere) is left out,
/// and one that gets shorter is filled up with zeros; versions.txt, the last in the archive, tells each.
void packReport(const std::filesystem::path& target, const ReportContents& contents);

} // namespace ocuva
