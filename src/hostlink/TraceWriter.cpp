#include "hostlink/TraceWriter.h"

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace ocuva {

FileLimit traceLimit(const char* mebibytes) {
    FileLimit limit;
    if (mebibytes == nullptr) {
        return limit;
    }
    const std::string_view text = mebibytes;
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && end == text.data() + text.size() && number >= 1 && number <= 1024) {
        limit.maxBytes = static_cast<std::uintmax_t>(number) * 1024u * 1024u;
    } else {
        std::fprintf(stderr, "OCUVA_TRACE_MAX_MIB=%s is not a whole number from 1 to 1024; using 8.\n",
                     mebibytes);
    }
    return limit;
}

FileLimit traceLimit() { return traceLimit(std::getenv("OCUVA_TRACE_MAX_MIB")); }

TraceWriter::TraceWriter(std::filesystem::path file, const FileLimit& limit)
    : LineFile(std::move(file), limit, [](const std::string& trouble) {
        std::fprintf(stderr, "The trace file %s; continuing without a trace.\n", trouble.c_str());
    }) {
    open();
}

} // namespace ocuva
