#include "pictures/PictureDescription.h"

#include <charconv>
#include <optional>
#include <system_error>

namespace ocuva {

namespace {

constexpr std::size_t extensionLength = 3;
constexpr std::string_view fileVersion = "1.0";
constexpr Integer zoomLine = 1; // independent of the display's zoom
// A description has 14 short lines; a longer file is something else.
constexpr std::size_t largestFile = 64 * 1024;

constexpr std::string_view versionLabel = "#Pic File Version";
constexpr std::string_view zoomLabel = "#Zoom";
constexpr std::string_view twoPointsLabel = "#TwoPoints";
constexpr std::string_view imageLabel = "#Image position 1 to 3";
constexpr std::string_view stageLabel = "#Stage position 1 to 3";

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string_view withoutBlanks(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Takes the lines of a description one by one.
class LineReader {
public:
    explicit LineReader(std::string_view text)
        : m_rest(text) {}

    void expectString(std::string_view expected) {
        if (withoutBlanks(next()) != quoted(expected)) {
            fail(quoted(expected));
        }
    }

    bool readFlag() {
        const std::string_view line = withoutBlanks(next());
        if (line != "#TRUE#" && line != "#FALSE#") {
            fail("#TRUE# or #FALSE#");
        }
        return line == "#TRUE#";
    }

    template <typename Whole, std::size_t count> std::array<Whole, count> readNumbers(const char* what) {
        std::array<Whole, count> numbers{};
        std::string_view line = next();
        for (std::size_t i = 0; i < count; ++i) {
            const bool isLast = i + 1 == count;
            const std::size_t comma = line.find(',');
            if (isLast != (comma == std::string_view::npos)) {
                fail(what);
            }
            const std::string_view item = withoutBlanks(line.substr(0, comma));
            const auto result = std::from_chars(item.data(), item.data() + item.size(), numbers[i]);
            if (result.ec != std::errc() || result.ptr != item.data() + item.size()) {
                fail(what);
            }
            line.remove_prefix(isLast ? line.size() : comma + 1);
        }
        return numbers;
    }

    void expectEnd() {
        if (!m_rest.empty()) {
            next();
            fail("the end of the file");
        }
    }

    [[noreturn]] void fail(const std::string& expected) const {
        throw PictureDescriptionError("Line " + std::to_string(m_number) +
                                      " of the picture description: " + expected + " was expected");
    }

private:
    std::string_view next() {
        ++m_number;
        if (m_rest.empty()) {
            fail("more");
        }
        const std::size_t end = m_rest.find('\n');
        if (end == std::string_view::npos) {
            // A file that was cut off ends like this, perhaps in the middle of a number that still reads as
            // one.
            fail("the end of the line");
        }
        std::string_view line = m_rest.substr(0, end);
        m_rest.remove_prefix(end + 1);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        return line;
    }

    std::string_view m_rest;
    int m_number = 0;
};

} // namespace

std::filesystem::path descriptionName(const std::filesystem::path& pictureName) {
    const std::filesystem::path::string_type& name = pictureName.native();
    if (name.size() < extensionLength) {
        return {};
    }
    std::filesystem::path result(name.substr(0, name.size() - extensionLength));
    result += "pic";
    return result;
}

std::string descriptionText(const CalibrationPoints& points) {
    std::string text;
    const auto line = [&text](const std::string& content) { text += content + "\r\n"; };
    const auto numbers = [](std::initializer_list<Long> items) {
        std::string content;
        for (const Long item : items) {
            content += (content.empty() ? "" : ",") + std::to_string(item);
        }
        return content;
    };
    line(quoted(versionLabel));
    line(quoted(fileVersion));
    line(quoted(zoomLabel));
    line(std::to_string(zoomLine));
    line(quoted(twoPointsLabel));
    line(points.twoPoints ? "#TRUE#" : "#FALSE#");
    line(quoted(imageLabel));
    for (std::size_t i = 0; i < points.count(); ++i) {
        line(numbers({points.points.at(i).XI, points.points.at(i).YI}));
    }
    line(quoted(stageLabel));
    for (std::size_t i = 0; i < points.count(); ++i) {
        const CalibrationPoint& point = points.points.at(i);
        line(numbers({point.XS, point.YS, point.ZS}));
    }
    return text;
}

CalibrationPoints parseDescription(std::string_view text) {
    LineReader lines(text);
    lines.expectString(versionLabel);
    lines.expectString(fileVersion);
    lines.expectString(zoomLabel);
    if (lines.readNumbers<Integer, 1>("the number 1")[0] != zoomLine) {
        lines.fail("the number 1");
    }
    lines.expectString(twoPointsLabel);
    CalibrationPoints points;
    points.twoPoints = lines.readFlag();
    lines.expectString(imageLabel);
    for (std::size_t i = 0; i < points.count(); ++i) {
        const auto image = lines.readNumbers<Integer, 2>("two 16-bit numbers");
        points.points.at(i).XI = image[0];
        points.points.at(i).YI = image[1];
    }
    lines.expectString(stageLabel);
    for (std::size_t i = 0; i < points.count(); ++i) {
        const auto stage = lines.readNumbers<Long, 3>("three 32-bit numbers");
        points.points.at(i).XS = stage[0];
        points.points.at(i).YS = stage[1];
        points.points.at(i).ZS = stage[2];
    }
    lines.expectEnd();
    return points;
}

namespace {

[[noreturn]] void failToWrite(const std::filesystem::path& name, const std::error_code& error) {
    throw PictureDescriptionError("The picture description " + name.string() +
                                  " could not be written: " + error.message());
}

} // namespace

void writeDescriptionFile(const AsideFile& file, const CalibrationPoints& points) {
    std::error_code error;
    file.file().write(descriptionText(points), error);
    if (error) {
        failToWrite(file.target(), error);
    }
}

void writeDescription(const std::filesystem::path& pictureName, const CalibrationPoints& points) {
    if (pictureName.empty()) {
        return;
    }
    const std::filesystem::path name = descriptionName(pictureName);
    if (name.empty()) {
        throw PictureDescriptionError("\"" + pictureName.string() +
                                      "\" has no extension that could be replaced");
    }
    if (const std::error_code error = replaceFile(name, descriptionText(points))) {
        failToWrite(name, error);
    }
}

CalibrationPoints readDescription(const std::filesystem::path& pictureName) {
    const std::filesystem::path name = descriptionName(pictureName);
    std::error_code error;
    const RegularFile file = RegularFile::openToRead(name, error);
    const std::optional<std::string> text = error ? std::nullopt : file.readAll(largestFile, error);
    if (error == make_error_code(FileRefusal::tooLarge)) {
        throw PictureDescriptionError(name.string() + " is too large for a picture description");
    }
    if (!text) {
        throw PictureDescriptionError("The picture description " + name.string() +
                                      " could not be opened: " + error.message());
    }
    return parseDescription(*text);
}

} // namespace ocuva
