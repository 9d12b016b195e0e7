#include "app/SetupControl.h"

#include "setup/frmSetup.h"

namespace ocuva {

SetupControl::SetupControl(const SetupControlContext& context)
    : m_context(context) {}

SetupControl::~SetupControl() = default;

void SetupControl::open() {
    if (m_frmSetup == nullptr || !m_frmSetup->isVisible()) {
        // A new one each time: it opens with its first page, and with what stores and host have now.
        HostReadings& readings = m_context.readings;
        Standards& standards = m_context.standards;
        m_frmSetup = std::make_unique<frmSetup>(
            SetupContext{readings.host, readings.settings, readings.magnification, readings.conversion,
                         m_context.image.cxvbBoard(), *this, m_context.monitor, m_memory, standards.list(),
                         [&standards] { return standards.AddStandard(false); },
                         [&standards] { standards.FillStageMenu(); },
                         [this](const QString& text) { m_context.guard.reportError(text); }},
            &m_context.window);
        m_context.controls.menu.lendFunctionKeys(*m_frmSetup);
    }
    m_frmSetup->show();
    m_frmSetup->raise();
    m_frmSetup->activateWindow();
}

void SetupControl::followMagnification() {
    if (m_frmSetup != nullptr && m_frmSetup->isVisible()) {
        m_frmSetup->followMagnification();
    }
}

void SetupControl::close() {
    if (m_frmSetup != nullptr) {
        m_frmSetup->close();
    }
}

} // namespace ocuva
