#pragma once
// The tab "Camera": the type of the camera, its references, its gain.

#include "setup/SetupContext.h"
#include "setup/SetupPage.h"
#include "video/CameraReferences.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QSlider>

#include <array>
#include <memory>

namespace ocuva {

/// Shows the host's values, not the requested ones; only the gain cannot be read.
class SetupCameraPage final : public SetupPage {
    Q_OBJECT

public:
    /// Shows nothing of stores and host before load().
    SetupCameraPage(const char* name, const SetupContext& context, QWidget* parent);
    ~SetupCameraPage() override;

    void load() override;

    /// Brings page and main window to what board and host have.
    void refresh();

    /// The frame round optCam.
    QGroupBox* frSetupCameraInput = nullptr;
    std::array<QRadioButton*, 4> optCam{}; ///< camera type - 1

    /// The frame round the references.
    QGroupBox* frSetupCameraReferences = nullptr;
    std::array<QSlider*, cameraReferences.size()> sldReference{}; ///< by CameraReference
    std::array<TextBox*, cameraReferences.size()> txtReference{}; ///< by CameraReference

    /// Automatic gain, or one of the slider's ranges; only the label of the current range is shown.
    ///@{
    QGroupBox* frSetupCameraSignal = nullptr;
    QCheckBox* chkAutoGain = nullptr;
    QSlider* sldGain = nullptr;
    QLabel* lblAutoGain = nullptr;
    std::array<QLabel*, gainRangeCount> lblGainRange{};
    ///@}

private:
    class View;

    void makeInput();
    void makeReferences();
    void makeSignal();
    void connectControls();
    void gain_Change();

    SetupMemory& m_memory;
    SetupMainWindow& m_mainWindow;
    std::unique_ptr<View> m_view;
    CameraSetup m_setup;
};

} // namespace ocuva
