#pragma once
// The tab "Monitor": grid, cross, and the options for the next start.

#include "setup/OverlaySetup.h"
#include "setup/SetupContext.h"
#include "setup/SetupPage.h"

#include <QCheckBox>
#include <QSpinBox>

#include <array>

namespace ocuva {

/// Grid and cross are redrawn at each change; the start-up boxes count at the next start.
class SetupMonitorPage final : public SetupPage {
    Q_OBJECT

public:
    /// Shows nothing of stores and host before load().
    SetupMonitorPage(const char* name, const SetupContext& context, QWidget* parent);

    void load() override;

    /// The start-up check boxes as they are stored now; the commands of the main window change them too.
    void showStartup();
    /// The grid in micrometres, by the present magnification.
    void showGrid();
    /// The same, but a box with typed text keeps it.
    void followMagnification();

    /// The controls, by their names.
    ///@{
    QGroupBox* frSetupGrid = nullptr;
    TextBox* txtGridWidth = nullptr;
    TextBox* txtGridHeight = nullptr;

    QGroupBox* frSetupCross = nullptr;
    QSpinBox* udCrossSize = nullptr;
    QSpinBox* udCrossThick = nullptr;

    QGroupBox* frSetupMonitorStartup = nullptr;
    QCheckBox* chkLiveImage = nullptr;
    QCheckBox* chkFullSize = nullptr;
    QCheckBox* chkShowCross = nullptr;
    QCheckBox* chkShowGrid = nullptr;
    QCheckBox* chkShowLargeButtons = nullptr;
    ///@}

private:
    struct StartupCheck {
        QCheckBox* SetupMonitorPage::*box;
        Long ViewOptions::*flag;
    };
    static const std::array<StartupCheck, 5> startupChecks;

    void makeGrid();
    void makeCross();
    void makeStartup();
    QSpinBox* makeUpDown(const char* name, const QString& help, int largest, int step);
    void showCross();
    void grid_LostFocus();
    void cross_Change();
    void startup_Click(const StartupCheck& check);

    Settings& m_settings;
    OverlaySetup m_overlays;
};

} // namespace ocuva
