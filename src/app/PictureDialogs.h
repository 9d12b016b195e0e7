#pragma once
// The common file dialogs for pictures, and the folder that they open in.

#include "base/Product.h"
#include "pictures/CalibrationWords.h"

#include <QString>
#include <QWidget>

namespace ocuva {

/// Both give the full name in the system's notation, empty when the operator cancels.
QString choosePictureToOpen(QWidget& owner, const QString& folder);
/// Suggests the name "Video"; a name without extension gets that of the chosen type, ".tif" or ".bmp".
QString choosePictureToSave(QWidget& owner, const QString& folder);

/// Shows what a save would lose; true when the operator saves all the same. Cancel is the default.
bool askToSaveAnyway(QWidget& owner, const QString& losses);

/// What is done about a description of another view.
enum class DescriptionChoice { Omit, Write, Cancel };
/// Tells the operator that the calibration is not that of the picture, and asks. Enter omits the description,
/// Escape cancels.
DescriptionChoice askForDescription(QWidget& owner, const DescriptionWarning& warning);

/// The folder that a picture was saved to or opened from last, kept from one start to the next in the user's
/// registry beside the toolbar's layout ("Pictures/Folder"); else the user's folder for pictures.
class PictureFolder {
public:
    /// Read afresh; for a folder that is gone, the one for pictures.
    QString last() const;
    /// Keeps the folder of that picture; written at once.
    void remember(const QString& pictureName) const;
};

} // namespace ocuva
