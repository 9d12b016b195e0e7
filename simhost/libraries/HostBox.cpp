#include "simhost/libraries/HostBox.h"

#include "controls/HostMessageBox.h"

namespace simhost {

TarnLong showBox(const std::string& text, const std::string& title, TarnLong style) {
    return ocuva::showHostMessageBox(text, title, style);
}

void stayLoaded() {} // the library is linked so

} // namespace simhost
