#pragma once
// The tab "Board": choosing the frame grabber, initialising it and shutting it down.

#include "setup/IndicatorShape.h"
#include "setup/SetupCameraPage.h"
#include "setup/SetupContext.h"
#include "setup/SetupPage.h"
#include "video/BoardSetup.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>

#include <memory>

namespace ocuva {

/// Shows the board's own flag: after Shut down it still reads as initialised, and a line with a button
/// explains how to continue.
class SetupBoardPage final : public SetupPage {
    Q_OBJECT

public:
    /// The board's state also decides whether the camera page's types can be chosen.
    SetupBoardPage(const char* name, const SetupContext& context, SetupCameraPage& cameraPage,
                   QWidget* parent);
    ~SetupBoardPage() override;

    void load() override;

    /// The controls, by their names.
    ///@{
    QGroupBox* frSetupBoard = nullptr;
    QComboBox* cbBoard = nullptr;
    QCheckBox* VgaCheck = nullptr;
    QPushButton* cmdInit = nullptr;
    QPushButton* cmdShut = nullptr;
    IndicatorShape* shInit = nullptr;
    IndicatorShape* shShut = nullptr;
    QWidget* frShutDown = nullptr; ///< shown on a board that was shut down
    QPushButton* cmdUnlock = nullptr;
    ///@}

Q_SIGNALS:
    /// The board was initialised or shut down.
    void boardChanged();

private:
    class View;

    void makeControls();
    void makeShutDownLine(QVBoxLayout& column);
    QPushButton* makeButton(const char* name, const QString& text, const QString& help);

    TnLibProxy& m_libProxy;
    Settings& m_settings;
    CTnVideoBoard& m_board;
    std::unique_ptr<View> m_view;
    BoardSetup m_setup;
};

} // namespace ocuva
