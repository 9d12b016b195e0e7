#pragma once
// The simulator's own configuration, the file "simulator.ini": every setting there is, and their reader.

#include "hosts/common/services/HostLog.h"
#include "hosts/common/services/IniText.h"
#include "hosts/common/services/PlatformFiles.h"
#include "hosts/simulated/world/SurfaceShape.h"

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace hosts::simulated {

/// One setting: its place, its default and the accepted range, both ends included.
struct SimSetting {
    /// Its place in the file.
    ///@{
    const char* section;
    const char* key;
    ///@}
    /// In the unit given in the comment.
    double defaultValue;
    /// Both are accepted.
    ///@{
    double lowest;
    double highest;
    ///@}
    const char* comment; ///< meaning and unit, as in the seeded file
};

namespace settings {

inline constexpr SimSetting seed{"World", "Seed",     20261,
                                 0,       2147483647, "same number, same world: a whole number"};
inline constexpr SimSetting timeFactor{"Clock", "TimeFactor", 1, 0.01, 1000, "simulated seconds per second"};

inline constexpr SimSetting xMin{"Stage", "XMin", -25000, -1e6, 1e6, "lower limit of X, stage units"};
inline constexpr SimSetting xMax{"Stage", "XMax", 25000, -1e6, 1e6, "upper limit of X, stage units"};
inline constexpr SimSetting yMin{"Stage", "YMin", -25000, -1e6, 1e6, "lower limit of Y, stage units"};
inline constexpr SimSetting yMax{"Stage", "YMax", 25000, -1e6, 1e6, "upper limit of Y, stage units"};
inline constexpr SimSetting zMin{"Stage", "ZMin", -1000, -1e6, 1e6, "lower limit of Z, stage units"};
inline constexpr SimSetting zMax{"Stage", "ZMax", 1000, -1e6, 1e6, "upper limit of Z, stage units"};
inline constexpr SimSetting speedX{"Stage", "SpeedX", 8000, 1, 1e7, "top speed, stage units per second"};
inline constexpr SimSetting speedY{"Stage", "SpeedY", 8000, 1, 1e7, "top speed, stage units per second"};
inline constexpr SimSetting speedZ{"Stage", "SpeedZ", 200, 1, 1e7, "top speed, stage units per second"};
inline constexpr SimSetting accelerationX{
    "Stage", "AccelerationX", 40000, 1, 1e9, "stage units per second squared"};
inline constexpr SimSetting accelerationY{
    "Stage", "AccelerationY", 40000, 1, 1e9, "stage units per second squared"};
inline constexpr SimSetting accelerationZ{
    "Stage", "AccelerationZ", 2000, 1, 1e9, "stage units per second squared"};
inline constexpr SimSetting startX{"Stage", "StartX", 0, -1e6, 1e6, "position at start, whole stage units"};
inline constexpr SimSetting startY{"Stage", "StartY", 0, -1e6, 1e6, "position at start, whole stage units"};
inline constexpr SimSetting startZ{"Stage", "StartZ", 0, -1e6, 1e6, "position at start, whole stage units"};
inline constexpr SimSetting backlashX{"Stage", "BacklashX", 10,
                                      0,       10000,       "approach distance, whole stage units"};
inline constexpr SimSetting backlashY{"Stage", "BacklashY", 10,
                                      0,       10000,       "approach distance, whole stage units"};
inline constexpr SimSetting backlashZ{"Stage", "BacklashZ", 10,
                                      0,       10000,       "approach distance, whole stage units"};

inline constexpr SimSetting depthOfField{"Optics", "DepthOfField", 2,
                                         0.01,     1000,           "sharp range of Z, stage units"};
inline constexpr SimSetting tiltX{"Optics", "SurfaceTiltX", 0.002, -1, 1, "rise of the sample per unit of X"};
inline constexpr SimSetting tiltY{
    "Optics", "SurfaceTiltY", -0.0015, -1, 1, "rise of the sample per unit of Y"};
inline constexpr SimSetting curvature{
    "Optics", "SurfaceCurvature",
    2e-8,     -1e-4,
    1e-4,     "bow of the sample, units of Z per square unit from the centre"};
inline constexpr SimSetting surfaceHeight{
    "Optics", "SurfaceHeight", 0, -1e6, 1e6, "Z in focus at X = Y = 0, stage units"};

inline constexpr SimSetting logSize{"Log", "MaxSizeMiB", 8,
                                    1,     1024,         "size at which tarn.log is moved aside, MiB"};

inline constexpr SimSetting noise{"Camera", "Noise", 2,
                                  0,        30,      "standard deviation of the camera's noise, grey levels"};

} // namespace settings

/// All of them, section by section, in the order of the seeded file.
inline constexpr const SimSetting* simSettings[] = {
    &settings::seed,          &settings::timeFactor,    &settings::xMin,      &settings::xMax,
    &settings::yMin,          &settings::yMax,          &settings::zMin,      &settings::zMax,
    &settings::speedX,        &settings::speedY,        &settings::speedZ,    &settings::accelerationX,
    &settings::accelerationY, &settings::accelerationZ, &settings::startX,    &settings::startY,
    &settings::startZ,        &settings::backlashX,     &settings::backlashY, &settings::backlashZ,
    &settings::depthOfField,  &settings::tiltX,         &settings::tiltY,     &settings::curvature,
    &settings::surfaceHeight, &settings::noise,         &settings::logSize,
};

/// The text of a "simulator.ini" that describes every setting and gives it its default.
std::string defaultSimConfigText();

/// Reads the file once, in the constructor: the world does not change during a run. A missing file or key
/// gives the defaults; an invalid value gives its default and one log line that names it. A value is a
/// number alone, without text after it. One thread at a time.
class SimConfig {
public:
    /// The log outlives it.
    SimConfig(const std::filesystem::path& file, HostLog& log);
    /// The same for a text that has been read already; the file's name is for the log.
    SimConfig(FileReading reading, std::filesystem::path file, HostLog& log);

    /// The value if it is within lowest to highest (both included), otherwise the default.
    double getDouble(std::string_view section, std::string_view key, double defaultValue, double lowest,
                     double highest);
    /// The same for whole numbers; "2.5" is not one.
    ocuva::Long getLong(std::string_view section, std::string_view key, ocuva::Long defaultValue,
                        ocuva::Long lowest, ocuva::Long highest);

    /// The same with section, key, default and range of a row of the table.
    ///@{
    double getDouble(const SimSetting& setting);
    ocuva::Long getLong(const SimSetting& setting);
    ///@}

    /// The sample that the [Optics] settings describe.
    SurfaceShape surface();

private:
    void complain(std::string_view section, std::string_view key, const std::string& value,
                  const std::string& used);

    std::filesystem::path m_file;
    HostLog& m_log;
    IniText m_ini;
    std::set<std::string> m_reported; ///< "section/key", so that each is told once
};

/// The sample of a world with the seeded configuration.
constexpr SurfaceShape defaultSurface() {
    return {settings::surfaceHeight.defaultValue, settings::tiltX.defaultValue, settings::tiltY.defaultValue,
            settings::curvature.defaultValue};
}

} // namespace hosts::simulated
