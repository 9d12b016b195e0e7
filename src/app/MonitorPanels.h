#pragma once
// The controls in the main window's client area: the nest of frames with the display, and the panel of Z
// buttons.

#include "app/GroupFrame.h"
#include "display/MicroMarkerPanel.h"
#include "display/MilDisplay.h"

#include <QToolButton>
#include <QWidget>

#include <array>

namespace ocuva {

/// The sunken frame right round the display.
class ImageFrame final : public QWidget {
    Q_OBJECT

public:
    /// Without a bevel until setFramed.
    explicit ImageFrame(QWidget* parent);
    /// The control that the bevel is drawn round.
    void setFramed(const QWidget* framed) { m_framed = framed; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QWidget* m_framed = nullptr;
};

/// The Z buttons: four steps up and four down, the biggest outermost.
class UpDownPanel {
public:
    /// In its initial layout. The buttons do nothing by themselves.
    explicit UpDownPanel(QWidget* parent);

    /// The controls, by their names; buttons by the index of their step in zSteps.
    ///@{
    GroupFrame* frUpDown = nullptr;
    std::array<QToolButton*, 4> cmdUp{};
    std::array<QToolButton*, 4> cmdDown{};
    ///@}
};

/// frMonitor and its contents in their initial layout.
class MonitorPanels {
public:
    /// The display attaches itself to the windows, which outlive it.
    MonitorPanels(DisplayWindows& windows, QWidget* parent);

    /// The controls, by their names, from the outermost to the innermost.
    ///@{
    GroupFrame* frMonitor = nullptr;
    ImageFrame* frImage = nullptr;
    MilDisplay* milDisp = nullptr;
    MicroMarkerPanel* frMicroMarker = nullptr;
    ///@}
};

} // namespace ocuva
