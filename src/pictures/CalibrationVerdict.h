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
    /// Says nothing until asked to.
    explicit CalibrationVerdict(QWidget* parent);

    /// Scale, axes, and the remarks as sentences, after a first one of somebody else's.
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
