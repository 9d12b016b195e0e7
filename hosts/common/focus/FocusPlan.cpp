#include "hosts/common/focus/FocusPlan.h"

#include "base/Product.h"
#include "hosts/common/services/Numerals.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <string>

namespace hosts {

using ocuva::Long;

namespace {

struct Parameter {
    const char* section;
    const char* key;
    Long defaultValue;
    Long lowest;
    Long highest;
};

constexpr Long anyLowest = std::numeric_limits<Long>::min();
constexpr Long anyHighest = std::numeric_limits<Long>::max();

constexpr Parameter zRange{"Fine Parameters", "Z Range", 18, 2, 2000};
constexpr Parameter numberOfPoints{"Fine Parameters", "Number of points", 7, 3, 101};
constexpr Parameter onAllImage{"Configuration", "AutofocusOnAllImage", 1, anyLowest, anyHighest};
constexpr Parameter imageFraction{"Configuration", "AutofocusOnImageFraction", 3, 2, 8};
constexpr Parameter useTransmittedLight{"Configuration", "UseTransmittedLight", 0, anyLowest, anyHighest};

class PlanReader {
public:
    PlanReader(Stores& stores, HostLog& log)
        : m_stores(stores)
        , m_log(log) {}

    Long read(const Parameter& parameter) {
        const std::string absent = std::to_string(parameter.defaultValue);
        const std::string text = m_stores.getString(parameter.section, parameter.key, absent, m_store);
        const std::optional<Long> stored = leadingWholeNumber(text);
        const Long used =
            std::clamp(stored.value_or(parameter.defaultValue), parameter.lowest, parameter.highest);
        if (used != stored) {
            m_log.line("autofocus: " + m_store + ": [" + parameter.section + "] " + parameter.key + "=\"" +
                       text + "\" cannot be used, " + std::to_string(used) + " is");
        }
        return used;
    }

private:
    Stores& m_stores;
    HostLog& m_log;
    std::string m_store = std::string(ocuva::productTitle) + ".INI";
};

} // namespace

FocusPlan readFocusPlan(Stores& stores, HostLog& log) {
    PlanReader reader(stores, log);
    FocusPlan plan;
    plan.range = reader.read(zRange);
    plan.points = reader.read(numberOfPoints);
    plan.fraction = reader.read(onAllImage) != 0 ? 1 : reader.read(imageFraction);
    plan.transmittedLight = reader.read(useTransmittedLight) != 0;
    return plan;
}

} // namespace hosts
