#pragma once
// Packs the files of a report into one archive.

#include "report/ReportFiles.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace ocuva {

/// The reason why there is no report: one sentence for the operator, in the local encoding.
class ReportError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The contents of an archive.
struct ReportContents {
    std::string folder;            ///< the folder inside the archive that contains everything; ASCII
    std::vector<ReportFile> files; ///< files may be missing
    std::string versions;          ///< UTF-8, ends with a line feed; goes into "versions.txt"
    std::string home = {};         ///< the user's home folder, UTF-8 with slashes; removed from all texts
};

/// Whether this program was built with the archive library.
bool canPackReports();

/// Writes the archive to a temporary file and moves it to the target. The extension of the target decides
/// the format: .tar.gz or .zip, in any letter case. After a ReportError the target is unchanged, and no
/// temporary file is left.
///
/// The paths of pictures and the home folder are shortened in every line (ShortPaths.h).
///
/// A file is packed with the length it had when its turn came, even if it grows meanwhile. A file that is
/// missing, locked or not regular is left out (links are not followed), and one that shrinks is filled up
/// with zeros. versions.txt, the last file in the archive, mentions each of these.
void packReport(const std::filesystem::path& target, const ReportContents& contents);

} // namespace ocuva
