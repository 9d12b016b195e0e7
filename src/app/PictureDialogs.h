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

/// What is done about the description of a picture that is saved.
enum class DescriptionChoice { Omit, Write, Cancel };

/// What the operator has to know before a picture is saved.
struct SaveQuestion {
    QStringList losses;                            ///< sentences about what would be lost
    std::optional<DescriptionWarning> description; ///< it would be that of another view

    /// Whether there is anything to ask.
    bool isNeeded() const { return !losses.isEmpty() || description.has_value(); }
};
/// Asks all of it in one box. Enter cancels where something would be lost, else it omits the description;
/// Escape cancels.
DescriptionChoice askBeforeSave(QWidget& owner, const SaveQuestion& question);

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
