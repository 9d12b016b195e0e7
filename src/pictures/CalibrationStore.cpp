#include "pictures/CalibrationStore.h"

#include "settings/SettingsTable.h"

#include <algorithm>
#include <charconv>

namespace ocuva {

namespace {

constexpr const char* section = "Calibration";
constexpr const char* key = "Points";
constexpr Long textCapacity = 256; // three points and a view of the longest numbers take 199
constexpr std::string_view viewMark = " @";

const char* store() { return storeName(SettingsStore::Program).c_str(); }

// Reads numbers and separators from the beginning of a text.
class Scanner {
public:
    explicit Scanner(std::string_view text)
        : m_rest(text) {}

    template <typename Number> bool number(Number& value) {
        const auto [end, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value);
        m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
        return error == std::errc{};
    }
    bool separator(char wanted) {
        const bool found = !m_rest.empty() && m_rest.front() == wanted;
        m_rest.remove_prefix(found ? 1 : 0);
        return found;
    }
    bool atEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
};

bool scanPoint(Scanner& scanner, CalibrationPoint& point) {
    return scanner.number(point.XI) && scanner.separator(',') && scanner.number(point.YI) &&
           scanner.separator(',') && scanner.number(point.XS) && scanner.separator(',') &&
           scanner.number(point.YS) && scanner.separator(',') && scanner.number(point.ZS);
}

} // namespace

std::string placeText(const ViewPlace& place) {
    return std::to_string(place.stage.x) + ',' + std::to_string(place.stage.y) + ',' +
           std::to_string(place.stage.z) + ',' + std::to_string(place.magnification);
}

std::optional<ViewPlace> parsePlaceText(std::string_view text) {
    Scanner scanner(text);
    ViewPlace place;
    const bool isPlace = scanner.number(place.stage.x) && scanner.separator(',') &&
                         scanner.number(place.stage.y) && scanner.separator(',') &&
                         scanner.number(place.stage.z) && scanner.separator(',') &&
                         scanner.number(place.magnification) && scanner.atEnd();
    return isPlace ? std::optional(place) : std::nullopt;
}

std::string storedText(const KeptCalibration& calibration) {
    std::string text;
    for (std::size_t i = 0; i < calibration.points.count(); ++i) {
        const CalibrationPoint& point = calibration.points.points.at(i);
        text += i == 0 ? "" : " ";
        text += std::to_string(point.XI) + ',' + std::to_string(point.YI) + ',' + std::to_string(point.XS) +
                ',' + std::to_string(point.YS) + ',' + std::to_string(point.ZS);
    }
    return calibration.place ? text + std::string(viewMark) + placeText(*calibration.place) : text;
}

std::optional<KeptCalibration> parseStoredText(std::string_view text) {
    KeptCalibration kept;
    if (const std::size_t mark = text.find(viewMark); mark != std::string_view::npos) {
        kept.place = parsePlaceText(text.substr(mark + viewMark.size()));
        if (!kept.place) {
            return {};
        }
        text = text.substr(0, mark);
    }
    Scanner scanner(text);
    CalibrationPoints& points = kept.points;
    if (!scanPoint(scanner, points.points[0]) || !scanner.separator(' ') ||
        !scanPoint(scanner, points.points[1])) {
        return {};
    }
    points.twoPoints = scanner.atEnd();
    if (!points.twoPoints && (!scanner.separator(' ') || !scanPoint(scanner, points.points[2]))) {
        return {};
    }
    return scanner.atEnd() ? std::optional(kept) : std::nullopt;
}

bool CalibrationStore::save(const KeptCalibration& calibration) {
    return m_reg.TarnRegisterSetString(section, key, storedText(calibration).c_str(), store()) != 0;
}

std::optional<KeptCalibration> CalibrationStore::load() const {
    std::array<char, textCapacity> buffer{};
    const Long length = m_reg.TarnRegisterGetString(section, key, "", buffer.data(), textCapacity, store());
    return parseStoredText({buffer.data(), static_cast<std::size_t>(std::clamp(length, 0, textCapacity))});
}

} // namespace ocuva
