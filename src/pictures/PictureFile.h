#pragma once
// Saving and opening a picture: the image file, TIFF or BMP, with its description beside it.

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

/// Whether savePicture() takes such a name.
bool canBeSavedAs(const std::filesystem::path& name);

/// Saves as BMP under a name that ends in ".bmp", and as TIFF under one that ends in ".tif" or ".tiff", in
/// any letter case; refuses every other name. Picture and description are both written aside first; then the
/// former description is taken away, the picture takes its place and after it the description, so that at no
/// moment a description stands beside a picture that it does not belong to. Throws PictureFileError when the
/// picture was not saved: what stood there is whole then, description included, and nothing is left behind.
void savePicture(const std::filesystem::path& name, const Picture& picture, const CalibrationPoints& points);

/// The same without a description; a former one is gone, as it belongs to another picture.
void savePictureAlone(const std::filesystem::path& name, const Picture& picture);

/// Opens a TIFF or BMP; which of them, the file's first bytes tell. Throws PictureFileError.
Picture openPicture(const std::filesystem::path& name);

} // namespace ocuva
