#pragma once
// The camera's present image as a picture: what the board holds, at its full size and without what lies on
// the screen.

#include "pictures/Picture.h"
#include "stage/CTnStage.h"
#include "video/CTnVideoImage.h"
#include "video/Magnification.h"

namespace ocuva {

/// Lets the host write its current image to a temporary file and reads that back; right after it the stage is
/// asked where it stands. Throws PictureFileError when the host gives no image, as before the first frame;
/// its text ends with the advice, a sentence.
Picture cameraImage(CTnVideoImage& image, const CTnStage& stage, const Magnification& magnification,
                    const QString& advice);

} // namespace ocuva
