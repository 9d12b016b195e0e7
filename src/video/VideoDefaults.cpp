#include "video/VideoDefaults.h"

#include "base/Numbers.h"
#include "settings/SettingsTable.h"
#include "video/BoardSetup.h"

#include <array>
#include <optional>

namespace ocuva {

namespace {

// The section's name has a single backslash.
constexpr const char* referencesSection = "tn_video\\meteor2";

Long hundredths(Double value) {
    constexpr Double scale = 100.0;
    return toLong(value * scale);
}

} // namespace

void VideoDefaults::storeReference(CameraReference reference, const std::string& suffix, Double value) {
    if (m_board.BoardType() != boardWithDisplay) {
        return;
    }
    const std::string key = cameraReferenceRow(reference).defaultKey + suffix;
    const std::string text = std::to_string(hundredths(value));
    m_reg.TarnRegisterSetString(referencesSection, key.c_str(), text.c_str(),
                                storeName(SettingsStore::Host).c_str());
}

void VideoDefaults::save() {
    const Long boardType = m_board.BoardType();
    const Long cameraType = m_video.TarnVideoGetCurrentCameraType();
    const bool keepsReferences = boardType == boardWithDisplay && cameraType != 0;
    std::array<std::optional<Double>, cameraReferences.size()> values;
    for (std::size_t i = 0; keepsReferences && i < values.size(); ++i) {
        values[i] = readCameraReference(m_video, cameraReferences[i].reference);
        if (values[i]) {
            hundredths(*values[i]); // fails before the first reference is stored
        }
    }

    m_libProxy.TarnSetVideoBoardType(boardType);
    if (cameraType != 0) {
        m_libProxy.TarnSetVideoCameraType(cameraType);
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i]) {
            storeReference(cameraReferences[i].reference, std::to_string(cameraType), *values[i]);
        }
    }
}

} // namespace ocuva
