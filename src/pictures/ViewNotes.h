#pragma once
// What a TIFF's own description says of the calibration beside it. The description file has no room for a
// view: the picture keeps it.
//
//   calibrationPoints=0,0,-320,-240,12 10000,...   the points as they were written beside the picture
//   calibrationView=own                            they were picked on this very view
//   calibrationView=5100,1200,12,400               on another: stage X, Y, Z and magnification
//   calibrationView=unknown                        nobody knows where

#include "pictures/Calibration.h"
#include "pictures/Picture.h"

namespace ocuva {

/// Where the picture was taken, as its notes say; nothing when they do not.
std::optional<ViewPlace> placeOf(const std::vector<PictureNote>& notes);

/// Replaces what the notes say of a calibration. The view is that of the points, shown that of the picture;
/// without points, or when nobody has said on which view they were picked, the notes say nothing of it. A
/// stored picture that said nothing goes on so while the points are its own, which is what saying nothing
/// means.
void noteCalibration(std::vector<PictureNote>& notes, const std::optional<CalibrationPoints>& points,
                     const std::optional<CalibrationView>& view, const CalibrationView& shown);

/// The view of the points that were read beside a picture: the picture's own unless its notes say otherwise.
/// Points that are not those it was saved with belong to a view that nobody knows.
CalibrationView viewOfPoints(const CalibrationPoints& read, const std::vector<PictureNote>& notes,
                             const CalibrationView& shown);

} // namespace ocuva
