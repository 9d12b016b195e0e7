#pragma once
// What a TIFF's own description says of its calibration. The description file has no room for a
// view: the picture keeps it.
//
//   calibrationPoints=0,0,-320,-240,12 10000,...   the points as they were written to the description file
//   calibrationView=own                            they were picked on this very view
//   calibrationView=5100,1200,12,400               on another: stage X, Y, Z and magnification
//   calibrationView=unknown                        nobody knows where

#include "pictures/Calibration.h"
#include "pictures/Picture.h"

namespace ocuva {

/// The place of the picture according to its notes, if any.
std::optional<ViewPlace> placeOf(const std::vector<PictureNote>& notes);

/// Replaces the notes about a calibration. `view` is that of the points, `shown` that of the picture.
/// Without points, or if their view is unknown, the notes contain nothing about a calibration. A stored
/// picture without such notes stays without them as long as the points are its own, because this is what
/// their absence means.
void noteCalibration(std::vector<PictureNote>& notes, const std::optional<CalibrationPoints>& points,
                     const std::optional<CalibrationView>& view, const CalibrationView& shown);

/// The view of the points read with a picture: the picture's own unless its notes say otherwise. Points
/// other than those it was saved with have an unknown view.
CalibrationView viewOfPoints(const CalibrationPoints& read, const std::vector<PictureNote>& notes,
                             const CalibrationView& shown);

} // namespace ocuva
