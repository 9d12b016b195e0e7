#include "report/ReportFiles.h"

#include "base/Product.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string_view>
#include <system_error>

namespace ocuva {

namespace {

/// The number after "stem."; 0 for any other name. Compared in the system's own encoding, because no other
/// one can represent every name.
int rotation(const std::filesystem::path& name, const std::filesystem::path& stem) {
    const std::filesystem::path::string_type dotted = stem.native() + std::filesystem::path(".").native();
    const std::filesystem::path::string_type& whole = name.native();
    if (whole.compare(0, dotted.size(), dotted) != 0) {
        return 0;
    }
    constexpr std::size_t mostDigits = 4;
    std::string digits;
    for (const auto character : whole.substr(dotted.size())) {
        if (character < '0' || character > '9' || digits.size() == mostDigits) {
            return 0;
        }
        digits += static_cast<char>(character);
    }
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

void addWithRotated(std::vector<ReportFile>& files, const std::filesystem::path& file,
                    const std::string& name) {
    files.push_back({file, name});
    std::map<int, std::filesystem::path> rotated;
    std::error_code error;
    std::filesystem::directory_iterator entry(file.parent_path(), error);
    // An unreadable folder has no files; packing then reports them as missing.
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (const int number = rotation(entry->path().filename(), file.filename())) {
            rotated.emplace(number, entry->path());
        }
    }
    for (const auto& [number, path] : rotated) {
        files.push_back({path, name + "." + std::to_string(number)});
    }
}

} // namespace

std::vector<ReportFile> dataFiles(const std::filesystem::path& dataFolder, Keeper keeper) {
    std::vector<ReportFile> files;
    addWithRotated(files, dataFolder / "journal.csv", "journal.csv");
    if (keeper == Keeper::program) {
        addWithRotated(files, dataFolder / "tarn.log", "tarn.log");
        for (const std::string& name : {std::string(productTitle) + ".INI", std::string("TARN.INI"),
                                        std::string("TARN"), std::string("simulator.ini")}) {
            files.push_back({dataFolder / name, name});
        }
    }
    return files;
}

std::vector<ReportFile> traceFiles(const std::filesystem::path& trace) {
    std::vector<ReportFile> files;
    if (!trace.empty()) {
        std::error_code error;
        const std::filesystem::path absolute = std::filesystem::absolute(trace, error);
        addWithRotated(files, error ? trace : absolute, "trace.jsonl");
    }
    return files;
}

} // namespace ocuva
