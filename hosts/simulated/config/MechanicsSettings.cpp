#include "hosts/simulated/config/MechanicsSettings.h"

#include "hosts/common/services/Numerals.h"
#include "hosts/simulated/config/MechanicsTable.h"

namespace hosts::simulated {

namespace {

enum class Grade { ideal, fixed, dynamic };

Grade readGrade(Stores& stores, HostLog& log) {
    const std::string word = stores.getString(settings::mechanics, settings::grade, "ideal", "simulator.ini");
    if (equalIgnoringCase(word, "static")) {
        return Grade::fixed;
    }
    if (equalIgnoringCase(word, "dynamic")) {
        return Grade::dynamic;
    }
    if (!equalIgnoringCase(word, "ideal")) {
        log.line("Configuration simulator.ini: [Mechanics] Grade=\"" + word +
                 "\" is none of ideal, static and dynamic; ideal is used");
    }
    return Grade::ideal;
}

} // namespace

MechanicsSettings readMechanics(SimConfig& config, Stores& stores, HostLog& log) {
    using namespace settings;
    const Grade chosen = readGrade(stores, log);
    const auto value = [&](const GradedSetting& row) {
        const SimSetting& setting = row.setting;
        const double graded = chosen == Grade::ideal   ? setting.defaultValue
                              : chosen == Grade::fixed ? row.inStatic
                                                       : row.inDynamic;
        return config.getDouble(setting.section, setting.key, graded, setting.lowest, setting.highest);
    };
    MechanicsSettings result;
    result.wear.axes = {
        {{value(playX), value(driftX)}, {value(playY), value(driftY)}, {value(playZ), value(driftZ)}}};
    result.wear.settlingAmplitude = value(settlingAmplitude);
    result.wear.settlingMs = value(settlingMs);
    result.wear.stallAxis = config.getLong(stallAxis.setting);
    result.wear.stallAfter = value(stallAfter);
    result.wear.stallTimeoutMs = value(stallTimeoutMs);
    result.wear.otherControllerAmplitude = value(secondController);
    result.wear.otherControllerPeriodMs = value(secondControllerMs);
    result.scaleErrorX = value(scaleErrorX);
    result.scaleErrorY = value(scaleErrorY);
    result.tiltFactor = value(tiltFactor);
    return result;
}

} // namespace hosts::simulated
