#include "simhost/faults/HostFunctions.h"

#include "simhost/services/Numerals.h"

#include <algorithm>

namespace simhost {

const HostFunction* findHostFunction(std::string_view name) {
    const auto* const found =
        std::find_if(hostFunctions.begin(), hostFunctions.end(),
                     [name](const HostFunction& each) { return equalIgnoringCase(each.name, name); });
    return found == hostFunctions.end() ? nullptr : &*found;
}

} // namespace simhost
