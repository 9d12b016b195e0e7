#pragma once
// The video magnification and the size of the field, read from the host each time.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "settings/Settings.h"

namespace ocuva {

/// The scale of the image. If any member is 0, there is no scale.
struct Magnification {
    Long magnification = 0; ///< 400 means 400 times
    Single x100 = 0.0F;     ///< width of the whole field in stage units at magnification 100
    Single y100 = 0.0F;     ///< height of the whole field in stage units at magnification 100
};

/// Reads and writes the magnification in the host's settings.
class MagnificationStore {
public:
    /// Both outlive it.
    MagnificationStore(Settings& settings, TnLibProxy& libProxy)
        : m_settings(settings)
        , m_libProxy(libProxy) {}

    /// Reads first the magnification, then the factors. Factors that the host does not give are 0.
    Magnification read() const;
    /// Writes in the same order; the host does not check the values.
    void write(const Magnification& magnification);

private:
    Settings& m_settings;
    TnLibProxy& m_libProxy;
};

} // namespace ocuva
