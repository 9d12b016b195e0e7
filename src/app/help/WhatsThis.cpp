#include "app/help/WhatsThis.h"

#include <QAction>
#include <QCoreApplication>
#include <QStringList>

namespace ocuva {

namespace {

struct Explanation {
    const char* names; // of controls and commands, blanks between them
    const char* text;
};

constexpr Explanation explanations[]{
    {"mmuOpen", QT_TRANSLATE_NOOP("WhatsThis", "Opens a picture that was saved before.")},
    {"mnuSaveAs Save",
     QT_TRANSLATE_NOOP("WhatsThis", "Saves the current image, without the overlays, and next to it a "
                                    "description of where on the stage it was taken.")},
    {"mnuExit", QT_TRANSLATE_NOOP("WhatsThis", "Ends the program and shuts the video board down.")},
    {"mnuAcq Acq",
     QT_TRANSLATE_NOOP("WhatsThis", "Starts and stops the live image. When it is stopped, the last "
                                    "image stays as a still.")},
    {"mnuZoom0 mnuZoom1 Zoom",
     QT_TRANSLATE_NOOP(
         "WhatsThis",
         "Shows the same field at full size, one screen pixel for each camera pixel, or at half that size.")},
    {"mnuCross Cross",
     QT_TRANSLATE_NOOP("WhatsThis", "Shows the centre of the image, where a clicked point arrives.")},
    {"mnuGrid Grid", QT_TRANSLATE_NOOP("WhatsThis", "Shows a grid over the image for judging distances.")},
    {"mnuMicroMarker frMicroMarker lbMicroMarker",
     QT_TRANSLATE_NOOP("WhatsThis",
                       "A bar of known length, in micrometres. It is right if the magnification is "
                       "that of the objective in use.")},
    {"mnuMove Stage",
     QT_TRANSLATE_NOOP("WhatsThis", "Drives to a position that you type. The arrow beside the "
                                    "button lists the standard positions.")},
    {"mmuBckl",
     QT_TRANSLATE_NOOP("WhatsThis", "Moves every axis a little away and back again, so that play in "
                                    "the drive is taken up from the usual side.")},
    {"mnuFocus Focus",
     QT_TRANSLATE_NOOP(
         "WhatsThis",
         "Lets the host search for the sharpest image by moving Z within the configured range.")},
    {"Picture", QT_TRANSLATE_NOOP("WhatsThis", "Ties a picture to stage positions by two or three points.")},
    {"mnuSetup Setup", QT_TRANSLATE_NOOP("WhatsThis", "Opens the settings. They take effect at once.")},
    {"mnuStandard Standard",
     QT_TRANSLATE_NOOP("WhatsThis",
                       "Has no function of its own. Standard positions are in the list beside the "
                       "button Stage.")},
    {"mnuAbout", QT_TRANSLATE_NOOP("WhatsThis", "Shows the version of the program.")},
    {"mnuManual", QT_TRANSLATE_NOOP("WhatsThis", "Opens the manual.")},
    {"mnuKeys", QT_TRANSLATE_NOOP("WhatsThis", "Opens the manual at the list of all keys.")},
    {"mnuWhatsThis", QT_TRANSLATE_NOOP("WhatsThis", "Explains the next item that you click.")},
    {"mnuPackReport",
     QT_TRANSLATE_NOOP(
         "WhatsThis",
         "Packs the log, the journal and the settings into one file, to be sent when you ask for help.")},
    {"milDisp frImage frMonitor",
     QT_TRANSLATE_NOOP("WhatsThis", "The image of the camera. Click a point, and the stage brings it to the "
                                    "centre. The frame blinks orange while the stage moves.")},
    {"frUpDown", QT_TRANSLATE_NOOP("WhatsThis", "Moves the stage up and down by the number of units on the "
                                                "button.")},
    {"X Y Z", QT_TRANSLATE_NOOP("WhatsThis", "The stage position, in stage units. Click (Space) to read it "
                                             "again, double-click (Enter) to type a position.")},
    {"Info",
     QT_TRANSLATE_NOOP("WhatsThis", "The state of the image: green lamp live, grey still, red when expected "
                                    "frames are missing. Click (Space) to measure its grey levels.")},
    {"tbMain",
     QT_TRANSLATE_NOOP("WhatsThis", "Each button does the same as a command of the menus. Double-click "
                                    "beside the buttons to rearrange them.")},
};

} // namespace

void explainControls(QWidget& window) {
    for (const Explanation& row : explanations) {
        const QString text = QCoreApplication::translate("WhatsThis", row.text);
        for (const QString& name : QString::fromLatin1(row.names).split(u' ')) {
            for (QWidget* const control : window.findChildren<QWidget*>(name)) {
                control->setWhatsThis(text);
            }
            for (QAction* const command : window.findChildren<QAction*>(name)) {
                command->setWhatsThis(text);
            }
        }
    }
}

} // namespace ocuva
