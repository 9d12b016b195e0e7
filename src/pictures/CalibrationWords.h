#pragma once
// What the operator reads about a calibration and the view that it belongs to.

#include "pictures/ViewedCalibration.h"

#include <QString>

namespace ocuva {

/// For the panel about the image.
struct CalibrationWords {
    QString panel; ///< a few words; empty where there is nothing to say
    QString tip;   ///< sentences, one a line

    bool operator==(const CalibrationWords&) const = default;
};

/// described: the calibration was read beside the stored picture, even if it does not belong to it.
CalibrationWords calibrationWords(const ViewedCalibration& viewed, bool described);

/// What the question before a move adds: that there is no calibration, or where it was made and where the
/// stage is. Empty when the place asked about is the one that was clicked.
QString moveQuestionNote(const Calibration& calibration, const ViewedCalibration& viewed);

/// Why a description written with this view would be wrong.
struct DescriptionWarning {
    QString text; ///< one sentence
    QString more; ///< where the calibration was made and where the picture was taken
};
/// Nothing when the description is that of the view, or there is no calibration.
std::optional<DescriptionWarning> descriptionWarning(const Calibration& calibration,
                                                     const ViewedCalibration& viewed);

} // namespace ocuva
