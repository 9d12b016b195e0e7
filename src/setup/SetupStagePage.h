#pragma once
// The tab "Stage": magnification, directions of movement, standards.

#include "setup/MagnificationSetup.h"
#include "setup/SetupContext.h"
#include "setup/SetupPage.h"

#include <QPushButton>
#include <QRadioButton>

#include <array>

namespace ocuva {

/// The values typed here determine how far a click on the image moves the stage.
class SetupStagePage final : public SetupPage {
    Q_OBJECT

public:
    /// Shows nothing of stores and host before load().
    SetupStagePage(const char* name, const SetupContext& context, QWidget* parent);

    void load() override;

    /// The magnification and the field as the host has them now; a box with typed text keeps it.
    void followMagnification();

    /// The controls, by their names; lblMoveSymbols are those of X and Y.
    ///@{
    QGroupBox* frMagnification = nullptr;
    TextBox* txtMag = nullptr;
    TextBox* txtMagX100 = nullptr;
    TextBox* txtMagY100 = nullptr;

    QGroupBox* frMovement = nullptr;
    QGroupBox* frMoveX = nullptr;
    QGroupBox* frMoveY = nullptr;
    std::array<QLabel*, 2> lblMoveSymbols{};
    ///@}
    std::array<QRadioButton*, 2> optMoveX{}; ///< not inverted, inverted
    std::array<QRadioButton*, 2> optMoveY{}; ///< the same

    /// The controls, by their names.
    ///@{
    QGroupBox* frMoveStandardList = nullptr;
    QPushButton* cmdStandardSort = nullptr;
    ///@}

Q_SIGNALS:
    /// Magnification or field are stored: lengths in micrometres have changed.
    void magnificationChanged();
    /// The operator wants to see the list of standards.
    void cmdStandardSort_Click();

private:
    struct MoveTexts {
        const char* frame;
        QString axis;
        const char* symbolsName;
        QString symbols;
        std::array<const char*, 2> optionNames;
        std::array<QString, 2> options;
    };

    QGroupBox* makeMove(const MoveTexts& texts, QLabel*& symbols, std::array<QRadioButton*, 2>& options);
    void makeMagnification();
    void makeMovement();
    void makeStandards();
    void magnification_LostFocus();
    void showMagnification();
    void move_Click(Long ViewOptions::*flag, std::size_t index);

    Settings& m_settings;
    MagnificationSetup m_magnification;
};

} // namespace ocuva
