#include "app/help/WhatsThis.h"

#include <QCoreApplication>
#include <QStringList>

namespace ocuva {

namespace {

struct Explanation {
    const char* names; // of controls, blanks between them
    const char* text;
};

constexpr Explanation explanations[]{
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
                                    "next to the buttons to rearrange them.")},
};

} // namespace

void explainControls(QWidget& window) {
    for (const Explanation& row : explanations) {
        const QString text = QCoreApplication::translate("WhatsThis", row.text);
        for (const QString& name : QString::fromLatin1(row.names).split(u' ')) {
            for (QWidget* const control : window.findChildren<QWidget*>(name)) {
                control->setWhatsThis(text);
            }
        }
    }
}

} // namespace ocuva
