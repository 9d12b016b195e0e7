// Used if the program is built without the archive library.

#include "report/Report.h"

namespace ocuva {

bool canPackReports() { return false; }

void packReport(const std::filesystem::path& /*target*/, const ReportContents& /*contents*/) {
    throw ReportError("This program was built without support for reports.");
}

} // namespace ocuva
