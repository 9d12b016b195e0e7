#include "hosts/common/FieldOfView.h"

#include "hosts/common/services/Numerals.h"

#include <cmath>

namespace hosts {

namespace {
constexpr const char* widthKey = "VideoMag100X";
constexpr const char* heightKey = "VideoMag100Y";
} // namespace

FieldOfView::FieldOfView(Stores& stores, HostLog& log)
    : m_stores(stores)
    , m_log(log) {}

FieldSize FieldOfView::seen() {
    const std::lock_guard lock(m_mutex);
    const std::uint64_t revision = m_stores.revision(store);
    if (!m_known || revision != m_revision) {
        const double magnification = positive("VideoMag", defaultMagnification, true);
        const FieldSize at100 = readFactors();
        m_seen = {at100.width * 100.0 / magnification, at100.height * 100.0 / magnification};
        m_revision = revision;
        m_known = true;
    }
    return m_seen;
}

FieldSize FieldOfView::factors() {
    const std::lock_guard lock(m_mutex);
    return readFactors();
}

FieldSize FieldOfView::readFactors() {
    return {positive(widthKey, defaultWidth, false), positive(heightKey, defaultHeight, false)};
}

double FieldOfView::positive(const char* key, double defaultValue, bool whole) {
    const std::string text = m_stores.getString(section, key, "", store);
    if (text.empty()) {
        return defaultValue;
    }
    // A whole number is read as the settings functions read it, so that program and camera agree.
    const std::optional<double> value =
        whole ? std::optional<double>(leadingWholeNumber(text)) : number(text);
    if (value && *value > 0.0) {
        m_refused.erase(key);
        return *value;
    }
    if (std::string& refused = m_refused[key]; refused != text) {
        refused = text;
        m_log.line(std::string("[tn_video] ") + key + "=" + text + " in " + store +
                   " is no number above 0; the camera uses " + numberText(defaultValue));
    }
    return defaultValue;
}

bool FieldOfView::setFactors(float width, float height) {
    const auto usable = [](float factor) { return std::isfinite(factor) && factor > 0.0F; };
    if (!usable(width) || !usable(height)) {
        m_log.line("magnification factors " + std::to_string(width) + " and " + std::to_string(height) +
                   " refused: both must be above 0");
        return false;
    }
    const bool widthKept = m_stores.setString(section, widthKey, numberText(width), store);
    return m_stores.setString(section, heightKey, numberText(height), store) && widthKept;
}

} // namespace hosts
