#pragma once
// The part of the calibration dialog that says how good the calibration is.

#include "pictures/CalibrationQuality.h"

#include <QFrame>
#include <QLabel>

namespace ocuva {

/// One remark as a sentence.
QString remarkText(const CalibrationRemark& remark);

/// Shows one judgement at a time, the lines always at the same place.
class CalibrationVerdict final : public QFrame {
    Q_OBJECT

public:
    /// Empty until showQuality or another function is called.
    explicit CalibrationVerdict(QWidget* parent);

    /// Shows scale, axes and the remarks as sentences, after the sentence `first`, if any.
    void showQuality(const CalibrationQuality& quality, const QString& first = {});
    /// There is nothing to judge yet, and why.
    void showReason(const QString& reason);

    /// The controls, by their names.
    ///@{
    QLabel* LabelScale = nullptr;
    QLabel* LabelAngle = nullptr;
    QLabel* LabelRemarks = nullptr;
    ///@}
};

} // namespace ocuva
