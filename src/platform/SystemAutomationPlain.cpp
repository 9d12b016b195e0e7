#include "platform/SystemAutomation.h"

namespace ocuva {

std::unique_ptr<Automation> systemAutomation() { return std::make_unique<NoAutomation>(); }

} // namespace ocuva
