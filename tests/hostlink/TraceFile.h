#pragma once
// A trace file in a folder of its own, and its lines taken apart.

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

class TraceFile {
public:
    std::filesystem::path path() const {
        return std::filesystem::path(m_folder.path().toStdU16String()) / "trace.jsonl";
    }

    /// The lines as they stand; a last one without a line feed counts too.
    std::vector<std::string> lines() const {
        std::ifstream file(path(), std::ios::binary);
        std::vector<std::string> all;
        for (std::string line; std::getline(file, line);) {
            all.push_back(line);
        }
        return all;
    }

    /// The lines with their times, which no test can foresee, replaced by T. A time that is not written with
    /// three decimals stays.
    std::vector<std::string> timelessLines() const {
        std::vector<std::string> all = lines();
        for (std::string& line : all) {
            line = std::regex_replace(line, std::regex("\"ms\":[0-9]+\\.[0-9]{3},"), "\"ms\":T,");
        }
        return all;
    }

    /// The lines as JSON; empty objects stand for lines that are none.
    std::vector<QJsonObject> objects() const {
        std::vector<QJsonObject> all;
        for (const std::string& line : lines()) {
            all.push_back(QJsonDocument::fromJson(QByteArray::fromStdString(line)).object());
        }
        return all;
    }

private:
    QTemporaryDir m_folder;
};
