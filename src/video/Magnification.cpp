#include "video/Magnification.h"

namespace ocuva {

Magnification MagnificationStore::read() const {
    Magnification result;
    result.magnification = m_settings.readVideoMag();
    m_libProxy.TarnGetVideoMag100Factors(&result.x100, &result.y100);
    return result;
}

void MagnificationStore::write(const Magnification& magnification) {
    m_settings.writeVideoMag(magnification.magnification);
    m_libProxy.TarnSetVideoMag100Factors(&magnification.x100, &magnification.y100);
}

} // namespace ocuva
