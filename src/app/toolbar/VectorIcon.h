#pragma once
// Icons drawn for any size, pixel ratio and palette.

#include "app/toolbar/IconInk.h"

#include <QIcon>
#include <QString>

namespace ocuva {

/// One drawing in one look for every mode and state; only in a selected list row it has the highlight's
/// text colour. It follows the application's palette.
QIcon vectorIcon(const QString& key, bool on, IconLook look);

/// The images of a button: the icon for each QIcon mode (Normal, Active = hot, Disabled) and state (Off,
/// On).
struct ButtonImages {
    /// By mode, for the states Off and On.
    ///@{
    QIcon normalOff, normalOn;
    QIcon hotOff, hotOn;
    QIcon disabledOff, disabledOn;
    ///@}
};
/// One icon that shows the right image for each mode and state.
QIcon buttonIcon(const ButtonImages& images);

/// The emblem for windows and the task bar.
QIcon applicationIcon();

} // namespace ocuva
