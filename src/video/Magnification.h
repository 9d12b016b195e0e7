#pragma once
// The video magnification and the size of the field, asked of the host each time.

#include "base/Types.h"
#include "hostlink/Host.h"
#include "settings/Settings.h"

namespace ocuva {

/// What lengths on the image are told by. Any of it may be 0, and then no length can be told.
struct Magnification {
    Long magnification = 0; ///< 400 means 400 times
    Single x100 = 0.0F;     ///< width of the whole field in stage units at magnification 100
    Single y100 = 0.0F;     ///< height of the whole field in stage units at magnification 100
};

/// Reads and writes it where the host keeps it.
class MagnificationStore {
public:
    /// Both outlive it.
    MagnificationStore(Settings& settings, TnLibProxy& libProxy)
        : m_settings(settings)
        , m_libProxy(libProxy) {}

    /// First the magnification, then the factors. Factors that the host does not give are 0.
    Magnification read() const;
    /// In the same order; the host checks nothing.
    void write(const Magnification& magnification);

private:
    Settings& m_settings;
    TnLibProxy& m_libProxy;
};

} // namespace ocuva
