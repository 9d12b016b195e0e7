#pragma once
// What the main window does with pictures: saving what is shown, and showing a stored one in place of the
// live image.

#include "app/ImageInformation.h"
#include "app/MonitorPanels.h"
#include "app/PictureDialogs.h"
#include "pictures/Calibration.h"
#include "pictures/CalibrationWords.h"
#include "pictures/Picture.h"
#include "stage/CTnStage.h"
#include "video/CTnVideoBoard.h"
#include "video/CTnVideoImage.h"
#include "video/Magnification.h"

#include <functional>
#include <memory>
#include <optional>

namespace ocuva {

/// What the pictures need; everything outlives them.
struct PicturesContext {
    /// Where a picture comes from, and what is noted with it.
    ///@{
    TnLog& log;
    CTnVideoBoard& board;
    CTnVideoImage& image;
    const CTnStage& stage;
    const MagnificationStore& magnification;
    ///@}
    /// The calibration, taken up from where it was kept at its first use.
    std::function<Calibration&()> calibration;
    /// The calibration has been replaced by that of a picture.
    std::function<void()> calibrationRead;
    /// Where it is shown.
    ///@{
    const MonitorPanels& panels;
    ImageInformation& information;
    ///@}
    /// Each asks for a file, beginning in a folder; empty when the operator cancels.
    ///@{
    std::function<QString(const QString& folder)> chooseToOpen;
    std::function<QString(const QString& folder)> chooseToSave;
    ///@}
    /// Asks what to do about what a save would lose or write wrongly.
    std::function<DescriptionChoice(const SaveQuestion&)> askBeforeSave;
    /// Shows what the program is busy with and keeps input away, as long as what it returns lives.
    std::function<std::shared_ptr<void>(const QString& what)> holdInput;
    /// Shows an error that leaves the picture on the screen.
    std::function<void(const QString&)> report;
    /// The window shows another image now: live or still, stored or not.
    std::function<void()> imageChanged;
    /// Told of each picture that was saved, for the journal.
    std::function<void(const QString& name)> saved = {};
};

/// A stored picture that is shown in place of the live image.
struct StoredPicture {
    QString name;           ///< full
    Picture picture;        ///< as it was read
    bool described = false; ///< the calibration was read from its description

    /// The name without its folder.
    QString bareName() const;
    /// As a calibration sees it.
    CalibrationView view() const;
    /// Its field as magnification and factors; nothing when the file does not tell.
    std::optional<Magnification> field() const;
};

/// One picture at a time is shown in place of the live image.
class Pictures {
public:
    /// The camera's image is shown.
    explicit Pictures(const PicturesContext& context)
        : m_context(context) {}

    /// Saves the camera's present image, or the stored picture that is shown, under a name that the operator
    /// chooses. One question comes before a save that loses something or writes a description of another
    /// view; when it is cancelled nothing is written, in the log neither. Throws PictureFileError.
    void save();

    /// Shows a picture that the operator chooses; a running grab is halted. Its description, when it has one,
    /// takes the place of the present calibration; one that cannot be used is reported and changes nothing.
    /// Throws PictureFileError, and changes nothing, when the picture cannot be opened.
    void open();

    /// The stored picture on the monitor; nothing while the camera's image is shown.
    const std::optional<StoredPicture>& stored() const { return m_stored; }

    /// Shows the camera's image again.
    void showCamera();

    /// A click that would move the stage if the camera's image were shown: says why it does not.
    void refuseClick();

private:
    Picture pictureToSave();
    CalibrationView viewOf(const Picture& picture) const;
    void write(const QString& name, Picture& picture, bool described);
    bool takeCalibration();
    void nameWeakPoints();
    QString howToGetAnImage() const;
    void log(const QString& line);
    void show();

    PicturesContext m_context;
    PictureFolder m_folder;
    std::optional<StoredPicture> m_stored;
};

} // namespace ocuva
