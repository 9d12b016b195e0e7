#pragma once
// The frame of the calibration dialog with one row of boxes and buttons per point.

#include "controls/TextBox.h"
#include "pictures/CalibrationQuality.h"
#include "pictures/TypedPoints.h"

#include <QFrame>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <initializer_list>
#include <optional>

class QGridLayout;

namespace ocuva {

/// FramePoint: shows and forwards, knows nothing of stage or picture. Points are counted from 0 here, and
/// from 1 in the names of the controls (XI1, ButI1, LabelPtI1).
class PointRows final : public QFrame {
    Q_OBJECT

public:
    /// Three rows, all empty and in use.
    explicit PointRows(QWidget* parent);

    /// The controls of one point.
    struct Row {
        QLabel* LabelPtI = nullptr;                    ///< "Point 1"
        std::array<TextBox*, pointFieldCount> boxes{}; ///< by PointField
        QPushButton* ButI = nullptr; ///< picks the point on the image; stays down while it is being selected
        QPushButton* ButX = nullptr; ///< reads the stage
        QLabel* LabelOff = nullptr;  ///< the point's residual
    };
    /// Of that point; throws std::out_of_range beyond the third.
    ///@{
    const Row& row(std::size_t point) const { return m_rows.at(point); }
    TextBox* box(std::size_t point, PointField field) const;
    ///@}

    /// The texts in all boxes, including unused rows.
    std::array<PointTexts, 3> texts() const;
    /// Whether a box of a row in use is empty.
    bool hasEmptyBoxes() const;
    /// The first row in use with one of these boxes empty.
    std::optional<std::size_t> firstWithout(std::initializer_list<PointField> wanted) const;
    /// Puts the texts into the boxes of that point.
    void setPoint(std::size_t point, const PointTexts& texts);
    /// Empties all boxes.
    void clear();

    /// Which rows can be used at all.
    void setTwoPoints(bool twoPoints);
    /// While the stage moves, nothing can be picked or read. A button that had the keyboard focus gets it
    /// back afterwards.
    void setBusy(bool busy);
    /// While the assistant fills the rows, the texts can be read but not changed, and nothing can be picked or
    /// read by hand.
    void setLocked(bool locked);
    /// Keeps the Pick button of that point down, and no other.
    void showSelected(std::optional<std::size_t> point);
    /// Shows the residual of each point; empty if the quality has none.
    void showResiduals(const CalibrationQuality& quality);

Q_SIGNALS:
    /// The text in a box of that point has changed, by the operator or the program.
    void edited(int point, ocuva::PointField field);
    /// A button of that point was pressed.
    ///@{
    void pickPressed(int point);
    void readPressed(int point);
    ///@}

private:
    void makeHeader(QGridLayout& grid);
    Row makeRow(QGridLayout& grid, std::size_t point);
    void enableRows();
    bool isInUse(std::size_t point) const { return point < 2 || !m_twoPoints; }

    std::array<Row, 3> m_rows;
    bool m_twoPoints = false;
    bool m_busy = false;
    bool m_locked = false;
    QPointer<QWidget> m_focusBefore; // of the window, when it became busy
    QPointer<QWidget> m_focusMeanwhile;
};

} // namespace ocuva
