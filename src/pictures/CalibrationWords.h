#pragma once
// The texts for the operator about a calibration and its view.

#include "pictures/ViewedCalibration.h"

#include <QString>

namespace ocuva {

/// For the panel about the image.
struct CalibrationWords {
    QString panel; ///< a few words, or empty
    QString tip;   ///< sentences, one a line

    bool operator==(const CalibrationWords&) const = default;
};

/// described: the calibration was read with the stored picture, even if it does not belong to it.
CalibrationWords calibrationWords(const ViewedCalibration& viewed, bool described);

/// The note in the question before a move: that there is no calibration, or where it was made and where
/// the stage is. Empty if the position is that of the clicked place.
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
