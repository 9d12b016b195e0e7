#pragma once
// Saves and opens pictures: the image file, TIFF or BMP, with its description file.

#include "pictures/Calibration.h"
#include "pictures/Picture.h"

#include <filesystem>

namespace ocuva {

/// The picture was saved, but its description was not; what() is a sentence. A description that stood there,
/// of the picture before, is gone.
class DescriptionNotSaved : public PictureFileError {
public:
    using PictureFileError::PictureFileError;
};

/// Whether savePicture() accepts the name.
bool canBeSavedAs(const std::filesystem::path& name);

/// Saves as BMP if the name ends in ".bmp", and as TIFF if it ends in ".tif" or ".tiff", in any letter
/// case; refuses every other name. Picture and description are first written to temporary files. Then the
/// old description is moved away, the picture takes its place, and the description follows, so that a
/// description never is next to a picture that it does not belong to. Throws PictureFileError if the
/// picture was not saved; then the previous files are unchanged, and no temporary file is left.
void savePicture(const std::filesystem::path& name, const Picture& picture, const CalibrationPoints& points);

/// The same without a description; a former one is gone, as it belongs to another picture.
void savePictureAlone(const std::filesystem::path& name, const Picture& picture);

/// Opens a TIFF or BMP, recognised by the first bytes of the file. Throws PictureFileError.
Picture openPicture(const std::filesystem::path& name);

} // namespace ocuva
