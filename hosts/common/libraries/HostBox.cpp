#include "hosts/common/libraries/HostBox.h"

#include "controls/HostMessageBox.h"

namespace hosts {

TarnLong showBox(const std::string& text, const std::string& title, TarnLong style) {
    return ocuva::showHostMessageBox(text, title, style);
}

void stayLoaded() {} // the library is linked so

} // namespace hosts
