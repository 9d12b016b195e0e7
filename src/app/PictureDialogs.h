#pragma once
// The common file dialogs for pictures, and the folder that they open in.

#include "base/Product.h"
#include "pictures/CalibrationWords.h"

#include <QString>
#include <QStringList>
#include <QWidget>

#include <optional>

namespace ocuva {

/// Both give the full name in the system's notation, empty when the operator cancels.
QString choosePictureToOpen(QWidget& owner, const QString& folder);
/// Suggests the name "Video"; a name without extension gets that of the chosen type, ".tif" or ".bmp".
QString choosePictureToSave(QWidget& owner, const QString& folder);

/// The operator's choice about the description of a picture to be saved.
enum class DescriptionChoice { Omit, Write, Cancel };

/// The information for the operator before a picture is saved.
struct SaveQuestion {
    QStringList losses;                            ///< sentences about what would be lost
    std::optional<DescriptionWarning> description; ///< it would be that of another view

    /// Whether there is anything to ask.
    bool isNeeded() const { return !losses.isEmpty() || description.has_value(); }
};
/// Asks everything in one box. Enter cancels if data would be lost, otherwise it omits the description;
/// Escape cancels.
DescriptionChoice askBeforeSave(QWidget& owner, const SaveQuestion& question);

/// The folder of the last saved or opened picture, kept in the user's registry with the toolbar's layout
/// ("Pictures/Folder"); otherwise the user's folder for pictures.
class PictureFolder {
public:
    /// Read afresh; for a folder that is gone, the one for pictures.
    QString last() const;
    /// Stores the folder of that picture; written at once.
    void remember(const QString& pictureName) const;
};

} // namespace ocuva
