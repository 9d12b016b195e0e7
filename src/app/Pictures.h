#pragma once
// The main window's operations on pictures: saving the shown one, and showing a stored one in place of the
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

/// Their surroundings; everything outlives them.
struct PicturesContext {
    /// The source of a picture, and the contents of its notes.
    ///@{
    TnLog& log;
    CTnVideoBoard& board;
    CTnVideoImage& image;
    const CTnStage& stage;
    const MagnificationStore& magnification;
    ///@}
    /// The calibration, loaded at its first use.
    std::function<Calibration&()> calibration;
    /// The calibration has been replaced by that of a picture.
    std::function<void()> calibrationRead;
    /// The controls that show it.
    ///@{
    const MonitorPanels& panels;
    ImageInformation& information;
    ///@}
    /// Each asks for a file, starting in a folder; empty if the operator cancels.
    ///@{
    std::function<QString(const QString& folder)> chooseToOpen;
    std::function<QString(const QString& folder)> chooseToSave;
    ///@}
    /// Asks what to do if a save would lose data or write a wrong description.
    std::function<DescriptionChoice(const SaveQuestion&)> askBeforeSave;
    /// Shows what the program is waiting for and blocks input for the life of the returned object.
    std::function<std::shared_ptr<void>(const QString& what)> holdInput;
    /// Shows an error that leaves the picture on the screen.
    std::function<void(const QString&)> report;
    /// The window shows another image now: live or still, stored or not.
    std::function<void()> imageChanged;
    /// Receives each saved picture, for the journal.
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
    /// Its field as magnification and factors; nothing if the file does not contain it.
    std::optional<Magnification> field() const;
};

/// One picture at a time is shown in place of the live image.
class Pictures {
public:
    /// The camera's image is shown.
    explicit Pictures(const PicturesContext& context)
        : m_context(context) {}

    /// Saves the camera's current image, or the stored picture that is shown, under a name chosen by the
    /// operator. Asks before it writes a description of another view. Throws PictureFileError.
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
