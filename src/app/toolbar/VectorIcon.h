#pragma once
// Icons drawn afresh for whatever size, pixel ratio and palette they are shown at.

#include "app/toolbar/IconInk.h"

#include <QIcon>
#include <QString>

namespace ocuva {

/// One drawing in one look, whatever mode or state it is asked for; only a selected list row has it in the
/// highlight's text colour. It follows the application's palette.
QIcon vectorIcon(const QString& key, bool on, IconLook look);

/// The images of a button: for each QIcon mode (Normal, Active = hot, Disabled) and state (Off, On) the icon
/// that stands for it.
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
