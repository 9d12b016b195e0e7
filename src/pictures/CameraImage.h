#pragma once
// The camera's current image as a picture: the board's frame at full size, without overlays.

#include "pictures/Picture.h"
#include "stage/CTnStage.h"
#include "video/CTnVideoImage.h"
#include "video/Magnification.h"

namespace ocuva {

/// Lets the host write its current image to a temporary file and reads that file; right after it the stage
/// position is read. Throws PictureFileError if the host gives no image, as before the first frame; its
/// text ends with `advice`, a sentence.
Picture cameraImage(CTnVideoImage& image, const CTnStage& stage, const Magnification& magnification,
                    const QString& advice);

} // namespace ocuva
