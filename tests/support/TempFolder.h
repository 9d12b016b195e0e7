#pragma once
// A folder of its own for one test, gone with everything in it at the end.

#include "hosts/common/services/PlatformFiles.h"
#include "hosts/common/services/UniqueKey.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

class TempFolder {
public:
    TempFolder()
        : m_path(std::filesystem::temp_directory_path() / ("ocuva-test-" + hosts::uniqueKey())) {
        std::filesystem::create_directories(m_path);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(const std::string& name) const { return m_path / name; }

    void write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((m_path / name).parent_path());
        std::ofstream(m_path / name, std::ios::binary) << text;
    }
    std::string read(const std::string& name) const {
        std::ifstream file(m_path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::vector<std::string> lines(const std::string& name) const {
        std::ifstream file(m_path / name, std::ios::binary);
        std::vector<std::string> result;
        for (std::string line; std::getline(file, line);)
            result.push_back(line);
        return result;
    }
    bool has(const std::string& name) const { return std::filesystem::exists(m_path / name); }

private:
    std::filesystem::path m_path;
};
