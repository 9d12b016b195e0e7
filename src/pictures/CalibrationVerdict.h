#pragma once
// The part of the calibration dialog that says how good the calibration is.

#include "pictures/CalibrationQuality.h"

#include <QFrame>
#include <QLabel>

namespace ocuva {

/// One remark as a sentence.
QString remarkText(const CalibrationRemark& remark);

class CalibrationVerdict final : public QFrame {
    Q_OBJECT

public:
    explicit CalibrationVerdict(QWidget* parent);

    void showQuality(const CalibrationQuality& quality);
    /// There is nothing to judge yet, and why.
    void showReason(const QString& reason);

    QLabel* LabelScale = nullptr;
    QLabel* LabelAngle = nullptr;
    QLabel* LabelRemarks = nullptr;
};

} // namespace ocuva
