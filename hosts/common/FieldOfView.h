#pragma once
// How much of the sample the camera sees, from the settings that the host keeps: store "TARN.INI", section
// "tn_video", keys "VideoMag", "VideoMag100X" and "VideoMag100Y".

#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/Stores.h"

#include <map>
#include <mutex>
#include <string>

namespace hosts {

/// The field of view: stage units across the whole picture, both > 0.
struct FieldSize {
    double width = 640.0;
    double height = 480.0;
};

/// Any thread. A stored value that is no number above 0 counts as its default, with one log line for each
/// such value.
class FieldOfView {
public:
    FieldOfView(Stores& stores, HostLog& log);

    /// The whole field at the present magnification: factors x 100 / magnification. Cheap while nothing
    /// changes.
    FieldSize seen();

    /// Width and height of the whole field at magnification 100.
    FieldSize factors();
    /// False, with a log line, for factors that are not finite numbers above 0 or cannot be written.
    bool setFactors(float width, float height);

    static constexpr const char* store = "TARN.INI";
    static constexpr const char* section = "tn_video";
    static constexpr int defaultMagnification = 400;
    static constexpr double defaultWidth = 2560.0;  ///< stage units at magnification 100
    static constexpr double defaultHeight = 1920.0; ///< stage units at magnification 100

private:
    double positive(const char* key, double defaultValue, bool whole);
    FieldSize readFactors();

    Stores& m_stores;
    HostLog& m_log;
    std::mutex m_mutex;
    bool m_known = false;
    std::uint64_t m_revision = 0; ///< of the store that m_seen was read from
    FieldSize m_seen;
    std::map<std::string, std::string> m_refused; ///< the last unusable value of each key
};

} // namespace hosts
