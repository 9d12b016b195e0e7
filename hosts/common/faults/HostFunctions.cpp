#include "hosts/common/faults/HostFunctions.h"

#include "hosts/common/services/Numerals.h"

#include <algorithm>

namespace hosts {

const HostFunction* findHostFunction(std::string_view name) {
    const auto* const found =
        std::find_if(hostFunctions.begin(), hostFunctions.end(),
                     [name](const HostFunction& each) { return equalIgnoringCase(each.name, name); });
    return found == hostFunctions.end() ? nullptr : &*found;
}

} // namespace hosts
