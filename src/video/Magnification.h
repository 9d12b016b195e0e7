#pragma once
// The video magnification and the size of the field, asked of the host each time.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "settings/Settings.h"

namespace ocuva {

struct Magnification {
    Long magnification = 0; ///< 400 means 400 times
    Single x100 = 0.0F;     ///< width of the whole field in stage units at magnification 100
    Single y100 = 0.0F;     ///< height of the whole field in stage units at magnification 100
};

class MagnificationStore {
public:
    MagnificationStore(Settings& settings, TnLibProxy& libProxy)
        : m_settings(settings)
        , m_libProxy(libProxy) {}

    /// First the magnification, then the factors. Factors that the host does not give are 0.
    Magnification read() const;
    void write(const Magnification& magnification);

private:
    Settings& m_settings;
    TnLibProxy& m_libProxy;
};

} // namespace ocuva
