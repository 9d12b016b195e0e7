#include "app/SecondStart.h"

#include <thread>

namespace ocuva {

bool wakeWithin(TnOcuva& ocuva, std::chrono::milliseconds patience) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds pause{250};
    const Clock::time_point end = Clock::now() + patience;
    for (;;) {
        if (ocuva.TarnOcuvaSendMsgByName("OCUVA_WakeUp") != 0) {
            return true;
        }
        if (Clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(pause);
    }
}

} // namespace ocuva
